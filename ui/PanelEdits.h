// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "ui/Workbench.h"

/// What the panels beside the chart edit.
namespace UX {

void SetUploaded(Workbench& workbench, std::size_t mode, bool isUploaded);

/// While the user types.
void TypeDescription(Workbench& workbench, const std::string& description);

/// Scales channels' curves so that they have another power. A channel that nobody has edited since starts
/// from the curve that it had before the first change, so that going down and up again brings that back.
class PowerEdit {
 public:
  explicit PowerEdit(Workbench& workbench) : workbench_(workbench) {}
  /// From 1 to 100 percent. A dark channel stays dark.
  void Set(std::size_t channel, int percent);
  /// The run's end: what comes then is an edit of its own.
  void Finish();

 private:
  struct Change {
    std::size_t channel;
    TCBase::Channel before, after;
  };

  Workbench& workbench_;
  std::optional<Change> last_;
};

}  // namespace UX
