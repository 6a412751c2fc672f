// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <functional>

#include "ui/win32/dialogs/ControllerPage.h"
#include "ui/win32/dialogs/DlgBase.h"
#include "ui/win32/dialogs/NetworkPage.h"
#include "ui/win32/dialogs/PasswordPage.h"
#include "ui/win32/dialogs/SendPage.h"

namespace UX {

/// What the Wi-Fi set-up works on.
struct WiFiSetup {
  std::vector<TCBase::DeviceInfo> devices;  // of which the TC421s are offered
  std::function<WiFiSearch()> search;       // the networks nearby
  /// Sends the settings; blocks until the controller has answered or not.
  std::function<TCBase::DeviceOutcome(const TCBase::DeviceInfo&, const TCBase::WiFiSettings&)> send;
};

/// Brings a TC421 into a wireless network: four pages with Back and Next.
class DlgTC421_Config : public DlgBase {
 public:
  DlgTC421_Config(qor::Translate translate, WiFiSetup setup);

 protected:
  void Build(const qor::Translate& translate) override;
  void OnCommand(HWND control, int notification) override;
  void OnNotify(const NMHDR& header) override;
  void OnButton(int id) override;
  void OnLaidOut() override;
  void OnClosing() override;

 private:
  WizardPage& Page() { return *wizardPages_[static_cast<std::size_t>(wizard_.Page())]; }
  void ShowCurrentPage();
  void UpdateButtons();
  void GoOn();
  void Send();

  WiFiSetup setup_;
  WiFiWizard wizard_;
  ControllerPage controllerPage_;
  NetworkPage networkPage_;
  PasswordPage passwordPage_;
  SendPage sendPage_;
  std::array<WizardPage*, 4> wizardPages_;  // in the order of WiFiPage
  bool isSending_ = false;
  HWND back_ = nullptr;
  HWND next_ = nullptr;
  HWND cancel_ = nullptr;
};

}  // namespace UX
