// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <functional>
#include <string>

/// How cases say what must hold.
namespace gui {

/// Ends a case.
struct Failure {
  std::string why;
};

inline void Expect(bool holds, const std::string& why) {
  if (!holds) throw Failure{why};
}

template <typename Value>
std::string InWords(const Value& value) {
  if constexpr (std::is_convertible_v<Value, std::string>) {
    return '"' + std::string(value) + '"';
  } else {
    return std::to_string(value);
  }
}

template <typename Actual, typename Expected>
void ExpectEqual(const std::string& what, const Actual& actual, const Expected& expected) {
  if (!(actual == expected)) {
    throw Failure{what + " is " + InWords(actual) + " instead of " + InWords(expected)};
  }
}

inline bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// Waits until something holds; whether it came to that.
inline bool HoldsWithin(DWORD milliseconds, const std::function<bool()>& holds) {
  const ULONGLONG end = GetTickCount64() + milliseconds;
  while (!holds()) {
    if (GetTickCount64() > end) return false;
    Sleep(10);
  }
  return true;
}

/// `what` is how the sentence "never: ..." goes on.
inline void Until(const std::string& what, const std::function<bool()>& holds, DWORD milliseconds = 8000) {
  Expect(HoldsWithin(milliseconds, holds), "never: " + what);
}

}  // namespace gui
