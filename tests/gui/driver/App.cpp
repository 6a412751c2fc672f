// SPDX-License-Identifier: MIT
#include "tests/gui/driver/App.h"

#include <psapi.h>

#include <filesystem>
#include <fstream>

#include "QorLib/qor_win_str_utils.h"
#include "platform/Files.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Controls.h"
#include "tests/gui/driver/Input.h"
#include "ui/CommandTable.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

using qor::win::Utf8FromWide;
using qor::win::WideFromUtf8;

constexpr UINT PatienceMilliseconds = 20000;

struct Search {
  DWORD process;
  const wchar_t* className;
  HWND found;
};

BOOL CALLBACK Look(HWND window, LPARAM data) {
  auto& search = *reinterpret_cast<Search*>(data);
  DWORD process = 0;
  wchar_t name[64] = L"";
  GetWindowThreadProcessId(window, &process);
  GetClassNameW(window, name, static_cast<int>(std::size(name)));
  if (process != search.process || lstrcmpW(name, search.className) != 0 || !IsWindowVisible(window))
    return TRUE;
  search.found = window;
  return FALSE;
}

/// The process's uppermost window of a class.
HWND FindWindowOf(DWORD process, const wchar_t* className) {
  Search search{process, className, nullptr};
  EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

/// Where answers of the probe come; one for the whole run.
probe::Answer& SharedAnswer() {
  static probe::Answer* const answer = [] {
    const HANDLE mapping = CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                              sizeof(probe::Answer), probe::MappingName);
    return static_cast<probe::Answer*>(MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, sizeof(probe::Answer)));
  }();
  return *answer;
}

}  // namespace

Rig& TheRig() {
  static Rig rig;
  return rig;
}

App::App(const Start& start) : folder_(TheRig().folder + "\\" + start.folder) {
  platform::CreateFolders(folder_);
  if (!start.settings.empty()) {
    WriteBytes(FileIn("TC420Config.xml"),
               "<?xml version='1.0' encoding='UTF-8'?>\n<config>" + start.settings + "</config>\n");
  }
  Launch(start.arguments);
  SetProbe();
  if (!start.isQuiet) return;
  ComeToFront();
  Until("the window is ready", [this] { return !LogText().empty() && !StepsShown().empty(); });
  Settle();
}

App::~App() {
  if (hook_ != nullptr) UnhookWindowsHookEx(hook_);
  Kill();
  CloseHandle(process_.hThread);
  CloseHandle(process_.hProcess);
}

void App::Launch(const std::string& arguments) {
  SetEnvironmentVariableW(L"HALVEX_HOME", WideFromUtf8(folder_).c_str());
  std::wstring line =
      WideFromUtf8('"' + TheRig().program + "\" --renderer " + TheRig().renderer + ' ' + arguments);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  Expect(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process_) != FALSE,
         "the program does not start");
  Until(
      "the window comes",
      [this] {
        window_ = FindWindowOf(process_.dwProcessId, L"HALVEX");
        return window_ != nullptr || !IsRunning();
      },
      20000);
  Expect(window_ != nullptr, "the program ended at once");
}

void App::ComeToFront() const {
  Until("the window is in front", [this] {
    if (GetForegroundWindow() == window_) return true;
    SetForegroundWindow(window_);
    return false;
  });
}

void App::SetProbe() {
  static const HMODULE library = LoadLibraryW(probe::LibraryName);
  Expect(library != nullptr, "gui_probe.dll is missing");
  const auto procedure =
      reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(GetProcAddress(library, probe::HookName)));
  hook_ = SetWindowsHookExW(WH_CALLWNDPROC, procedure, library, GetWindowThreadProcessId(window_, nullptr));
  Expect(hook_ != nullptr, "no probe in the program");
}

probe::Answer& App::Ask(probe::Question question) const {
  static const UINT message = RegisterWindowMessageW(probe::MessageName);
  probe::Answer& answer = SharedAnswer();
  answer.isAnswered = false;
  SendMessageTimeoutW(window_, message, static_cast<WPARAM>(question), 0, SMTO_NORMAL, PatienceMilliseconds,
                      nullptr);
  Expect(answer.isAnswered, "the probe does not answer");
  return answer;
}

// Reading

HWND App::Control(int id) const {
  const HWND control = GetDlgItem(window_, id);
  Expect(control != nullptr, "no control " + std::to_string(id));
  return control;
}

HWND App::Chart() const {
  return Control(UX::ChartId);
}

HWND App::Log() const {
  return Control(UX::LogId);
}

std::string App::Title() const {
  return TextOf(window_);
}

