// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace platform {

std::wstring Widen(std::string_view utf8);
std::string Narrow(std::wstring_view wide);

}  // namespace platform
