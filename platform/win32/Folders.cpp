// SPDX-License-Identifier: MIT
#include "platform/Folders.h"

#include <windows.h>
// after windows.h
#include <initguid.h>
#include <knownfolders.h>
#include <shlobj.h>

#include "QorLib/qor_win_str_utils.h"
#include "platform/Console.h"

namespace platform {

std::string SettingsFolder() {
  if (std::string own = Variable("HALVEX_HOME"); !own.empty()) return own;

  PWSTR documents = nullptr;
  std::string folder;
  if (SUCCEEDED(SHGetKnownFolderPath(FOLDERID_Documents, KF_FLAG_CREATE, nullptr, &documents))) {
    folder = qor::win::Utf8FromWide(documents);
  }
  CoTaskMemFree(documents);
  return folder;
}

}  // namespace platform
