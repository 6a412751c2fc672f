// SPDX-License-Identifier: MIT
#include "ui/win32/panels/PowerPanel.h"

#include <windowsx.h>

#include <algorithm>
#include <cmath>

#include "QorLib/qor_win_str_utils.h"
#include "model/Power.h"
#include "ui/win32/WindowProcedure.h"

namespace UX {
namespace {

constexpr const wchar_t* ClassName = L"HalvexPowerWnd";
constexpr int RowHeight = 22;  // at 96 dpi

COLORREF ColourOf(std::uint32_t argb) {
  return RGB(argb >> 16 & 0xFF, argb >> 8 & 0xFF, argb & 0xFF);
}

void FillArea(HDC context, const RECT& area, COLORREF colour) {
  const HBRUSH brush = CreateSolidBrush(colour);
  FillRect(context, &area, brush);
  DeleteObject(brush);
}

void DrawLine(HDC context, const std::string& text, RECT area, UINT format) {
  const std::wstring wide = qor::win::WideFromUtf8(text);
  DrawTextW(context, wide.c_str(), -1, &area,
            DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | format);
}

}  // namespace

PowerPanel::PowerPanel(const PanelContext& context)
    : context_(context),
      heading_(MakeLabel(context)),
      window_(nullptr),
      layout_(context.window),
      edit_(context.workbench) {
  Register(context.instance);
  window_ = CreateWindowExW(0, ClassName, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0, context.window,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(PowerId)), context.instance, this);
  layout_.Add({Heading(heading_)});
  layout_.Add({Plain(window_, static_cast<int>(TCBase::ChannelCount) * RowHeight)}, Gap::None);
}

void PowerPanel::Register(HINSTANCE instance) {
  WNDCLASSW description{};
  description.style = CS_DBLCLKS;
  description.lpfnWndProc = WindowProcedure<PowerPanel>;
  description.hInstance = instance;
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.lpszClassName = ClassName;
  RegisterClassW(&description);  // fails when it is there already
}

void PowerPanel::Translate() {
  ShowText(heading_, context_.workbench.services.texts.Translator()(TR("Channel power")));
}

void PowerPanel::Refresh() {
  const Workbench& workbench = context_.workbench;
  const Document& document = workbench.document;
  const TCBase::ModeSample sent = workbench.services.worker.Control().LastChannels();
  auto rows = rows_;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const TCBase::Program::ChannelInfo& info = document.Program().channelInfos[i];
    const int power = TCBase::WholePercent(TCBase::PowerOf(document.Mode().channels[i]));
    rows[i] = {info.name, ColourOf(info.colour), workbench.IsDemoRunning() ? sent.values[i] : power,
               workbench.editor.SelectedChannel() == i};
  }
  if (rows == rows_) return;
  rows_ = rows;
  InvalidateRect(window_, nullptr, FALSE);
}

int PowerPanel::Height() const {
  return layout_.Height(context_.fonts, 0);
}

void PowerPanel::LayOut(const RECT& area) const {
  layout_.Place(context_.fonts, area);
}

RECT PowerPanel::RowArea(std::size_t channel) const {
  RECT client{};
  GetClientRect(window_, &client);
  const int top = static_cast<int>(channel) * Scaled(window_, RowHeight);
  return {0, top, client.right, top + Scaled(window_, RowHeight)};
}

RECT PowerPanel::SwatchArea(std::size_t channel) const {
  const RECT row = RowArea(channel);
  const int margin = Scaled(window_, 2);
  return {row.left, row.top + margin, row.left + Scaled(window_, 14), row.bottom - margin};
}

RECT PowerPanel::BarArea(std::size_t channel) const {
  const RECT row = RowArea(channel);
  const int right = row.right - Scaled(window_, 42);
  return {right - (row.right - row.left) * 3 / 8, row.top + Scaled(window_, 2), right,
          row.bottom - Scaled(window_, 2)};
}

void PowerPanel::Paint() {
  PAINTSTRUCT paint{};
  const HDC screen = BeginPaint(window_, &paint);
  RECT client{};
  GetClientRect(window_, &client);
  const HDC context = CreateCompatibleDC(screen);
  const HBITMAP bitmap =
      CreateCompatibleBitmap(screen, std::max<LONG>(1, client.right), std::max<LONG>(1, client.bottom));
  const HGDIOBJ formerBitmap = SelectObject(context, bitmap);
  const HGDIOBJ formerFont = SelectObject(context, context_.fonts.Of(Face::Usual));
  FillRect(context, &client, GetSysColorBrush(COLOR_3DFACE));
  SetBkMode(context, TRANSPARENT);
  for (std::size_t channel = 0; channel < rows_.size(); ++channel) PaintRow(context, channel);
  const bool hasSelection = std::ranges::any_of(rows_, &Row::isSelected);
  if (!hasSelection && GetFocus() == window_) DrawFocusRect(context, &client);
  BitBlt(screen, 0, 0, client.right, client.bottom, context, 0, 0, SRCCOPY);
  SelectObject(context, formerFont);
  SelectObject(context, formerBitmap);
  DeleteObject(bitmap);
  DeleteDC(context);
  EndPaint(window_, &paint);
}

