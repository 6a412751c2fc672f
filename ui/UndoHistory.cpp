// SPDX-License-Identifier: MIT
#include "ui/UndoHistory.h"

#include <utility>

namespace UX {
namespace {

// Of all entries together: a usual program takes some kilobytes.
constexpr std::size_t MostBytes = std::size_t{128} << 20;

/// About what the copy takes.
std::size_t BytesOf(const Content& content) {
  std::size_t bytes = sizeof content;
  for (const TCBase::Mode& mode : content.program.modes) {
    bytes += sizeof mode + mode.name.size() + mode.description.size();
    for (const TCBase::Channel& channel : mode.channels) bytes += channel.steps.size() * sizeof(TCBase::Step);
  }
  return bytes;
}

}  // namespace

void UndoHistory::Push(Content before) {
  redo_.clear();
  Add(std::move(before));
}

std::optional<Content> UndoHistory::Undo(const Content& now) {
  if (undo_.empty()) return std::nullopt;
  Content last = std::move(undo_.back());
  undo_.pop_back();
  undoBytes_ -= BytesOf(last);
  redo_.push_back(now);
  return last;
}

std::optional<Content> UndoHistory::Redo(const Content& now) {
  if (redo_.empty()) return std::nullopt;
  Content next = std::move(redo_.back());
  redo_.pop_back();
  Add(now);
  return next;
}

void UndoHistory::Add(Content before) {
  undoBytes_ += BytesOf(before);
  undo_.push_back(std::move(before));
  while (undoBytes_ > MostBytes && undo_.size() > 1) {
    undoBytes_ -= BytesOf(undo_.front());
    undo_.pop_front();
  }
}

}  // namespace UX
