// SPDX-License-Identifier: MIT
#include <windows.h>
// after windows.h
#include <commctrl.h>
#include <hidapi.h>
#include <objidl.h>
#include <shellapi.h>

#include <gdiplus.h>  // after objidl.h

#include "QorLib/qor_win_str_utils.h"
#include "model/ModeSample.h"
#include "platform/Folders.h"
#include "platform/SystemError.h"
#include "ui/win32/Keys.h"
#include "ui/win32/MainWindow.h"

namespace {

using namespace UX;

struct Arguments {
  RendererChoice renderer = RendererChoice::Best;
  std::string file;
};

/// The path in UTF-8, with its folders: it is kept for the next start, which may be elsewhere.
std::string FullPath(const wchar_t* path) {
  std::wstring full(GetFullPathNameW(path, 0, nullptr, nullptr), L'\0');
  full.resize(GetFullPathNameW(path, static_cast<DWORD>(full.size()), full.data(), nullptr));
  return qor::win::Utf8FromWide(full.empty() ? path : full);
}

/// Halvex [--renderer dx|gdi] [FILE]
Arguments ReadArguments() {
  Arguments arguments;
  int count = 0;
  wchar_t** const texts = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; texts != nullptr && i < count; ++i) {
    const std::string text = qor::win::Utf8FromWide(texts[i]);
    if (text == "--renderer" && i + 1 < count) {
      const std::string name = qor::win::Utf8FromWide(texts[++i]);
      arguments.renderer = name == "gdi"  ? RendererChoice::GDI
                           : name == "dx" ? RendererChoice::DX
                                          : RendererChoice::Best;
    } else {
      arguments.file = FullPath(texts[i]);
    }
  }
  LocalFree(static_cast<HLOCAL>(texts));
  return arguments;
}

/// GDI+ for as long as the object lives.
class GdiPlus {
 public:
  GdiPlus() {
    const Gdiplus::GdiplusStartupInput input;
    Gdiplus::GdiplusStartup(&token_, &input, nullptr);
  }
  ~GdiPlus() { Gdiplus::GdiplusShutdown(token_); }
  GdiPlus(const GdiPlus&) = delete;
  GdiPlus& operator=(const GdiPlus&) = delete;

 private:
  ULONG_PTR token_ = 0;
};

qor::TimeOfDay TimeOfDayNow() {
  const platform::SYSTEMTIME now = platform::SystemClock().LocalTime();
  return {now.wHour, now.wMinute, now.wSecond, now.wMilliseconds};
}

void Dispatch(MSG& message, HWND window, const Keys& keys) {
  const bool isTimer = message.message == WM_TIMER;  // all that there is while nobody does anything
  if (!isTimer && keys.Take(window, message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

/// Runs until WM_QUIT; returns its exit code. While anything moves, frames are drawn one after another; else
/// the next message is waited for, of which the timer brings one soon.
int Loop(MainWindow& window, const Keys& keys) {
  constexpr DWORD FrameMilliseconds = 10;
  MSG message{};
  while (message.message != WM_QUIT) {
    if (window.IsQuiet()) {
      if (GetMessageW(&message, nullptr, 0, 0) > 0) Dispatch(message, window.Window(), keys);
    } else if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
      Dispatch(message, window.Window(), keys);
    } else {
      window.OnIdle();
      const DWORD wait = window.IsQuiet() ? 0 : FrameMilliseconds;
      MsgWaitForMultipleObjectsEx(0, nullptr, wait, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
  }
  return static_cast<int>(message.wParam);
}

void LogProgram(Workbench& bench) {
  bench.Say({TR("Loaded program contains {1} modes"), {bench.document.Program().modes.size()}});
  bench.Say({TR("Mode {1} steps count: {2}"),
             {bench.document.CurrentMode() + 1, TCBase::StepCount(bench.document.Mode())}});
}

/// The window that log lines are posted to, for as long as the object lives.
class Shown {
 public:
  Shown(std::atomic<MainWindow*>& shown, MainWindow& window) : shown_(shown) { shown_ = &window; }
  ~Shown() { shown_ = nullptr; }
  Shown(const Shown&) = delete;
  Shown& operator=(const Shown&) = delete;

 private:
  std::atomic<MainWindow*>& shown_;
};

/// The program between the start of the system's services and their end.
int RunWindow(HINSTANCE instance, int show) {
  platform::Clock& clock = platform::SystemClock();
  platform::Network& network = platform::SystemNetwork();
  qor::Log log(TimeOfDayNow);
  TCBase::Localisation texts;
  log.SetTranslation(texts.Translator());
  const std::string folder = platform::SettingsFolder();
  TCBase::Settings settings(folder, log);
  for (const qor::Sentence& sentence : texts.SetLanguage(settings.Get(TCBase::SettingLocale)))
    log.Message(sentence);
  log.SetTracing(settings.Get(TCBase::SettingLogging) == "on");
  std::atomic<MainWindow*> shown = nullptr;
  log.OnLine([&shown] {
    if (MainWindow* window = shown) window->PostLog();
  });
  auto worker = std::make_unique<TCBase::Worker>(
      TCBase::DeviceContext{clock, log, network, &platform::SystemDeviceLocks()},
      TCBase::Worker::UsbWatch::On);
  const Arguments arguments = ReadArguments();
  MainWindow window(instance, {clock, log, settings, texts, *worker}, network, folder);
  if (!window.Create(arguments.renderer)) {
    const std::string text =
        qor::Sentence{
            TR("The window could not be made"), {}, {qor::Verbatim(platform::ErrorOf(GetLastError()).text)}}
            .In(texts.Translator());
    MessageBoxW(nullptr, qor::win::WideFromUtf8(text).c_str(), L"Halvex", MB_OK | MB_ICONERROR);
    return 0;
  }
  const Shown logWindow(shown, window);
  window.Show(show);
  window.PostLog();
  window.OpenFirst(arguments.file);
  window.StartTimer();
  worker->SetNotification(window.Window(), MainWindow::NotifyMessage);
  window.Bench().DevicesChanged();  // what was plugged in while something was being asked
  LogProgram(window.Bench());
  const int result = Loop(window, Keys(instance));
  worker->SetNotification(nullptr, 0);
  worker->Stop();
  window.Flush();
  window.ReleaseRenderer();
  return result;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR, int show) {
  INITCOMMONCONTROLSEX controls{
      sizeof controls, ICC_LISTVIEW_CLASSES | ICC_DATE_CLASSES | ICC_BAR_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  int result = 0;
  try {
    const GdiPlus gdiPlus;
    result = RunWindow(instance, show);
  } catch (const std::exception& failed) {
    MessageBoxW(nullptr, qor::win::WideFromUtf8(failed.what()).c_str(), L"Halvex", MB_OK | MB_ICONERROR);
    result = 1;
  }
  hid_exit();
  return result;
}
