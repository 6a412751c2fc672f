// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "model/Mode.h"

namespace TCBase {

inline constexpr std::size_t MinChannelSteps = 2;
inline constexpr int MaxModeSteps = 48;         // what a controller takes in one mode
inline constexpr int MaxModeStepsEarlier = 20;  // what the earlier TC420 in the blue case takes

/// A light program: the five channels' names and colours, and the modes in the order in which they are shown,
/// filed and uploaded. A plain value; copying it is how undo and jobs work.
class Program {
 public:
  using Step = TCBase::Step;
  using Channel = TCBase::Channel;
  using Mode = TCBase::Mode;

  struct ChannelInfo {
    std::string name;
    std::string description;
    std::uint32_t colour = 0xFFFFFFFF;  // 0xAARRGGBB, alpha always 0xFF

    bool operator==(const ChannelInfo&) const = default;
  };

  class ModeListView;

  std::array<ChannelInfo, ChannelCount> channelInfos;
  std::vector<Mode> modes;

  /// Equal in all that a user sees; steps' ids do not count.
  bool operator==(const Program&) const = default;
};

/// The modes that a job works on: a copy of its own, which later edits of the program do not reach. One of
/// them is marked as current.
class Program::ModeListView {
 public:
  explicit ModeListView(const Program& program) : modes_(program.modes) {}
  /// The modes at those indices, in that order; each must be less than the number of modes. `current` is the
  /// place of the current one among them.
  ModeListView(const Program& program, const std::vector<std::size_t>& indices, std::size_t current = 0);

  std::size_t Size() const { return modes_.size(); }
  const Mode& operator[](std::size_t index) const { return modes_[index]; }
  /// The mode that a demo plays; there must be one.
  const Mode& Current() const { return modes_.at(current_); }
  auto begin() const { return modes_.begin(); }
  auto end() const { return modes_.end(); }

 private:
  std::vector<Mode> modes_;
  std::size_t current_ = 0;
};

}  // namespace TCBase
