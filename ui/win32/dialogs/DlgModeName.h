// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Dialogs.h"
#include "ui/win32/dialogs/DlgBase.h"

namespace UX {

/// Asks for a mode's name and its description, which may have several lines.
class DlgModeName : public DlgBase {
 public:
  /// The request outlives the dialog and changes when Run gives true.
  DlgModeName(qor::Translate translate, ModeNameRequest& request)
      : DlgBase(std::move(translate)), request_(request) {}

 protected:
  void Build(const qor::Translate& translate) override;
  void OnButton(int id) override;

 private:
  ModeNameRequest& request_;
  HWND name_ = nullptr;
  HWND description_ = nullptr;
};

}  // namespace UX