std::string App::LogText() const {
  return TextOf(Log());
}

void App::AwaitLog(const std::string& part) const {
  Until(
      "the log has \"" + part + '"', [&] { return Contains(LogText(), part); }, 15000);
}

void App::Settle() const {
  constexpr DWORD PauseMilliseconds = 15;
  // What was put off until there was no message is done between the two times.
  for (int i = 0; i < 2; ++i) {
    Sleep(PauseMilliseconds);
    HoldsWithin(PatienceMilliseconds, [this] { return Ask(probe::Question::Rest).isAtRest; });
  }
}

// Using

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
  Until("the dialog goes", [dialog] { return !IsWindow(dialog) || !IsWindowVisible(dialog); });
}

std::string App::Question() const {
  constexpr int MessageText = 0xFFFF;
  const HWND dialog = Dialog();
  return TextOf(dialog) + ": " + TextOf(GetDlgItem(dialog, MessageText));
}

void App::ChooseFile(const std::string& path) const {
  constexpr int NameBox = 0x480, NameCombo = 0x47C;
  const HWND dialog = Dialog();
  HWND name = nullptr;
  Until("the dialog asks for a name", [&] {
    name = GetDlgItem(dialog, NameCombo);
    if (name == nullptr) name = GetDlgItem(dialog, NameBox);
    return name != nullptr;
  });
  SetText(name, path);
  Answer(IDOK);
}

std::string App::MenuText() const {
  SendMessageTimeoutW(window_, WM_INITMENUPOPUP, 0, 0, SMTO_NORMAL, PatienceMilliseconds, nullptr);
  return Utf8FromWide(Ask(probe::Question::Menu).text);
}

void App::Drop(const std::string& path) const {
  lstrcpynW(SharedAnswer().text, WideFromUtf8(path).c_str(), MAX_PATH);
  Ask(probe::Question::Drop);
  Settle();
}

// What is shown

UX::ChartGeometry App::Geometry() const {
  RECT client{};
  GetClientRect(Chart(), &client);
  return {static_cast<float>(client.right), static_cast<float>(client.bottom), {}};
}

POINT App::ChartPoint(std::size_t channel, int minuteOfDay, float percent) const {
  const UX::ChartGeometry geometry = Geometry();
  return OnScreen(Chart(), static_cast<int>(geometry.XOf(minuteOfDay * 60.0) + 0.5F),
                  static_cast<int>(geometry.YOf(channel, percent) + 0.5F));
}

std::string App::StepsShown() const {
  const std::vector<ListRow> rows = RowsOf(Control(UX::ModeListId));
  return rows.empty() ? "" : rows.front().info;
}

bool App::ShowsText(const std::string& beginning) const {
  for (HWND child = GetWindow(window_, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    if (GetDlgCtrlID(child) == 0 && TextOf(child).starts_with(beginning)) return true;
  }
  return false;
}

void App::PickEmulator() const {
  Click(MiddleOf(Control(UX::command::AddEmulator)));
  Until("the only device is picked", [this] {
    const std::vector<ListRow> rows = RowsOf(Control(UX::DeviceListId));
    return rows.size() == 1 && rows.front().isChecked;
  });
}

// The end

bool App::IsRunning() const {
  return WaitForSingleObject(process_.hProcess, 0) == WAIT_TIMEOUT;
}

std::size_t App::PrivateBytes() const {
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(process_.hProcess, &counters, sizeof counters);
  return counters.PagefileUsage;
}

DWORD App::AwaitEnd(DWORD milliseconds) const {
  Expect(WaitForSingleObject(process_.hProcess, milliseconds) == WAIT_OBJECT_0, "the program does not end");
  DWORD code = 0;
  GetExitCodeProcess(process_.hProcess, &code);
  return code;
}

void App::Close() {
  PostMessageW(window_, WM_CLOSE, 0, 0);
  Until("the program ends or asks", [this] { return !IsRunning() || FindDialog() != nullptr; });
  if (IsRunning()) Answer(IDNO);
  ExpectEqual("the exit code", AwaitEnd(), 0U);
}

void App::Kill() {
  if (!IsRunning()) return;
  TerminateProcess(process_.hProcess, 1);
  WaitForSingleObject(process_.hProcess, 5000);
}

std::string BytesOf(const std::string& path) {
  // Shared with the program, which keeps its log open.
  std::ifstream file(std::filesystem::path(WideFromUtf8(path)), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

void WriteBytes(const std::string& path, const std::string& bytes) {
  platform::ReplaceWholeFile(path, bytes);
}

}  // namespace gui
