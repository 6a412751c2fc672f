// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "QorLib/Translate.h"
#include "ui/Dialogs.h"

namespace UX {

// The system's dialogs for the path of a file, before `owner`. Paths are UTF-8; nothing when the user
// cancelled.
std::optional<std::string> AskPathToOpen(HWND owner, FileKind kind, const qor::Translate& translate);
/// `name` is offered, with or without a folder. A file that is there is only given when the user agrees.
std::optional<std::string> AskPathToSave(HWND owner, FileKind kind, const std::string& name,
                                         const qor::Translate& translate);

}  // namespace UX
