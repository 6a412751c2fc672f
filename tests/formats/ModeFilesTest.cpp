// SPDX-License-Identifier: MIT
// TMF, LMF and RAW
#include <gtest/gtest.h>

#include <algorithm>

#include "formats/FileFormats.h"
#include "formats/LmfFile.h"
#include "formats/RawFile.h"
#include "formats/TmfFile.h"
#include "model/ModeSample.h"
#include "model/Presets.h"
#include "tests/support/Curves.h"

namespace {

using namespace TCBase;
using test::Curve;

std::string Zeros(std::size_t count) {
  return std::string(count, '\0');
}

std::string Message(const ImportResult& result) {
  return (result.isImported ? "" : "- ") + result.message.In(qor::InEnglish);
}

/// A TMF record: hour and minute, then five values and five jumps.
std::string Record(const std::string& time, const std::string& valuesAndJumps, const std::string& end) {
  return Zeros(4) + time + Zeros(38) + valuesAndJumps + end;
}

Mode RandomMode(std::mt19937& random, std::size_t maxSteps, bool isOrderly) {
  Mode mode;
  for (Channel& channel : mode.channels) channel = test::RandomCurve(random, maxSteps, isOrderly);
  return mode;
}

std::string RawByDefinition(const Mode& mode) {
  std::string bytes;
  for (int second = 0; second < SecondsPerDay; ++second) {
    for (const std::int32_t value : SampleAt(mode, second).values) {
      bytes += static_cast<char>(std::clamp(value, 0, 100));
    }
  }
  return bytes;
}

}  // namespace

TEST(TmfFile, WritesToTheByte) {
  Mode mode;
  mode.channels[0] = Curve({{7, 30, 79.9f, true}, {20, 5, 0}});
  mode.channels[4] = Curve({{7, 30, 150}, {20, 5, -3, true}});
  EXPECT_EQ(ExportTMF(mode), Zeros(4) + "\x05" + Zeros(3) + "\x03" + Zeros(3) +
                                 Record("\x07\x1E", {79, 0, 0, 0, 100, 1, 0, 0, 0, 0}, "\xCC\xCC") +
                                 Record("\x14\x05", {0, 0, 0, 0, 0, 0, 0, 0, 0, 1}, "\xCC\xCC"));
}

TEST(TmfFile, ReadsWhateverTheHeaderSays) {
  const std::string bytes = "twelve bytes" +
                            Record("\x09\x0A", {'\xFF', 1, 0, 0, 100, 1, 2, 0, '\xFF', 1}, "..") +
                            Record("\x08\x63", Zeros(10), "..") +                       // 8:99 is 9:39
                            Record({'\x19', 0}, {0, 7, 0, 0, 0, 0, 0, 0, 0, 0}, "..");  // 25:00 is 23:59
  Mode mode;
  mode.name = "kept";
  mode.channels[3] = Curve({{9, 20, 5}});
  EXPECT_EQ(Message(ImportTMF(bytes, mode)), "");
  EXPECT_EQ(mode.name, "kept");
  EXPECT_EQ(mode.channels[0], Curve({{9, 10, 100, true}, {9, 39, 0}, {23, 59, 0}}));
  EXPECT_EQ(mode.channels[1], Curve({{9, 10, 1}, {9, 39, 0}, {23, 59, 7}}));
  EXPECT_EQ(mode.channels[3], Curve({{9, 10, 0}, {9, 20, 5}, {9, 39, 0}, {23, 59, 0}}));
  EXPECT_EQ(mode.channels[4], Curve({{9, 10, 100, true}, {9, 39, 0}, {23, 59, 0}}));
}

TEST(TmfFile, RefusesOtherSizesAndStopsAt48Steps) {
  for (const std::size_t size : {0, 11, 12, 13, 67, 69, 12 + 56 * 50 - 1}) {
    Mode mode;
    EXPECT_EQ(Message(ImportTMF(Zeros(size), mode)),
              "- Invalid file format: a TMF file has 12 bytes and 56 more for each step, this one has " +
                  std::to_string(size));
    EXPECT_EQ(mode, Mode());
  }
  Mode mode;
  EXPECT_EQ(Message(ImportTMF(Zeros(12 + 56 * 50), mode)),
            "TMF max number of steps exceeded. Limiting to 48: the file has 50");
  EXPECT_EQ(mode.channels[4].steps.size(), 48u) << "equal times stay";
}

