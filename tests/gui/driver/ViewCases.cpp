// SPDX-License-Identifier: MIT
// What moves the visible part of the day.
#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Controls.h"
#include "tests/gui/driver/Input.h"
#include "ui/win32/panels/Panel.h"

#include <commctrl.h>  // after windows.h

namespace gui {
namespace {

/// The view as both bars show it: "from the minute 120, 720 minutes, zoom 12".
std::string ViewOf(const App& app) {
  const BarState scroll = ScrollOf(app.Control(UX::ScrollBarId));
  const auto zoom = SendMessageW(app.Control(UX::ZoomBarId), TBM_GETPOS, 0, 0);
  return std::to_string(scroll.position) + " +" + std::to_string(scroll.page) + " of " +
         std::to_string(scroll.most) + ", zoom " + std::to_string(zoom);
}

void ExpectView(const App& app, const std::string& expected) {
  app.Settle();
  HoldsWithin(1000, [&] { return ViewOf(app) == expected; });
  ExpectEqual("the view", ViewOf(app), expected);
}

void Repeat(int times, void (*what)(WORD), WORD key) {
  for (int i = 0; i < times; ++i) what(key);
}

void Press(WORD key) {
  Key(key);
}

void FollowsKeys() {
  App app("keys");
  struct Step {
    WORD key;
    int times;
    const char* view;
  };
  constexpr Step Steps[] = {
      {VK_ADD, 3, "0 +1260 of 1440, zoom 3"},         {VK_ADD, 22, "0 +120 of 1440, zoom 22"},
      {VK_NEXT, 2, "30 +120 of 1440, zoom 22"},       {VK_PRIOR, 1, "15 +120 of 1440, zoom 22"},
      {VK_END, 1, "1320 +120 of 1440, zoom 22"},      {VK_NEXT, 1, "1320 +120 of 1440, zoom 22"},
      {VK_SUBTRACT, 1, "1260 +180 of 1440, zoom 21"}, {VK_HOME, 1, "0 +180 of 1440, zoom 21"},
      {VK_PRIOR, 1, "0 +180 of 1440, zoom 21"},       {VK_MULTIPLY, 1, "0 +1440 of 1440, zoom 0"},
      {VK_SUBTRACT, 1, "0 +1440 of 1440, zoom 0"},
  };
  for (const Step& step : Steps) {
    Repeat(step.times, Press, step.key);
    ExpectView(app, step.view);
  }
  app.Close();
}

/// Clicks on an arrow of the scroll bar.
void ClickArrow(HWND bar, bool isRight, int times) {
  constexpr int Middle = 8;  // from the bar's end
  RECT area{};
  GetClientRect(bar, &area);
  const POINT place = OnScreen(bar, isRight ? area.right - Middle : Middle, area.bottom / 2);
  for (int i = 0; i < times; ++i) Click(place);
}

/// Drags the zoom bar's thumb from one end to the other, and beyond.
void DragZoom(HWND bar, bool isRight) {
  RECT area{};
  GetClientRect(bar, &area);
  const POINT left = OnScreen(bar, 13, area.bottom / 2);
  const POINT right = OnScreen(bar, area.right - 13, area.bottom / 2);
  const POINT target = isRight ? POINT{right.x + 80, right.y} : POINT{left.x - 80, left.y};
  Drag(isRight ? left : right, target);
}

void StopsAtTheEndsOfTheDay() {
  App app("bars");
  const HWND zoom = app.Control(UX::ZoomBarId), scroll = app.Control(UX::ScrollBarId);
  DragZoom(zoom, true);
  ExpectView(app, "0 +120 of 1440, zoom 22");
  ClickArrow(scroll, true, 2);
  ExpectView(app, "30 +120 of 1440, zoom 22");
  ClickArrow(scroll, false, 3);
  ExpectView(app, "0 +120 of 1440, zoom 22");
  Click(OnScreen(scroll, 200, 8));  // beside the thumb: a page
  ExpectView(app, "120 +120 of 1440, zoom 22");
  Key(VK_END);
  ClickArrow(scroll, true, 1);
  ExpectView(app, "1320 +120 of 1440, zoom 22");
  DragZoom(zoom, false);
  ExpectView(app, "0 +1440 of 1440, zoom 0");
  app.Close();
}

constexpr Case Cases[] = {
    {"view.keys", FollowsKeys},
    {"view.bars", StopsAtTheEndsOfTheDay},
};

}  // namespace

std::span<const Case> ViewCases() {
  return Cases;
}

}  // namespace gui
