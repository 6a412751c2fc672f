// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/DlgGetValue.h"

#include "QorLib/qor_win_str_utils.h"
#include "ui/TextLimit.h"

namespace UX {
namespace {

std::string CutTo(std::size_t mostCharacters, const std::string& text) {
  std::wstring wide = qor::win::WideFromUtf8(text);
  wide.resize(wide.size() - SurplusBefore(wide, wide.size(), mostCharacters));
  return qor::win::Utf8FromWide(wide);
}

}  // namespace

void DlgGetValue::Build(const qor::Translate& translate) {
  SetText(Window(), request_.title);
  StackLayout& rows = AddPage();
  rows.Add({Paragraph(Window(), request_.label)});
  const bool isLimited = request_.mostCharacters > 0;
  const std::string text = isLimited ? CutTo(request_.mostCharacters, request_.value) : request_.value;
  const Cell value = LineEdit(Window(), text, request_.isNumber ? ES_NUMBER : 0);
  value_ = value.control;
  rows.Add({value}, Gap::Close);
  if (!request_.secondLabel.empty()) {
    rows.Add({Paragraph(Window(), request_.secondLabel)});
    const Cell second = LineEdit(Window(), request_.secondValue);
    second_ = second.control;
    rows.Add({second}, Gap::Close);
  }
  AddOkAndCancel(translate);
}

void DlgGetValue::OnCommand(HWND control, int notification) {
  if (control == value_ && notification == EN_CHANGE && KeepToLimit()) MessageBeep(MB_OK);
}

bool DlgGetValue::KeepToLimit() {
  if (request_.mostCharacters == 0) return false;
  const std::wstring text = qor::win::WideFromUtf8(TextOf(value_));
  DWORD caret = 0;
  SendMessageW(value_, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  const auto surplus = static_cast<DWORD>(SurplusBefore(text, caret, request_.mostCharacters));
  if (surplus == 0) return false;
  SendMessageW(value_, EM_SETSEL, caret - surplus, static_cast<LPARAM>(caret));
  SendMessageW(value_, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L""));
  return true;
}

void DlgGetValue::OnButton(int id) {
  if (id == IDOK) {
    request_.value = TextOf(value_);
    if (second_ != nullptr) request_.secondValue = TextOf(second_);
  }
  DlgBase::OnButton(id);
}

}  // namespace UX
