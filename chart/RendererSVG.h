// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "chart/RendererBase.h"

namespace UX {

/// Draws a scene as a picture in SVG 1.1, in UTF-8.
class RendererSVG : public RendererBase {
 public:
  void Draw(const ChartScene& scene) override;
  /// The last scene's picture, as a whole file.
  const std::string& Picture() const { return picture_; }

 private:
  std::string picture_;
};

}  // namespace UX
