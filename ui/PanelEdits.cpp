// SPDX-License-Identifier: MIT
#include "ui/PanelEdits.h"

#include "model/Power.h"

namespace UX {

void SetUploaded(Workbench& workbench, std::size_t mode, bool isUploaded) {
  workbench.Edit([=](Content& content) {
    content.isUploaded[mode] = isUploaded;
    return TCBase::EditResult{true, {}};
  });
}

void TypeDescription(Workbench& workbench, const std::string& description) {
  if (workbench.document.Mode().description == description) return;
  workbench.Edit(
      [&description](Content& content) {
        content.Mode().description = description;
        return TCBase::EditResult{true, {}};
      },
      {"description", workbench.Milliseconds()});
}

void PowerEdit::Set(std::size_t channel, int percent) {
  if (workbench_.IsDemoRunning()) return;
  const TCBase::Channel& now = workbench_.document.Mode().channels[channel];
  if (!last_ || last_->channel != channel || last_->after != now) last_ = {channel, now, now};
  TCBase::Channel scaled = last_->before;
  TCBase::SetPower(scaled, percent);
  for (std::size_t i = 0; i < scaled.steps.size(); ++i) scaled.steps[i].id = now.steps[i].id;
  if (scaled == now) return;
  last_->after = scaled;
  workbench_.Edit(
      [&](Content& content) {
        content.Mode().channels[channel] = std::move(scaled);
        return TCBase::EditResult{true, {}};
      },
      {"power:" + std::to_string(channel)});
}

void PowerEdit::Finish() {
  workbench_.editor.EndRun();
}

}  // namespace UX
