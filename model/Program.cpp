// SPDX-License-Identifier: MIT
#include "model/Program.h"

namespace TCBase {

Program::ModeListView::ModeListView(const Program& program, const std::vector<std::size_t>& indices,
                                    std::size_t current)
    : current_(current) {
  modes_.reserve(indices.size());
  for (const std::size_t index : indices) modes_.push_back(program.modes.at(index));
}

}  // namespace TCBase
