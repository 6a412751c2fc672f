// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <regex>
#include <sstream>

#include "device/TC420/Packets.h"
#include "device/TC421/Packets.h"
#include "device/TC421/Reply.h"

namespace {

/// Frames by the way that they go and the packet's text, as "USB Packet_ClearAll()".
using Frames = std::map<std::string, std::string>;

std::string FileText(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

/// The examples of the doc: a line with the packet's text, under it a line with the frame for each way, in
/// which 43x00 stands for 43 bytes 00.
Frames Examples() {
  const std::regex textLine("    ((Packet_|Answer to ).*)");
  const std::regex frameLine("      (TC420|USB|network|both) +(.*)");
  Frames examples;
  std::string text;
  std::istringstream lines(FileText(HALVEX_DOCS "/wire-protocol.md"));
  for (std::string line; std::getline(lines, line);) {
    std::smatch match;
    if (std::regex_match(line, match, textLine)) text = match[1];
    if (!std::regex_match(line, match, frameLine)) continue;
    std::string& frame = examples[match[1].str() + " " + text];
    EXPECT_EQ(frame, "") << "a second example: " << line;
    std::istringstream tokens(match[2]);
    for (std::string token; tokens >> token;) {
      const bool isRun = token.ends_with("x00");
      frame.append(isRun ? std::stoul(token) : 1,
                   isRun ? '\0' : static_cast<char>(std::stoul(token, {}, 16)));
    }
  }
  return examples;
}

template <typename... Packets>
void Add(Frames& frames, const std::string& way, const Packets&... packets) {
  (packets.Serialize(frames[way + " " + packets.Text()]), ...);
}

/// What the packets of the examples serialize.
Frames PacketFrames() {
  const platform::SYSTEMTIME time{2026, 11, 6, 21, 18, 30, 5, 0};
  const TCBase::ModeSample sample{7, 30, {0, 25, 50, 75, 100}, {1, 1, 0, 0, 0}};
  const int channels[] = {90, 90, 90, 90, 30};
  Frames frames;
  {
    using namespace TC420;
    Add(frames, "TC420", Packet_ModeInit(1, 2, "AlwaysOn"), Packet_ModeStep(sample), Packet_ModeStepsStop(),
        Packet_ModeStop(), Packet_ClearAll(), Packet_TimeSync(time), Packet_PlayInit("Normal"),
        Packet_PlaySetChannels(channels));
  }
  using namespace TC421;
  for (const Route& to : {Route{{}, true}, Route{"192.168.1.20", false}}) {
    Add(frames, to.isUsb ? "USB" : "network", Packet_ModeInit(to, 1, 2, "AlwaysOn"),
        Packet_ModeStep(to, 3, sample), Packet_ModeStepsStop(to), Packet_ModeStop(to), Packet_ClearAll(to),
        Packet_TimeSync(to, time), Packet_PlayInit(to, 1, "Normal"), Packet_PlaySetChannels(to, channels));
  }
  Add(frames, "both", Packet_Find(), Packet_SetWiFi_SSID("Reef", 2, 0), Packet_SetWiFi_Password("coral reef"),
      Packet_SetWiFi_Open("Reef"));
  return frames;
}

}  // namespace

TEST(WireProtocol, HasTrueExamples) {
  Frames examples = Examples();
  const std::string find = "both Answer to Packet_Find()", clear = "both Answer to Packet_ClearAll()";
  EXPECT_EQ(TC421::ReadFindAnswer(examples[find]), "192.168.1.20");
  const auto cleared = TC421::ReadReply(examples[clear]);
  EXPECT_TRUE(cleared && cleared->command == 0x05 && cleared->Verdict() == 0);
  Frames frames = PacketFrames();
  for (const auto& [name, frame] : frames) EXPECT_EQ(examples[name], frame) << name;
  for (const std::string& answer : {find, clear}) frames[answer];
  for (const auto& [name, frame] : examples) EXPECT_TRUE(frames.contains(name)) << "no packet: " << name;
}

TEST(WireProtocol, HasAnExampleOfEachPacketClass) {
  std::string names;
  for (const auto& [name, frame] : Examples()) names += name + '\n';
  for (const std::string model : {"TC420", "TC421"}) {
    const std::string header = FileText(HALVEX_DOCS "/../device/" + model + "/Packets.h");
    const std::regex packetClass("class (Packet_\\w+) ");
    for (std::sregex_iterator it(header.begin(), header.end(), packetClass), end; it != end; ++it) {
      const auto has = [&](const std::string& way) {
        return names.find(way + ' ' + (*it)[1].str() + '(') != names.npos;
      };
      EXPECT_TRUE(model == "TC420" ? has(model) : has("network") || has("both")) << model << " " << (*it)[1];
    }
  }
}
