// SPDX-License-Identifier: MIT
// gui_driver HALVEX_EXE [CASE...]           runs the cases whose names begin so, or all
// gui_driver HALVEX_EXE show [ARGUMENTS]    opens a window to be looked at
// gui_driver HALVEX_EXE show-wifi           and a page of the Wi-Fi set-up
// Works in a new folder below the current one. The environment may have MONKEY_SECONDS and MONKEY_SEED for
// the case "monkey".
#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "QorLib/qor_win_str_utils.h"
#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Input.h"

namespace {

std::string FullPath(const std::string& path) {
  wchar_t full[MAX_PATH] = L"";
  GetFullPathNameW(qor::win::WideFromUtf8(path).c_str(), MAX_PATH, full, nullptr);
  return qor::win::Utf8FromWide(full);
}

struct Tally {
  int passed = 0, failed = 0;

  void Count(const std::string& name, const std::function<void()>& run) {
    const ULONGLONG start = GetTickCount64();
    try {
      run();
      ++passed;
      std::cout << "ok      " << name << " (" << GetTickCount64() - start << " ms)" << std::endl;
    } catch (const gui::Failure& failure) {
      ++failed;
      std::cout << "FAILED: " << name << ": " << failure.why << std::endl;
    }
  }

  int Finish() const {
    std::cout << passed << " passed, " << failed << " failed" << std::endl;
    return failed == 0 ? 0 : 1;
  }
};

bool IsWanted(const std::string& name, const std::vector<std::string>& beginnings) {
  return beginnings.empty() || std::ranges::any_of(beginnings, [&](const std::string& beginning) {
           return name.starts_with(beginning);
         });
}

int NumberOf(const char* variable, int usual) {
  const char* const text = std::getenv(variable);
  return text != nullptr && *text != '\0' ? std::atoi(text) : usual;
}

void RunMonkey() {
  constexpr int UsualSeconds = 120;
  const int seed = NumberOf("MONKEY_SEED", static_cast<int>(GetTickCount() & 0xFFFF));
  std::cout << "        monkey: seed " << seed << std::endl;
  gui::RunMonkey(static_cast<unsigned>(seed), NumberOf("MONKEY_SECONDS", UsualSeconds));
}

int RunCases(const std::vector<std::string>& beginnings) {
  constexpr gui::Case Random[] = {{"monkey", RunMonkey}};
  Tally tally;
  for (const std::span<const gui::Case> cases : {gui::DayCases(), gui::EditCases(), gui::EndCases(),
                                                 gui::WindowCases(), std::span<const gui::Case>(Random)}) {
    for (const gui::Case& single : cases) {
      if (IsWanted(single.name, beginnings)) tally.Count(single.name, single.run);
    }
  }
  return tally.Finish();
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) {
    std::cerr << "gui_driver HALVEX_EXE [CASE... | show [ARGUMENTS]]\n";
    return 2;
  }
  const char* const renderer = std::getenv("RENDERER");
  gui::TheRig() = {FullPath(arguments[1]), renderer != nullptr ? renderer : "gdi",
                   FullPath("gui-" + std::to_string(GetTickCount64()))};
  const std::vector<std::string> words(arguments + 2, arguments + count);
  Tally tally;
  if (!words.empty() && words.front() == "show") {
    tally.Count("show", [&words] { gui::ShowSample(words.size() > 1 ? words[1] : ""); });
  } else if (!words.empty() && words.front() == "show-wifi") {
    tally.Count("show-wifi", gui::ShowWiFiSample);
  } else {
    return RunCases(words);
  }
  return tally.failed;
}
