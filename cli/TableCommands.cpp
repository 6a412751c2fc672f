// SPDX-License-Identifier: MIT
// table, edit
#include <filesystem>
#include <memory>
#include <ostream>
#include <random>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "cli/Question.h"
#include "formats/TableText.h"
#include "model/Editing.h"
#include "platform/Files.h"

namespace cli {
namespace {

struct TableOptions {
  std::string path;
  Output out;
  int mode = 1;
  std::string set;  // path of a text
};

/// Changes the mode as the text says; what is wrong with that, in sentences that name `name`.
std::vector<qor::Sentence> Apply(const std::string& text, const std::string& name, TCBase::Mode& mode) {
  TCBase::TableReading reading = TCBase::ReadTableText(text);
  if (reading.faults.empty()) {
    const TCBase::EditResult result = TCBase::ReplaceAllSteps(mode, reading.steps);
    if (result.isRefused) reading.faults.push_back(result.status);
  }
  for (qor::Sentence& fault : reading.faults) fault = qor::About(name, fault);
  return reading.faults;
}

// table

ExitStatus RunTable(TableOptions& options, Invocation& invocation) {
  const bool isEdit = CheckTextEdit(options.path, options.set, options.out, invocation);
  TCBase::Program program = Load(options.path, invocation);
  const std::size_t index = ModeIndexOf(program, options.mode, options.path);
  TCBase::Mode& mode = program.modes[index];
  if (!isEdit) {
    invocation.environment.out << TCBase::WriteTableText(mode);
    return Done;
  }
  const auto faults = Apply(LoadText(options.set, invocation), NameOf(options.set, invocation), mode);
  if (!faults.empty()) {
    for (const qor::Sentence& fault : faults) invocation.printer.Complain(fault);
    throw CommandError(FileFailed, {TR("{1} was not written"), {options.out.path}});
  }
  ReportSteps(index, mode, invocation);
  Save(program, index, options.out.path, invocation);
  return Done;
}

// edit

constexpr const char* Explanation =
    "# {1}\n"
    "# A line holds a time and the brightness of the five channels in percent; with J behind it\n"
    "# the light jumps there instead of fading. - means that the channel has no step then.\n";

/// Writes a file with a name that no other has; returns its path.
std::string WriteTextFile(const std::string& text, Invocation& invocation) {
  const std::u8string folder = std::filesystem::temp_directory_path().u8string();
  const std::string name = "halvex-" + std::to_string(std::random_device()()) + ".txt";
  std::string path = platform::PathIn({folder.begin(), folder.end()}, name);
  SaveBytes(text, path, invocation);
  return path;
}

/// Has the mode edited until it is taken; until then the text stays, so that nothing that was typed is lost.
void EditMode(TCBase::Mode& mode, Invocation& invocation) {
  const std::string heading = qor::Format(Explanation, {Printable(mode.name)});
  const std::string path = WriteTextFile(heading + TCBase::WriteTableText(mode), invocation);
  while (true) {
    if (!invocation.environment.edit(path)) {
      throw CommandError(
          WrongUsage, {TR("the editor failed; name one in the variable EDITOR. The text is in {1}"), {path}});
    }
    const auto faults = Apply(LoadText(path, invocation), invocation.Text(TR("the text")), mode);
    if (faults.empty()) break;
    for (const qor::Sentence& fault : faults) invocation.printer.Complain(fault);
    if (!IsConfirmed(TR("Edit it again?"), invocation)) {
      throw CommandError(Interrupted, {TR("nothing was written; your text is kept in {1}"), {path}});
    }
  }
  platform::RemoveFile(path);
}

ExitStatus RunEdit(TableOptions& options, Invocation& invocation) {
  options.out.isInPlace = options.out.path.empty();
  CheckProgramOutput(options.path, options.out, invocation);
  if (!invocation.environment.terminal.isInput) {
    throw CommandError(WrongUsage,
                       TR("an editor needs a terminal; \"halvex table\" does the same with files"));
  }
  TCBase::Program program = Load(options.path, invocation);
  const std::size_t index = ModeIndexOf(program, options.mode, options.path);
  TCBase::Mode& mode = program.modes[index];
  const TCBase::Mode before = mode;
  EditMode(mode, invocation);
  if (mode == before && options.out.isInPlace) {
    ReportOn(index, mode, TR("nothing was changed"), invocation);
    return Done;
  }
  ReportSteps(index, mode, invocation);
  Save(program, index, options.out.path, invocation);
  return Done;
}

}  // namespace

Runner DefineTable(CLI::App& parser) {
  const auto options = std::make_shared<TableOptions>();
  AddFile(parser, options->path);
  AddMode(parser, options->mode);
  parser.add_option("--set", options->set, "Take the mode's steps from such a text; - is standard input")
      ->type_name("TEXT")
      ->check(CheckPath);
  AddEditOutput(parser, options->out);
  return [options](Invocation& invocation) { return RunTable(*options, invocation); };
}

Runner DefineEdit(CLI::App& parser) {
  const auto options = std::make_shared<TableOptions>();
  parser.add_option("FILE", options->path, "The program file")
      ->required()
      ->type_name("PROGRAM")
      ->check(CheckPath);
  AddMode(parser, options->mode);
  parser
      .add_option("-o,--output", options->out.path, "The program file to write, in the place of FILE itself")
      ->type_name("PROGRAM")
      ->check(CheckPath);
  AddForce(parser, options->out);
  return [options](Invocation& invocation) { return RunEdit(*options, invocation); };
}

}  // namespace cli
