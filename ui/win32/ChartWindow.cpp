// SPDX-License-Identifier: MIT
#include "ui/win32/ChartWindow.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "ui/win32/WindowProcedure.h"
#include "ui/win32/controls/Metrics.h"
#include "ui/win32/panels/Panel.h"

namespace UX {
namespace {

constexpr const wchar_t* ClassName = L"HalvexRenderWnd";
constexpr int LinesPerNotch = 3;
constexpr double SlowFrameSeconds = 0.03;

bool IsDown(int key) {
  return (GetKeyState(key) & 0x8000) != 0;
}

Colour SystemColour(int index) {
  const COLORREF colour = GetSysColor(index);
  return 0xFF000000U | static_cast<Colour>(GetRValue(colour)) << 16 |
         static_cast<Colour>(GetGValue(colour)) << 8 | GetBValue(colour);
}

/// The usual colours, or the system's where the user wants high contrast.
ChartPalette CurrentPalette() {
  if (!HasHighContrast()) return {};
  const Colour back = SystemColour(COLOR_WINDOW), text = SystemColour(COLOR_WINDOWTEXT);
  ChartPalette palette;
  palette.background = palette.lane = palette.selectedLane = back;
  palette.grid = SystemColour(COLOR_GRAYTEXT);
  palette.scale = palette.focus = text;
  palette.selection = SystemColour(COLOR_HIGHLIGHT);
  palette.onSelection = SystemColour(COLOR_HIGHLIGHTTEXT);
  palette.demo = SystemColour(COLOR_HOTLIGHT);
  palette.curve = text;
  return palette;
}

bool MayAnimate() {
  BOOL isOn = TRUE;
  SystemParametersInfoW(SPI_GETCLIENTAREAANIMATION, 0, &isOn, 0);
  return isOn != FALSE;
}

/// Wine draws Direct2D by way of OpenGL: that is slower there than GDI+, and takes far more memory.
bool IsWine() {
  const HMODULE system = GetModuleHandleW(L"ntdll.dll");
  return system != nullptr && GetProcAddress(system, "wine_get_version") != nullptr;
}

struct KeyMeaning {
  WPARAM key;
  bool isControl;
  ChartKey meaning;
};
constexpr KeyMeaning KeyMeanings[] = {
    {VK_LEFT, false, ChartKey::Earlier},      {VK_RIGHT, false, ChartKey::Later},
    {VK_UP, false, ChartKey::Brighter},       {VK_DOWN, false, ChartKey::Darker},
    {VK_LEFT, true, ChartKey::PreviousStep},  {VK_RIGHT, true, ChartKey::NextStep},
    {VK_UP, true, ChartKey::PreviousChannel}, {VK_DOWN, true, ChartKey::NextChannel},
    {VK_INSERT, false, ChartKey::Insert},     {VK_DELETE, false, ChartKey::Delete},
    {VK_BACK, false, ChartKey::Delete},       {VK_F1, false, ChartKey::ToggleJump},
    {VK_SPACE, false, ChartKey::PauseDemo},   {VK_ESCAPE, false, ChartKey::Cancel},
};

}  // namespace

void ChartWindow::Register(HINSTANCE instance) {
  WNDCLASSW description{};
  description.style = CS_HREDRAW | CS_VREDRAW | CS_DBLCLKS;
  description.lpfnWndProc = WindowProcedure<ChartWindow>;
  description.hInstance = instance;
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.lpszClassName = ClassName;
  RegisterClassW(&description);
}

ChartWindow::ChartWindow(HINSTANCE instance, HWND parent, Workbench& workbench, RendererChoice choice)
    : workbench_(workbench), choice_(choice), palette_(CurrentPalette()), mayAnimate_(MayAnimate()) {
  window_ = CreateWindowExW(0, ClassName, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(ChartId)), instance, this);
}

void ChartWindow::InitRenderer() {
  if (choice_ == RendererChoice::DX) renderer_ = MakeRendererDX(window_);
  if (!renderer_) renderer_ = MakeRendererGDI(window_);
  Resized();
}

double ChartWindow::SecondsForFrame(WindowRenderer& renderer) const {
  platform::Clock& clock = workbench_.services.clock;
  const std::int64_t start = clock.Counter();
  renderer.Draw(MakeScene());
  return static_cast<double>(clock.Counter() - start) / static_cast<double>(clock.Frequency());
}

