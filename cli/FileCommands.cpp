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
  std::string in;
  Output out;
  std::string from, to;  // endings of formats, without the dot
  std::vector<int> modes;
};

/// The format that an option names, or else the file.
const TCBase::FileFormat& FormatOf(const std::string& asked, const std::string& path, bool isRead) {
  if (!asked.empty()) return *TCBase::FormatOf("." + asked);
  if (!IsStandardStream(path)) CheckEnding(path, isRead);
  return FormatIn(path);
}

ExitStatus RunConvert(const ConvertOptions& options, Invocation& invocation) {
  const TCBase::FileFormat& from = FormatOf(options.from, options.in, true);
  const TCBase::FileFormat& to = FormatOf(options.to, options.out.path, false);
  CheckProgramOutput(options.in, options.out, to, invocation);
  TCBase::Program program = Load(options.in, from, invocation);
  if (!options.modes.empty()) {
    const TCBase::Program::ModeListView modes(program, ModeIndicesOf(program, options.modes, options.in));
    program.modes.assign(modes.begin(), modes.end());
  }
  Save(program, 0, options.out.path, to, invocation);
  return Done;
}

/// Adds "--from" or "--to".
void AddFormat(CLI::App& parser, const std::string& name, std::string& format, const std::string& what,
               bool isRead) {
  std::vector<std::string> words;
  for (const TCBase::FileFormat& known : TCBase::FileFormats()) {
    if (known.IsRead() || !isRead) words.emplace_back(known.ending.substr(1));
  }
  TakeWord(*parser.add_option(name, format, what), words);
}

}  // namespace

Runner DefineNew(CLI::App& parser) {
  const auto output = std::make_shared<Output>();
  parser.add_option("FILE", output->path, "The program file to write; - is standard output")
      ->required()
      ->type_name("PROGRAM")
      ->check(CheckPath);
  AddForce(parser, *output);
  return [output](Invocation& invocation) {
    const TCBase::FileFormat& format = FormatIn(output->path);
    if (format.IsOfOneMode()) {
      throw CommandError(
          WrongUsage,
          {TR("{1} is the name of a file of one mode; a new program has two: use .xml"), {output->path}});
    }
    CheckProgramOutput({}, *output, format, invocation);
    Save(TCBase::NewProgram(invocation.texts.Translator()), 0, output->path, invocation);
    return Done;
  };
}

Runner DefineConvert(CLI::App& parser) {
  const auto options = std::make_shared<ConvertOptions>();
  parser.add_option("IN", options->in, "The file to read: .xml, .tmf or .lmf; - is standard input")
      ->required()
      ->type_name("PROGRAM")
      ->check(CheckPath);
  parser
      .add_option("OUT", options->out.path,
                  "The file to write: .xml, or for one mode .tmf, .lmf or .raw; - is standard output")
      ->required()
      ->type_name("PROGRAM")
      ->check(CheckPath);
  AddFormat(parser, "--from", options->from, "What IN is, where its name does not say", true);
  AddFormat(parser, "--to", options->to, "What OUT is, where its name does not say", false);
  AddModes(parser, options->modes);
  AddForce(parser, options->out);
  return [options](Invocation& invocation) { return RunConvert(*options, invocation); };
}

}  // namespace cli
