// SPDX-License-Identifier: MIT
#include "ui/win32/Ctrls.h"

#include <algorithm>

#include "QorLib/qor_win_str_utils.h"

#include <commctrl.h>  // after windows.h

namespace UX {
namespace {

// At 96 dpi
constexpr int Margin = 8, PanelGap = 6;
constexpr int LeastColumnWidth = 258, MostColumnWidth = 380;
constexpr int ScrollBarHeight = 17, ZoomBarWidth = 130, ZoomBarHeight = 24;
constexpr int HintHeight = 18, UsualLogHeight = 100;
constexpr int LeastListHeight = 90;
constexpr int LogoWidth = 256, LogoHeight = 100, LogoRight = 266, LogoBottom = 110;

constexpr COLORREF ActionColour = RGB(0x00, 0x67, 0xC0), PressedColour = RGB(0x00, 0x4C, 0x90);

/// What a request of a scroll bar or a trackbar means; none for the end of a series of them.
std::optional<BarMove> MoveOf(int request) {
  switch (request) {
    case SB_LINELEFT: return BarMove::LineBack;
    case SB_LINERIGHT: return BarMove::LineOn;
    case SB_PAGELEFT: return BarMove::PageBack;
    case SB_PAGERIGHT: return BarMove::PageOn;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION: return BarMove::Track;
    case SB_LEFT: return BarMove::First;
    case SB_RIGHT: return BarMove::Last;
    default: return std::nullopt;
  }
}

}  // namespace

Ctrls::Ctrls(HINSTANCE instance, HWND window, Workbench& workbench, RendererChoice choice)
    : context_{instance, window, workbench, fonts_},
      chart_(instance, window, workbench, choice),
      scrollBar_(MakeControl(window, L"SCROLLBAR", SBS_HORZ, ScrollBarId)),
      zoomLabel_(MakeLabel(context_)),
      zoomBar_(MakeControl(window, TRACKBAR_CLASSW, WS_TABSTOP | TBS_NOTICKS, ZoomBarId)),
      demo_(context_),
      devices_(context_),
      modes_(context_),
      power_(context_),
      log_(context_),
      chartRows_(window) {
  Cell scrollBar = Plain(scrollBar_, ScrollBarHeight);
  scrollBar.top = 0;
  Cell zoomLabel{.control = zoomLabel_, .gap = 12, .top = 2};
  Cell zoomBar{
      .control = zoomBar_, .kind = Cell::Kind::Plain, .width = ZoomBarWidth, .height = ZoomBarHeight};
  chartRows_.Add({Tall(chart_.Window())});
  chartRows_.Add({scrollBar, zoomLabel, zoomBar}, RowGap);
  SendMessageW(zoomBar_, TBM_SETRANGE, FALSE, MAKELPARAM(0, ViewSpan::MaxZoomPosition));
  SendMessageW(zoomBar_, TBM_SETPAGESIZE, 0, 1);
  MakeFonts();
}

Ctrls::~Ctrls() {
  chart_.ReleaseRenderer();
}

// Fonts

void Ctrls::MakeFonts() {
  fonts_ = Fonts(context_.window);
  SetFonts();
}

void Ctrls::SetFonts() {
  const auto set = [](HWND control, LPARAM font) -> BOOL {
    SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(font), FALSE);
    return TRUE;
  };
  EnumChildWindows(context_.window, set, reinterpret_cast<LPARAM>(fonts_.Of(Face::Usual)));
  set(demo_.Time(), reinterpret_cast<LPARAM>(fonts_.Of(Face::Clock)));
  set(log_.Window(), reinterpret_cast<LPARAM>(fonts_.Of(Face::Fixed)));
}

