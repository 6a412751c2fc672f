// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string_view>

/// Feeds one input to a reader; each target has its own.
void Feed(std::string_view input);

/// Ends the run at this input when a result is wrong.
inline void Expect(bool isTrue, const char* what) {
  if (isTrue) return;
  std::fprintf(stderr, "not so: %s\n", what);
  std::abort();
}
