// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <filesystem>
#include <string>

namespace SimUsb {

// The hidraw node that a gadget with this serial number has made on the same machine, waited for this long.
// Throws std::runtime_error when none appears.
std::filesystem::path WaitForHostNode(const std::string& serial, std::chrono::milliseconds patience);

// Who may open the node: everybody, or root alone.
void SetHostNodeAccess(const std::filesystem::path& node, bool everybody);

}  // namespace SimUsb
