// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include "ui/Workbench.h"

namespace UX {

/// Asks by message boxes and dialogs before a window.
class WindowDialogs : public Dialogs {
 public:
  explicit WindowDialogs(const Services& services, platform::Network& network)
      : services_(services), network_(network) {}
  /// The window that they stand before; null until it is there.
  void SetOwner(HWND owner) { owner_ = owner; }
  /// The list that the Wi-Fi set-up offers controllers of; outlives this object.
  void SetDevices(const DeviceList& devices) { devices_ = &devices; }

  std::optional<std::string> PathToOpen(FileKind kind) override;
  std::optional<std::string> PathToSave(FileKind kind, const std::string& name) override;
  Answer Ask(const Question& question) override;
  void Tell(const std::string& caption, const std::string& text) override;
  bool EditValue(ValueRequest& request) override;
  bool EditModeName(ModeNameRequest& request) override;
  bool EditSteps(StepsRequest& request) override;
  bool EditDateTime(platform::SYSTEMTIME& time) override;
  void ShowAbout() override;
  void RunWiFiWizard() override;

 private:
  qor::Translate Translator() const { return services_.texts.Translator(); }

  Services services_;
  platform::Network& network_;
  HWND owner_ = nullptr;
  const DeviceList* devices_ = nullptr;
};

}  // namespace UX
