// SPDX-License-Identifier: MIT
#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "ui/Document.h"

namespace UX {

/// Whole copies of what was there before each edit. A run of small edits, as arrow keys make them, costs one
/// copy, the pending one, which becomes an entry when the run ends.
class UndoHistory {
 public:
  /// To be called before an edit. Drops what could be redone.
  void Push(const Snapshot& before);
  /// The same for an edit of a run: copies only when the run has no copy yet.
  void TakePending(const Snapshot& before);
  bool HasPending() const { return pending_.has_value(); }
  /// Ends the run.
  void Commit();
  /// Ends the run and gives what was there before it.
  std::optional<Snapshot> Withdraw();

  /// Goes back, or forth again, by one edit that made a difference to `now`; nothing when there is none.
  std::optional<Snapshot> Undo(const Snapshot& now);
  std::optional<Snapshot> Redo(const Snapshot& now);
  void Clear();

 private:
  void Add(Snapshot before);

  std::deque<Snapshot> undo_;  // the oldest ones go when all take too much memory
  std::size_t undoBytes_ = 0;
  std::vector<Snapshot> redo_;
  std::optional<Snapshot> pending_;
};

}  // namespace UX
