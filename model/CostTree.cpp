// SPDX-License-Identifier: MIT
#include "model/CostTree.h"

#include <algorithm>

namespace TCBase {

CostTree::CostTree(std::size_t count) {
  while (leaves_ < count) leaves_ *= 2;
  nodes_.assign(2 * leaves_, NoEntry);
}

// Always up to the root: a walk that could end early costs more in mispredicted branches than it saves.
void CostTree::SetEntry(std::size_t index, std::int64_t entry) {
  std::size_t node = leaves_ + index;
  std::int64_t least = entry;
  nodes_[node] = least;
  while (node > 1) {
    least = std::min(least, nodes_[node ^ 1]);
    node /= 2;
    nodes_[node] = least;
  }
}

}  // namespace TCBase
