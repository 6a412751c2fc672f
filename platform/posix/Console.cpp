// SPDX-License-Identifier: MIT
#include "platform/Console.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <csignal>

namespace platform {
namespace {

std::atomic<bool> isInterrupted = false;

void NoteInterrupt(int) {
  isInterrupted = true;
}

/// Holds the places of standard streams that the caller has closed; else the next file or device to be opened
/// would take them, and get what is printed. Writing to these fails, as it should.
void OccupyStandardDescriptors() {
  for (int number = STDIN_FILENO; number <= STDERR_FILENO; ++number) {
    if (fcntl(number, F_GETFD) < 0) open("/dev/null", O_RDONLY);
  }
}

}  // namespace

std::vector<std::string> StartConsole(int argc, char** argv) {
  OccupyStandardDescriptors();
  std::signal(SIGXFSZ, SIG_IGN);  // a file that may not grow is an error like a full disk, not the end
  return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

void WatchInterrupts() {
  for (const int signal : {SIGINT, SIGTERM}) std::signal(signal, NoteInterrupt);
  // Whoever starts the program so that it outlives its terminal (nohup) means it.
  if (std::signal(SIGHUP, NoteInterrupt) == SIG_IGN) std::signal(SIGHUP, SIG_IGN);
  std::signal(SIGPIPE, SIG_IGN);
}

bool IsInterrupted() {
  return isInterrupted;
}

}  // namespace platform
