// SPDX-License-Identifier: MIT
#pragma once

#include "chart/ChartScene.h"

namespace UX {

/// Draws finished scenes.
class RendererBase {
 public:
  virtual ~RendererBase() = default;
  virtual void Draw(const ChartScene& scene) = 0;
  /// Draws anew the area of one lane; all else of the scene is as it was drawn last.
  virtual void DrawLane(const ChartScene& scene, [[maybe_unused]] std::size_t channel) { Draw(scene); }
};

}  // namespace UX
