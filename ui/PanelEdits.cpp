// SPDX-License-Identifier: MIT
#include "ui/PanelEdits.h"

#include <algorithm>

namespace UX {

void TypeDescription(Workbench& workbench, const std::string& description) {
  if (workbench.document.Mode().description == description) return;
  workbench.history.TakePending(workbench.document.Content());
  workbench.editor.KeepRun(workbench.Milliseconds());
  workbench.document.Mode().description = description;
  workbench.view.Refresh();
}

float PowerOf(const TCBase::Channel& channel) {
  const auto most = std::ranges::max_element(channel.steps, {}, &TCBase::Step::value);
  return most != channel.steps.end() ? most->value : 0;
}

void PowerEdit::Set(std::size_t channel, float percent) {
  if (workbench_.IsDemoRunning()) return;
  TCBase::Channel& edited = workbench_.document.Mode().channels[channel];
  if (!run_ || run_->channel != channel || !workbench_.history.HasPending()) {
    workbench_.editor.FinishRun();
    run_ = {channel, edited};
  }
  const float power = PowerOf(run_->before);
  if (power <= 0) return;
  workbench_.history.TakePending(workbench_.document.Content());
  workbench_.editor.HoldRun();
  edited = run_->before;
  edited.Normalize(power / std::clamp(percent, 1.0F, 100.0F));
  workbench_.view.RedrawLane(channel);
  workbench_.view.Refresh();
}

void PowerEdit::Finish() {
  run_.reset();
  workbench_.editor.FinishRun();
}

}  // namespace UX
