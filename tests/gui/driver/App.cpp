// SPDX-License-Identifier: MIT
#include "tests/gui/driver/App.h"

#include <psapi.h>

#include <filesystem>
#include <fstream>

#include "QorLib/qor_win_str_utils.h"
#include "chart/ChartGeometry.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

using qor::win::WideFromUtf8;

/// The process's uppermost window of a class that is seen.
HWND FindWindowOf(DWORD process, const wchar_t* className) {
  HWND window = nullptr;
  while ((window = FindWindowExW(nullptr, window, className, nullptr)) != nullptr) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == process && IsWindowVisible(window)) break;
  }
  return window;
}

}  // namespace

App::App(const std::string& folder, const std::string& arguments)
    : folder_(std::filesystem::absolute(folder).string()) {
  std::filesystem::create_directory(folder_);
  SetEnvironmentVariableW(L"HALVEX_HOME", WideFromUtf8(folder_).c_str());
  std::wstring line = WideFromUtf8('"' + program + "\" --renderer gdi " + arguments);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process_);
  Until("the window comes", [this] {
    window_ = FindWindowOf(process_.dwProcessId, L"HALVEX");
    return window_ != nullptr || !IsRunning();
  });
  Expect(window_ != nullptr, "the program does not start");
  hook_ = SetWindowsHookExW(WH_CALLWNDPROC, probe::Hook, GetModuleHandleW(L"gui_probe.dll"),
                            GetWindowThreadProcessId(window_, nullptr));
  Until("the window is ready", [this] {
    if (FindDialog() != nullptr) return true;
    if (GetForegroundWindow() != window_) SetForegroundWindow(window_);
    return GetForegroundWindow() == window_ && !TextOf(Control(UX::LogId)).empty();
  });
  Settle();
}

App::~App() {
  UnhookWindowsHookEx(hook_);
  TerminateProcess(process_.hProcess, 1);
  WaitForSingleObject(process_.hProcess, 5000);
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

// Reading

HWND App::Control(int id) const {
  const HWND control = GetDlgItem(window_, id);
  Expect(control != nullptr, "no control " + std::to_string(id));
  return control;
}

void App::Await(int id, const std::string& part) const {
  Until("control " + std::to_string(id) + " has \"" + part + '"',
        [&] { return Contains(TextOf(Control(id)), part); });
}

void App::AwaitTitle(const std::string& title) const {
  Until("the title is " + title, [&] { return TextOf(window_) == title; });
}

void App::Settle() const {
  // A window is painted when no other message waits. What is put off until there is none is done between the
  // two times.
  for (int i = 0; i < 2; ++i) {
    Sleep(15);
    InvalidateRect(window_, nullptr, FALSE);
    Until("the window is painted", [this] { return GetUpdateRect(window_, nullptr, FALSE) == FALSE; });
  }
}

POINT App::ChartPoint(std::size_t channel, int minuteOfDay, float percent) const {
  RECT client{};
  GetClientRect(Control(UX::ChartId), &client);
  const UX::ChartGeometry geometry(static_cast<float>(client.right), static_cast<float>(client.bottom), {});
  return OnScreen(Control(UX::ChartId), static_cast<int>(geometry.XOf(minuteOfDay * 60.0) + 0.5F),
                  static_cast<int>(geometry.YOf(channel, percent) + 0.5F));
}

// Using

void App::Press(int id) const {
  Click(Within(Control(id), 0.5, 0.5));
}

void App::Run(int command) const {
  Settle();  // keys and clicks would come after what is posted
  PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(command), 0);
  Settle();
}

HWND App::FindDialog() const {
  return FindWindowOf(process_.dwProcessId, L"#32770");
}

HWND App::Dialog() const {
  Until("a dialog comes up", [this] { return FindDialog() != nullptr; });
  Sleep(50);
  return FindDialog();
}

void App::Answer(int button) const {
  const HWND dialog = Dialog();
  PostMessageW(GetDlgItem(dialog, button), BM_CLICK, 0, 0);
  Until("the dialog goes", [dialog] { return !IsWindowVisible(dialog); });
}

void App::AnswerTo(const std::string& question, int button) const {
  constexpr int MessageText = 0xFFFF;
  const HWND dialog = Dialog();
  ExpectEqual("the box", TextOf(dialog) + ": " + TextOf(GetDlgItem(dialog, MessageText)), question);
  Answer(button);
}

// The end

bool App::IsRunning() const {
  return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT;
}

std::size_t App::PrivateKilobytes() const {
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(process_.hProcess, &counters, sizeof counters);
  return counters.PagefileUsage / 1024;
}

void App::AskToClose() const {
  PostMessageW(window_, WM_CLOSE, 0, 0);
}

void App::AwaitEnd() const {
  Until("the program ends", [this] { return !IsRunning(); });
  DWORD code = 0;
  GetExitCodeProcess(process_.hProcess, &code);
  ExpectEqual("the exit code", code, 0U);
}

void App::Close() const {
  AskToClose();
  Until("the program ends or asks", [this] { return !IsRunning() || FindDialog() != nullptr; });
  if (IsRunning()) Answer(IDNO);
  AwaitEnd();
}

std::string BytesOf(const std::string& path) {
  // Shared with the program, which keeps its log open.
  std::ifstream file(std::filesystem::path(path), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace gui
