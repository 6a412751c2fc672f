// SPDX-License-Identifier: MIT
// new, convert
#include <memory>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "model/Presets.h"

namespace cli {
namespace {

struct ConvertOptions {
  std::string in, out;
  std::vector<int> modes;
};

ExitStatus RunConvert(const ConvertOptions& options, Invocation& invocation) {
  if (TCBase::FormatOf(options.in) == nullptr) {
    throw CommandError(WrongUsage, {"{1} does not end in {2}", {options.in, KnownEndings(true)}});
  }
  CheckOutput(options.in, options.out, invocation);
  TCBase::Program program = Load(options.in, invocation);
  if (!options.modes.empty()) {
    const TCBase::Program::ModeListView modes(program, ModeIndicesOf(program, options.modes, options.in));
    program.modes.assign(modes.begin(), modes.end());
  }
  Save(program, 0, options.out, invocation);
  return Done;
}

}  // namespace

Runner DefineNew(CLI::App& parser) {
  const auto path = std::make_shared<std::string>();
  parser.add_option("FILE", *path, "The program file to write")->required()->type_name("")->check(CheckPath);
  return [path](Invocation& invocation) {
    const TCBase::FileFormat* format = TCBase::FormatOf(*path);
    if (format != nullptr && format->IsOfOneMode()) {
      throw CommandError(WrongUsage,
                         {"{1} is the name of a file of one mode; a new program has two: use .xml", {*path}});
    }
    Save(TCBase::NewProgram(invocation.texts.Translator()), 0, *path, invocation);
    return Done;
  };
}

Runner DefineConvert(CLI::App& parser) {
  const auto options = std::make_shared<ConvertOptions>();
  parser.add_option("IN", options->in, "The file to read: .xml, .tmf or .lmf")
      ->required()
      ->type_name("")
      ->check(CheckPath);
  parser.add_option("OUT", options->out, "The file to write: .xml, or for one mode .tmf, .lmf or .raw")
      ->required()
      ->type_name("")
      ->check(CheckPath);
  AddModes(parser, options->modes);
  return [options](Invocation& invocation) { return RunConvert(*options, invocation); };
}

}  // namespace cli
