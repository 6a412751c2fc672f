// SPDX-License-Identifier: MIT
#include "QorLib/Exceptions.h"

#include <cstdio>

#include "QorLib/Format.h"

namespace qor::win {
namespace {

std::string Described(const std::string& description) {
  return description.empty() ? "Cannot obtain error description." : description;
}

std::string BoxText(std::uint32_t code, const std::string& description) {
  char hex[16];
  std::snprintf(hex, sizeof hex, "0x%08X", static_cast<unsigned>(code));
  return Format("\nWin32 API Error.\nError Code: {1} ({2})\nDescription: {3}",
                {code, static_cast<const char*>(hex), Described(description)});
}

}  // namespace

xsystem::xsystem(std::uint32_t code, const std::string& description)
    : std::runtime_error(BoxText(code, description)), code_(code), description_(Described(description)) {}

}  // namespace qor::win
