// SPDX-License-Identifier: MIT
#include <cstdio>
#include <exception>
#include <stdexcept>

#include "Controller.h"
#include "Options.h"

int main(int argc, char** argv) {
  try {
    const SimTC421::Options options = SimTC421::ParseOptions(argc, argv);
    if (options.help) {
      std::fputs(SimTC421::HelpText().c_str(), stdout);
      return 0;
    }
    SimTC421::Controller(options).Run();
    return 0;
  } catch (const std::invalid_argument& error) {
    std::fprintf(stderr, "sim-tc421: %s Try --help.\n", error.what());
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "sim-tc421: %s\n", error.what());
    return 1;
  }
}
