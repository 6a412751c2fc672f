// SPDX-License-Identifier: MIT
#include "platform/Resources.h"

#include <windows.h>

namespace platform {
namespace {

std::string_view XmlResource(const wchar_t* name) {
  const HRSRC resource = FindResourceW(nullptr, name, L"XML");
  const HGLOBAL loaded = resource != nullptr ? LoadResource(nullptr, resource) : nullptr;
  if (loaded == nullptr) return {};
  return {static_cast<const char*>(LockResource(loaded)), SizeofResource(nullptr, resource)};
}

}  // namespace

std::array<std::string_view, 2> StringTableResources() {
  return {XmlResource(L"TC420Strings.xml"), XmlResource(L"HalvexStrings.xml")};
}

}  // namespace platform
