// SPDX-License-Identifier: MIT
#include "platform/Folders.h"

#include <windows.h>
// after windows.h
#include <initguid.h>
#include <knownfolders.h>
#include <shlobj.h>

#include "platform/Console.h"
#include "platform/win32/Strings.h"

namespace platform {

std::string SettingsFolder() {
  if (std::string own = Variable("HALVEX_HOME"); !own.empty()) return own;

  PWSTR documents = nullptr;
  std::string folder;
  if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_Documents, KF_FLAG_CREATE, nullptr, &documents))) {
    folder = Narrow(documents);
  }
  CoTaskMemFree(documents);
  return folder;
}

}  // namespace platform
