// SPDX-License-Identifier: MIT
#pragma once

#include <netinet/in.h>

#include <CLI/CLI.hpp>
#include <limits>
#include <optional>
#include <set>
#include <string>

#include "../tc421/OddAnswers.h"

namespace SimTC421 {

struct Options {
  std::optional<std::string> name;      // else the controller's own address
  std::optional<std::string> identity;  // else the name
  std::string transcript;               // empty: datagrams are not recorded
  std::string state;                    // empty: it is not written
  int lose = 0;                         // datagrams
  int vanishAfter = std::numeric_limits<int>::max();
  int delay = 0;  // milliseconds
  std::size_t answerSize = Frame().size();
  std::size_t answers = 1;      // to one packet
  std::optional<in_addr> from;  // else the address that was asked
  std::set<Kind> ignored;
  OddAnswers odd;
  bool silent = false;
  bool refuse = false;
  bool babble = false;
};

// What the tool's arguments set, and its help. Parsing may throw std::invalid_argument, too, with a finished
// sentence.
void AddOptions(CLI::App& app, Options& options);

}  // namespace SimTC421
