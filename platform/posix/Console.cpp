// SPDX-License-Identifier: MIT
#include "platform/Console.h"

#include <atomic>
#include <csignal>

namespace platform {
namespace {

std::atomic<bool> isInterrupted = false;

void NoteInterrupt(int) {
  isInterrupted = true;
}

}  // namespace

std::vector<std::string> StartConsole(int argc, char** argv) {
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void WatchInterrupts() {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, NoteInterrupt);
  std::signal(SIGPIPE, SIG_IGN);
}

bool IsInterrupted() {
  return isInterrupted;
}

}  // namespace platform
