// SPDX-License-Identifier: MIT
// optimize, align, add-step
#include <memory>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "model/Editing.h"
#include "model/ModeSample.h"
#include "model/StepLimit.h"

namespace cli {
namespace {

/// The arguments of all commands that change modes.
struct EditOptions {
  std::string in;
  Output out;
  std::vector<int> modes;
};

void AddEditOptions(CLI::App& parser, EditOptions& options) {
  AddFile(parser, options.in);
  AddEditOutput(parser, options.out);
  AddModes(parser, options.modes);
}

/// Changes each mode by `edit`, logs what it says, and writes the program. Nothing is written when an edit is
/// refused.
template <typename Edit>
ExitStatus EditModes(EditOptions& options, Invocation& invocation, Edit edit) {
  CheckProgramOutput(options.in, options.out, invocation);
  TCBase::Program program = Load(options.in, invocation);
  const std::vector<std::size_t> indices = ModeIndicesOf(program, options.modes, options.in);
  for (const std::size_t index : indices) {
    TCBase::Mode& mode = program.modes[index];
    Report(edit(mode), index, mode, options.out.path, invocation);
  }
  Save(program, indices[0], options.out.path, invocation);
  return Done;
}

struct OptimizeOptions {
  EditOptions edit;
  bool isForTC421 = false;
  int steps = TCBase::MaxModeSteps;
};

TCBase::EditResult Optimise(const OptimizeOptions& options, TCBase::Mode& mode, qor::Log& log) {
  const TCBase::Mode before = mode;
  if (options.isForTC421) log.Message(TCBase::OptimiseForTC421(mode).status);
  if (!TCBase::OptimiseMode(mode, log, options.steps)) {
    return {false, {TR("Unable to optimize mode {1}, please remove some steps."), {mode.name}}, true};
  }
  if (mode == before) return {false, TR("nothing to do")};
  return {true,
          {TR("{1} -> {2} steps, the light changes by at most {3} %"),
           {TCBase::StepCount(before), TCBase::StepCount(mode), TCBase::GreatestDifference(before, mode)}}};
}

}  // namespace

Runner DefineOptimize(CLI::App& parser) {
  const auto options = std::make_shared<OptimizeOptions>();
  AddEditOptions(parser, options->edit);
  parser
      .add_option("--steps", options->steps,
                  "How many steps a mode may keep, 20 to 48; 48 unless told otherwise, 20 for a blue TC420")
      ->type_name("N")
      ->check(CheckNumber(TCBase::MaxModeStepsEarlier, TCBase::MaxModeSteps));
  parser.add_flag("--tc421", options->isForTC421,
                  "Also put them on half hours, without jumps, as a TC421 plays them best");
  return [options](Invocation& invocation) {
    return EditModes(options->edit, invocation,
                     [&](TCBase::Mode& mode) { return Optimise(*options, mode, invocation.printer.Log()); });
  };
}

Runner DefineAlign(CLI::App& parser) {
  constexpr int LongestInterval = 60;
  const auto options = std::make_shared<EditOptions>();
  const auto minutes = std::make_shared<int>(0);
  AddEditOptions(parser, *options);
  parser.add_option("--minutes", *minutes, "The grid, from 1 to 60 minutes")
      ->required()
      ->type_name("I")
      ->check(CheckNumber(1, LongestInterval));
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
