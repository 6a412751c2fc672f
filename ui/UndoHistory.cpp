// SPDX-License-Identifier: MIT
#include "ui/UndoHistory.h"

#include <utility>

namespace UX {
namespace {

// Of all entries together: a usual program takes some kilobytes.
constexpr std::size_t MostBytes = std::size_t{128} << 20;

/// About what the copy takes.
std::size_t BytesOf(const Snapshot& snapshot) {
  std::size_t bytes = sizeof snapshot;
  for (const TCBase::Mode& mode : snapshot.program.modes) {
    bytes += sizeof mode + mode.name.size() + mode.description.size();
    for (const TCBase::Channel& channel : mode.channels) bytes += channel.steps.size() * sizeof(TCBase::Step);
  }
  return bytes;
}

}  // namespace

void UndoHistory::Push(const Snapshot& before) {
  Commit();
  redo_.clear();
  Add(before);
}

void UndoHistory::TakePending(const Snapshot& before) {
  if (!pending_) pending_ = before;
}

void UndoHistory::Commit() {
  if (!pending_) return;
  redo_.clear();
  Add(*std::exchange(pending_, std::nullopt));
}

std::optional<Snapshot> UndoHistory::Withdraw() {
  return std::exchange(pending_, std::nullopt);
}

std::optional<Snapshot> UndoHistory::Undo(const Snapshot& now) {
  Commit();
  while (!undo_.empty()) {
    Snapshot last = std::move(undo_.back());
    undo_.pop_back();
    undoBytes_ -= BytesOf(last);
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
  undoBytes_ += BytesOf(before);
  undo_.push_back(std::move(before));
  while (undoBytes_ > MostBytes && undo_.size() > 1) {
    undoBytes_ -= BytesOf(undo_.front());
    undo_.pop_front();
  }
}

}  // namespace UX
