// SPDX-License-Identifier: MIT
// udev-rule
#include "cli/UdevRule.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <ostream>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "device/DeviceInfo.h"

namespace cli {
namespace {

constexpr const char* ForWhoeverSits =
    R"(# SPDX-License-Identifier: MIT
# Lets whoever sits at the computer reach TC420 and TC421 controllers over USB. "halvex udev-rule" prints this file,
# "halvex udev-rule --group GROUP" one for a computer that nobody sits at. It belongs into /etc/udev/rules.d.
)";

constexpr const char* UsualGroup = "plugdev";  // which Debian has for this

constexpr const char* ForGroup =
    R"(# SPDX-License-Identifier: MIT
# Lets the members of the group {1}, and whoever sits at the computer, reach TC420 and TC421 controllers over USB.
# It belongs into /etc/udev/rules.d.
)";

std::string RuleLine(const TCBase::UsbId& id, const std::string& access) {
  char ids[64];
  std::snprintf(ids, sizeof ids, R"(ATTRS{idVendor}=="%04x", ATTRS{idProduct}=="%04x")", unsigned{id.vendor},
                unsigned{id.product});
  return std::string(R"(SUBSYSTEM=="hidraw", )") + ids + R"(, TAG+="uaccess")" + access + "\n";
}

/// As groupadd(8) takes names; anything else could not stand in a rule either.
std::string CheckGroup(const std::string& name) {
  const auto isPlain = [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-';
  };
  if (!name.empty() && name[0] != '-' && std::ranges::all_of(name, isPlain)) return {};
  return qor::Format("'{1}' is no name of a group", {name});
}

}  // namespace

std::string InstallRuleCommand(const platform::Computer& computer) {
  const std::string group = computer.isRemote ? std::string(" --group ") + UsualGroup : "";
  return "halvex udev-rule" + group + " | sudo tee /etc/udev/rules.d/" + UdevRuleName;
}

qor::Sentence AccessAdvice(const platform::Computer& computer) {
  using platform::Computer;
  if (!computer.hasUdev) return TR("end the other program that has it");
  const bool isForGroup = !computer.deviceGroup.empty();
  if (isForGroup && computer.inDeviceGroup == Computer::Membership::AfterLogin) {
    return {TR("log out and in again: you have joined the group {1}, but not yet in this session"),
            {computer.deviceGroup}};
  }
  if (isForGroup && computer.inDeviceGroup == Computer::Membership::None) {
    return {TR("the controller is for the group {1}: \"sudo adduser {2} {1}\", then log out and in again"),
            {computer.deviceGroup, computer.user}};
  }
  if (computer.isRemote) {
    return {
        TR("\"{1}\" and \"sudo adduser {2} {3}\" give you access over the network; then plug the controller "
           "in again, and log in again"),
        {InstallRuleCommand(computer), computer.user, UsualGroup}};
  }
  if (!computer.udevRule.empty()) {
    return {TR("plug the controller in again; the rule {1} is there"), {computer.udevRule}};
  }
  return {TR("\"{1}\" gives you access once the controller is plugged in again"),
          {InstallRuleCommand(computer)}};
}

std::string UdevRule(const std::string& group) {
  std::string access;
  if (!group.empty()) access = R"(, GROUP=")" + group + R"(", MODE="0660")";
  return (group.empty() ? ForWhoeverSits : qor::Format(ForGroup, {group})) +
         RuleLine(TCBase::TC420UsbId, access) + RuleLine(TCBase::TC421UsbId, access);
}

Runner DefineUdevRule(CLI::App& parser) {
  const auto group = std::make_shared<std::string>();
  parser.add_option("--group", *group, "For the members of a group, such as plugdev, also without a screen")
      ->type_name("GROUP")
      ->check(CheckGroup);
  return [group](Invocation& invocation) {
    invocation.environment.out << UdevRule(*group);
    return Done;
  };
}

}  // namespace cli
