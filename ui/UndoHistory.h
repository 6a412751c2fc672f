// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "ui/Content.h"

namespace UX {

/// Whole copies of what was there before each edit, and of what undo took back.
class UndoHistory {
 public:
  /// What was there before an edit. Drops what could be redone.
  void Push(Content before);
  /// Goes back, or forth again, by one edit; nothing when there is none.
  std::optional<Content> Undo(const Content& now);
  std::optional<Content> Redo(const Content& now);

 private:
  void Add(Content before);

  std::deque<Content> undo_;  // the oldest ones go when all take too much memory
  std::size_t undoBytes_ = 0;
  std::vector<Content> redo_;
};

}  // namespace UX
