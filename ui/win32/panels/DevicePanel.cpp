// SPDX-License-Identifier: MIT
#include "ui/win32/panels/DevicePanel.h"

namespace UX {

DevicePanel::DevicePanel(const PanelContext& context)
    : context_(context),
      heading_(MakeLabel(context)),
      list_(context, DeviceListId),
      scan_(MakeButton(context, command::ScanNetwork)),
      addEmulator_(MakeButton(context, command::AddEmulator)),
      upload_(MakeButton(context, command::Upload, BS_OWNERDRAW)) {
  list_.onCheck = [this](std::size_t row, bool isChecked) {
    context_.workbench.devices.Pick(row, isChecked);
    context_.workbench.view.Refresh();
  };
}

void DevicePanel::Translate() {
  const auto translate = context_.workbench.services.texts.Translator();
  ShowText(heading_, translate("Devices"));
  ShowText(scan_, translate("Scan"));
  ShowText(addEmulator_, translate("Add emulator"));
  ShowText(upload_, translate("Upload program"));
}

void DevicePanel::Refresh() {
  std::vector<CheckRow> rows;
  for (const TCBase::DeviceInfo& device : context_.workbench.devices.Devices()) rows.push_back(RowOf(device));
  const int selected = ListView_GetNextItem(list_.Window(), -1, LVNI_SELECTED);
  list_.Show(std::move(rows), selected);
}

CheckRow DevicePanel::RowOf(const TCBase::DeviceInfo& device) const {
  CheckRow row{device.selected, device.name, "", "", CheckRow::Tone::Usual};
  switch (RouteOf(device)) {
    case DeviceRoute::Usb: row.info = "USB"; break;
    case DeviceRoute::Network: row.info = platform::AddressText(device.address); break;
    case DeviceRoute::Emulator: row.info = context_.workbench.services.texts.Translator()("emulator"); break;
  }
  if (const TCBase::DeviceOutcome* outcome = context_.workbench.devices.LastOutcome(device)) {
    const auto translate = context_.workbench.services.texts.Translator();
    qor::Sentence sentence = TCBase::SentenceOf(*outcome);
    row.tip = device.name + ": " + sentence.In(translate);
    sentence.reasons.clear();
    row.info += "  " + sentence.In(translate);
    using Stage = TCBase::DeviceOutcome::Stage;
    const bool isFault = outcome->stage == Stage::NotConnected || outcome->stage == Stage::Failed ||
                         outcome->stage == Stage::Incomplete;
    row.tone = isFault ? CheckRow::Tone::Error : CheckRow::Tone::Usual;
  }
  return row;
}

int DevicePanel::LeastWidth() const {
  const HFONT font = context_.fonts.text.Get();
  return ButtonWidth(scan_, font, 36) + ButtonWidth(addEmulator_, font, 36) + ButtonWidth(upload_, font, 36) +
         Scaled(scan_, 9);
}

void DevicePanel::LayOut(const Frame& area) {
  const int line = Scaled(heading_, 18), button = Scaled(heading_, 24), gap = Scaled(heading_, 4);
  Place(heading_, {area.left, area.top, area.width, line});
  const int row = area.Bottom() - button;
  list_.Place({area.left, area.top + line, area.width, row - gap - area.top - line});
  const HFONT font = context_.fonts.text.Get();
  PlaceButtons({area.left, row, area.width, button}, {scan_, addEmulator_}, font, 36);
  const int width = ButtonWidth(upload_, font, 36);
  Place(upload_, {area.Right() - width, row, width, button});
}

}  // namespace UX
