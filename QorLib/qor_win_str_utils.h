// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Conversion between UTF-8 (RFC 3629) and UTF-16 or wide strings, as code page 65001 does it: whatever is
/// not well-formed becomes U+FFFD, one for each maximal broken part, and nothing fails.
namespace qor::win {

std::u16string Utf16FromUtf8(std::string_view utf8);
std::string Utf8FromUtf16(std::u16string_view utf16);

/// Wide strings hold UTF-16 on Windows and UTF-32 elsewhere.
std::wstring WideFromUtf8(std::string_view utf8);
std::string Utf8FromWide(std::wstring_view wide);

/// The text with U+FFFD for what is not well-formed.
inline std::string WellFormedUtf8(std::string_view utf8) {
  return Utf8FromUtf16(Utf16FromUtf8(utf8));
}

/// Appends the code point, which must be at most U+10FFFF and no surrogate, in UTF-8.
void AppendUtf8(char32_t codePoint, std::string& utf8);

/// The offset of the first byte that does not belong to well-formed UTF-8; npos when all does.
std::size_t FindBrokenUtf8(std::string_view utf8);

/// The text with CR LF in the place of each line end, be it CR LF, LF or CR: what Windows' edits hold.
std::string WithCrLf(std::string_view text);

}  // namespace qor::win