void ChartWindow::UseBestRenderer() {
  if (choice_ != RendererChoice::Best || IsWine()) return;
  auto direct = MakeRendererDX(window_);
  if (!direct) return;
  RECT client{};
  GetClientRect(window_, &client);
  direct->Resize(client.right, client.bottom, ScaleOf(window_));
  SecondsForFrame(*direct);  // the first one fills its caches
  if (SecondsForFrame(*direct) <= SlowFrameSeconds && !direct->IsLost()) renderer_ = std::move(direct);
  isStale_ = true;
}

/// After a loss for good: GDI+ draws wherever there is a screen.
void ChartWindow::UseNextRenderer() {
  renderer_.reset();
  renderer_ = MakeRendererGDI(window_);
  Resized();
}

void ChartWindow::Resized() {
  RECT client{};
  GetClientRect(window_, &client);
  if (renderer_) renderer_->Resize(client.right, client.bottom, ScaleOf(window_));
  workbench_.editor.SetGeometry(Geometry());
  isStale_ = true;
}

void ChartWindow::SettingsChanged() {
  palette_ = CurrentPalette();
  mayAnimate_ = MayAnimate();
  isStale_ = true;
}

ChartGeometry ChartWindow::Geometry() const {
  RECT client{};
  GetClientRect(window_, &client);
  const float scale = ScaleOf(window_);
  return {static_cast<float>(client.right) / scale, static_cast<float>(client.bottom) / scale,
          workbench_.span};
}

Point ChartWindow::PointAt(LPARAM position) const {
  const float scale = ScaleOf(window_);
  return {static_cast<float>(GET_X_LPARAM(position)) / scale,
          static_cast<float>(GET_Y_LPARAM(position)) / scale};
}

// Drawing

ChartScene ChartWindow::MakeScene() const {
  const auto translate = workbench_.services.texts.Translator();
  ChartContent content{workbench_.document.Program()};
  content.mode = workbench_.document.CurrentMode();
  content.selectedChannel = workbench_.editor.SelectedChannel();
  content.selectedStep = workbench_.editor.SelectedStep();
  content.hoveredStep = hovered_;
  content.hover = hover_.Value();
  content.selection = selection_.Value();
  content.hasFocus = GetFocus() == window_;
  content.palette = palette_;
  content.fade = translate(TR("fade"));
  content.jump = translate(TR("jump"));
  content.demoSecond = workbench_.DemoSecond();
  return MakeChartScene(content, Geometry());
}

void ChartWindow::Draw() {
  isStale_ = false;
  if (!renderer_) return;
  renderer_->Draw(MakeScene());
  if (renderer_->IsLost()) {
    UseNextRenderer();
    renderer_->Draw(MakeScene());
  }
}

void ChartWindow::DrawFrame() {
  if (shownSpan_ != workbench_.span) {
    shownSpan_ = workbench_.span;
    workbench_.editor.SetGeometry(Geometry());
    isStale_ = true;
  }
  if (isStale_) Draw();
}

/// Begins an animation where the editor touches or selects something else.
void ChartWindow::FollowEditor() {
  if (hovered_ != workbench_.editor.HoveredStep()) {
    hovered_ = workbench_.editor.HoveredStep();
    hover_.JumpTo(mayAnimate_ ? 0.0F : 1.0F);
    hover_.GlideTo(1);
  }
  if (selected_ != workbench_.editor.SelectedChannel()) {
    selected_ = workbench_.editor.SelectedChannel();
    selection_.JumpTo(mayAnimate_ ? 0.0F : 1.0F);
    selection_.GlideTo(1);
  }
}

bool ChartWindow::IsQuiet() const {
  return !isStale_ && !IsAnimating() && shownSpan_ == workbench_.span &&
         hovered_ == workbench_.editor.HoveredStep() && selected_ == workbench_.editor.SelectedChannel();
}

void ChartWindow::Advance(float seconds) {
  FollowEditor();
  if (IsAnimating()) isStale_ = true;
  hover_.Advance(seconds);
  selection_.Advance(seconds);
}

// Input

void ChartWindow::OnMouse(UINT message, LPARAM position) {
  const Point point = PointAt(position);
  switch (message) {
    case WM_LBUTTONDOWN:
      SetFocus(window_);
      workbench_.editor.ButtonDown(point);
      return;
    case WM_LBUTTONDBLCLK: workbench_.DoubleClick(point); return;
    case WM_LBUTTONUP: workbench_.editor.ButtonUp(); return;
    case WM_RBUTTONDOWN:
      SetFocus(window_);
      workbench_.editor.SelectAt(point);
      return;
    default: break;
  }
  TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, window_, 0};
  TrackMouseEvent(&leaving);
  workbench_.editor.MouseMove(point);
}

