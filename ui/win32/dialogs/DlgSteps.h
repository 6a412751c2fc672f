// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Dialogs.h"
#include "ui/win32/dialogs/DlgBase.h"

namespace UX {

/// Lets the user write a channel's steps as text, and says how it is read.
class DlgSteps : public DlgBase {
 public:
  /// The request outlives the dialog and changes when Run gives true. Of a text that is longer than the
  /// dialog takes, the lines that do not fit are left out before it is shown.
  DlgSteps(qor::Translate translate, StepsRequest& request)
      : DlgBase(std::move(translate)), request_(request) {}

 protected:
  void Build(const qor::Translate& translate) override;
  void OnCommand(HWND control, int notification) override;
  void OnButton(int id) override;

 private:
  void ShowCount();

  StepsRequest& request_;
  HWND text_ = nullptr;
  HWND count_ = nullptr;
  HWND oddities_ = nullptr;
};

}  // namespace UX
