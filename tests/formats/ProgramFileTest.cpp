// SPDX-License-Identifier: MIT
#include "formats/ProgramFile.h"

#include <gtest/gtest.h>

#include "QorLib/Exceptions.h"
#include "formats/FileBytes.h"
#include "model/Presets.h"
#include "tests/support/Curves.h"
#include "tests/support/TempFolder.h"

namespace {

const std::string EmptyMode = "<mode name='m'><channel/><channel/><channel/><channel/><channel/></mode>";

TCBase::Program Read(const std::string& xml) {
  TCBase::Program program;
  const auto failed = TCBase::ReadProgram(xml, program);
  EXPECT_FALSE(failed) << failed->Text();
  return program;
}

std::string FailureOf(const std::string& xml) {
  TCBase::Program program;
  program.modes.resize(1);
  program.channelInfos[0].name = "kept";
  const TCBase::Program before = program;
  const auto failed = TCBase::ReadProgram(xml, program);
  EXPECT_EQ(program, before) << "a failed load changes nothing";
  return failed ? failed->Text() : "";
}

}  // namespace

TEST(ProgramFile, WritesToTheByte) {
  TCBase::Program program;
  program.modes.resize(1);
  program.modes[0].name = "Korallen & \xC3\x84hren";
  program.modes[0].description = "line 1\nline 2";
  program.modes[0].channels[0] = test::Curve({{8, 5, 79.6f}, {20, 0, 0, true}});
  program.channelInfos[1] = {"W'", "warm", 0xFF0A14FF};
  std::string infos;
  for (int i = 0; i < 3; ++i)
    infos += "    <channel_info name='' description='' r='255' g='255' b='255'/>\r\n";
  EXPECT_EQ(TCBase::WriteProgram(program),
            "<modelist>\r\n"
            "  <mode name='Korallen &amp; \xC3\x84hren' description='line 1\nline 2'>\r\n"
            "    <channel>\r\n"
            "      <step hour='8' minute='5' value='79'/>\r\n"
            "      <step hour='20' minute='0' value='0' jump='1'/>\r\n"
            "    </channel>\r\n"
            "    <channel/>\r\n"
            "    <channel/>\r\n"
            "    <channel/>\r\n"
            "    <channel/>\r\n"
            "  </mode>\r\n"
            "  <channel_info>\r\n"
            "    <channel_info name='' description='' r='255' g='255' b='255'/>\r\n"
            "    <channel_info name='W&apos;' description='warm' r='10' g='20' b='255'/>\r\n" +
                infos +
                "  </channel_info>\r\n"
                "</modelist>\r\n");
}

TEST(ProgramFile, CarriesAllButFractions) {
  std::mt19937 random(7);
  const auto text = [&random] {
    constexpr const char* Parts[] = {"a",    " ",  "<",        "&amp;", "'",        "\"",
                                     "\r\n", "\t", "\xC3\x84", "]]>",   "<![CDATA["};
    std::string result;
    for (std::size_t i = random() % 5; i > 0; --i) result += Parts[random() % std::size(Parts)];
    return result;
  };
  for (int i = 0; i < 100; ++i) {
    TCBase::Program program;
    program.modes.resize(1 + random() % 4);
    for (TCBase::Mode& mode : program.modes) {
      mode.name = text();
      mode.description = text();
      for (TCBase::Channel& channel : mode.channels)
        channel = test::RandomCurve(random, 20, random() % 2 == 0);
    }
    for (auto& info : program.channelInfos) {
      info = {text(), text(), 0xFF000000u | static_cast<std::uint32_t>(random() & 0xFFFFFF)};
    }
    const TCBase::Program read = Read(TCBase::WriteProgram(program));
    for (TCBase::Mode& mode : program.modes) {
      for (TCBase::Channel& channel : mode.channels) {
        for (TCBase::Step& step : channel.steps)
          step.value = static_cast<float>(TCBase::WholePercent(step.value));
      }
    }
    ASSERT_EQ(read, program) << i;
  }
}

