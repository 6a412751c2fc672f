// SPDX-License-Identifier: MIT
#include "ui/UndoHistory.h"

#include <utility>

namespace UX {
namespace {

// Of all entries together: a usual program has some hundred steps.
constexpr std::size_t MostSteps = 4'000'000;

std::size_t StepsIn(const Snapshot& snapshot) {
  std::size_t count = 1;
  for (const TCBase::Mode& mode : snapshot.program.modes) {
    for (const TCBase::Channel& channel : mode.channels) count += channel.steps.size();
  }
  return count;
}

}  // namespace

void UndoHistory::Push(const Snapshot& before) {
  Commit();
  redo_.clear();
  Add(before);
}

void UndoHistory::TakePending(const Snapshot& before) {
  if (pending_) return;
  redo_.clear();
  pending_ = before;
}

void UndoHistory::Commit() {
  if (pending_) Add(*std::exchange(pending_, std::nullopt));
}

std::optional<Snapshot> UndoHistory::Withdraw() {
  return std::exchange(pending_, std::nullopt);
}

std::optional<Snapshot> UndoHistory::Undo(const Snapshot& now) {
  Commit();
  while (!undo_.empty()) {
    Snapshot last = std::move(undo_.back());
    undo_.pop_back();
    undoSteps_ -= StepsIn(last);
    if (last == now) continue;
    redo_.push_back(now);
    return last;
  }
  return std::nullopt;
}

std::optional<Snapshot> UndoHistory::Redo(const Snapshot& now) {
  Commit();
  if (redo_.empty()) return std::nullopt;
  Snapshot next = std::move(redo_.back());
  redo_.pop_back();
  Add(now);
  return next;
}

void UndoHistory::Clear() {
  *this = {};
}

void UndoHistory::Add(Snapshot before) {
  undoSteps_ += StepsIn(before);
  undo_.push_back(std::move(before));
  while (undoSteps_ > MostSteps && undo_.size() > 1) {
    undoSteps_ -= StepsIn(undo_.front());
    undo_.pop_front();
  }
}

}  // namespace UX
