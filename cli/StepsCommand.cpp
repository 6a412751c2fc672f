// SPDX-License-Identifier: MIT
// steps
#include <memory>
#include <ostream>

#include "cli/Commands.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "formats/StepsText.h"
#include "model/Editing.h"

namespace cli {
namespace {

struct StepsOptions {
  std::string path;
  Output out;
  int mode = 1;
  int channel = 0;
  std::string set, add;  // paths of texts
};

/// The steps of a text; complains of lines that are none or look odd.
std::vector<TCBase::Step> ReadSteps(const std::string& path, Invocation& invocation) {
  LogPrinter& printer = invocation.printer;
  const std::string name = NameOf(path, invocation);
  const TCBase::StepsReading reading = TCBase::ReadStepsText(LoadText(path, invocation));
  std::vector<qor::Sentence> remarks;
  for (const qor::Sentence& remark : reading.remarks) remarks.push_back(qor::About(name, remark));
  printer.WarnOfEach(remarks);
  if (reading.steps.empty()) {
    throw CommandError(FileFailed,
                       {TR("{1} holds no steps; a line is 'hh:mm value' or 'hh:mm value J'"), {name}});
  }
  printer.Log().Message(TR("Text contains {1} steps"), {reading.steps.size()});
  return reading.steps;
}

/// Replaces or adds the steps that the text holds.
TCBase::EditResult Edit(const StepsOptions& options, TCBase::Mode& mode, std::size_t channel,
                        Invocation& invocation) {
  if (!options.set.empty()) return TCBase::ReplaceSteps(mode, channel, ReadSteps(options.set, invocation));
  std::vector<TCBase::Step> added;
  TCBase::EditResult result = TCBase::AddSteps(mode, channel, ReadSteps(options.add, invocation), added);
  for (const TCBase::Step& step : added) {
    invocation.printer.Log().Message(TR("Added new step {1}."), {TCBase::StepText(step)});
  }
  return result;
}

ExitStatus RunSteps(StepsOptions& options, Invocation& invocation) {
  const std::string& text = options.set.empty() ? options.add : options.set;
  const bool isEdit = CheckTextEdit(options.path, text, options.out, invocation);
  TCBase::Program program = Load(options.path, invocation);
  const std::size_t index = ModeIndexOf(program, options.mode, options.path);
  TCBase::Mode& mode = program.modes[index];
  const std::size_t channel = static_cast<std::size_t>(options.channel) - 1;
  if (!isEdit) {
    for (const TCBase::Step& step : mode.channels[channel].steps)
      invocation.environment.out << TCBase::StepText(step) << '\n';
    return Done;
  }
  Report(Edit(options, mode, channel, invocation), index, mode, options.out.path, invocation);
  ReportSteps(index, mode, invocation);
  WarnOfLongModes(TCBase::Program::ModeListView(program, {index}), invocation.printer);
  Save(program, index, options.out.path, invocation);
  return Done;
}

}  // namespace

Runner DefineSteps(CLI::App& parser) {
  const auto options = std::make_shared<StepsOptions>();
  AddFile(parser, options->path);
  AddMode(parser, options->mode);
  parser.add_option("--channel", options->channel, "The channel, 1 to 5")
      ->required()
      ->type_name("C")
      ->check(CheckNumber(1, static_cast<int>(TCBase::ChannelCount)));
  CLI::Option* set =
      parser.add_option("--set", options->set, "Replace the steps by those of a text; - is standard input");
  CLI::Option* add = parser.add_option("--add", options->add, "Add the steps of a text; - is standard input");
  set->type_name("TEXT")->check(CheckPath);
  add->type_name("TEXT")->check(CheckPath)->excludes(set);
  AddEditOutput(parser, options->out);
  return [options](Invocation& invocation) { return RunSteps(*options, invocation); };
}

}  // namespace cli