TEST(ProgramFile, ReadsStepsAsTheyStand) {
  const TCBase::Program program = Read(
      "<any><mode><c><step hour='9' value='5'/><step hour='99999999999' minute='-5x' value='-5' jump='2'/>"
      "<note/><step hour=' 7' jump='0'/></c><x/><x/><x/><channel/></mode></any>");
  const std::vector<TCBase::Step>& steps = program.modes[0].channels[0].steps;
  ASSERT_EQ(steps.size(), 3u);
  EXPECT_EQ(steps[0], (TCBase::Step{9, 0, 5}));
  EXPECT_EQ(steps[1], (TCBase::Step{2147483647, -5, -5, true}));
  EXPECT_EQ(steps[2], (TCBase::Step{0, 0, 0}));
  EXPECT_NE(steps[0].id, steps[1].id);
}

TEST(ProgramFile, DropsModesWithoutFiveChannels) {
  const std::string four = "<mode name='4'><c/><c/><c/><c/></mode>";
  const std::string six = "<mode name='6'><c/><c/><c/><c/><c/><c/></mode>";
  const TCBase::Program program = Read("<modelist>" + four + EmptyMode + "<other/>" + six + "</modelist>");
  ASSERT_EQ(program.modes.size(), 1u);
  EXPECT_EQ(program.modes[0].name, "m");
}

TEST(ProgramFile, TakesAsManyChannelInfosAsThereAre) {
  TCBase::Program program;
  program.channelInfos[3].name = "kept";
  std::string infos =
      "<channel_info><x/><channel_info name='1' r='300' g='-1' b='7'/><channel_info name='2'/>";
  ASSERT_FALSE(TCBase::ReadProgram("<l>" + EmptyMode + infos +
                                       "</channel_info><channel_info><channel_info name='n'/>"
                                       "</channel_info></l>",
                                   program));
  EXPECT_EQ(program.channelInfos[0], (TCBase::Program::ChannelInfo{"1", "", 0xFF2CFF07}));
  EXPECT_EQ(program.channelInfos[1].colour, 0xFF000000u);
  EXPECT_EQ(program.channelInfos[3].name, "kept");

  for (int i = 3; i <= 7; ++i) infos += "<channel_info name='" + std::to_string(i) + "'/>";
  EXPECT_EQ(Read("<l>" + EmptyMode + infos + "</channel_info></l>").channelInfos[4].name, "5");
}

TEST(ProgramFile, SaysWhyThereIsNoProgram) {
  EXPECT_EQ(FailureOf("<modelist/>"), "line 1, column 1: there is no mode in the file");
  EXPECT_EQ(FailureOf("<modelist>\n <mode><c/></mode></modelist>"),
            "line 2, column 2: there is no mode with 5 channels; the one here has 1");
  EXPECT_EQ(FailureOf("<modelist>" + EmptyMode),
            "line 1, column 83: the file ends inside <modelist>; it may have been cut off");
}

TEST(ProgramFile, LoadsAndSaves) {
  const test::TempFolder folder;
  const std::string path = folder.File("a.xml");
  const TCBase::Program program = TCBase::NewProgram(qor::InEnglish);
  EXPECT_FALSE(TCBase::SaveProgram(program, path));
  TCBase::Program loaded;
  EXPECT_FALSE(TCBase::LoadProgram(path, loaded));
  EXPECT_EQ(loaded, program);
  EXPECT_TRUE(TCBase::LoadProgram(folder.File("missing.xml"), loaded));
  EXPECT_TRUE(TCBase::SaveProgram(program, folder.File("no/folder.xml")));
#ifndef _WIN32
  EXPECT_THROW(TCBase::ReplaceFileBytes("/dev/full", "x"), qor::win::xdisk_full);
#endif
}
