// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
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
  bool help = false;
  bool once = false;
  bool silent = false;
  bool nonsense = false;
  bool refuseOpen = false;
  int reports = 1;      // input reports in one answer
  int unplugAfter = 0;  // frames; 0 is never
  std::chrono::milliseconds delay{0};
  std::chrono::milliseconds pause{30};
  SimTC421::OddAnswers odd;  // of a tc421
  std::string transcript;    // empty: frames are not recorded
  std::string udc;           // empty: the first free one
};

// Throws std::invalid_argument with a finished sentence when the arguments make no sense.
Options ParseOptions(int argc, char** argv);

std::string HelpText();

}  // namespace SimUsb
