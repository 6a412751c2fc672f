// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "bench/window/BenchWindow.h"

namespace bench {

/// What draws one frame after another into a window.
struct Side {
  const BenchWindow& window;
  std::function<void()> draw;
};

/// Measures and prints a table in Markdown.
class Report {
 public:
  Report();
  /// The medians of both sides' times for a frame; the sides take turns, so that other work on the machine
  /// meets both.
  void Compare(const std::string& what, const Side& side, const Side& other, double mostRatio, int turns);
  /// A share of the whole that may be so large at most.
  void Check(const std::string& what, double share, double most);
  bool Succeeded() const { return succeeded_; }

 private:
  bool succeeded_ = true;
};

}  // namespace bench
