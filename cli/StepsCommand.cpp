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

constexpr std::size_t MaxTextBytes = std::size_t{1} << 20;

struct StepsOptions {
  std::string path, out;
  int mode = 0;
  int channel = 0;
  std::string set, add;  // paths of texts; "-" is standard input
};

std::string ShownName(const std::string& path) {
  return path == "-" ? "standard input" : path;
}

std::string ReadText(const std::string& path, Environment& environment) {
  std::string text;
  if (path == "-") {
    text.resize(MaxTextBytes + 1);
    environment.in.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(environment.in.gcount()));
  } else {
    try {
      text = TCBase::ReadFileBytes(path, MaxTextBytes);
    } catch (const qor::win::xsystem& failed) {
      throw CommandError(FileFailed, qor::Format("{1} could not be read: {2}", {path, failed.Description()}));
    }
  }
  if (text.size() > MaxTextBytes) throw CommandError(FileFailed, ShownName(path) + " is larger than 1 MiB");
  if (qor::win::FindBrokenUtf8(text) != std::string::npos || text.find('\0') != std::string::npos) {
    throw CommandError(FileFailed, ShownName(path) + " is no UTF-8 text; save it as such");
  }
  return text;
}

/// Complains of lines by their numbers.
void WarnOfLines(const std::vector<std::size_t>& lines, const std::string& name, const char* what,
                 LogPrinter& printer) {
  std::vector<std::string> sentences;
  sentences.reserve(lines.size());
  for (const std::size_t line : lines)
    sentences.push_back(qor::Format("{1}, line {2} {3}", {name, line, what}));
  printer.WarnOfEach(sentences);
}

/// Reads the steps of a text, of which there must be `fewest`; complains of lines that are none or look odd.
std::vector<TCBase::Step> ReadSteps(const std::string& path, std::size_t fewest, Invocation& invocation) {
  const std::string name = ShownName(path);
  std::vector<TCBase::Step> steps;
  TCBase::OddLines odd;
  TCBase::ParseStepsText(ReadText(path, invocation.environment), steps, &odd);
  WarnOfLines(odd.skipped, name, "is no step and was left out", invocation.printer);
  WarnOfLines(odd.withoutNumber, name, "lacks a number, which was taken as 0", invocation.printer);
  if (steps.size() < fewest) {
    throw CommandError(FileFailed, qor::Format("{1} holds {2} steps where at least {3} are needed; a line is "
                                               "'hh:mm value' or 'hh:mm value J'",
                                               {name, steps.size(), fewest}));
  }
  invocation.printer.Log().Message("Text contains {1} steps", {steps.size()});
  return steps;
}

void CheckOptions(const StepsOptions& options, const Invocation& invocation) {
  const bool isEdit = !options.set.empty() || !options.add.empty();
  if (isEdit && options.out.empty())
    throw CommandError(WrongUsage, "--set and --add need -o OUT, the file to write");
  if (!isEdit && !options.out.empty()) throw CommandError(WrongUsage, "-o goes with --set or --add");
  if (!isEdit) return;
  CheckOutput(options.path, options.out, invocation);
  if (const std::string& text = options.set.empty() ? options.add : options.set; text != "-") {
    CheckOutput(text, options.out, invocation);
  }
}

ExitStatus RunSteps(const StepsOptions& options, Invocation& invocation) {
  CheckOptions(options, invocation);
  TCBase::Program program = Load(options.path, invocation);
  const std::size_t index = ModeIndexOf(program, options.mode, options.path);
  TCBase::Mode& mode = program.modes[index];
  TCBase::Channel& channel = mode.channels[static_cast<std::size_t>(options.channel) - 1];
  if (options.out.empty()) {
    for (const TCBase::Step& step : channel.steps)
      invocation.environment.out << TCBase::StepText(step) << '\n';
    return Done;
  }
  if (!options.set.empty()) {
    TCBase::ReplaceSteps(channel, ReadSteps(options.set, TCBase::MinChannelSteps, invocation));
    if (channel.steps.size() < TCBase::MinChannelSteps) {
      throw CommandError(FileFailed,
                         options.set + ": all steps are at the same minute; at least 2 are needed");
    }
  } else {
    const std::vector<TCBase::Step> steps = ReadSteps(options.add, 1, invocation);
    TCBase::InsertSteps(channel, steps);
    TCBase::Channel added;  // one a minute, as they came into the channel
    TCBase::InsertSteps(added, steps);
    for (const TCBase::Step& step : added.steps) {
      invocation.printer.Log().Message("Added new step {1}.", {TCBase::StepText(step)});
    }
  }
  WarnOfLongModes(TCBase::Program::ModeListView(program), invocation.printer);
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
