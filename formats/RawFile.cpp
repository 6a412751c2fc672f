// SPDX-License-Identifier: MIT
#include "formats/RawFile.h"

#include <algorithm>

#include "model/ModeSample.h"

namespace TCBase {
namespace {

/// The channel's bytes: every `ChannelCount`th from `bytes` on.
void WriteDay(const Channel& channel, char* bytes) {
  std::size_t next = 0;
  for (std::int64_t second = 0; second < SecondsPerDay; ++second) {
    while (next < channel.steps.size() && channel.steps[next].SecondOfDay() < second) ++next;
    *bytes = static_cast<char>(std::clamp(WholePercent(channel.ValueAt(second, next)), 0, 100));
    bytes += ChannelCount;
  }
}

}  // namespace

std::string ExportRAW(const Mode& mode) {
  std::string bytes(ChannelCount * SecondsPerDay, '\0');
  for (std::size_t i = 0; i < ChannelCount; ++i) WriteDay(mode.channels[i], bytes.data() + i);
  return bytes;
}

}  // namespace TCBase
