// SPDX-License-Identifier: MIT
// steps
#include <istream>
#include <memory>
#include <ostream>

#include "QorLib/Exceptions.h"
#include "QorLib/Format.h"
#include "QorLib/qor_win_str_utils.h"
#include "cli/Commands.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "formats/FileBytes.h"
#include "formats/StepsText.h"
#include "model/Editing.h"

namespace cli {
namespace {

constexpr const char* StandardInput = "-";
constexpr std::size_t MaxTextBytes = std::size_t{1} << 20;

struct StepsOptions {
  std::string path, out;
  int mode = 0;
  int channel = 0;
  std::string set, add;  // paths of texts; "-" is standard input
};

std::string ReadText(const std::string& path, const std::string& name, Environment& environment) {
  std::string text;
  if (path == StandardInput) {
    text.resize(MaxTextBytes + 1);
    environment.in.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(environment.in.gcount()));
  } else {
    try {
      text = TCBase::ReadFileBytes(path, MaxTextBytes);
    } catch (const qor::win::xsystem& failed) {
      throw CommandError(FileFailed, {"{1} could not be read", {name}, {failed.Reason()}});
    }
  }
  if (text.size() > MaxTextBytes) {
    throw CommandError(FileFailed, {"{1} is larger than {2} MiB", {name, MaxTextBytes >> 20}});
  }
  if (qor::win::FindBrokenUtf8(text) != std::string::npos || text.find('\0') != std::string::npos) {
    throw CommandError(FileFailed, {"{1} is no UTF-8 text; save it as such", {name}});
  }
  return text;
}

/// The steps of a text; complains of lines that are none or look odd.
std::vector<TCBase::Step> ReadSteps(const std::string& path, Invocation& invocation) {
  LogPrinter& printer = invocation.printer;
  const std::string name = path == StandardInput ? invocation.Text({"standard input", {}}) : path;
  const TCBase::StepsReading reading = TCBase::ReadStepsText(ReadText(path, name, invocation.environment));
  std::vector<qor::Sentence> remarks;
  for (const qor::Sentence& remark : reading.remarks) remarks.push_back(qor::About(name, remark));
  printer.WarnOfEach(remarks);
  if (reading.steps.empty()) {
    throw CommandError(FileFailed,
                       {"{1} holds no steps; a line is 'hh:mm value' or 'hh:mm value J'", {name}});
  }
  printer.Log().Message("Text contains {1} steps", {reading.steps.size()});
  return reading.steps;
}

void CheckOptions(const StepsOptions& options, const Invocation& invocation) {
  const bool isEdit = !options.set.empty() || !options.add.empty();
  if (isEdit && options.out.empty()) {
    throw CommandError(WrongUsage, {"--set and --add need -o OUT, the file to write", {}});
  }
  if (!isEdit && !options.out.empty()) throw CommandError(WrongUsage, {"-o goes with --set or --add", {}});
  if (!isEdit) return;
  CheckOutput(options.path, options.out, invocation);
  const std::string& text = options.set.empty() ? options.add : options.set;
  if (text != StandardInput) CheckIsAnother(text, options.out);
}

/// Replaces or adds the steps that the text holds.
TCBase::EditResult Edit(const StepsOptions& options, TCBase::Mode& mode, std::size_t channel,
                        Invocation& invocation) {
  if (!options.set.empty()) return TCBase::ReplaceSteps(mode, channel, ReadSteps(options.set, invocation));
  std::vector<TCBase::Step> added;
  TCBase::EditResult result = TCBase::AddSteps(mode, channel, ReadSteps(options.add, invocation), added);
  for (const TCBase::Step& step : added) {
    invocation.printer.Log().Message("Added new step {1}.", {TCBase::StepText(step)});
  }
  return result;
}

ExitStatus RunSteps(const StepsOptions& options, Invocation& invocation) {
  CheckOptions(options, invocation);
  TCBase::Program program = Load(options.path, invocation);
  const std::size_t index = ModeIndexOf(program, options.mode, options.path);
  TCBase::Mode& mode = program.modes[index];
  const std::size_t channel = static_cast<std::size_t>(options.channel) - 1;
  if (options.out.empty()) {
    for (const TCBase::Step& step : mode.channels[channel].steps)
      invocation.environment.out << TCBase::StepText(step) << '\n';
    return Done;
  }
  Report(Edit(options, mode, channel, invocation), index, mode, options.out, invocation);
  WarnOfLongModes(TCBase::Program::ModeListView(program, {index}), invocation.printer);
  Save(program, index, options.out, invocation);
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
      ->check(CheckNumber(static_cast<int>(TCBase::ChannelCount)));
  CLI::Option* set =
      parser.add_option("--set", options->set, "Replace the steps by those of a text (- is standard input)");
  CLI::Option* add =
      parser.add_option("--add", options->add, "Add the steps of a text (- is standard input)");
  set->type_name("TEXTFILE")->check(CheckPath)->excludes(add);
  add->type_name("TEXTFILE")->check(CheckPath);
  AddOutput(parser, options->out);
  return [options](Invocation& invocation) { return RunSteps(*options, invocation); };
}

}  // namespace cli
