// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "QorLib/xml/document.h"
#include "QorLib/xml/observer.h"

namespace qor::xml {

/// Builds a document's tree from events. White space that only lays out children is dropped; an element's
/// text is otherwise all its stretches of text joined.
class tree_builder : public observer {
 public:
  using ChildHook = std::function<void(element rootChild)>;

  /// `target` must have been cleared for the text whose events follow. With a hook, each child of the root is
  /// given to it when complete and then leaves the tree, so that a large file never stands there whole.
  explicit tree_builder(document& target, ChildHook onRootChild = {});

  void StartElement(std::string_view name) override;
  void Attribute(std::string_view name, std::string_view value) override;
  void Text(std::string_view text) override;
  void EndElement() override;

 private:
  struct open_element {
    std::uint32_t index = 0;
    bool hasChildren = false;     // has had any, also where they have left the tree
    document::text_range text{};  // the first stretch
    std::string joined;           // all stretches, from the second on
  };
  struct tree_size {
    std::uint32_t nodes, attributes;
    std::size_t added;
  };

  tree_size Size() const;
  void DropRootChild(std::uint32_t rootChild);

  document& target_;
  ChildHook onRootChild_;
  std::vector<open_element> open_;
  tree_size beforeRootChild_{};
};

/// Parses `bytes` and hands over the root's children one at a time, each valid for the call. The document
/// holds the bytes and the root afterwards.
std::optional<error> ParseByChild(std::string bytes, document& target, tree_builder::ChildHook onRootChild);

}  // namespace qor::xml
