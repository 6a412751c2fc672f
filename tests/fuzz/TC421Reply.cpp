// SPDX-License-Identifier: MIT
#include "device/TC421/Reply.h"

#include "tests/fuzz/Fuzz.h"

/// What a device reads as a reply, and the search of the network as an answer.
void Feed(std::string_view input) {
  const auto reply = TC421::ReadReply(input);
  Expect(reply.has_value() == (input.size() >= 64), "64 bytes are a reply");
  const auto answer = TC421::ReadFindAnswer(input);
  if (!reply) {
    Expect(!answer, "no answer without a reply");
    return;
  }
  Expect(answer.has_value() == (reply->command == 0x17), "only the answer to a search names a device");
  Expect(reply->text.size() <= 60 && reply->text.find('\0') == std::string_view::npos, "the text has an end");
  Expect(reply->Verdict() >= -128 && reply->Verdict() <= 127, "the verdict is a byte");
}
