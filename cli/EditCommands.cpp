// SPDX-License-Identifier: MIT
// optimize, align, add-step
#include <memory>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "model/Editing.h"
#include "model/StepLimit.h"

namespace cli {
namespace {

/// The arguments of all commands that change modes.
struct EditOptions {
  std::string in, out;
  std::vector<int> modes;
};

void AddEditOptions(CLI::App& parser, EditOptions& options) {
  AddFile(parser, options.in);
  AddOutput(parser, options.out)->required();
  AddModes(parser, options.modes);
}

/// Changes each mode by `edit`, logs what it says, and writes the program. Nothing is written when an edit is
/// refused.
template <typename Edit>
ExitStatus EditModes(const EditOptions& options, Invocation& invocation, Edit edit) {
  CheckOutput(options.in, options.out, invocation);
  TCBase::Program program = Load(options.in, invocation);
  const std::vector<std::size_t> indices = ModeIndicesOf(program, options.modes, options.in);
  for (const std::size_t index : indices) {
    TCBase::Mode& mode = program.modes[index];
    Report(edit(mode), index, mode, options.out, invocation);
  }
  Save(program, indices[0], options.out, invocation);
  return Done;
}

ExitStatus Optimise(const EditOptions& options, bool forTC421, Invocation& invocation) {
  qor::Log& log = invocation.printer.Log();
  const ExitStatus status = EditModes(options, invocation, [&](TCBase::Mode& mode) {
    if (forTC421) return TCBase::OptimiseForTC421(mode);
    if (TCBase::OptimiseMode(mode, log)) return TCBase::EditResult{true, {}};
    return TCBase::EditResult{
        false, {"Unable to optimize mode {1}, please remove some steps.", {mode.name}}, true};
  });
  if (!forTC421) log.Message("Program optimized");
  return status;
}

}  // namespace

Runner DefineOptimize(CLI::App& parser) {
  const auto options = std::make_shared<EditOptions>();
  const auto forTC421 = std::make_shared<bool>(false);
  AddEditOptions(parser, *options);
  parser.add_flag("--tc421", *forTC421, "Half-hour steps without jumps, as a TC421 plays them best");
  return [=](Invocation& invocation) { return Optimise(*options, *forTC421, invocation); };
}

Runner DefineAlign(CLI::App& parser) {
  constexpr int LongestInterval = 60;
  const auto options = std::make_shared<EditOptions>();
  const auto minutes = std::make_shared<int>(0);
  AddEditOptions(parser, *options);
  parser.add_option("--minutes", *minutes, "The grid, from 1 to 60 minutes")
      ->required()
      ->type_name("I")
      ->check(CheckNumber(LongestInterval));
  return [=](Invocation& invocation) {
    return EditModes(*options, invocation,
                     [&](TCBase::Mode& mode) { return TCBase::AlignSteps(mode, *minutes); });
  };
}

Runner DefineAddStep(CLI::App& parser) {
  const auto options = std::make_shared<EditOptions>();
  const auto time = std::make_shared<std::string>();
  AddEditOptions(parser, *options);
  parser.add_option("--at", *time, "The time of day of the step")->required()->type_name("HH:MM[:SS]");
  return [=](Invocation& invocation) {
    const int second = SecondOf(*time);
    return EditModes(*options, invocation,
                     [&](TCBase::Mode& mode) { return TCBase::AddStepToAllChannels(mode, second); });
  };
}

}  // namespace cli
