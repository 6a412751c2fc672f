// SPDX-License-Identifier: MIT
#include <cstdio>
#include <exception>
#include <stdexcept>

#include "Controller.h"
#include "Options.h"

int main(int argc, char** argv) {
  try {
    const SimUsb::Options options = SimUsb::ParseOptions(argc, argv);
    if (options.help) {
      std::fputs(SimUsb::HelpText().c_str(), stdout);
      return 0;
    }
    SimUsb::BlockEndSignals();
    SimUsb::Controller(options).Run();
    return 0;
  } catch (const std::invalid_argument& error) {
    std::fprintf(stderr, "sim-usb: %s Try --help.\n", error.what());
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "sim-usb: %s\n", error.what());
    return 1;
  }
}
