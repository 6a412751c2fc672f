// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <functional>
#include <sstream>
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
void ExpectEqual(const std::string& what, const Value& actual, const std::type_identity_t<Value>& expected) {
  std::ostringstream why;
  why << what << " is \"" << actual << "\" instead of \"" << expected << '"';
  Expect(actual == expected, why.str());
}

inline bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

/// Waits until something holds. `what` is how the sentence "never: ..." goes on.
inline void Until(const std::string& what, const std::function<bool()>& holds) {
  constexpr ULONGLONG PatienceMilliseconds = 20000;
  const ULONGLONG end = GetTickCount64() + PatienceMilliseconds;
  while (!holds()) {
    Expect(GetTickCount64() < end, "never: " + what);
    Sleep(10);
  }
}

}  // namespace gui
