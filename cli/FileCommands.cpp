// SPDX-License-Identifier: MIT
// new, convert
#include <memory>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/ProgramArguments.h"
#include "model/Presets.h"

namespace cli {
namespace {

/// The file's ending in lower case, with its dot; empty when there is none.
std::string EndingOf(const std::string& path) {
  const std::size_t nameStart = path.find_last_of("/\\") + 1;  // npos + 1 is 0
  const std::size_t dot = path.rfind('.');
  if (dot == std::string::npos || dot < nameStart) return {};
  std::string ending = path.substr(dot);
  for (char& c : ending) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return ending;
}

void CheckIsXml(const std::string& path) {
  if (EndingOf(path) != ".xml") {
    throw CommandError(WrongUsage,
                       qor::Format("{1} does not end in .xml, the one format there is so far", {path}));
  }
}

}  // namespace

Runner DefineNew(CLI::App& parser) {
  const auto path = std::make_shared<std::string>();
  parser.add_option("FILE", *path, "The program file to write")->required()->type_name("");
  return [path](Invocation&) {
    Save(TCBase::NewProgram(qor::InEnglish), *path);
    return Done;
  };
}

Runner DefineConvert(CLI::App& parser) {
  struct Options {
    std::string in, out;
    std::vector<int> modes;
  };
  const auto options = std::make_shared<Options>();
  parser.add_option("IN", options->in, "The file to read, ending in .xml")->required()->type_name("");
  parser.add_option("OUT", options->out, "The file to write, ending in .xml")->required()->type_name("");
  AddModes(parser, options->modes);
  return [options](Invocation&) {
    CheckIsXml(options->in);
    CheckIsXml(options->out);
    TCBase::Program program = Load(options->in);
    if (!options->modes.empty()) {
      const TCBase::Program::ModeListView modes = ModesOf(program, options->modes, options->in);
      program.modes.assign(modes.begin(), modes.end());
    }
    Save(program, options->out);
    return Done;
  };
}

}  // namespace cli
