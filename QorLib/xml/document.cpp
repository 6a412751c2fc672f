// SPDX-License-Identifier: MIT
#include "QorLib/xml/document.h"

#include <functional>
#include <limits>
#include <new>

#include "QorLib/Exceptions.h"
#include "QorLib/xml/tree_builder.h"
#include "QorLib/xml/writer.h"

namespace qor::xml {

std::int32_t ParseInteger(std::string_view text) {
  constexpr std::int64_t Min = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t Max = std::numeric_limits<std::int32_t>::max();
  const bool isNegative = text.starts_with('-');
  std::int64_t number = 0;
  for (const char c : text.substr(isNegative ? 1 : 0)) {
    if (c < '0' || c > '9') break;
    number = number * 10 + (c - '0');
    if (number > -Min) break;  // beyond either limit: no further digit changes the result
  }
  if (isNegative) number = -number;
  return static_cast<std::int32_t>(number < Min ? Min : number > Max ? Max : number);
}

std::string_view element::Name() const {
  return owner_->View(owner_->nodes_[index_].name);
}

std::string_view element::Attribute(std::string_view name) const {
  return owner_->View(owner_->attributes_[owner_->FindAttribute(index_, name)].value);
}

std::string_view element::Text() const {
  return Attribute({});
}

element element::FirstChild() const {
  const std::uint32_t last = owner_->nodes_[index_].lastChild;
  return last == 0 ? element() : element(*owner_, owner_->nodes_[last].next, index_);
}

element element::NextSibling() const {
  const bool isLast = parent_ == 0 || owner_->nodes_[parent_].lastChild == index_;
  return isLast ? element() : element(*owner_, owner_->nodes_[index_].next, parent_);
}

std::size_t element::ChildCount() const {
  std::size_t count = 0;
  for (element child = FirstChild(); child; child = child.NextSibling()) ++count;
  return count;
}

element element::FindChild(std::string_view name) const {
  element child = FirstChild();
  while (child && child.Name() != name) child = child.NextSibling();
  return child;
}

element element::FindChild(std::string_view name, std::string_view id) const {
  element child = FirstChild();
  while (child && (child.Name() != name || child.Attribute("id") != id)) child = child.NextSibling();
  return child;
}

element element::CreateChild(std::string_view name) {
  return {*owner_, owner_->AddChild(index_, name), index_};
}

void element::SetAttribute(std::string_view name, std::string_view value) {
  owner_->Set(index_, name, value);
}

void element::SetText(std::string_view text) {
  owner_->Set(index_, {}, text);
}

document::document(std::string_view rootName) {
  Clear({});
  AddChild(0, rootName);
}

std::optional<error> document::Parse(std::string bytes) {
  try {
    Clear(std::move(bytes));
    tree_builder builder(*this);
    return reader(source_, builder).Read();
  } catch (const std::bad_alloc&) {
    throw xout_of_memory();
  }
}

place document::PlaceOf(const element& parsed) const {
  return PlaceAt(source_, nodes_[parsed.index_].name.offset - 1);
}

std::string document::Write() const {
  return writer(*this).Text();
}

void document::Clear(std::string source) {
  source_ = std::move(source);
  added_.clear();
  nodes_.Truncate(0);
  attributes_.Truncate(0);
  nodes_.Add({});       // index 0 is none; as a node it is the parent of the root
  attributes_.Add({});  // what is read of a missing attribute: nothing
}

std::string_view document::View(text_range range) const {
  const std::string& text = range.offset < source_.size() ? source_ : added_;
  const std::size_t start = range.offset < source_.size() ? range.offset : range.offset - source_.size();
  return {text.data() + start, range.length};
}

document::text_range document::Store(std::string_view text) {
  const std::less_equal<const char*> notAfter;
  const auto length = static_cast<std::uint32_t>(text.size());
  const bool isInSource = notAfter(source_.data(), text.data()) &&
                          notAfter(text.data() + text.size(), source_.data() + source_.size());
  if (isInSource && length > 0) return {static_cast<std::uint32_t>(text.data() - source_.data()), length};

  const std::size_t offset = source_.size() + added_.size();
  if (offset + text.size() > std::numeric_limits<std::uint32_t>::max()) throw xout_of_memory();
  added_ += text;
  return {static_cast<std::uint32_t>(offset), length};
}

std::uint32_t document::AddChild(std::uint32_t parent, std::string_view name) {
  const std::uint32_t index = nodes_.Add({Store(name), 0, 0, 0});
  const std::uint32_t last = nodes_[parent].lastChild;
  nodes_[index].next = last == 0 ? index : nodes_[last].next;
  if (last != 0) nodes_[last].next = index;
  nodes_[parent].lastChild = index;
  return index;
}

std::uint32_t document::AddAttribute(std::uint32_t owner, std::string_view name, std::string_view value) {
  const text_range storedName = Store(name);
  const std::uint32_t index = attributes_.Add({storedName, Store(value), 0});
  const std::uint32_t last = nodes_[owner].lastAttribute;
  attributes_[index].next = last == 0 ? index : attributes_[last].next;
  if (last != 0) attributes_[last].next = index;
  nodes_[owner].lastAttribute = index;
  return index;
}

std::uint32_t document::FindAttribute(std::uint32_t owner, std::string_view name) const {
  const std::uint32_t last = nodes_[owner].lastAttribute;
  if (last == 0) return 0;
  std::uint32_t index = last;
  do {
    index = attributes_[index].next;
    if (View(attributes_[index].name) == name) return index;
  } while (index != last);
  return 0;
}

void document::Set(std::uint32_t owner, std::string_view name, std::string_view value) {
  const std::uint32_t existing = FindAttribute(owner, name);
  if (existing == 0) {
    AddAttribute(owner, name, value);
  } else {
    const text_range stored = Store(value);
    attributes_[existing].value = stored;
  }
}

}  // namespace qor::xml
