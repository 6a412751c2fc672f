// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/DlgDateTime.h"

#include <commctrl.h>

namespace UX {
namespace {

::SYSTEMTIME TimeShownBy(HWND picker) {
  ::SYSTEMTIME time{};
  DateTime_GetSystemtime(picker, &time);
  return time;
}

}  // namespace

void DlgDateTime::Build(const qor::Translate& translate) {
  const ::SYSTEMTIME time = {time_.wYear, time_.wMonth,  time_.wDayOfWeek, time_.wDay,
                             time_.wHour, time_.wMinute, time_.wSecond,    0};
  SetText(Window(), translate(TR("Set custom date and time")));
  StackLayout& rows = AddPage();
  rows.Add({Paragraph(Window(), translate(TR("Enter date and time")))});
  const Cell date = DatePicker(Window(), time);
  const Cell timeOfDay = TimePicker(Window(), time);
  rows.Add({date, timeOfDay}, Gap::Close);
  date_ = date.control;
  timeOfDay_ = timeOfDay.control;
  AddOkAndCancel(translate);
}

void DlgDateTime::OnButton(int id) {
  if (id == IDOK) {
    // Digits that are being typed count when their picker loses the focus.
    Focus(GetDlgItem(Window(), IDOK));
    const ::SYSTEMTIME date = TimeShownBy(date_);
    const ::SYSTEMTIME time = TimeShownBy(timeOfDay_);
    time_ = {date.wYear, date.wMonth, date.wDayOfWeek, date.wDay, time.wHour, time.wMinute, time.wSecond, 0};
  }
  DlgBase::OnButton(id);
}

}  // namespace UX
