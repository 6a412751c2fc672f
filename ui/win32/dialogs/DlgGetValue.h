// SPDX-License-Identifier: MIT
#pragma once

#include "ui/Dialogs.h"
#include "ui/win32/dialogs/DlgBase.h"

namespace UX {

/// Asks for one value or two, each on a line.
class DlgGetValue : public DlgBase {
 public:
  /// The request outlives the dialog; its values change when Run gives true. A first value that is longer
  /// than the request allows is cut before it is shown.
  DlgGetValue(qor::Translate translate, ValueRequest& request)
      : DlgBase(std::move(translate)), request_(request) {}

 protected:
  void Build(const qor::Translate& translate) override;
  void OnCommand(HWND control, int notification) override;
  void OnButton(int id) override;

 private:
  /// Whether something had to go.
  bool KeepToLimit();

  ValueRequest& request_;
  HWND value_ = nullptr;
  HWND second_ = nullptr;
};

}  // namespace UX
