// SPDX-License-Identifier: MIT
#include "ui/PanelEdits.h"

#include "model/Power.h"

namespace UX {

void TypeDescription(Workbench& workbench, const std::string& description) {
  if (workbench.document.Mode().description == description) return;
  workbench.editor.GoOnWith(EditRun::Description, workbench.Milliseconds());
  workbench.document.Mode().description = description;
  workbench.view.Refresh();
}

void PowerEdit::Set(std::size_t channel, int percent) {
  if (workbench_.IsDemoRunning()) return;
  const TCBase::Channel& now = workbench_.document.Mode().channels[channel];
  if (last_ && last_->channel != channel) Finish();
  if (!last_ || last_->channel != channel || last_->after != now) last_ = {channel, now, now};
  TCBase::Channel scaled = last_->before;
  TCBase::SetPower(scaled, percent);
  for (std::size_t i = 0; i < scaled.steps.size(); ++i) scaled.steps[i].id = now.steps[i].id;
  if (scaled == now) return;
  workbench_.editor.GoOnWith(EditRun::Power);
  workbench_.document.Mode().channels[channel] = scaled;
  last_->after = std::move(scaled);
  workbench_.view.RedrawLane(channel);
  workbench_.view.Refresh();
}

void PowerEdit::Finish() {
  workbench_.editor.FinishRun();
}

}  // namespace UX
