// SPDX-License-Identifier: MIT
#include "cli/ProgramArguments.h"

#include "QorLib/Exceptions.h"
#include "QorLib/Format.h"
#include "cli/ExitStatus.h"
#include "formats/ProgramFile.h"
#include "model/ModeSample.h"

namespace cli {

TCBase::Program Load(const std::string& path) {
  TCBase::Program program;
  if (const auto reason = TCBase::LoadProgram(path, program)) {
    throw CommandError(FileFailed, qor::Format("Error loading program {1}: {2}", {path, *reason}));
  }
  return program;
}

void Save(const TCBase::Program& program, const std::string& path) {
  try {
    TCBase::SaveProgram(program, path);
  } catch (const qor::win::xsystem& failed) {
    throw CommandError(FileFailed,
                       qor::Format("{1} could not be written: {2}", {path, failed.Description()}));
  }
}

const TCBase::Mode& ModeOf(const TCBase::Program& program, int number, const std::string& path) {
  const std::size_t count = program.modes.size();
  if (number < 1 || static_cast<std::size_t>(number) > count) {
    throw CommandError(WrongUsage, qor::Format("there is no mode {1} in {2}; its modes are 1 to {3}",
                                               {number, path, count}));
  }
  return program.modes[static_cast<std::size_t>(number) - 1];
}

TCBase::Program::ModeListView ModesOf(const TCBase::Program& program, const std::vector<int>& numbers,
                                      const std::string& path) {
  if (numbers.empty()) return TCBase::Program::ModeListView(program);
  std::vector<std::size_t> indices;
  indices.reserve(numbers.size());
  for (const int number : numbers) {
    indices.push_back(static_cast<std::size_t>(&ModeOf(program, number, path) - program.modes.data()));
  }
  return {program, indices};
}

void WarnOfLongModes(const TCBase::Program::ModeListView& modes, LogPrinter& printer) {
  for (const TCBase::Mode& mode : modes) {
    const int steps = TCBase::StepCount(mode);
    if (steps <= TCBase::MaxModeSteps) continue;
    printer.Complain(qor::Format("warning: the mode '{1}' has {2} steps; a controller takes at most {3}",
                                 {mode.name, steps, TCBase::MaxModeSteps}));
  }
}

std::string CheckModeNumber(const std::string& text) {
  const bool isNumber = !text.empty() && text.size() <= 9 && text[0] != '0' &&
                        text.find_first_not_of("0123456789") == std::string::npos;
  return isNumber ? "" : "'" + text + "' is no number of a mode";
}

void AddFile(CLI::App& parser, std::string& path) {
  parser.add_option("FILE", path, "The program file")->required()->type_name("");
}

void AddModes(CLI::App& parser, std::vector<int>& numbers) {
  parser.add_option("--mode", numbers, "Only this mode; may be given several times")
      ->type_name("N")
      ->check(CheckModeNumber)
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

}  // namespace cli
