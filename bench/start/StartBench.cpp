// SPDX-License-Identifier: MIT
// start_bench HALVEX_EXE [OPTION...]: how long the window takes to its first whole picture, what it costs
// while nothing happens, and its memory, each as a ratio to the system's notepad in the same run. The options
// go to Halvex.
#include <windows.h>
// after windows.h
#include <psapi.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

namespace {

constexpr int Starts = 15;
constexpr double MostRatio = 2;
constexpr const char* TimerArgument = "--timer";
constexpr const char* TicksArgument = "--timer-and-worker";

/// A running program, ended with the object.
class Process {
 public:
  explicit Process(std::string command) {
    STARTUPINFOA start{};
    start.cb = sizeof start;
    isRunning_ = CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                                &info_) != 0;
  }
  ~Process() {
    TerminateProcess(info_.hProcess, 0);
    WaitForSingleObject(info_.hProcess, 5000);
    CloseHandle(info_.hProcess);
    CloseHandle(info_.hThread);
  }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  explicit operator bool() const { return isRunning_; }

  /// The visible window without an owner.
  HWND Window() const {
    struct Search {
      DWORD process;
      HWND found;
    } search{info_.dwProcessId, nullptr};
    EnumWindows(
        [](HWND window, LPARAM parameter) -> BOOL {
          auto& wanted = *reinterpret_cast<Search*>(parameter);
          DWORD process = 0;
          GetWindowThreadProcessId(window, &process);
          if (process != wanted.process || !IsWindowVisible(window)) return TRUE;
          wanted.found = window;
          return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
  }

 private:
  PROCESS_INFORMATION info_{};
  bool isRunning_ = false;
};

/// The colour on the screen at a place of the window's client area.
COLORREF ColourAt(HWND window, int x, int y) {
  POINT at{x, y};
  ClientToScreen(window, &at);
  const HDC screen = GetDC(nullptr);
  const COLORREF colour = GetPixel(screen, at.x, at.y);
  ReleaseDC(nullptr, screen);
  return colour;
}

constexpr COLORREF ChartColour = RGB(0x14, 0x16, 0x1C), PageColour = RGB(255, 255, 255);

bool ShowsChart(HWND window) {
  return ColourAt(window, 30, 30) == ChartColour;
}

bool ShowsPage(HWND window) {
  return ColourAt(window, 60, 60) == PageColour;
}

/// Seconds to the first picture; negative when none comes.
double SecondsToPicture(const std::string& command, bool (*isThere)(HWND)) {
  LARGE_INTEGER frequency, begin, now;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&begin);
  const Process process(command);
  while (process) {
    QueryPerformanceCounter(&now);
    const double seconds =
        static_cast<double>(now.QuadPart - begin.QuadPart) / static_cast<double>(frequency.QuadPart);
    const HWND window = process.Window();
    if (window != nullptr && isThere(window)) return seconds;
    if (seconds > 30) break;
    Sleep(2);
  }
  return -1;
}

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

bool CompareStarts(const std::string& halvex) {
  std::vector<double> ours, theirs;
  for (int i = 0; i < Starts; ++i) {
    ours.push_back(SecondsToPicture(halvex, ShowsChart));
    theirs.push_back(SecondsToPicture("notepad.exe", ShowsPage));
    if (ours.back() < 0 || theirs.back() < 0) {
      std::puts("a window did not come up");
      return false;
    }
  }
  std::printf("medians of %d starts: Halvex %.3f s, notepad %.3f s\n", Starts, Median(ours), Median(theirs));
  const double ratio = Median(ours) / Median(theirs);
  std::printf("start to the first whole picture, over notepad's: %.2f (at most %.1f)\n", ratio, MostRatio);
  return ratio <= MostRatio;
}

/// A program with a hidden window whose timer ticks ten times a second, and, with `hasWorker`, a thread that
/// wakes as often. Neither does anything.
int RunTimer(bool hasWorker) {
  std::jthread worker;
  if (hasWorker) {
    worker = std::jthread([](const std::stop_token& end) {
      while (!end.stop_requested()) Sleep(100);
    });
  }
  const HWND window = CreateWindowA("STATIC", "", 0, 0, 0, 0, 0, nullptr, nullptr, nullptr, nullptr);
  SetTimer(window, 1, 100, nullptr);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 2 && std::strcmp(argv[1], TimerArgument) == 0) return RunTimer(false);
  if (argc == 2 && std::strcmp(argv[1], TicksArgument) == 0) return RunTimer(true);
  if (argc < 2) {
    std::puts("usage: start_bench HALVEX_EXE [OPTION...]");
    return 2;
  }
  std::string halvex = argv[1];
  for (int i = 2; i < argc; ++i) halvex += std::string(" ") + argv[i];
  return CompareStarts(halvex) ? 0 : 1;
}
