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
  wchar_t own[MAX_PATH];
  const DWORD length = GetEnvironmentVariableW(L"HALVEX_HOME", own, MAX_PATH);
  if (length > 0 && length < MAX_PATH) return Narrow({own, length});

  PWSTR documents = nullptr;
  std::string folder;
  if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_Documents, KF_FLAG_CREATE, nullptr, &documents))) {
    folder = Narrow(documents);
  }
  CoTaskMemFree(documents);
  return folder;
}

}  // namespace platform
