// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "ui/win32/dialogs/WizardPage.h"

namespace UX {

/// Which network the controller is to join: one of a list, or typed by hand.
class NetworkPage : public WizardPage {
 public:
  NetworkPage(WiFiWizard& wizard, const qor::Translate& translate, std::function<WiFiSearch()> search)
      : WizardPage(wizard, translate), search_(std::move(search)) {}

  void Build(HWND dialog, StackLayout& rows, const qor::Translate& translate) override;
  void OnShow() override;
  void OnCommand(HWND control, int notification) override;
  bool OnNotify(const NMHDR& header) override;
  void OnLaidOut() override;

 private:
  void BuildEntry(HWND dialog, StackLayout& rows, const qor::Translate& translate);
  void Refresh();
  void TakeSelection();
  void TakeEntry();
  std::string EnteredName() const;

  std::function<WiFiSearch()> search_;
  std::vector<WiFiNetwork> networks_;
  bool wasShown_ = false;
  bool isTakingSelection_ = false;
  HWND list_ = nullptr;
  HWND trouble_ = nullptr;
  HWND refresh_ = nullptr;
  HWND name_ = nullptr;
  HWND security_ = nullptr;
  HWND encryption_ = nullptr;
  HWND remark_ = nullptr;
};

}  // namespace UX
