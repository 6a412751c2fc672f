// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <string>

#include "../tc421/OddAnswers.h"

namespace SimUsb {

// What a model is on the bus.
struct Model {
  const char* name;
  const char* product;
  std::uint16_t vendorId;
  std::uint16_t productId;
};

struct Options {
  Model model{"tc420", "TC420", 0x0888, 0x4000};
  bool once = false;
  bool silent = false;
  bool nonsense = false;
  bool refuseOpen = false;
  int reports = 1;           // input reports in one answer
  int unplugAfter = 0;       // frames; 0 is never
  int delay = 0;             // milliseconds
  int pause = 30;            // milliseconds
  SimTC421::OddAnswers odd;  // of a tc421
  std::string transcript;    // empty: frames are not recorded
  std::string udc;           // empty: the first free one
};

// What the tool's arguments set, and its help. Parsing may throw std::invalid_argument, too, with a finished
// sentence.
void AddOptions(CLI::App& app, Options& options);

}  // namespace SimUsb
