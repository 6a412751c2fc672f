// SPDX-License-Identifier: MIT
#include "formats/TmfFile.h"

#include <algorithm>

#include "model/ModeSample.h"
#include "model/Program.h"

namespace TCBase {
namespace {

constexpr std::string_view Header{"\0\0\0\0\5\0\0\0\3\0\0\0", 12};  // 0, the number of channels, 3
constexpr std::string_view RecordEnd = "\xCC\xCC";

// A record
constexpr std::size_t RecordSize = 56;
constexpr std::size_t HourOffset = 4;
constexpr std::size_t MinuteOffset = 5;
constexpr std::size_t ValuesOffset = 44;
constexpr std::size_t JumpsOffset = 49;
constexpr std::size_t EndOffset = 54;

int ByteAt(std::string_view bytes, std::size_t offset) {
  return static_cast<unsigned char>(bytes[offset]);
}

std::string Record(const ModeSample& sample) {
  std::string record(RecordSize, '\0');
  record[HourOffset] = static_cast<char>(sample.hour);
  record[MinuteOffset] = static_cast<char>(sample.minute);
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    record[ValuesOffset + i] = static_cast<char>(std::clamp(sample.values[i], 0, 100));
    record[JumpsOffset + i] = static_cast<char>(sample.jumps[i]);
  }
  return record.replace(EndOffset, RecordEnd.size(), RecordEnd);
}

void AppendSteps(std::string_view record, Mode& mode) {
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    Step step = MakeStep(ByteAt(record, HourOffset), ByteAt(record, MinuteOffset),
                         static_cast<float>(ByteAt(record, ValuesOffset + i)), record[JumpsOffset + i] == 1);
    step.Clamp();
    mode.channels[i].steps.push_back(step);
  }
}

}  // namespace

ImportResult ImportTMF(std::string_view bytes, Mode& mode) {
  if (bytes.size() <= Header.size() || (bytes.size() - Header.size()) % RecordSize != 0) {
    return {false,
            {TR("Invalid file format"),
             {},
             {{TR("a TMF file has {1} bytes and {2} more for each step, this one has {3}"),
               {Header.size(), RecordSize, bytes.size()}}}}};
  }
  const std::size_t count = (bytes.size() - Header.size()) / RecordSize;
  ImportResult result{true, {}};
  if (count > MaxModeSteps) {
    result.message = {TR("TMF max number of steps exceeded. Limiting to {1}"),
                      {MaxModeSteps},
                      {{TR("the file has {1}"), {count}}}};
  }
  for (std::size_t i = 0; i < std::min<std::size_t>(count, MaxModeSteps); ++i) {
    AppendSteps(bytes.substr(Header.size() + i * RecordSize, RecordSize), mode);
  }
  for (Channel& channel : mode.channels) channel.Sort();
  return result;
}

std::string ExportTMF(const Mode& mode) {
  std::string bytes(Header);
  for (const ModeSample& sample : SampleTable(mode)) bytes += Record(sample);
  return bytes;
}

}  // namespace TCBase