void ChartWindow::OnWheel(int delta, WPARAM keys, LPARAM screenPosition) {
  wheel_ += delta;
  const int notches = wheel_ / WHEEL_DELTA;
  wheel_ -= notches * WHEEL_DELTA;
  if (notches == 0) return;
  if ((keys & MK_CONTROL) != 0) {
    POINT at = {GET_X_LPARAM(screenPosition), GET_Y_LPARAM(screenPosition)};
    ScreenToClient(window_, &at);
    const double second = Geometry().SecondAt(static_cast<float>(at.x) / ScaleOf(window_));
    workbench_.span.ZoomAround(std::clamp(static_cast<int>(second), 0, TCBase::SecondsPerDay), -notches);
  } else {
    workbench_.span.MoveBy(-notches * LinesPerNotch * ViewSpan::MinutesPerLine * 60);
  }
  workbench_.view.Refresh();
}

/// By the mouse, or (no place) by the keyboard: then beside what is selected.
void ChartWindow::OnMenu(LPARAM screenPosition) {
  POINT at = {GET_X_LPARAM(screenPosition), GET_Y_LPARAM(screenPosition)};
  if (screenPosition == -1) {
    const auto step = workbench_.editor.SelectedStep();
    const std::size_t channel = workbench_.editor.SelectedChannel().value_or(0);
    const ChartGeometry geometry = Geometry();
    const Rectangle lane = geometry.Lane(channel);
    Point point{lane.left, lane.top};
    if (step)
      point = geometry.PointOf(channel, workbench_.document.Mode().channels[channel].steps[step->step]);
    at = {static_cast<LONG>(point.x * ScaleOf(window_)), static_cast<LONG>(point.y * ScaleOf(window_))};
    ClientToScreen(window_, &at);
  }
  if (onMenu) onMenu(at);
}

bool ChartWindow::OnKey(WPARAM key) {
  for (const CommandKey& own : CommandKeys()) {
    const bool isPressed = own.key == key && own.isControl == IsDown(VK_CONTROL);
    if (own.isInChart && isPressed) return workbench_.Run(own.command);
  }
  for (const KeyMeaning& meaning : KeyMeanings) {
    if (meaning.key != key || meaning.isControl != IsDown(VK_CONTROL)) continue;
    return workbench_.editor.Key(meaning.meaning, workbench_.Milliseconds());
  }
  return false;
}

void ChartWindow::OnFocus(bool hasFocus) {
  if (!hasFocus) workbench_.editor.EndRun();
  isStale_ = true;
}

LRESULT ChartWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_ERASEBKGND: return 1;
    case WM_PAINT:
      ValidateRect(window_, nullptr);
      Draw();
      return 0;
    case WM_SIZE: Resized(); return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_LBUTTONUP:
    case WM_RBUTTONDOWN:
    case WM_MOUSEMOVE: OnMouse(message, lParam); return 0;
    case WM_MOUSELEAVE: workbench_.editor.MouseLeave(); return 0;
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(lParam) != window_) workbench_.editor.ButtonUp();
      return 0;
    case WM_MOUSEWHEEL:
      OnWheel(GET_WHEEL_DELTA_WPARAM(wParam), GET_KEYSTATE_WPARAM(wParam), lParam);
      return 0;
    case WM_MOUSEHWHEEL: OnWheel(-GET_WHEEL_DELTA_WPARAM(wParam), 0, lParam); return 0;
    case WM_CONTEXTMENU: OnMenu(lParam); return 0;
    case WM_KEYDOWN:
      if (OnKey(wParam)) return 0;
      break;
    case WM_GETDLGCODE: {
      const auto* key = reinterpret_cast<const MSG*>(lParam);
      const bool isTab = key != nullptr && key->message == WM_KEYDOWN && key->wParam == VK_TAB;
      return isTab ? 0 : DLGC_WANTALLKEYS;
    }
    case WM_SETFOCUS: OnFocus(true); return 0;
    case WM_KILLFOCUS: OnFocus(false); return 0;
    default: break;
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

void ChartWindow::OnFailure(const std::exception& failed) {
  workbench_.services.log.ForeignMessage(failed.what());
}

}  // namespace UX
