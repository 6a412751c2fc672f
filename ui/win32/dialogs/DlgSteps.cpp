// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/DlgSteps.h"

#include "QorLib/Format.h"
#include "QorLib/qor_win_str_utils.h"
#include "formats/StepsText.h"

namespace UX {
namespace {

constexpr std::size_t MostUnits = 2048;  // of UTF-16, that are taken from the edit
constexpr std::string_view Examples = "08:00 0\r\n10:00 80 J\r\n12:00 0\r\n13:40 50\r\n15:00 0";

/// The text without the lines at its end that do not fit.
std::string Fitting(const std::string& text) {
  const std::wstring wide = qor::win::WideFromUtf8(text);
  if (wide.size() <= MostUnits) return text;
  const std::size_t end = wide.find_last_of(L"\r\n", MostUnits);
  return qor::win::Utf8FromWide(wide.substr(0, end == std::wstring::npos ? MostUnits : end));
}

std::string RemarksText(const std::vector<qor::Sentence>& remarks, const qor::Translate& translate) {
  std::string text;
  for (const qor::Sentence& remark : remarks) text += (text.empty() ? "" : "\r\n") + remark.In(translate);
  return text;
}

}  // namespace

void DlgSteps::Build(const qor::Translate& translate) {
  constexpr int Lines = 12;
  constexpr int OddityLines = 3;
  SetText(Window(), request_.title);
  StackLayout& rows = AddPage();
  rows.Add({Paragraph(Window(), translate(TR("Enter steps in this format:")))});
  rows.Add({PlainText(Window(), translate(TR("hh:mm value [J]")), Face::Fixed)}, Gap::Close);
  Cell text = TextEdit(Window(), Fitting(request_.text), Lines);
  text.face = Face::Fixed;
  Cell examples = PlainText(Window(), Examples, Face::Fixed);
  examples.top = 0;
  rows.Add({text, examples});
  const Cell count = Paragraph(Window(), {});
  const Cell oddities = Paragraph(Window(), {}, OddityLines);
  rows.Add({count});
  rows.Add({oddities}, Gap::Close);
  text_ = text.control;
  count_ = count.control;
  oddities_ = oddities.control;
  SendMessageW(text_, EM_SETLIMITTEXT, MostUnits, 0);
  ShowCount();
  AddOkAndCancel(translate);
}

void DlgSteps::OnCommand(HWND control, int notification) {
  if (control == text_ && notification == EN_CHANGE) ShowCount();
}

void DlgSteps::ShowCount() {
  const qor::Translate& translate = Translator();
  const TCBase::StepsReading reading = TCBase::ReadStepsText(TextOf(text_));
  SetText(count_, qor::Format(translate(TR("Text contains {1} steps")), {reading.steps.size()}));
  SetText(oddities_, RemarksText(reading.remarks, translate));
}

void DlgSteps::OnButton(int id) {
  if (id == IDOK) {
    request_.text = TextOf(text_);
    if (request_.fault && Stays(request_.fault(request_), text_)) return;
  }
  DlgBase::OnButton(id);
}

}  // namespace UX
