// SPDX-License-Identifier: MIT
#include "platform/win32/Strings.h"

#include <windows.h>

namespace platform {

std::wstring Widen(std::string_view utf8) {
  const int length = static_cast<int>(utf8.size());
  std::wstring wide(utf8.size(), L'\0');
  const int used = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), length);
  wide.resize(static_cast<std::size_t>(used));
  return wide;
}

std::string Narrow(std::wstring_view wide) {
  std::string utf8(3 * wide.size(), '\0');
  const int used = WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(),
                                       static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(used));
  return utf8;
}

}  // namespace platform
