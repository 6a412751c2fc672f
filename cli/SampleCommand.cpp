// SPDX-License-Identifier: MIT
// sample
#include <memory>
#include <ostream>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/JsonOutput.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "model/ModeSample.h"
#include "model/TimeText.h"

namespace cli {
namespace {

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

ExitStatus RunSample(const SampleOptions& options, Invocation& invocation) {
  std::ostream& out = invocation.environment.out;
  const int second = options.table ? 0 : SecondOf(options.at);
  const TCBase::Program program = Load(options.path, invocation);
  const TCBase::Mode& mode = program.modes[ModeIndexOf(program, options.mode, options.path)];
  if (!options.table) {
    const TCBase::ModeSample sample = TCBase::SampleAt(mode, second);
    const std::string time = TCBase::TimeOfDayText(second);
    options.json ? Print(SampleJson(sample, time), out) : PrintSample(sample, time, out);
    return Done;
  }
  Json rows = Json::array();
  for (const TCBase::ModeSample& sample : TCBase::SampleTable(mode)) {
    const std::string time = TCBase::MinuteText(sample.hour * 60 + sample.minute);
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

Runner DefineSample(CLI::App& parser) {
  const auto options = std::make_shared<SampleOptions>();
  AddFile(parser, options->path);
  AddMode(parser, options->mode);
  CLI::Option_group& what = *parser.add_option_group("what");
  what.add_option("--at", options->at, "The values at a time of day")->type_name("HH:MM[:SS]");
  what.add_flag("--table", options->table, "The values, and J for a jump, at each step of the mode");
  what.require_option(1);
  parser.add_flag("--json", options->json, "Answer as JSON");
  return [options](Invocation& invocation) { return RunSample(*options, invocation); };
}

}  // namespace cli
