// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "QorLib/Sentence.h"
#include "platform/Computer.h"

namespace cli {

/// The name of the rule's file in udev's folders.
inline constexpr const char* UdevRuleName = "71-halvex.rules";

/// The udev rule (udev(7)) that lets users reach controllers over USB: whoever sits at the computer, or, with
/// the name of a group, its members wherever they are.
std::string UdevRule(const std::string& group);

/// What helps a user who may not open a controller on the USB of that computer.
qor::Sentence AccessAdvice(const platform::Computer& computer);

/// The command that puts the rule in its place.
std::string InstallRuleCommand(const platform::Computer& computer);

}  // namespace cli
