// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/DlgModeName.h"

namespace UX {

void DlgModeName::Build(const qor::Translate& translate) {
  constexpr int DescriptionLines = 5;
  SetText(Window(), request_.title);
  StackLayout& rows = AddPage();
  rows.Add({Paragraph(Window(), translate(TR("Mode name")))});
  const Cell name = LineEdit(Window(), request_.name);
  rows.Add({name}, Gap::Close);
  rows.Add({Paragraph(Window(), translate(TR("Mode description")))});
  const Cell description = TextEdit(Window(), request_.description, DescriptionLines);
  rows.Add({description}, Gap::Close);
  name_ = name.control;
  description_ = description.control;
  AddOkAndCancel(translate);
}

void DlgModeName::OnButton(int id) {
  if (id == IDOK) {
    request_.name = TextOf(name_);
    // The edit has ends of lines of its own; an untouched text keeps those that it came with.
    if (SendMessageW(description_, EM_GETMODIFY, 0, 0) != 0) request_.description = TextOf(description_);
    if (request_.fault && Stays(request_.fault(request_), name_)) return;
  }
  DlgBase::OnButton(id);
}

}  // namespace UX
