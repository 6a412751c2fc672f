// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/DlgTC421_Config.h"

#include <commctrl.h>

namespace UX {
namespace {

constexpr int BackId = 10;
constexpr int NextId = 11;

/// Brings onto the screen what has changed, before the thread is busy with something else.
void PaintNow(HWND dialog) {
  MSG message;
  while (PeekMessageW(&message, dialog, WM_PAINT, WM_PAINT, PM_REMOVE)) DispatchMessageW(&message);
}

/// Drops what was typed and clicked meanwhile: it was not meant for what stands there now.
void DropInput(HWND dialog) {
  MSG message;
  while (PeekMessageW(&message, dialog, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE) ||
         PeekMessageW(&message, dialog, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE)) {
  }
}

}  // namespace

DlgTC421_Config::DlgTC421_Config(qor::Translate translate, WiFiSetup setup)
    : DlgBase(std::move(translate)),
      setup_(std::move(setup)),
      wizard_(setup_.devices),
      controllerPage_(wizard_, Translator()),
      networkPage_(wizard_, Translator(), setup_.search),
      passwordPage_(wizard_, Translator()),
      sendPage_(wizard_, Translator()),
      wizardPages_{&controllerPage_, &networkPage_, &passwordPage_, &sendPage_} {}

void DlgTC421_Config::Build(const qor::Translate& translate) {
  SetText(Window(), translate(TR("Setup TC421 WiFi")));
  for (WizardPage* const page : wizardPages_) page->Build(Window(), AddPage(), translate);
  back_ = AddButton(BackId, translate(TR("Back")));
  next_ = AddButton(NextId, translate(TR("Next")), true);
  cancel_ = AddButton(IDCANCEL, translate(TR("Cancel")));
  UpdateButtons();
}

void DlgTC421_Config::OnCommand(HWND control, int notification) {
  Page().OnCommand(control, notification);
  UpdateButtons();
}

void DlgTC421_Config::OnNotify(const NMHDR& header) {
  if (header.code == NM_CUSTOMDRAW) return;  // of a button that is being drawn; nothing may change then
  const bool goesOn = Page().OnNotify(header);
  UpdateButtons();
  if (goesOn) GoOn();
}

void DlgTC421_Config::OnLaidOut() {
  for (WizardPage* const page : wizardPages_) page->OnLaidOut();
}

void DlgTC421_Config::OnClosing() {
  for (WizardPage* const page : wizardPages_) page->OnClosing();
}

void DlgTC421_Config::OnButton(int id) {
  switch (id) {
    case BackId:
      wizard_.GoBack();
      ShowCurrentPage();
      break;
    case NextId: GoOn(); break;
    default: DlgBase::OnButton(id); break;
  }
}

void DlgTC421_Config::GoOn() {
  if (wizard_.Page() == WiFiPage::Send) {
    Send();
  } else if (wizard_.MayGoOn()) {
    wizard_.GoOn();
    ShowCurrentPage();
  }
}

void DlgTC421_Config::ShowCurrentPage() {
  const qor::Translate& translate = Translator();
  Page().OnShow();
  SetText(next_, wizard_.Page() == WiFiPage::Send ? translate(TR("Send")) : translate(TR("Next")));
  SetText(cancel_, translate(TR("Cancel")));
  LayOut();
  ShowPage(static_cast<std::size_t>(wizard_.Page()));
  UpdateButtons();  // in the end, as the focus must not stand on a button that is switched off
}

void DlgTC421_Config::UpdateButtons() {
  EnableWindow(back_, !isSending_ && wizard_.Page() != WiFiPage::Controller);
  EnableWindow(next_, !isSending_ && wizard_.MayGoOn());
  EnableWindow(cancel_, !isSending_);
}

void DlgTC421_Config::Send() {
  const qor::Translate& translate = Translator();
  sendPage_.Tell(translate(TR("Setting up WiFi")));
  isSending_ = true;
  UpdateButtons();
  PaintNow(Window());
  const HCURSOR former = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
  const TCBase::DeviceOutcome outcome = setup_.send(wizard_.Controller(), wizard_.Settings());
  SetCursor(former);
  DropInput(Window());
  sendPage_.Tell(OutcomeText(outcome, translate));
  isSending_ = false;
  UpdateButtons();
  if (outcome.IsDone()) SetText(cancel_, translate(TR("Close")));
  LayOut();
  Focus(outcome.IsDone() ? cancel_ : next_);
}

}  // namespace UX
