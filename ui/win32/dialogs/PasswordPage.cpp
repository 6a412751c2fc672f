// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/PasswordPage.h"

#include <array>
#include <string>

#include "QorLib/Format.h"

namespace UX {
namespace {

constexpr int MostUnits = 128;      // of UTF-16, that can be typed: more than a controller takes
constexpr int MostBytesOfUnit = 3;  // in UTF-8

}  // namespace

void PasswordPage::Build(HWND dialog, StackLayout& rows, const qor::Translate& translate) {
  constexpr int RemarkLines = 2;
  const Cell label = Paragraph(dialog, {});
  const Cell password = LineEdit(dialog, {}, ES_PASSWORD);
  const Cell show = CheckBox(dialog, translate(TR("Show password")));
  const Cell remark = Paragraph(dialog, {}, RemarkLines);
  rows.Add({label});
  rows.Add({password}, Gap::Close);
  rows.Add({show});
  rows.Add({remark});
  label_ = label.control;
  password_ = password.control;
  show_ = show.control;
  remark_ = remark.control;
  SendMessageW(password_, EM_SETLIMITTEXT, MostUnits, 0);
  hidingCharacter_ = static_cast<WPARAM>(SendMessageW(password_, EM_GETPASSWORDCHAR, 0, 0));
}

void PasswordPage::OnShow() {
  const qor::Translate& translate = translate_;
  SetText(label_, qor::Format(translate(TR("Password for the network {1}")), {wizard_.Settings().ssid}));
  TakePassword();
}

void PasswordPage::OnCommand(HWND control, int notification) {
  if (control == password_ && notification == EN_CHANGE) TakePassword();
  if (control == show_ && notification == BN_CLICKED) ShowCharacters(IsChecked(show_));
}

void PasswordPage::ShowCharacters(bool isShown) {
  SendMessageW(password_, EM_SETPASSWORDCHAR, isShown ? 0 : hidingCharacter_, 0);
  InvalidateRect(password_, nullptr, TRUE);
}

/// Without a copy that would stay in memory.
void PasswordPage::TakePassword() {
  std::array<wchar_t, MostUnits + 1> units{};
  std::array<char, MostUnits * MostBytesOfUnit> bytes{};
  const int length = GetWindowTextW(password_, units.data(), static_cast<int>(units.size()));
  const int count = WideCharToMultiByte(CP_UTF8, 0, units.data(), length, bytes.data(),
                                        static_cast<int>(bytes.size()), nullptr, nullptr);
  wizard_.SetPassword({bytes.data(), static_cast<std::size_t>(count)});
  SecureZeroMemory(units.data(), sizeof units);
  SecureZeroMemory(bytes.data(), sizeof bytes);
  SetText(remark_, wizard_.Remark(translate_));
}

void PasswordPage::OnClosing() {
  // The edit's memory takes a text of the same length before it goes.
  const std::wstring blanks(static_cast<std::size_t>(GetWindowTextLengthW(password_)), L' ');
  SetWindowTextW(password_, blanks.c_str());
}

}  // namespace UX
