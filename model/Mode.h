// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <string>

#include "model/Channel.h"

namespace TCBase {

inline constexpr std::size_t ChannelCount = 5;

/// A named day: the curves of the five channels. Texts are UTF-8.
struct Mode {
  std::string name;
  std::string description;
  std::array<Channel, ChannelCount> channels;

  bool operator==(const Mode&) const = default;
};

}  // namespace TCBase
