// SPDX-License-Identifier: MIT
#pragma once

#include "ui/win32/dialogs/WizardPage.h"

namespace UX {

/// What is going to be sent, and what came of it.
class SendPage : public WizardPage {
 public:
  SendPage(WiFiWizard& wizard, const qor::Translate& translate) : WizardPage(wizard, translate) {}

  void Build(HWND dialog, StackLayout& rows, const qor::Translate& translate) override;
  void OnShow() override;
  /// Says how it goes, or went.
  void Tell(std::string_view text);

 private:
  HWND controller_ = nullptr;
  HWND network_ = nullptr;
  HWND security_ = nullptr;
  HWND state_ = nullptr;
};

}  // namespace UX
