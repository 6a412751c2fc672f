// SPDX-License-Identifier: MIT
#include "ui/Content.h"

#include <algorithm>

namespace UX {

void Content::InsertMode(std::size_t at, TCBase::Mode mode) {
  const auto offset = static_cast<std::ptrdiff_t>(at);
  program.modes.insert(program.modes.begin() + offset, std::move(mode));
  isUploaded.insert(isUploaded.begin() + offset, true);
  currentMode = at;
}

void Content::RemoveMode() {
  const auto offset = static_cast<std::ptrdiff_t>(currentMode);
  program.modes.erase(program.modes.begin() + offset);
  isUploaded.erase(isUploaded.begin() + offset);
  currentMode = std::min(currentMode, program.modes.size() - 1);
}

void Content::MoveMode(std::size_t to) {
  const auto move = [from = currentMode, to](auto begin) {
    const auto at = [begin](std::size_t index) { return begin + static_cast<std::ptrdiff_t>(index); };
    if (from < to) {
      std::rotate(at(from), at(from + 1), at(to + 1));
    } else {
      std::rotate(at(to), at(from), at(from + 1));
    }
  };
  move(program.modes.begin());
  move(isUploaded.begin());
  currentMode = to;
}

}  // namespace UX
