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
          MakeControl(context.window, L"EDIT",
                      WS_TABSTOP | WS_BORDER | WS_VSCROLL | ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN,
                      DescriptionId)),
      listRows_(context.window),
      descriptionRows_(context.window) {
  constexpr int LeastWidth = 30;
  Cell up{.control = up_, .kind = Cell::Kind::Plain, .width = 24, .height = ButtonHeight, .gap = SmallGap};
  Cell down = up;
  down.control = down_;
  listRows_.Add({Heading(heading_)});
  listRows_.Add({Tall(list_.Window())}, Gap::None);
  listRows_.Add({SmallButton(add_, LeastWidth), SmallButton(copy_, LeastWidth),
                 SmallButton(rename_, LeastWidth), SmallButton(delete_, LeastWidth), up, down},
                RowGap);
  descriptionRows_.Add({Heading(descriptionHeading_)});
  descriptionRows_.Add({Plain(description_, 56)}, Gap::None);
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
  ShowText(heading_, translate(TR("Modes")));
  ShowText(add_, translate(TR("Add")));
  ShowText(copy_, translate(TR("Copy")));
  ShowText(rename_, translate(TR("Rename")));
  ShowText(delete_, translate(TR("Delete")));
  ShowText(descriptionHeading_, translate(TR("Mode description")));
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
  row.info = workbench.Text({TR("{1} steps"), {steps}});
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
  return listRows_.LeastWidth(context_.fonts) + Scaled(list_.Window(), SmallGap);  // one behind the last, too
}

void ModePanel::LayOutList(const RECT& area) const {
  listRows_.Place(context_.fonts, area);
}

int ModePanel::DescriptionHeight() const {
  return descriptionRows_.Height(context_.fonts, 0);
}

void ModePanel::LayOutDescription(const RECT& area) const {
  descriptionRows_.Place(context_.fonts, area);
}

}  // namespace UX
