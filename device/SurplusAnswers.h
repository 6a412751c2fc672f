// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/Clock.h"

namespace TCBase {

/// Keeps the answer to one packet from being taken for that to a later one: answers do not say which packet
/// they are for. While each packet is answered once and in time this takes no time at all. After a packet
/// that had to be sent again the next one waits until the line has been silent for 2.1 s; and once an answer
/// has come that nobody waited for, each packet waits for as long a silence as the latest of them took, 2.1 s
/// at most.
class SurplusAnswers {
 public:
  explicit SurplusAnswers(platform::Clock& clock) : clock_(clock) {}

  /// To be called before a packet's first sending. `drop` takes an answer that waits and throws it away;
  /// false when none does. False is given when the answers do not end.
  bool Clear(const std::function<bool()>& drop);
  /// Whether an answer has come that nobody waited for.
  bool WereSeen() const { return silence_ > 0; }
  /// The packet in hand had to be sent again: more than one answer may come.
  void WasSentAgain() { isMoreExpected_ = true; }
  /// An answer came that nobody waited for.
  void WasSurplus();

 private:
  std::int64_t Milliseconds() { return clock_.Counter() / (clock_.Frequency() / 1000); }
  std::int64_t NeededSilence() const;

  platform::Clock& clock_;
  std::optional<std::int64_t> cleanSince_;  // when no answer was on its way
  std::int64_t silence_ = 0;                // what each packet waits for; milliseconds
  bool isMoreExpected_ = false;
};

}  // namespace TCBase
