// SPDX-License-Identifier: MIT
#include "platform/Resources.h"

#include <windows.h>

namespace platform {

std::string_view StringTableResource() {
  const HRSRC resource = FindResourceW(nullptr, L"TC420Strings.xml", L"XML");
  const HGLOBAL loaded = resource != nullptr ? LoadResource(nullptr, resource) : nullptr;
  if (loaded == nullptr) return {};
  return {static_cast<const char*>(LockResource(loaded)), SizeofResource(nullptr, resource)};
}

}  // namespace platform