void Ctrls::ScalingChanged() {
  // The former fonts must live until no control has them any more.
  const Fonts former = std::move(fonts_);
  MakeFonts();
  LayOut();
  RedrawWindow(context_.window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  chart_.Resized();
}

void Ctrls::SettingsChanged(UINT message) {
  chart_.SettingsChanged();
  if (message != WM_SYSCOLORCHANGE) return;
  for (HWND child = GetWindow(context_.window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    SendMessageW(child, WM_SYSCOLORCHANGE, 0, 0);
    InvalidateRect(child, nullptr, TRUE);
  }
}

// Texts

void Ctrls::Translate() {
  const auto translate = context_.workbench.services.texts.Translator();
  ShowText(zoomLabel_, translate(TR("Zoom")));
  demo_.Translate();
  devices_.Translate();
  modes_.Translate();
  power_.Translate();
  if (tips_ != nullptr) AddTips();
}

void Ctrls::AddTips() {
  if (tips_ == nullptr) {
    tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                            0, 0, 0, 0, context_.window, nullptr, context_.instance, nullptr);
  }
  const auto translate = context_.workbench.services.texts.Translator();
  pauseTip_ = demo_.PauseTip();
  ShowTip(demo_.PauseButton(), translate(pauseTip_));
  ShowTip(devices_.ScanButton(), translate(TR("Scan WiFi devices")));
  ShowTip(modes_.UpButton(), translate(TR("Move up")));
  ShowTip(modes_.DownButton(), translate(TR("Move down")));
}

void Ctrls::ShowTip(HWND control, const std::string& text) {
  std::wstring wide = qor::win::WideFromUtf8(text);
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = context_.window;
  tool.uId = reinterpret_cast<UINT_PTR>(control);
  tool.lpszText = wide.data();
  SendMessageW(tips_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

// What the workbench holds

void Ctrls::Refresh() {
  RefreshBars();
  RefreshButtons();
  devices_.Refresh();
  modes_.Refresh();
  RefreshDemo();
}

void Ctrls::RefreshDemo() {
  demo_.Refresh();
  power_.Refresh();
  if (tips_ != nullptr && pauseTip_ != demo_.PauseTip()) AddTips();
}

void Ctrls::ShowHint(const std::string& hint) {
  if (demo_.ShowHint(hint)) LayOutLog();
}

void Ctrls::RefreshBars() {
  const ViewSpan& span = context_.workbench.span;
  SCROLLINFO scroll{};
  scroll.cbSize = sizeof scroll;
  scroll.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
  scroll.nMax = TCBase::MinutesPerDay;
  scroll.nPage = static_cast<UINT>(span.ScrollPage());
  scroll.nPos = span.ScrollPosition();
  SetScrollInfo(scrollBar_, SB_CTL, &scroll, TRUE);
  if (SendMessageW(zoomBar_, TBM_GETPOS, 0, 0) != span.ZoomPosition()) {
    SendMessageW(zoomBar_, TBM_SETPOS, TRUE, span.ZoomPosition());
  }
}

void Ctrls::RefreshButtons() {
  const MenuConditions conditions = context_.workbench.Conditions();
  const HWND focused = GetFocus();
  for (HWND child = GetWindow(context_.window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    const CommandRow* row = FindCommand(GetDlgCtrlID(child));
    if (row == nullptr) continue;
    const bool isEnabled = IsEnabled(*row, conditions);
    if ((IsWindowEnabled(child) != FALSE) == isEnabled) continue;
    EnableWindow(child, isEnabled);
    if (child == focused && !isEnabled) SetFocus(chart_.Window());  // else keys would go nowhere
  }
}

// Messages

bool Ctrls::OnCommand(HWND control, int id, int notification) {
  if (control == nullptr) return false;
  if (id == DescriptionId) modes_.OnDescription(notification);
  if (notification == BN_CLICKED && !devices_.IsTooSoon(id)) context_.workbench.Run(id);
  return true;
}

LRESULT Ctrls::OnNotify(NMHDR* header) {
  if (header->hwndFrom == devices_.List().Window()) return devices_.List().OnNotify(header);
  if (header->hwndFrom == modes_.List().Window()) return modes_.List().OnNotify(header);
  return 0;
}

void Ctrls::OnScroll(HWND bar, int request, int position) {
  const auto move = MoveOf(request);
  if (!move) return;
  ViewSpan& span = context_.workbench.span;
  if (bar == zoomBar_) {
    span.Zoom(*move, position);
  } else {
    // The message has 16 bits for the position, which is enough for minutes of a day.
    span.Scroll(*move, position);
  }
  context_.workbench.view.Refresh();
  RefreshBars();
}

/// The button for the upload stands out, except where the user wants the system's colours.
void Ctrls::DrawButton(const DRAWITEMSTRUCT& draw) const {
  const bool isDisabled = (draw.itemState & ODS_DISABLED) != 0,
             isPressed = (draw.itemState & ODS_SELECTED) != 0;
  const bool isPlain = HasHighContrast();
  const COLORREF action = isPressed ? PressedColour : ActionColour;
  const COLORREF back = isDisabled ? GetSysColor(COLOR_3DFACE)
                        : isPlain  ? GetSysColor(COLOR_HIGHLIGHT)
                                   : action;
  const COLORREF front = isDisabled ? GetSysColor(COLOR_GRAYTEXT)
                         : isPlain  ? GetSysColor(COLOR_HIGHLIGHTTEXT)
                                    : RGB(255, 255, 255);
  const HBRUSH brush = CreateSolidBrush(back);
  FillRect(draw.hDC, &draw.rcItem, brush);
  DeleteObject(brush);
  if (isDisabled) FrameRect(draw.hDC, &draw.rcItem, GetSysColorBrush(COLOR_3DSHADOW));
  SetBkMode(draw.hDC, TRANSPARENT);
  SetTextColor(draw.hDC, front);
  RECT area = draw.rcItem;
  DrawTextW(draw.hDC, qor::win::WideFromUtf8(TextOf(draw.hwndItem)).c_str(), -1, &area,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  InflateRect(&area, -3, -3);
  if ((draw.itemState & ODS_FOCUS) != 0) DrawFocusRect(draw.hDC, &area);
}

// Places

int Ctrls::ColumnWidth(int clientWidth) const {
  const HWND window = context_.window;
  const int needed = std::max(devices_.LeastWidth(), modes_.LeastWidth());
  const int most = std::min(Scaled(window, MostColumnWidth), clientWidth / 2);
  return std::min(std::max(Scaled(window, LeastColumnWidth), needed), most);
}

void Ctrls::LayOut() {
  const auto scaled = [this](int length) { return Scaled(context_.window, length); };
  RECT client{};
  GetClientRect(context_.window, &client);
  const LONG right = client.right - scaled(Margin), top = scaled(RowGap);
  const LONG columnLeft = right - ColumnWidth(client.right);
  LayOutColumn({columnLeft, top, right, client.bottom});

  logArea_ = {scaled(Margin), 0, columnLeft - scaled(PanelGap), client.bottom - scaled(Margin)};
  logArea_.top = logArea_.bottom - LogHeight(client.bottom);
  LayOutLog();
  const LONG demoTop = logArea_.top - scaled(RowGap) - scaled(ButtonHeight);
  demo_.LayOut({logArea_.left, demoTop, logArea_.right, demoTop + scaled(ButtonHeight)});
  chartRows_.Place(fonts_, {logArea_.left, top, logArea_.right, demoTop - scaled(PanelGap)});
}

/// Of hint and log: a seventh of the window, or as many lines as one wants to see where that leaves room for
/// the chart.
int Ctrls::LogHeight(int clientHeight) const {
  const int usual = std::min(Scaled(context_.window, UsualLogHeight), clientHeight / 6);
  return std::max(usual, clientHeight / 7) + Scaled(context_.window, HintHeight + 2);
}

/// A hint of several rows takes them from the log: the chart stays where it is.
void Ctrls::LayOutLog() {
  const RECT& area = logArea_;
  const int needed = demo_.HintHeight(area.right - area.left);
  const LONG most = (area.bottom - area.top) / 2;
  const LONG hintEnd = area.top + std::min<LONG>(std::max(Scaled(context_.window, HintHeight), needed), most);
  demo_.LayOutHint({area.left, area.top, area.right, hintEnd});
  const LONG top = hintEnd + Scaled(context_.window, 2);
  log_.LayOut({area.left, top, area.right, top + log_.HeightFor(area.bottom - top)});
}

/// Lists share what height the other things leave. On a screen that has too little, the logo goes.
void Ctrls::LayOutColumn(const RECT& column) {
  const auto scaled = [this](int length) { return Scaled(context_.window, length); };
  const LONG left = column.left, right = column.right, description = modes_.DescriptionHeight();
  const LONG needed = 2 * scaled(LeastListHeight) + description + power_.Height() + scaled(4 * Margin);
  hasLogo_ = column.bottom - column.top >= needed + scaled(LogoBottom);
  const LONG powerTop =
      column.bottom - (hasLogo_ ? scaled(LogoBottom) : 0) - scaled(PanelGap) - power_.Height();
  const LONG descriptionTop = powerTop - scaled(PanelGap) - description;
  const LONG each = (descriptionTop - scaled(PanelGap) - column.top - scaled(Margin)) / 2;
  const LONG modesTop = column.top + each + scaled(Margin);
  devices_.LayOut({left, column.top, right, column.top + each});
  modes_.LayOutList({left, modesTop, right, modesTop + each});
  modes_.LayOutDescription({left, descriptionTop, right, descriptionTop + description});
  power_.LayOut({left, powerTop, right, powerTop + power_.Height()});
}

std::optional<RECT> Ctrls::LogoArea() const {
  if (!hasLogo_) return std::nullopt;
  const HWND window = context_.window;
  RECT client{};
  GetClientRect(window, &client);
  const int left = client.right - Scaled(window, LogoRight), top = client.bottom - Scaled(window, LogoBottom);
  return RECT{left, top, left + Scaled(window, LogoWidth), top + Scaled(window, LogoHeight)};
}

}  // namespace UX
