// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace platform {

/// The program's arguments, without its name, in UTF-8; prepares the console for UTF-8 output and the
/// standard streams for bytes as they are.
std::vector<std::string> StartConsole(int argc, char** argv);

/// A variable of the environment, in UTF-8; empty when it is not set.
std::string Variable(const char* name);

/// From now on Ctrl+C (and a request to end, and the loss of the terminal) only sets a flag, and writing to a
/// closed pipe only fails, so that work with a device can be ended in order.
void WatchInterrupts();
bool IsInterrupted();

}  // namespace platform