void PowerPanel::PaintRow(HDC context, std::size_t channel) const {
  const Row& row = rows_[channel];
  const RECT area = RowArea(channel), swatch = SwatchArea(channel), bar = BarArea(channel);
  FillArea(context, swatch, row.colour);
  FrameRect(context, &swatch, GetSysColorBrush(COLOR_3DSHADOW));
  SetTextColor(context, GetSysColor(COLOR_BTNTEXT));
  DrawLine(context, row.name,
           {swatch.right + Scaled(window_, 4), area.top, bar.left - Scaled(window_, 4), area.bottom},
           DT_LEFT);
  FillRect(context, &bar, GetSysColorBrush(COLOR_3DLIGHT));
  RECT filled = bar;
  filled.right = bar.left + (bar.right - bar.left) * std::clamp(row.percent, 0, 100) / 100;
  FillArea(context, filled, row.colour);
  const RECT end = {filled.right - 1, bar.top, filled.right, bar.bottom};
  FillRect(context, &end, GetSysColorBrush(COLOR_BTNTEXT));
  FrameRect(context, &bar, GetSysColorBrush(COLOR_3DSHADOW));
  DrawLine(context, std::to_string(row.percent) + " %",
           {bar.right, area.top, area.right - Scaled(window_, 4), area.bottom}, DT_RIGHT);
  if (row.isSelected && GetFocus() == window_) DrawFocusRect(context, &area);
}

void PowerPanel::OnButtonDown(POINT at) {
  SetFocus(window_);
  Workbench& workbench = context_.workbench;
  for (std::size_t channel = 0; channel < rows_.size(); ++channel) {
    const RECT row = RowArea(channel), swatch = SwatchArea(channel), bar = BarArea(channel);
    if (!PtInRect(&row, at)) continue;
    if (!workbench.IsDemoRunning()) workbench.editor.SelectChannel(channel);
    if (PtInRect(&swatch, at)) workbench.Run(command::ChangeColour);
    if (!PtInRect(&bar, at)) return;
    dragged_ = static_cast<int>(channel);
    SetCapture(window_);
    OnDrag(at);
  }
}

/// On a name; elsewhere it is two clicks.
void PowerPanel::OnDoubleClick(POINT at) {
  for (std::size_t channel = 0; channel < rows_.size(); ++channel) {
    const RECT row = RowArea(channel), swatch = SwatchArea(channel), bar = BarArea(channel);
    if (!PtInRect(&row, at)) continue;
    if (PtInRect(&swatch, at) || PtInRect(&bar, at)) return OnButtonDown(at);
    context_.workbench.Run(command::RenameChannel);
  }
}

void PowerPanel::OnDrag(POINT at) {
  if (dragged_ < 0) return;
  const auto channel = static_cast<std::size_t>(dragged_);
  const RECT bar = BarArea(channel);
  const auto width = static_cast<float>(std::max<LONG>(1, bar.right - bar.left));
  edit_.Set(channel, static_cast<int>(std::lround(static_cast<float>(at.x - bar.left) * 100 / width)));
}

bool PowerPanel::OnKey(WPARAM key) {
  Workbench& workbench = context_.workbench;
  const auto selected = workbench.editor.SelectedChannel();
  const int channel = selected ? static_cast<int>(*selected) : -1;
  constexpr int Last = static_cast<int>(TCBase::ChannelCount) - 1;
  if (key == VK_UP || key == VK_DOWN) {
    const int next = std::clamp(channel + (key == VK_UP ? -1 : 1), 0, Last);
    workbench.editor.SelectChannel(static_cast<std::size_t>(next));
    return true;
  }
  if ((key != VK_LEFT && key != VK_RIGHT) || !selected) return false;
  const int power = TCBase::WholePercent(TCBase::PowerOf(workbench.document.Mode().channels[*selected]));
  edit_.Set(*selected, power + (key == VK_LEFT ? -1 : 1));
  return true;
}

LRESULT PowerPanel::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const POINT at = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  switch (message) {
    case WM_PAINT: Paint(); return 0;
    case WM_ERASEBKGND: return 1;
    case WM_LBUTTONDOWN: OnButtonDown(at); return 0;
    case WM_LBUTTONDBLCLK: OnDoubleClick(at); return 0;
    case WM_MOUSEMOVE: OnDrag(at); return 0;
    case WM_LBUTTONUP: ReleaseCapture(); return 0;
    case WM_CAPTURECHANGED:
      dragged_ = -1;
      edit_.Finish();
      return 0;
    case WM_KEYDOWN:
      if (OnKey(wParam)) return 0;
      break;
    case WM_GETDLGCODE: return DLGC_WANTARROWS;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      if (message == WM_KILLFOCUS) edit_.Finish();
      InvalidateRect(window_, nullptr, FALSE);
      return 0;
    default: break;
  }
  return DefWindowProcW(window_, message, wParam, lParam);
}

void PowerPanel::OnFailure(const std::exception& failed) {
  context_.workbench.services.log.ForeignMessage(failed.what());
}

}  // namespace UX
