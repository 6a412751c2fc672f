// SPDX-License-Identifier: MIT
#include "ui/win32/panels/ModePanel.h"

#include "QorLib/qor_win_str_utils.h"
#include "model/ModeSample.h"
#include "ui/Commands.h"
#include "ui/PanelEdits.h"

namespace UX {
namespace {

std::string WithoutCr(std::string text) {
  std::erase(text, '\r');
  return text;
}

}  // namespace

ModePanel::ModePanel(const PanelContext& context)
    : context_(context),
      heading_(MakeLabel(context)),
      list_(context, ModeListId),
      add_(MakeButton(context, command::AddMode)),
      copy_(MakeButton(context, command::CopyMode)),
      rename_(MakeButton(context, command::RenameMode)),
      delete_(MakeButton(context, command::DeleteMode)),
      up_(MakeButton(context, command::MoveModeUp)),
      down_(MakeButton(context, command::MoveModeDown)),
      descriptionHeading_(MakeLabel(context)),
      description_(
          MakeControl(context, L"EDIT",
                      WS_TABSTOP | WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN,
                      DescriptionId)) {
  list_.onCheck = [this](std::size_t row, bool isChecked) {
    SetUploaded(context_.workbench, row, isChecked);
  };
  list_.onSelect = [this](std::size_t row) { context_.workbench.ShowMode(row); };
  list_.onOpen = [this](std::size_t) { context_.workbench.Run(command::RenameMode); };
  list_.onMove = [this](std::size_t from, std::size_t to) {
    if (context_.workbench.IsDemoRunning()) return;
    context_.workbench.ShowMode(from);
    MoveModeTo(context_.workbench, to);
  };
  list_.onKey = [this](WPARAM key) {
    if (key == VK_DELETE) context_.workbench.Run(command::DeleteMode);
    if (key == VK_F2) context_.workbench.Run(command::RenameMode);
  };
  KeepSelection(description_);
  SetText(up_, "\xE2\x96\xB2");
  SetText(down_, "\xE2\x96\xBC");
}

void ModePanel::Translate() {
  const auto translate = context_.workbench.services.texts.Translator();
  ShowText(heading_, translate("Modes"));
  ShowText(add_, translate("Add"));
  ShowText(copy_, translate("Copy"));
  ShowText(rename_, translate("Rename"));
  ShowText(delete_, translate("Delete"));
  ShowText(descriptionHeading_, translate("Mode description"));
}

void ModePanel::Refresh() {
  const Document& document = context_.workbench.document;
  std::vector<CheckRow> rows;
  for (std::size_t mode = 0; mode < document.Program().modes.size(); ++mode) rows.push_back(RowOf(mode));
  list_.Show(std::move(rows), static_cast<int>(document.CurrentMode()));
  const std::string description = qor::win::WithCrLf(document.Mode().description);
  if (qor::win::WithCrLf(TextOf(description_)) != description) {
    isShowing_ = true;
    SetText(description_, description);
    isShowing_ = false;
  }
  SendMessageW(description_, EM_SETREADONLY, context_.workbench.IsDemoRunning(), 0);
}

/// Marked where controllers will not take all of the mode; the tip has it in words.
CheckRow ModePanel::RowOf(std::size_t mode) const {
  const Workbench& workbench = context_.workbench;
  const TCBase::Mode& shown = workbench.document.Program().modes[mode];
  const int steps = TCBase::StepCount(shown);
  CheckRow row{workbench.document.IsUploaded(mode), shown.name, "", "", CheckRow::Tone::Usual};
  row.info = workbench.Text({"{1} steps", {steps}});
  for (const qor::Sentence& remark : workbench.RemarksOn(shown)) {
    row.tip += (row.tip.empty() ? "" : "\n") + workbench.Text(remark);
  }
  if (row.tip.empty()) return row;
  const bool isTooLong = steps > TCBase::MaxModeSteps;
  row.info.insert(0, isTooLong ? "!! " : "! ");
  row.tone = isTooLong ? CheckRow::Tone::Error : CheckRow::Tone::Warning;
  return row;
}

void ModePanel::OnDescription(int notification) {
  if (notification == EN_CHANGE && !isShowing_) {
    TypeDescription(context_.workbench, WithoutCr(TextOf(description_)));
  }
  if (notification == EN_KILLFOCUS) context_.workbench.editor.EndRun();
}

int ModePanel::LeastWidth() const {
  const HFONT font = context_.fonts.text.Get();
  int width = 0;
  for (HWND button : {add_, copy_, rename_, delete_})
    width += ButtonWidth(button, font, 30) + Scaled(button, 3);
  return width + 2 * Scaled(up_, 27);
}

void ModePanel::LayOutList(const Frame& area) {
  const int line = Scaled(heading_, 18), button = Scaled(heading_, 24), gap = Scaled(heading_, 4);
  Place(heading_, {area.left, area.top, area.width, line});
  const int row = area.Bottom() - button;
  list_.Place({area.left, area.top + line, area.width, row - gap - area.top - line});
  const HFONT font = context_.fonts.text.Get();
  const int left =
      PlaceButtons({area.left, row, area.width, button}, {add_, copy_, rename_, delete_}, font, 30);
  const int arrow = Scaled(up_, 24);
  Place(up_, {left, row, arrow, button});
  Place(down_, {left + arrow + Scaled(up_, 3), row, arrow, button});
}

void ModePanel::LayOutDescription(const Frame& area) {
  const int line = Scaled(heading_, 18);
  Place(descriptionHeading_, {area.left, area.top, area.width, line});
  Place(description_, {area.left, area.top + line, area.width, area.height - line});
}

}  // namespace UX
