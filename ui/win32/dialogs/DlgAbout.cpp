// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/DlgAbout.h"

#include "QorLib/Format.h"
#include "device/DeviceInfo.h"

namespace UX {

void DlgAbout::Build(const qor::Translate& translate) {
  SetText(Window(), translate(TR("About ...")));
  StackLayout& rows = AddPage();
  rows.Add({PlainText(Window(), TCBase::TC420DisplayName, Face::Title)});
  rows.Add({PlainText(Window(), "Halvex " + facts_.version, Face::Bold)}, Gap::Close);
  rows.Add({Paragraph(
      Window(),
      translate(TR("Editor for the day-long light programs of TC420 and TC421 LED controllers.")))});
  rows.Add({Paragraph(Window(), "MIT License")});
  if (!facts_.translator.empty()) {
    rows.Add({Paragraph(Window(), qor::Format(translate(TR("translated by {1}!")), {facts_.translator}))});
  }
  AddButton(IDCANCEL, translate(TR("Close")), true);
}

}  // namespace UX
