// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/SendPage.h"

namespace UX {
namespace {

/// Adds a row "what it is, value"; returns the value's label.
HWND AddFact(HWND dialog, StackLayout& rows, const std::string& what) {
  const Cell caption = Caption(dialog, what);
  const Cell value = Paragraph(dialog, {});
  rows.Add({caption, value});
  return value.control;
}

}  // namespace

void SendPage::Build(HWND dialog, StackLayout& rows, const qor::Translate& translate) {
  constexpr int StateLines = 7;
  controller_ = AddFact(dialog, rows, translate(TR("Device")));
  network_ = AddFact(dialog, rows, translate(TR("Network name")));
  security_ = AddFact(dialog, rows, translate(TR("Security")));
  const Cell state = Paragraph(dialog, {}, StateLines);
  rows.Add({state}, Gap::Wide);
  state_ = state.control;
}

void SendPage::OnShow() {
  SetText(controller_, ControllerText(wizard_.Controller(), translate_));
  SetText(network_, wizard_.Settings().ssid);
  SetText(security_, SecurityText(wizard_.Security(), translate_));
  Tell({});
}

void SendPage::Tell(std::string_view text) {
  SetText(state_, text);
}

}  // namespace UX
