// SPDX-License-Identifier: MIT
#include "platform/Console.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>
// after windows.h
#include <shellapi.h>

#include <atomic>
#include <cstdio>

#include "QorLib/qor_win_str_utils.h"

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
  for (FILE* stream : {stdin, stdout, stderr}) _setmode(_fileno(stream), _O_BINARY);
  std::vector<std::string> arguments;
  int count = 0;
  if (wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count)) {
    for (int i = 1; i < count; ++i) arguments.push_back(qor::win::Utf8FromWide(wide[i]));
    LocalFree(wide);
  }
  return arguments;
}

std::string Variable(const char* name) {
  const std::wstring wideName = qor::win::WideFromUtf8(name);
  std::wstring value(GetEnvironmentVariableW(wideName.c_str(), nullptr, 0), L'\0');
  value.resize(GetEnvironmentVariableW(wideName.c_str(), value.data(), static_cast<DWORD>(value.size())));
  return qor::win::Utf8FromWide(value);
}

void WatchInterrupts() {
  SetConsoleCtrlHandler(NoteInterrupt, TRUE);
}

bool IsInterrupted() {
  return isInterrupted;
}

}  // namespace platform
