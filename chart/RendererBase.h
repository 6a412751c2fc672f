// SPDX-License-Identifier: MIT
#pragma once

#include "chart/ChartScene.h"

namespace UX {

/// Draws finished scenes.
class RendererBase {
 public:
  virtual ~RendererBase() = default;
  virtual void Draw(const ChartScene& scene) = 0;
};

}  // namespace UX
