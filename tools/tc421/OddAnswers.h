// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "Frame.h"

namespace SimTC421 {

// What becomes of one packet.
struct Answering {
  bool isLost = false;                             // the packet has no effect
  bool isHeldBack = false;                         // its answers come behind those to the next packet
  std::vector<std::chrono::milliseconds> answers;  // when each comes; empty for none
};

// Packets that are answered otherwise than the rest: one rule each, the first that fits counts.
class OddAnswers {
 public:
  // As HelpText explains it. Throws std::invalid_argument with a finished sentence.
  void Add(const std::string& rule);
  static std::string HelpText();
  // Counts the packet; `usual` is what becomes of those that no rule fits.
  Answering Next(Kind kind, const Answering& usual);

 private:
  struct Rule {
    Kind kind;
    std::optional<int> number;
    void (*apply)(Answering& answering, std::chrono::milliseconds time);
    std::chrono::milliseconds time;
  };

  std::vector<Rule> rules;
  std::map<Kind, int> counts;
};

}  // namespace SimTC421
