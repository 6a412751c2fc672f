// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <vector>

#include "model/Program.h"

namespace UX {

/// What the user edits, and what undo puts back as a whole. There is always a mode.
struct Content {
  TCBase::Program program;
  std::size_t currentMode = 0;   // the mode that is shown
  std::vector<bool> isUploaded;  // of each mode, whether an upload sends it

  /// Whether a user could tell them apart.
  bool operator==(const Content&) const = default;

  TCBase::Mode& Mode() { return program.modes[currentMode]; }
  const TCBase::Mode& Mode() const { return program.modes[currentMode]; }

  /// Puts the mode there, shows it and marks it for upload.
  void InsertMode(std::size_t at, TCBase::Mode mode);
  /// Removes the current mode, which must not be the only one.
  void RemoveMode();
  /// Moves the current mode to that position of the list, which must be there.
  void MoveMode(std::size_t to);
};

}  // namespace UX
