// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>

namespace TCBase {

/// The colours that channels are drawn in, 0xAARRGGBB, in the order in which a user goes through them.
inline constexpr std::array<std::uint32_t, 6> ChannelPalette = {0xFFFFFFFF, 0xFFFFFCC9, 0xFFDCEAFF,
                                                                0xFFFFCCCB, 0xFF90EE90, 0xFFA2BAF5};

}  // namespace TCBase
