// SPDX-License-Identifier: MIT
#include "QorLib/qor_win_str_utils.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace qor::win {
namespace {

constexpr char32_t Replacement = 0xFFFD;

bool IsSurrogate(char32_t codePoint) {
  return codePoint >= 0xD800 && codePoint <= 0xDFFF;
}

struct Decoded {
  char32_t codePoint;
  std::size_t length;  // bytes used; for a broken part, the bytes to skip
  bool isBroken;
};

/// What the first byte of a sequence says: its length, and the range that the second byte must keep to, which
/// rules out overlong forms, surrogates and what lies above U+10FFFF (Unicode, table 3-7).
struct Lead {
  std::size_t length;
  unsigned char secondMin, secondMax;
};

Lead LeadOf(unsigned char byte) {
  if (byte < 0x80) return {1, 0, 0};
  if (byte >= 0xC2 && byte <= 0xDF) return {2, 0x80, 0xBF};
  if (byte == 0xE0) return {3, 0xA0, 0xBF};
  if (byte == 0xED) return {3, 0x80, 0x9F};
  if (byte >= 0xE1 && byte <= 0xEF) return {3, 0x80, 0xBF};
  if (byte == 0xF0) return {4, 0x90, 0xBF};
  if (byte >= 0xF1 && byte <= 0xF3) return {4, 0x80, 0xBF};
  if (byte == 0xF4) return {4, 0x80, 0x8F};
  return {0, 0, 0};
}

/// Decodes the first code point of a text that is not empty.
Decoded Decode(std::string_view utf8) {
  const auto first = static_cast<unsigned char>(utf8[0]);
  const Lead lead = LeadOf(first);
  if (lead.length == 1) return {first, 1, false};
  if (lead.length == 0) return {Replacement, 1, true};

  constexpr unsigned char LeadMasks[] = {0, 0, 0x1F, 0x0F, 0x07};
  char32_t codePoint = first & LeadMasks[lead.length];
  for (std::size_t i = 1; i < lead.length; ++i) {
    if (i >= utf8.size()) return {Replacement, i, true};
    const auto byte = static_cast<unsigned char>(utf8[i]);
    const bool fits =
        i == 1 ? byte >= lead.secondMin && byte <= lead.secondMax : byte >= 0x80 && byte <= 0xBF;
    if (!fits) return {Replacement, i, true};
    codePoint = (codePoint << 6) | (byte & 0x3F);
  }
  return {codePoint, lead.length, false};
}

template <typename String>
String Utf16As(std::string_view utf8) {
  using Unit = typename String::value_type;
  String result;
  result.reserve(utf8.size());
  while (!utf8.empty()) {
    const Decoded decoded = Decode(utf8);
    utf8.remove_prefix(decoded.length);
    if (sizeof(Unit) > 2 || decoded.codePoint < 0x10000) {
      result += static_cast<Unit>(decoded.codePoint);
    } else {
      result += static_cast<Unit>(0xD800 + ((decoded.codePoint - 0x10000) >> 10));
      result += static_cast<Unit>(0xDC00 + ((decoded.codePoint - 0x10000) & 0x3FF));
    }
  }
  return result;
}

template <typename View>
std::string Utf8As(View text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    auto codePoint = static_cast<char32_t>(text[i]);
    const bool isHigh = codePoint >= 0xD800 && codePoint <= 0xDBFF;
    if (isHigh && i + 1 < text.size()) {
      const auto low = static_cast<char32_t>(text[i + 1]);
      if (low >= 0xDC00 && low <= 0xDFFF) {
        codePoint = 0x10000 + ((codePoint - 0xD800) << 10) + (low - 0xDC00);
        ++i;
      }
    }
    AppendUtf8(IsSurrogate(codePoint) || codePoint > 0x10FFFF ? Replacement : codePoint, result);
  }
  return result;
}

}  // namespace

std::u16string Utf16FromUtf8(std::string_view utf8) {
  return Utf16As<std::u16string>(utf8);
}
std::string Utf8FromUtf16(std::u16string_view utf16) {
  return Utf8As(utf16);
}
std::wstring WideFromUtf8(std::string_view utf8) {
  return Utf16As<std::wstring>(utf8);
}
std::string Utf8FromWide(std::wstring_view wide) {
  return Utf8As(wide);
}

void AppendUtf8(char32_t codePoint, std::string& utf8) {
  const auto append = [&utf8](char32_t byte) { utf8 += static_cast<char>(byte); };
  if (codePoint < 0x80) {
    append(codePoint);
  } else if (codePoint < 0x800) {
    append(0xC0 | (codePoint >> 6));
    append(0x80 | (codePoint & 0x3F));
  } else if (codePoint < 0x10000) {
    append(0xE0 | (codePoint >> 12));
    append(0x80 | ((codePoint >> 6) & 0x3F));
    append(0x80 | (codePoint & 0x3F));
  } else {
    append(0xF0 | (codePoint >> 18));
    append(0x80 | ((codePoint >> 12) & 0x3F));
    append(0x80 | ((codePoint >> 6) & 0x3F));
    append(0x80 | (codePoint & 0x3F));
  }
}

std::size_t FindBrokenUtf8(std::string_view utf8) {
  const char* const text = utf8.data();
  std::size_t i = 0;
  while (i < utf8.size()) {
    // Eight bytes at a time while they are ASCII, as nearly all of a file is.
    std::uint64_t block;
    if (i + sizeof block <= utf8.size()) {
      std::memcpy(&block, text + i, sizeof block);
      const std::uint64_t nonAscii = block & 0x8080808080808080u;
      if (nonAscii == 0) {
        i += sizeof block;
        continue;
      }
      if constexpr (std::endian::native == std::endian::little) {
        i += static_cast<std::size_t>(std::countr_zero(nonAscii)) / 8;
      }
    }
    // Two bytes, which is what European letters have, without a call.
    const auto first = static_cast<unsigned char>(text[i]);
    if (first >= 0xC2 && first <= 0xDF && i + 1 < utf8.size() && (text[i + 1] & 0xC0) == 0x80) {
      i += 2;
      continue;
    }
    const Decoded decoded = Decode(utf8.substr(i));
    if (decoded.isBroken) return i;
    i += decoded.length;
  }
  return std::string_view::npos;
}

std::string WithCrLf(std::string_view text) {
  std::string lines;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool isPair = text.substr(i).starts_with("\r\n");
    if (text[i] == '\r' || text[i] == '\n') {
      lines += "\r\n";
    } else {
      lines += text[i];
    }
    if (isPair) ++i;
  }
  return lines;
}

}  // namespace qor::win
