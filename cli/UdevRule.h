// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "QorLib/Sentence.h"

namespace cli {

/// The name of the rule's file in udev's folders.
inline constexpr const char* UdevRuleName = "71-halvex.rules";

/// The udev rule (udev(7)) that lets users reach controllers over USB: whoever sits at the computer, or, with
/// the name of a group, its members wherever they are.
std::string UdevRule(const std::string& group);

/// What helps Linux users who may not open a controller on the USB.
qor::Sentence AccessAdvice();

/// The command that puts the rule in its place.
std::string InstallRuleCommand();

}  // namespace cli
