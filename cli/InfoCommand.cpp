// SPDX-License-Identifier: MIT
// info
#include <algorithm>
#include <cstdio>
#include <memory>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/JsonOutput.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "device/ControllerLimits.h"
#include "model/ModeSample.h"

namespace cli {
namespace {

std::string ColourText(std::uint32_t colour) {
  char text[8];
  std::snprintf(text, sizeof text, "#%06X", static_cast<unsigned>(colour & 0xFFFFFF));
  return text;
}

using Remarks = std::vector<qor::Sentence>;

Json RemarksJson(const Remarks& remarks, const Invocation& invocation) {
  Json texts = Json::array();
  for (const qor::Sentence& remark : remarks) texts.push_back(invocation.Text(remark));
  return texts;
}

Json ModeJson(const TCBase::Mode& mode, std::size_t number, const Invocation& invocation) {
  const int steps = TCBase::StepCount(mode);
  Json channelSteps = Json::array();
  for (const TCBase::Channel& channel : mode.channels) channelSteps.push_back(channel.steps.size());
  return {{"mode", number},
          {"name", mode.name},
          {"description", mode.description},
          {"steps", steps},
          {"withinLimit", steps <= TCBase::MaxModeSteps},
          {"withinEarlierLimit", steps <= TCBase::MaxModeStepsEarlier},
          {"channelSteps", channelSteps},
          {"remarks", RemarksJson(TCBase::RemarksOn(mode), invocation)}};
}

Json InfoJson(const TCBase::Program& program, const std::string& path, const Invocation& invocation) {
  Json modes = Json::array();
  for (std::size_t i = 0; i < program.modes.size(); ++i)
    modes.push_back(ModeJson(program.modes[i], i + 1, invocation));
  Json channels = Json::array();
  for (std::size_t i = 0; i < program.channelInfos.size(); ++i) {
    const TCBase::Program::ChannelInfo& info = program.channelInfos[i];
    channels.push_back({{"channel", i + 1},
                        {"name", info.name},
                        {"description", info.description},
                        {"colour", ColourText(info.colour)}});
  }
  return {{"file", path},
          {"modes", modes},
          {"channels", channels},
          {"remarks", RemarksJson(TCBase::RemarksOn(program), invocation)}};
}

void PrintRemarks(const Remarks& remarks, Invocation& invocation) {
  for (const qor::Sentence& remark : remarks) {
    invocation.environment.out << "  " << Printable(invocation.Text(remark)) << '\n';
  }
}

void PrintInfo(const TCBase::Program& program, Invocation& invocation) {
  std::ostream& out = invocation.environment.out;
  for (std::size_t i = 0; i < program.modes.size(); ++i) {
    const TCBase::Mode& mode = program.modes[i];
    const Remarks remarks = TCBase::RemarksOn(mode);
    const int steps = TCBase::StepCount(mode);
    const std::string name = Printable(mode.name);
    out << invocation.Text(
               remarks.empty()
                   ? qor::Sentence{TR("Mode {1}: {2}, {3} steps, within all limits"), {i + 1, name, steps}}
                   : qor::Sentence{TR("Mode {1}: {2}, {3} steps:"), {i + 1, name, steps}})
        << '\n';
    PrintRemarks(remarks, invocation);
  }
  PrintRemarks(TCBase::RemarksOn(program), invocation);
  for (std::size_t i = 0; i < program.channelInfos.size(); ++i) {
    const TCBase::Program::ChannelInfo& info = program.channelInfos[i];
    out << invocation.Text({TR("Channel {1}"), {i + 1}})
        << qor::Format(": {1}, {2}\n", {Printable(info.name), ColourText(info.colour)});
  }
}

bool HasRemarks(const TCBase::Program& program) {
  return !TCBase::RemarksOn(program).empty() ||
         std::ranges::any_of(program.modes,
                             [](const TCBase::Mode& mode) { return !TCBase::RemarksOn(mode).empty(); });
}

}  // namespace

Runner DefineInfo(CLI::App& parser) {
  const auto path = std::make_shared<std::string>();
  const auto asJson = std::make_shared<bool>(false);
  const auto isStrict = std::make_shared<bool>(false);
  AddFile(parser, *path);
  parser.add_flag("--json", *asJson, "Answer as JSON");
  parser.add_flag("--strict", *isStrict, "End with status 1 when something is remarked on");
  return [=](Invocation& invocation) {
    const TCBase::Program program = Load(*path, invocation);
    if (*asJson) {
      Print(InfoJson(program, *path, invocation), invocation.environment.out);
    } else {
      PrintInfo(program, invocation);
    }
    return *isStrict && HasRemarks(program) ? DeviceFailed : Done;
  };
}

}  // namespace cli
