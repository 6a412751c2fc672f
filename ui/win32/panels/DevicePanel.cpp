// SPDX-License-Identifier: MIT
#include "ui/win32/panels/DevicePanel.h"

namespace UX {

DevicePanel::DevicePanel(const PanelContext& context)
    : context_(context),
      heading_(MakeLabel(context)),
      list_(context, DeviceListId),
      scan_(MakeButton(context, command::ScanNetwork)),
      addEmulator_(MakeButton(context, command::AddEmulator)),
      activity_(MakeLabel(context)),
      upload_(MakeButton(context, command::Upload, BS_OWNERDRAW)),
      rows_(context.window) {
  Arrange();
  list_.onCheck = [this](std::size_t row, bool isChecked) {
    context_.workbench.devices.Pick(row, isChecked);
    context_.workbench.view.Refresh();
  };
}

void DevicePanel::Translate() {
  const auto translate = context_.workbench.services.texts.Translator();
  ShowText(heading_, translate(TR("Devices")));
  ShowText(scan_, translate(TR("Scan")));
  ShowText(addEmulator_, translate(TR("Add emulator")));
  ShowText(upload_, translate(TR("Upload program")));
  if (!isWorking_) leastWidth_ = rows_.LeastWidth(context_.fonts);
  if (isWorking_) ShowText(upload_, translate(TR("Cancel")));
}

void DevicePanel::Refresh() {
  const Workbench& workbench = context_.workbench;
  if (isWorking_ != workbench.IsWorking()) ShowWorking(workbench.IsWorking());
  ShowText(activity_, workbench.Text(workbench.Activity()));
  std::vector<CheckRow> rows;
  for (const TCBase::DeviceInfo& device : workbench.devices.Devices()) rows.push_back(RowOf(device));
  const int selected = ListView_GetNextItem(list_.Window(), -1, LVNI_SELECTED);
  list_.Show(std::move(rows), selected);
}

void DevicePanel::ShowWorking(bool isWorking) {
  isWorking_ = isWorking;
  changedAt_ = context_.workbench.Milliseconds();
  const HWND focused = GetFocus();
  SetWindowLongPtrW(upload_, GWLP_ID, isWorking ? command::CancelJob : command::Upload);
  Translate();
  for (HWND button : {scan_, addEmulator_}) {
    ShowWindow(button, isWorking ? SW_HIDE : SW_SHOW);
    if (button == focused) SetFocus(upload_);
  }
  Arrange();
  rows_.Place(context_.fonts, area_);
  InvalidateRect(upload_, nullptr, TRUE);
}

bool DevicePanel::IsTooSoon(int id) const {
  constexpr std::int64_t LeastMilliseconds = 300;
  const bool isOfButton = id == command::CancelJob || id == command::Upload;
  return isOfButton && context_.workbench.Milliseconds() - changedAt_ < LeastMilliseconds;
}

CheckRow DevicePanel::RowOf(const TCBase::DeviceInfo& device) const {
  CheckRow row{device.selected, device.name, "", "", CheckRow::Tone::Usual};
  switch (RouteOf(device)) {
    case DeviceRoute::Usb: row.info = "USB"; break;
    case DeviceRoute::Network: row.info = platform::AddressText(device.address); break;
    case DeviceRoute::Emulator:
      row.info = context_.workbench.services.texts.Translator()(TR("emulator"));
      break;
  }
  const TCBase::DeviceOutcome* outcome = context_.workbench.devices.LastOutcome(device);
  if (outcome != nullptr) AddOutcome(*outcome, row);
  return row;
}

/// The stage in the list, and all that there is to say in its tip. What the user stopped is no fault, and a
/// device that a stop kept from being visited has nothing to say.
void DevicePanel::AddOutcome(const TCBase::DeviceOutcome& outcome, CheckRow& row) const {
  if (outcome.stage == TCBase::DeviceOutcome::Stage::NotReached) return;
  qor::Sentence sentence = TCBase::SentenceOf(outcome);
  row.tip = row.name + ": " + context_.workbench.Text(sentence);
  sentence.reasons.clear();
  row.info += "  " + context_.workbench.Text(sentence);
  if (outcome.IsFault()) row.tone = CheckRow::Tone::Error;
}

void DevicePanel::LayOut(const RECT& area) {
  area_ = area;
  rows_.Place(context_.fonts, area_);
}

/// The activity takes what the buttons leave, seen or not.
void DevicePanel::Arrange() {
  ShowWindow(activity_, isWorking_ ? SW_SHOW : SW_HIDE);
  constexpr int LeastWidth = 36;
  Cell activity = Plain(activity_, 20);
  activity.top = 4;
  const Cell upload = SmallButton(upload_, LeastWidth);
  rows_ = StackLayout(context_.window);
  rows_.Add({Heading(heading_)});
  rows_.Add({Tall(list_.Window())}, Gap::None);
  if (isWorking_) {
    rows_.Add({activity, upload}, RowGap);
  } else {
    activity.gap = SmallGap;
    rows_.Add({SmallButton(scan_, LeastWidth), SmallButton(addEmulator_, LeastWidth), activity, upload},
              RowGap);
  }
}

}  // namespace UX
