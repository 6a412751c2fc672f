// SPDX-License-Identifier: MIT
#include "QorLib/xml/document.h"

#include <limits>
#include <new>
#include <utility>

#include "QorLib/Exceptions.h"
#include "QorLib/xml/tree_builder.h"
#include "QorLib/xml/writer.h"

namespace qor::xml {

std::string_view element::Name() const {
  return owner_->View(owner_->nodes_[index_].name);
}

std::string_view element::Text() const {
  return Attribute({});
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

void element::SetAnyText(std::string_view text) {
  constexpr std::string_view Open = "<![CDATA[", Close = "]]>";
  if (!text.starts_with(Open)) return SetText(text);
  // Such a text is written unchanged, so it goes into sections, divided within each end of one.
  std::string sections(Open);
  for (std::size_t end = text.find(Close); end != std::string_view::npos; end = text.find(Close)) {
    sections.append(text.substr(0, end)).append("]]").append(Close).append(Open);
    text.remove_prefix(end + 2);
  }
  SetText(sections.append(text).append(Close));
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

position document::PositionOf(const element& parsed) const {
  return PositionAt(source_, nodes_[parsed.index_].name.offset - 1);
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

// A text that begins in the source also ends there, since texts from elsewhere share no memory with it.
document::text_range document::Store(std::string_view text) {
  const std::uintptr_t offset =
      reinterpret_cast<std::uintptr_t>(text.data()) - reinterpret_cast<std::uintptr_t>(source_.data());
  if (offset >= source_.size() || text.empty()) return StoreAdded(text);
  return {static_cast<std::uint32_t>(offset), static_cast<std::uint32_t>(text.size())};
}

document::text_range document::StoreAdded(std::string_view text) {
  const std::size_t offset = source_.size() + added_.size();
  if (offset + text.size() > std::numeric_limits<std::uint32_t>::max()) throw xout_of_memory();
  added_ += text;
  return {static_cast<std::uint32_t>(offset), static_cast<std::uint32_t>(text.size())};
}

template <typename T>
std::uint32_t document::AddToRing(pool<T>& members, const T& member, std::uint32_t& last) {
  T& added = members.Add(member);
  const std::uint32_t index = members.Size() - 1;
  added.next = last == 0 ? index : std::exchange(members[last].next, index);
  last = index;
  return index;
}

std::uint32_t document::AddChild(std::uint32_t parent, std::string_view name) {
  return AddToRing(nodes_, {Store(name), 0, 0, 0}, nodes_[parent].lastChild);
}

void document::AddAttribute(std::uint32_t owner, std::string_view name, std::string_view value) {
  const text_range storedName = Store(name);
  AddToRing(attributes_, {storedName, Store(value), 0}, nodes_[owner].lastAttribute);
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