TEST(LmfFile, SwapsTheDigitsOfEachValue) {
  Mode mode;
  mode.channels[0] = Curve({{0, 0, 100}, {0, 30, 80.9f}, {1, 0, 7, true}, {23, 0, 120}});
  mode.channels[2] = Curve({{12, 0, 30}});
  const std::string bytes = ExportLMF(mode);
  ASSERT_EQ(bytes.size(), 960u);
  EXPECT_EQ(bytes.substr(0, 20), std::string("\x46\0\0\0\0\0\0\0\xE1\0\0\0\0\0\0\0\0\0\0\0", 20));
  EXPECT_EQ(bytes[20], '\x05');
  EXPECT_EQ(bytes[40], '\x70');
  EXPECT_EQ(bytes[45 * 20], '\x70') << "held up to the jump";
  EXPECT_EQ(bytes[46 * 20], '\x46');
}

TEST(LmfFile, ReadsHalfHoursAndDropsWhatChangesNothing) {
  std::string bytes = Zeros(960);
  bytes[20] = '\x46';  // 00:30, channel 1: 100
  bytes[21] = '\x7F';  // the field's other bytes do not count
  for (std::size_t slot = 0; slot < 48; ++slot) bytes[slot * 20 + 4] = '\xFF';  // channel 2: 255 is 100
  Mode mode;
  mode.name = "kept";
  EXPECT_EQ(Message(ImportLMF(bytes, mode)), "");
  EXPECT_EQ(mode.name, "kept");
  EXPECT_EQ(mode.channels[0], Curve({{0, 0, 0}, {0, 30, 100}, {1, 0, 0}}));
  EXPECT_EQ(mode.channels[1], Curve({{23, 0, 100}, {23, 30, 100}}));

  Mode untouched;
  for (const std::size_t size : {0, 959, 961}) {
    EXPECT_EQ(Message(ImportLMF(Zeros(size), untouched)),
              "- Invalid file format: an LMF file has 960 bytes, this one has " + std::to_string(size));
  }
  EXPECT_EQ(untouched, Mode());
}

TEST(FileFormats, SayWhatTheyDoNotCarry) {
  Mode mode;
  mode.name = "m";
  const FileFormat& tmf = *FormatOf("a/b.TMF");
  EXPECT_EQ(RefusalOf(tmf, mode).In(qor::InEnglish), "Unable to save mode m as TMF, it has no steps.");
  EXPECT_FALSE(RefusalOf(*FormatOf(".lmf"), mode));
  for (int i = 0; i < 49; ++i) mode.channels[0].Add(MakeStep(i / 60, i % 60, 1, true));
  EXPECT_FALSE(RefusalOf(tmf, mode));
  EXPECT_EQ(LossesOf(tmf, mode).size(), 1u) << "more steps than are read";
  const std::vector<qor::Sentence> losses = LossesOf(*FormatOf("x.lmf"), mode);
  ASSERT_EQ(losses.size(), 2u) << "jumps, and times";
  EXPECT_EQ(
      losses[1].In(qor::InEnglish),
      "LMF files hold the values at half hours; lost are the steps at 00:01, 00:02, 00:03, 00:04, 00:05, "
      "00:06, 00:07, 00:08, ...");
  EXPECT_EQ(FormatOf("a.tmf/b"), nullptr);
  EXPECT_EQ(BareName("C:\\a.b\\Reef.1.tmf"), "Reef.1");
}

TEST(RawFile, HoldsEverySecond) {
  Mode mode;
  FillAlwaysOn(mode, qor::InEnglish);
  EXPECT_EQ(ExportRAW(mode), std::string(432000, '\x64'));

  std::mt19937 random(5);
  for (int i = 0; i < 30; ++i) {
    mode = RandomMode(random, i % 3 == 0 ? 3 : 60, i % 2 == 0);
    if (i % 5 == 0) mode.channels[1].steps.push_back({2147483647, 59, 3e9f, false, 0});
    if (i % 7 == 0) mode.channels[2].steps.insert(mode.channels[2].steps.begin(), {-40, -3, -7, false, 0});
    ASSERT_TRUE(ExportRAW(mode) == RawByDefinition(mode)) << i;
  }
}
