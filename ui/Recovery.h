// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "ui/Workbench.h"

namespace UX {

/// A copy of the program beside the settings while it has changes that nobody has saved. It is gone when the
/// program ends as it should; what is there at a start is what a crash left behind.
class Recovery {
 public:
  /// `folder` is that of the settings.
  Recovery(const std::string& folder, Workbench& workbench);

  /// Asks about what a crash left behind; it is opened, or removed when the user declines.
  void Offer();
  /// To be called every few seconds: writes the copy when the program has changed, or removes it. Whether all
  /// changes are safe.
  bool Keep();
  /// Removes the copy: the user has decided about the changes.
  void Remove();

 private:
  std::string path_;
  Workbench& workbench_;
  std::optional<TCBase::Program> kept_;
};

}  // namespace UX
