// SPDX-License-Identifier: MIT
#include "formats/LmfFile.h"

#include <algorithm>

#include "model/ModeSample.h"
#include "model/StepLimit.h"

namespace TCBase {
namespace {

constexpr int SlotCount = 48;
constexpr std::size_t FieldSize = 4;
constexpr std::size_t SlotSize = ChannelCount * FieldSize;
constexpr std::size_t FileSize = SlotCount * SlotSize;

int SwapNibbles(int byte) {
  return byte % 16 * 16 + byte / 16;
}

}  // namespace

ImportResult ImportLMF(std::string_view bytes, Mode& mode) {
  if (bytes.size() != FileSize) {
    return {false,
            {TR("Invalid file format"),
             {},
             {{TR("an LMF file has {1} bytes, this one has {2}"), {FileSize, bytes.size()}}}}};
  }
  for (std::size_t slot = 0; slot < SlotCount; ++slot) {
    for (std::size_t i = 0; i < ChannelCount; ++i) {
      const int stored = static_cast<unsigned char>(bytes[slot * SlotSize + i * FieldSize]);
      Step step = MakeStep(static_cast<int>(slot / 2), slot % 2 == 0 ? 0 : 30,
                           static_cast<float>(SwapNibbles(stored)));
      step.Clamp();
      mode.channels[i].steps.push_back(step);
    }
  }
  Mode resampled = ResampleAt30Minutes(mode);
  RemoveRedundantSteps(resampled);
  mode.channels = std::move(resampled.channels);
  return {true, {}};
}

std::string ExportLMF(const Mode& mode) {
  std::string bytes(FileSize, '\0');
  std::size_t offset = 0;
  for (const ModeSample& sample : SampleTable(ResampleAt30Minutes(mode))) {
    for (const std::int32_t value : sample.values) {
      bytes[offset] = static_cast<char>(SwapNibbles(std::clamp(value, 0, 100)));
      offset += FieldSize;
    }
  }
  return bytes;
}

}  // namespace TCBase
