// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SystemTime.h"
#include "ui/win32/dialogs/DlgBase.h"

namespace UX {

/// Asks for a date and a time of day, to the second.
class DlgDateTime : public DlgBase {
 public:
  /// `time` outlives the dialog. It is what is shown first, if it is a date, and changes when Run gives true.
  DlgDateTime(qor::Translate translate, platform::SYSTEMTIME& time)
      : DlgBase(std::move(translate)), time_(time) {}

 protected:
  void Build(const qor::Translate& translate) override;
  void OnButton(int id) override;

 private:
  platform::SYSTEMTIME& time_;
  HWND date_ = nullptr;
  HWND timeOfDay_ = nullptr;
};

}  // namespace UX
