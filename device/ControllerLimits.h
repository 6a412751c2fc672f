// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

#include "QorLib/Sentence.h"
#include "device/DeviceInfo.h"
#include "model/Program.h"

namespace TCBase {

/// Models of controllers that something is asked for.
struct Models {
  bool tc420 = false;
  bool tc421 = false;
};
inline constexpr Models AllModels = {true, true};
/// The models of the devices; the emulator counts as a TC420.
Models ModelsOf(const std::vector<DeviceInfo>& devices);

/// What controllers of the models will not take of a mode, or will show otherwise, in a sentence each.
std::vector<qor::Sentence> RemarksOn(const Mode& mode, Models models = AllModels);

/// The same of the program as a whole.
std::vector<qor::Sentence> RemarksOn(const Program& program);

/// What is to be said before an upload of the modes, each behind the name of its mode.
std::vector<qor::Sentence> RemarksOn(const Program::ModeListView& modes, Models models);

}  // namespace TCBase
