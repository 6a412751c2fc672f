// SPDX-License-Identifier: MIT
#pragma once

#include "ui/win32/dialogs/WizardPage.h"

namespace UX {

/// The network's password, hidden unless the user wants to see it.
class PasswordPage : public WizardPage {
 public:
  PasswordPage(WiFiWizard& wizard, const qor::Translate& translate) : WizardPage(wizard, translate) {}

  void Build(HWND dialog, StackLayout& rows, const qor::Translate& translate) override;
  void OnShow() override;
  void OnCommand(HWND control, int notification) override;
  void OnClosing() override;

 private:
  void TakePassword();
  void ShowCharacters(bool isShown);

  HWND label_ = nullptr;
  HWND password_ = nullptr;
  HWND show_ = nullptr;
  HWND remark_ = nullptr;
  WPARAM hidingCharacter_ = 0;
};

}  // namespace UX
