// SPDX-License-Identifier: MIT
#include "platform/Folders.h"

#include <windows.h>
// after windows.h
#include <initguid.h>
#include <knownfolders.h>
#include <shlobj.h>

#include "platform/win32/Strings.h"

namespace platform {

std::string SettingsFolder() {
  std::wstring own(GetEnvironmentVariableW(L"HALVEX_HOME", nullptr, 0), L'\0');
  own.resize(GetEnvironmentVariableW(L"HALVEX_HOME", own.data(), static_cast<DWORD>(own.size())));
  if (!own.empty()) return Narrow(own);

  PWSTR documents = nullptr;
  std::string folder;
  if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_Documents, KF_FLAG_CREATE, nullptr, &documents))) {
    folder = Narrow(documents);
  }
  CoTaskMemFree(documents);
  return folder;
}

}  // namespace platform
