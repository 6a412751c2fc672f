// SPDX-License-Identifier: MIT
// info, sample
#include <charconv>
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/ProgramArguments.h"
#include "model/ModeSample.h"

namespace cli {
namespace {

using Json = nlohmann::ordered_json;

void Print(const Json& json, std::ostream& out) {
  // Names come from files; what is no UTF-8 among them must not stop the answer.
  out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

// info

std::string LimitText(int steps) {
  using namespace TCBase;
  if (steps > MaxModeSteps) return qor::Format("over the limit of {1}", {MaxModeSteps});
  if (steps > MaxModeStepsEarlier) {
    return qor::Format("over {1}, the limit of the earlier TC420", {MaxModeStepsEarlier});
  }
  return "within all limits";
}

std::string ColourText(std::uint32_t colour) {
  char text[8];
  std::snprintf(text, sizeof text, "#%06X", static_cast<unsigned>(colour & 0xFFFFFF));
  return text;
}

Json InfoJson(const TCBase::Program& program, const std::string& path) {
  Json modes = Json::array();
  for (std::size_t i = 0; i < program.modes.size(); ++i) {
    const TCBase::Mode& mode = program.modes[i];
    const int steps = TCBase::StepCount(mode);
    Json channelSteps = Json::array();
    for (const TCBase::Channel& channel : mode.channels) channelSteps.push_back(channel.steps.size());
    modes.push_back({{"mode", i + 1},
                     {"name", mode.name},
                     {"description", mode.description},
                     {"steps", steps},
                     {"withinLimit", steps <= TCBase::MaxModeSteps},
                     {"withinEarlierLimit", steps <= TCBase::MaxModeStepsEarlier},
                     {"channelSteps", channelSteps}});
  }
  Json channels = Json::array();
  for (std::size_t i = 0; i < program.channelInfos.size(); ++i) {
    const TCBase::Program::ChannelInfo& info = program.channelInfos[i];
    channels.push_back({{"channel", i + 1},
                        {"name", info.name},
                        {"description", info.description},
                        {"colour", ColourText(info.colour)}});
  }
  return {{"file", path}, {"modes", modes}, {"channels", channels}};
}

void PrintInfo(const TCBase::Program& program, std::ostream& out) {
  for (std::size_t i = 0; i < program.modes.size(); ++i) {
    const int steps = TCBase::StepCount(program.modes[i]);
    out << qor::Format("Mode {1}: {2}, {3} steps, {4}\n",
                       {i + 1, Printable(program.modes[i].name), steps, LimitText(steps)});
  }
  for (std::size_t i = 0; i < program.channelInfos.size(); ++i) {
    const TCBase::Program::ChannelInfo& info = program.channelInfos[i];
    out << qor::Format("Channel {1}: {2}, {3}\n", {i + 1, Printable(info.name), ColourText(info.colour)});
  }
}

// sample

/// Takes a number of one or two digits from the front; -1 when there is none or it is over `max`.
int TakeNumber(std::string_view& text, int max) {
  int number = -1;
  const auto [next, failed] = std::from_chars(text.data(), text.data() + text.size(), number);
  const auto length = static_cast<std::size_t>(next - text.data());
  if (failed != std::errc{} || length > 2 || number < 0 || number > max) return -1;
  text.remove_prefix(length);
  return number;
}

/// The second of the day that "HH:MM" or "HH:MM:SS" names.
int SecondOf(std::string_view time) {
  std::string_view rest = time;
  int second = 0;
  int parts = 0;
  for (const int max : {23, 59, 59}) {
    if (parts > 0) {
      if (!rest.starts_with(':')) break;
      rest.remove_prefix(1);
    }
    const int number = TakeNumber(rest, max);
    if (number < 0) {
      parts = 0;
      break;
    }
    second = second * 60 + number;
    ++parts;
  }
  if (parts < 2 || !rest.empty()) {
    throw CommandError(WrongUsage,
                       qor::Format("'{1}' is no time of day; give it as HH:MM or HH:MM:SS", {time}));
  }
  return parts == 2 ? second * 60 : second;
}

std::string TimeText(int hour, int minute) {
  return qor::ZeroFilled(hour, 2) + ":" + qor::ZeroFilled(minute, 2);
}

Json SampleJson(const TCBase::ModeSample& sample, const std::string& time) {
  Json jumps = Json::array();
  for (const std::uint8_t jump : sample.jumps) jumps.push_back(jump != 0);
  return {{"time", time}, {"values", sample.values}, {"jumps", jumps}};
}

void PrintSample(const TCBase::ModeSample& sample, const std::string& time, std::ostream& out) {
  std::string line = time;
  for (std::size_t i = 0; i < sample.values.size(); ++i) {
    const std::string value = std::to_string(sample.values[i]);
    line += std::string(value.size() < 5 ? 5 - value.size() : 1, ' ') + value +
            (sample.jumps[i] != 0 ? "J" : " ");
  }
  while (line.ends_with(' ')) line.pop_back();
  out << line << '\n';
}

struct SampleOptions {
  std::string path;
  int mode = 0;
  std::string at;
  bool table = false;
  bool json = false;
};

ExitStatus RunSample(const SampleOptions& options, std::ostream& out) {
  const int second = options.table ? 0 : SecondOf(options.at);
  const TCBase::Program program = Load(options.path);
  const TCBase::Mode& mode = ModeOf(program, options.mode, options.path);
  if (!options.table) {
    const TCBase::ModeSample sample = TCBase::SampleAt(mode, second);
    const std::string time = TimeText(sample.hour, sample.minute) + ":" + qor::ZeroFilled(second % 60, 2);
    options.json ? Print(SampleJson(sample, time), out) : PrintSample(sample, time, out);
    return Done;
  }
  Json rows = Json::array();
  for (const TCBase::ModeSample& sample : TCBase::SampleTable(mode)) {
    const std::string time = TimeText(sample.hour, sample.minute);
    if (options.json) {
      rows.push_back(SampleJson(sample, time));
    } else {
      PrintSample(sample, time, out);
    }
  }
  if (options.json) Print(rows, out);
  return Done;
}

}  // namespace

Runner DefineInfo(CLI::App& parser) {
  struct Options {
    std::string path;
    bool json = false;
  };
  const auto options = std::make_shared<Options>();
  AddFile(parser, options->path);
  parser.add_flag("--json", options->json, "Answer as JSON");
  return [options](Invocation& invocation) {
    const TCBase::Program program = Load(options->path);
    if (options->json) {
      Print(InfoJson(program, options->path), invocation.environment.out);
    } else {
      PrintInfo(program, invocation.environment.out);
    }
    return Done;
  };
}

Runner DefineSample(CLI::App& parser) {
  const auto options = std::make_shared<SampleOptions>();
  AddFile(parser, options->path);
  parser.add_option("--mode", options->mode, "The mode to sample")
      ->required()
      ->type_name("N")
      ->check(CheckModeNumber);
  CLI::Option_group& what = *parser.add_option_group("what");
  what.add_option("--at", options->at, "The values at a time of day")->type_name("HH:MM[:SS]");
  what.add_flag("--table", options->table, "The values, and J for a jump, at each step of the mode");
  what.require_option(1);
  parser.add_flag("--json", options->json, "Answer as JSON");
  return [options](Invocation& invocation) { return RunSample(*options, invocation.environment.out); };
}

}  // namespace cli
