// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include "ui/WiFiWizard.h"
#include "ui/win32/controls/StackLayout.h"

namespace UX {

/// One page of the Wi-Fi set-up. It keeps what is entered in the wizard as it is entered.
class WizardPage {
 public:
  virtual ~WizardPage() = default;
  WizardPage(const WizardPage&) = delete;
  WizardPage& operator=(const WizardPage&) = delete;

  /// Called once, when the dialog's window is there.
  virtual void Build(HWND dialog, StackLayout& rows, const qor::Translate& translate) = 0;
  /// The page is about to be seen.
  virtual void OnShow() {}
  /// As DlgBase has it, while the page is seen.
  virtual void OnCommand(HWND, int) {}
  /// Whether the user wants to go on.
  virtual bool OnNotify(const NMHDR&) { return false; }
  virtual void OnLaidOut() {}
  /// The controls are about to go.
  virtual void OnClosing() {}

 protected:
  WizardPage(WiFiWizard& wizard, const qor::Translate& translate) : wizard_(wizard), translate_(translate) {}

  WiFiWizard& wizard_;
  const qor::Translate& translate_;
};

}  // namespace UX
