// SPDX-License-Identifier: MIT
#include <cstdio>
#include <exception>
#include <stdexcept>

#include "Controller.h"
#include "Options.h"

int main(int argc, char** argv) {
  CLI::App app;
  SimUsb::Options options;
  SimUsb::AddOptions(app, options);
  try {
    app.parse(argc, argv);
    SimUsb::BlockEndSignals();
    SimUsb::Controller(options).Run();
    return 0;
  } catch (const CLI::ParseError& end) {
    return app.exit(end) == 0 ? 0 : 2;  // prints the help, or what is wrong
  } catch (const std::invalid_argument& error) {
    std::fprintf(stderr, "sim-usb: %s Try --help.\n", error.what());
    return 2;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "sim-usb: %s\n", error.what());
    return 1;
  }
}
