// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/ControllerPage.h"

namespace UX {

void ControllerPage::Build(HWND dialog, StackLayout& rows, const qor::Translate& translate) {
  std::vector<std::string> choices;
  for (const TCBase::DeviceInfo& controller : wizard_.Controllers()) {
    choices.push_back(ControllerText(controller, translate));
  }
  rows.Add({Paragraph(
      dialog,
      translate(TR("Connect the TC421 to this computer by USB. Or hold its Wi-Fi button until its light "
                   "blinks, join the controller's own network with this computer and choose \"Scan WiFi "
                   "devices\" before this set-up.")))});
  const Cell label = Caption(dialog, translate(TR("Device")));
  const Cell controllersCell = ComboBox(dialog, choices, wizard_.ControllerIndex());
  controllers_ = controllersCell.control;
  rows.Add({label, controllersCell}, Gap::Wide);
}

void ControllerPage::OnCommand(HWND control, int notification) {
  if (control != controllers_ || notification != CBN_SELCHANGE) return;
  wizard_.ChooseController(static_cast<std::size_t>(ChosenOf(controllers_)));
}

}  // namespace UX
