// SPDX-License-Identifier: MIT
#include "platform/Console.h"

#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <csignal>
#include <cstdlib>

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

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value != nullptr ? value : "";
}

void WatchInterrupts() {
  struct sigaction note {};
  note.sa_handler = NoteInterrupt;  // without SA_RESTART: waiting for input or for a full pipe ends
  // Also in the background of a script, whose shell has SIGINT ignored: a script that sends one means it.
  for (const int signal : {SIGINT, SIGTERM, SIGQUIT}) sigaction(signal, &note, nullptr);
  // Whoever starts the program so that it outlives its terminal (nohup) means it.
  struct sigaction before {};
  sigaction(SIGHUP, &note, &before);
  if (before.sa_handler == SIG_IGN) sigaction(SIGHUP, &before, nullptr);
  std::signal(SIGPIPE, SIG_IGN);
}

bool IsInterrupted() {
  return isInterrupted;
}

}  // namespace platform
