// SPDX-License-Identifier: MIT
#include "platform/Console.h"

#include <windows.h>
// after windows.h
#include <shellapi.h>

#include <atomic>

#include "platform/win32/Strings.h"

namespace platform {
namespace {

std::atomic<bool> isInterrupted = false;

BOOL WINAPI NoteInterrupt(DWORD event) {
  isInterrupted = true;
  // Windows ends the program when the handler of these returns: hold it until the main thread has finished.
  if (event == CTRL_CLOSE_EVENT || event == CTRL_LOGOFF_EVENT || event == CTRL_SHUTDOWN_EVENT)
    Sleep(INFINITE);
  return TRUE;
}

}  // namespace

std::vector<std::string> StartConsole(int, char**) {
  SetConsoleOutputCP(CP_UTF8);
  std::vector<std::string> arguments;
  int count = 0;
  if (wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count)) {
    for (int i = 1; i < count; ++i) arguments.push_back(Narrow(wide[i]));
    LocalFree(wide);
  }
  return arguments;
}

void WatchInterrupts() {
  SetConsoleCtrlHandler(NoteInterrupt, TRUE);
}

bool IsInterrupted() {
  return isInterrupted;
}

}  // namespace platform
