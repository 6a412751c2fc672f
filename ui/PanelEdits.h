// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "ui/Workbench.h"

/// What the panels beside the chart edit bit by bit: one entry of the history for a whole run.
namespace UX {

/// While the user types; the run ends with ChartEditor::FinishRun.
void TypeDescription(Workbench& workbench, const std::string& description);

/// A channel's power: the most that its curve gives, in percent.
float PowerOf(const TCBase::Channel& channel);

/// Scales channels' curves so that they have another power. A run of changes to one channel starts from the
/// same curve, so that it comes back as it was.
class PowerEdit {
 public:
  explicit PowerEdit(Workbench& workbench) : workbench_(workbench) {}
  /// From 1 to 100 percent. A dark channel stays dark.
  void Set(std::size_t channel, float percent);
  /// The run's end.
  void Finish();

 private:
  struct Run {
    std::size_t channel;
    TCBase::Channel before;
  };

  Workbench& workbench_;
  std::optional<Run> run_;
};

}  // namespace UX
