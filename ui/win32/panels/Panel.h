// SPDX-License-Identifier: MIT
#pragma once

#include <windows.h>

#include <string_view>

#include "ui/Workbench.h"
#include "ui/win32/Metrics.h"

namespace UX {

/// The window's fonts, at its scaling.
struct WindowFonts {
  Font text, bold, big, log;
};

/// Where the controls of the main window live. All of it outlives the panels.
struct PanelContext {
  HINSTANCE instance;
  HWND window;
  Workbench& workbench;
  const WindowFonts& fonts;
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

/// A rectangle of the main window, as layouts hand it out.
struct Frame {
  int left = 0, top = 0, width = 0, height = 0;
  int Right() const { return left + width; }
  int Bottom() const { return top + height; }
};

/// A child of the main window; with WS_TABSTOP in `style` it can be reached by Tab, in the order of creation.
HWND MakeControl(const PanelContext& context, const wchar_t* windowClass, DWORD style, int id = 0,
                 DWORD extendedStyle = 0);
/// A line of text above a control.
HWND MakeLabel(const PanelContext& context);
/// A button that runs the command of its number.
HWND MakeButton(const PanelContext& context, int command, DWORD style = BS_PUSHBUTTON);
/// Makes Tab into a text of several lines select nothing of it: one key would replace all.
void KeepSelection(HWND text);
void Place(HWND control, const Frame& area);
/// Sets the text only when it is another one: no flicker.
void ShowText(HWND control, std::string_view text);
/// The width that a button needs for its text.
int ButtonWidth(HWND button, HFONT font, int least);
/// Buttons from left to right in a row of that height; returns the right edge.
int PlaceButtons(const Frame& row, std::initializer_list<HWND> buttons, HFONT font, int least);

}  // namespace UX
