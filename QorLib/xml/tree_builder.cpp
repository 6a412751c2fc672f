// SPDX-License-Identifier: MIT
#include "QorLib/xml/tree_builder.h"

#include <algorithm>
#include <new>

#include "QorLib/Exceptions.h"

namespace qor::xml {
namespace {

bool IsBlank(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; });
}

}  // namespace

tree_builder::tree_builder(document& target, ChildHook onRootChild)
    : target_(target), onRootChild_(std::move(onRootChild)) {}

void tree_builder::StartElement(std::string_view name) {
  if (open_.size() == 1) beforeRootChild_ = Size();
  if (!open_.empty()) {
    open_element& parent = open_.back();
    // Once only: behind the first child blank stretches are dropped as they come.
    if (!parent.hasChildren && IsBlank(parent.joined.empty() ? target_.View(parent.text) : parent.joined)) {
      parent.text = {};
      parent.joined.clear();
    }
    parent.hasChildren = true;
  }
  const std::uint32_t parent = open_.empty() ? 0 : open_.back().index;
  open_.emplace_back().index = target_.AddChild(parent, name);
}

void tree_builder::Attribute(std::string_view name, std::string_view value) {
  target_.AddAttribute(open_.back().index, name, value);
}

void tree_builder::Text(std::string_view text) {
  open_element& current = open_.back();
  if (current.hasChildren && IsBlank(text)) return;
  if (current.text.length == 0) {
    current.text = target_.Store(text);
    return;
  }
  if (current.joined.empty()) current.joined = target_.View(current.text);
  current.joined += text;
}

void tree_builder::EndElement() {
  const open_element& current = open_.back();
  const std::uint32_t index = current.index;
  const std::string_view text = current.joined.empty() ? target_.View(current.text) : current.joined;
  if (!text.empty()) target_.AddAttribute(index, {}, text);
  open_.pop_back();
  if (open_.size() == 1 && onRootChild_) DropRootChild(index);
}

tree_builder::tree_size tree_builder::Size() const {
  return {target_.nodes_.Size(), target_.attributes_.Size(), target_.added_.size()};
}

void tree_builder::DropRootChild(std::uint32_t rootChild) {
  onRootChild_(element(target_, rootChild, document::RootIndex));
  target_.nodes_[document::RootIndex].lastChild = 0;
  target_.nodes_.Truncate(beforeRootChild_.nodes);
  target_.attributes_.Truncate(beforeRootChild_.attributes);
  target_.added_.resize(beforeRootChild_.added);
}

std::optional<error> ParseByChild(std::string bytes, document& target, tree_builder::ChildHook onRootChild) {
  try {
    target.Clear(std::move(bytes));
    tree_builder builder(target, std::move(onRootChild));
    return reader(target.source_, builder).Read();
  } catch (const std::bad_alloc&) {
    throw xout_of_memory();
  }
}

}  // namespace qor::xml
