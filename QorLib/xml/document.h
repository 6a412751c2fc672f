// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "QorLib/ParseInteger.h"
#include "QorLib/xml/reader.h"

namespace qor::xml {

class document;

/// A handle to an element of a document, or to none; copied freely, valid as long as its document. Views that
/// it gives hold until the document is changed.
class element {
 public:
  element() = default;

  explicit operator bool() const { return index_ != 0; }

  std::string_view Name() const;
  /// The value, decoded; empty when the attribute is missing.
  std::string_view Attribute(std::string_view name) const;
  std::int32_t IntAttribute(std::string_view name) const;
  /// Calls visit(name, value) for each attribute, in order.
  template <typename Visitor>
  void ForEachAttribute(Visitor visit) const;
  std::string_view Text() const;

  element FirstChild() const;
  /// The next child of the same parent.
  element NextSibling() const;
  std::size_t ChildCount() const;
  element FindChild(std::string_view name) const;
  /// The first child of that name whose attribute "id" is `id`.
  element FindChild(std::string_view name, std::string_view id) const;

  /// Appends an empty child.
  element CreateChild(std::string_view name);
  /// Replaces the attribute's value, or appends the attribute.
  void SetAttribute(std::string_view name, std::string_view value);
  void SetText(std::string_view text);
  /// The same, for a text that must read back as it is even when it begins like a CDATA section.
  void SetAnyText(std::string_view text);

 private:
  friend class document;
  friend class tree_builder;
  element(document& owner, std::uint32_t index, std::uint32_t parent)
      : owner_(&owner), index_(index), parent_(parent) {}

  document* owner_ = nullptr;
  std::uint32_t index_ = 0;
  std::uint32_t parent_ = 0;
};

/// A tree of elements with name, attributes in order, text and children. An element and an attribute take 20
/// bytes each; texts that stand in the parsed bytes are not copied.
class document {
 public:
  /// An empty tree with a root of that name.
  explicit document(std::string_view rootName = {});
  document(const document&) = delete;
  document& operator=(const document&) = delete;

  element Root() { return {*this, RootIndex, 0}; }

  /// Replaces the tree by the one in `bytes`. After an error the tree holds what was read before it.
  /// Throws xout_of_memory.
  std::optional<error> Parse(std::string bytes);

  /// Where the element stands in the parsed bytes: the position of its "<".
  position PositionOf(const element& parsed) const;

  /// The text of the whole tree: each element on a line of its own, indented by two blanks a level, lines
  /// ending in CR LF.
  std::string Write() const;

 private:
  friend class element;
  friend class tree_builder;
  friend class writer;
  friend std::optional<error> ParseByChild(std::string bytes, document& target,
                                           std::function<void(element)> onRootChild);

  static constexpr std::uint32_t RootIndex = 1;

  /// A stretch of source_ or, behind its end, of added_.
  struct text_range {
    std::uint32_t offset, length;
  };
  /// Siblings form a ring: the last one's `next` is the first. An index of 0 is none.
  struct node {
    text_range name;
    std::uint32_t lastChild;
    std::uint32_t lastAttribute;
    std::uint32_t next;
  };
  /// An attribute; an element's text stands among its attributes as the one without a name.
  struct attribute {
    text_range name;
    text_range value;
    std::uint32_t next;
  };

  /// A vector that never moves its elements, so that it never holds them twice.
  template <typename T>
  class pool {
   public:
    T& operator[](std::uint32_t index) { return blocks_[index / BlockSize][index % BlockSize]; }
    const T& operator[](std::uint32_t index) const { return blocks_[index / BlockSize][index % BlockSize]; }
    std::uint32_t Size() const { return size_; }
    T& Add(const T& value) {
      if (size_ == blocks_.size() * BlockSize)
        blocks_.push_back(std::make_unique_for_overwrite<T[]>(BlockSize));
      return (*this)[size_++] = value;
    }
    void Truncate(std::uint32_t size) { size_ = size; }

   private:
    static constexpr std::uint32_t BlockSize = 4096;
    std::vector<std::unique_ptr<T[]>> blocks_;
    std::uint32_t size_ = 0;
  };

  void Clear(std::string source);
  std::string_view View(text_range range) const;
  text_range Store(std::string_view text);
  text_range StoreAdded(std::string_view text);
  template <typename T>
  static std::uint32_t AddToRing(pool<T>& members, const T& member, std::uint32_t& last);
  std::uint32_t AddChild(std::uint32_t parent, std::string_view name);
  void AddAttribute(std::uint32_t owner, std::string_view name, std::string_view value);
  std::uint32_t FindAttribute(std::uint32_t owner, std::string_view name) const;
  void Set(std::uint32_t owner, std::string_view name, std::string_view value);

  std::string source_;
  std::string added_;
  pool<node> nodes_;
  pool<attribute> attributes_;
};

// Whoever reads a tree runs through these for every element. Inline, an attribute's name that stands in the
// source is compared without a call.

inline std::string_view document::View(text_range range) const {
  const std::string& text = range.offset < source_.size() ? source_ : added_;
  const std::size_t start = range.offset < source_.size() ? range.offset : range.offset - source_.size();
  return {text.data() + start, range.length};
}

inline std::uint32_t document::FindAttribute(std::uint32_t owner, std::string_view name) const {
  const std::uint32_t last = nodes_[owner].lastAttribute;
  if (last == 0) return 0;
  std::uint32_t index = last;
  do {
    index = attributes_[index].next;
    const text_range candidate = attributes_[index].name;
    if (candidate.length == name.size() && View(candidate) == name) return index;
  } while (index != last);
  return 0;
}

inline std::string_view element::Attribute(std::string_view name) const {
  return owner_->View(owner_->attributes_[owner_->FindAttribute(index_, name)].value);
}

inline std::int32_t element::IntAttribute(std::string_view name) const {
  return ParseInteger(Attribute(name));
}

template <typename Visitor>
void element::ForEachAttribute(Visitor visit) const {
  const std::uint32_t last = owner_->nodes_[index_].lastAttribute;
  std::uint32_t index = last;
  while (index != 0) {
    index = owner_->attributes_[index].next;
    const document::attribute& attribute = owner_->attributes_[index];
    if (attribute.name.length > 0) visit(owner_->View(attribute.name), owner_->View(attribute.value));
    if (index == last) return;
  }
}

inline element element::FirstChild() const {
  const std::uint32_t last = owner_->nodes_[index_].lastChild;
  return last == 0 ? element() : element(*owner_, owner_->nodes_[last].next, index_);
}

inline element element::NextSibling() const {
  const bool isLast = parent_ == 0 || owner_->nodes_[parent_].lastChild == index_;
  return isLast ? element() : element(*owner_, owner_->nodes_[index_].next, parent_);
}

}  // namespace qor::xml
