// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <vector>

namespace TCBase {

/// A row of costs of which the least is always known, the first of equal ones: a tournament tree. Setting a
/// cost takes time logarithmic in their number.
class CostTree {
 public:
  /// A row of `count` entries without a cost; fewer than 2^32.
  explicit CostTree(std::size_t count);

  /// `cost` is at least 0.
  void Set(std::size_t index, std::int32_t cost) { SetEntry(index, Entry(index, cost)); }
  void Remove(std::size_t index) { SetEntry(index, NoEntry); }
  /// Whether no entry has a cost; the two below are not to be asked then.
  bool IsEmpty() const { return nodes_[1] == NoEntry; }
  /// The least cost.
  std::int32_t Least() const { return static_cast<std::int32_t>(nodes_[1] >> IndexBits); }
  /// The index of the first least cost.
  std::size_t First() const {
    return static_cast<std::size_t>(nodes_[1] & ((std::int64_t{1} << IndexBits) - 1));
  }

 private:
  static constexpr int IndexBits = 32;
  static constexpr std::int64_t NoEntry = std::numeric_limits<std::int64_t>::max();
  static std::int64_t Entry(std::size_t index, std::int32_t cost) {
    return (std::int64_t{cost} << IndexBits) | static_cast<std::int64_t>(index);
  }

  void SetEntry(std::size_t index, std::int64_t entry);

  std::size_t leaves_ = 1;
  /// Cost and index in one number, so that the least of them is the first of the least cost. The root stands
  /// at 1, node i's children at 2 i and 2 i + 1, the row from leaves_ on.
  std::vector<std::int64_t> nodes_;
};

}  // namespace TCBase
