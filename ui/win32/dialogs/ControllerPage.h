// SPDX-License-Identifier: MIT
#pragma once

#include "ui/win32/dialogs/WizardPage.h"

namespace UX {

/// How to get at the controller, and which it is.
class ControllerPage : public WizardPage {
 public:
  ControllerPage(WiFiWizard& wizard, const qor::Translate& translate) : WizardPage(wizard, translate) {}

  void Build(HWND dialog, StackLayout& rows, const qor::Translate& translate) override;
  void OnCommand(HWND control, int notification) override;

 private:
  HWND controllers_ = nullptr;
};

}  // namespace UX
