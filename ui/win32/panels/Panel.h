// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string_view>

#include "ui/Workbench.h"
#include "ui/win32/controls/StackLayout.h"

namespace UX {

/// Where the controls of the main window live. All of it outlives the panels.
struct PanelContext {
  HINSTANCE instance;
  HWND window;
  Workbench& workbench;
  const Fonts& fonts;
};

/// Controls without a command have numbers below all commands.
enum ControlId {
  ChartId = 1000,
  ScrollBarId,
  ZoomBarId,
  DeviceListId,
  ModeListId,
  DescriptionId,
  PowerId,
  LogId,
};

/// A text on one line.
HWND MakeLabel(const PanelContext& context);
/// A button that runs the command of its number.
HWND MakeButton(const PanelContext& context, int command, DWORD style = BS_PUSHBUTTON);

// Lengths for 96 dpi
inline constexpr int ButtonHeight = 24, SmallGap = 3, RowGap = 4;
/// A line of text above a control, as wide as its panel.
Cell Heading(HWND label);
/// A control as wide as its panel; a tall one takes what height is left.
Cell Plain(HWND control, int height);
Cell Tall(HWND control);
/// A button close to the one before it.
Cell SmallButton(HWND button, int leastWidth);

/// Makes Tab into a text of several lines select nothing of it: one key would replace all.
void KeepSelection(HWND text);
/// Sets the text only when it is another one: no flicker.
void ShowText(HWND control, std::string_view text);

}  // namespace UX
