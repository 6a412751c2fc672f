// SPDX-License-Identifier: MIT
#include "ui/win32/MainWindow.h"

#include <shellapi.h>

#include <algorithm>
#include <charconv>
#include <sstream>

#include "QorLib/qor_win_str_utils.h"
#include "platform/Files.h"
#include "ui/Commands.h"
#include "ui/win32/MainMenu.h"
#include "ui/win32/ResourceIds.h"
#include "ui/win32/WindowProcedure.h"

namespace UX {
namespace {

constexpr UINT_PTR TimerId = 300, StartTimerId = 301, RendererTimerId = 302;
constexpr UINT TimerMilliseconds = 100, StartMilliseconds = 500, RendererMilliseconds = 1000;
constexpr int InitialWidth = 1024, InitialHeight = 768, LeastWidth = 800, LeastHeight = 700;
constexpr double IdleSeconds = 1.0;
constexpr int TicksPerRecovery = 30;  // three seconds
constexpr std::string_view SettingBounds = "window_place";

std::wstring ResourceText(HINSTANCE instance, UINT id) {
  wchar_t text[64] = L"";
  LoadStringW(instance, id, text, static_cast<int>(std::size(text)));
  return text;
}

/// Whether this is the only window of the program with these settings: the copy for a recovery belongs to the
/// first one.
bool IsFirst(const std::string& settingsFolder) {
  const std::wstring name = L"HalvexWindow" + std::to_wstring(std::hash<std::string>()(settingsFolder));
  CreateMutexW(nullptr, FALSE, name.c_str());  // until the process ends
  return GetLastError() != ERROR_ALREADY_EXISTS;
}

}  // namespace

MainWindow::MainWindow(HINSTANCE instance, const Services& services, platform::Network& network,
                       const std::string& settingsFolder)
    : instance_(instance),
      services_(services),
      logFile_(platform::PathIn(settingsFolder, TCBase::LogFileName), services.log),
      dialogs_(services, network),
      workbench_(services, dialogs_, *this),
      recovery_(settingsFolder, workbench_),
      mayRecover_(IsFirst(settingsFolder)) {
  dialogs_.SetDevices(workbench_.devices);
}

MainWindow::~MainWindow() {
  // After a failure the window may still be there; no message may find its way here any more.
  if (!IsWindow(window_)) return;
  SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
  SetWindowLongPtrW(ctrls_ ? ctrls_->Chart().Window() : nullptr, GWLP_USERDATA, 0);
  DestroyWindow(window_);
}

// Start and end

bool MainWindow::Create(RendererChoice choice) {
  WNDCLASSW description{};
  const std::wstring className = ResourceText(instance_, IDC_HALVEX);
  description.style = CS_HREDRAW | CS_VREDRAW;
  description.lpfnWndProc = WindowProcedure<MainWindow>;
  description.hInstance = instance_;
  description.hIcon = LoadIconW(instance_, MAKEINTRESOURCEW(IDI_HALVEX));
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  description.lpszMenuName = MAKEINTRESOURCEW(IDC_HALVEX);
  description.lpszClassName = className.c_str();
  RegisterClassW(&description);
  ChartWindow::Register(instance_);
  window_ = CreateWindowExW(0, className.c_str(), ResourceText(instance_, IDS_APP_TITLE).c_str(),
                            WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT, InitialWidth,
                            InitialHeight, nullptr, nullptr, instance_, this);
  if (window_ == nullptr) return false;
  SendMessageW(window_, WM_SETICON, ICON_SMALL,
               reinterpret_cast<LPARAM>(LoadIconW(instance_, MAKEINTRESOURCEW(IDI_SMALL))));
  logWindow_ = window_;
  workbench_.window = window_;
  dialogs_.SetOwner(window_);
  ctrls_ = std::make_unique<Ctrls>(instance_, window_, workbench_, choice);
  ctrls_->Chart().onMenu = [this](POINT at) { ShowContextMenu(at); };
  ctrls_->Translate();
  DragAcceptFiles(window_, TRUE);
  SetTimer(window_, StartTimerId, StartMilliseconds, nullptr);
  ctrls_->Chart().InitRenderer();
  logo_.Load(instance_);
  return true;
}

void MainWindow::Show(int command) {
  RebuildMenu();
  const int how = RestoreBounds(command);
  LayOut();  // quicker while the window is hidden
  RefreshNow();
  ShowWindow(window_, how);
  UpdateWindow(window_);
  ctrls_->AddTips();
  SetTimer(window_, RendererTimerId, RendererMilliseconds, nullptr);
  SetFocus(ctrls_->Chart().Window());
}

void MainWindow::OpenFirst(const std::string& path) {
  if (path.empty()) {
    workbench_.OpenLast();
  } else {
    OpenFile(workbench_, path);
  }
  if (mayRecover_) recovery_.Offer();
}

void MainWindow::StartTimer() {
  SetTimer(window_, TimerId, TimerMilliseconds, nullptr);
}

void MainWindow::ReleaseRenderer() {
  ctrls_->Chart().ReleaseRenderer();
  logo_.Release();
}

void MainWindow::Close() {
  KeepBounds();
  recovery_.Remove();
  DestroyWindow(window_);
}

void MainWindow::OnDestroy() {
  KillTimer(window_, TimerId);
  logWindow_ = nullptr;
  PostQuitMessage(0);
}

/// Places the controls, unless they are where the window's size wants them.
void MainWindow::LayOut() {
  RECT client{};
  GetClientRect(window_, &client);
  if (!ctrls_ || (client.right == laidOut_.cx && client.bottom == laidOut_.cy)) return;
  laidOut_ = {client.right, client.bottom};
  ctrls_->LayOut();
}

/// The system ends the program soon after this, wherever it is.
void MainWindow::OnSessionEnd() {
  KeepBounds();
  constexpr double MostSeconds = 2;
  const std::int64_t start = services_.clock.Counter();
  while (workbench_.IsDemoRunning() && services_.worker.IsBusy() && SecondsSince(start) < MostSeconds) {
    workbench_.StopJob();
    services_.clock.Sleep(20);
  }
}

// The window's bounds, as "left top width height" and 1 when it fills the screen

/// Gives the hidden window its bounds; how it is to be shown, for ShowWindow.
int MainWindow::RestoreBounds(int command) {
  std::istringstream text(services_.settings.Get(SettingBounds));
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  placement.showCmd = SW_HIDE;
  RECT& bounds = placement.rcNormalPosition;
  int width = 0, height = 0, isMaximised = 0;
  text >> bounds.left >> bounds.top >> width >> height >> isMaximised;
  const POINT least = LeastSize();
  bounds.right = bounds.left + std::max<LONG>(width, least.x);
  bounds.bottom = bounds.top + std::max<LONG>(height, least.y);
  if (text && width > 0 && height > 0 && MonitorFromRect(&bounds, MONITOR_DEFAULTTONULL) != nullptr) {
    SetWindowPlacement(window_, &placement);
    const bool isUsual = command == SW_SHOWNORMAL || command == SW_SHOWDEFAULT;
    return isUsual && isMaximised != 0 ? SW_SHOWMAXIMIZED : command;
  }
  if (ScaleOf(window_) > 1) {
    const POINT usual = FittingSize(InitialWidth, InitialHeight);
    SetWindowPos(window_, nullptr, 0, 0, usual.x, usual.y, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOMOVE);
  }
  return command;
}

void MainWindow::KeepBounds() {
  workbench_.KeepShownMode();
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  if (!GetWindowPlacement(window_, &placement)) return;
  const RECT& bounds = placement.rcNormalPosition;
  const bool isMaximised = placement.showCmd == SW_SHOWMAXIMIZED;
  services_.settings.Set(
      SettingBounds, qor::Format("{1} {2} {3} {4} {5}", {bounds.left, bounds.top, bounds.right - bounds.left,
                                                         bounds.bottom - bounds.top, isMaximised ? 1 : 0}));
}

// View

void MainWindow::CaptureMouse(bool on) {
  if (on) {
    SetCapture(ctrls_->Chart().Window());
  } else if (GetCapture() == ctrls_->Chart().Window()) {
    ReleaseCapture();
  }
}

void MainWindow::Retranslate() {
  RebuildMenu();
  ctrls_->Translate();
  ctrls_->LayOut();
  // Controls that are drawn here, or moved by a few pixels, would keep what stood there before.
  RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  isStale_ = true;
}

void MainWindow::RefreshNow() {
  isStale_ = false;
  const std::string title = workbench_.document.Title(services_.texts.Translator());
  if (title != shownTitle_) {
    shownTitle_ = title;
    SetText(window_, title);
  }
  RefreshHint();
  ctrls_->Refresh();
  RedrawChart();
}

void MainWindow::RefreshHint() {
  std::string text;
  for (const qor::Sentence& sentence : workbench_.editor.Hint()) {
    text += (text.empty() ? "" : " ") + workbench_.Text(sentence);
  }
  ctrls_->ShowHint(text.empty() ? "" : workbench_.Text({TR("Hint: {1}"), {text}}));
}

void MainWindow::RedrawChart() {
  ctrls_->Chart().Redraw();
}

void MainWindow::RebuildMenu() {
  const HMENU former = GetMenu(window_);
  SetMenu(window_, BuildMenuBar(workbench_));
  DestroyMenu(former);
}

void MainWindow::ShowContextMenu(POINT at) {
  const HMENU menu = BuildMenu(workbench_, Menu::Channel);
  const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, window_, nullptr);
  DestroyMenu(menu);
  if (chosen != 0) workbench_.Run(chosen);
}

// The log

void MainWindow::PostLog() {
  const HWND window = logWindow_;
  if (window == nullptr || isLogPosted_.exchange(true)) return;
  if (!PostMessageW(window, FlushLogMessage, 0, 0)) isLogPosted_ = false;
}

void MainWindow::Flush() {
  isLogPosted_ = false;
  const std::string lines = qor::TextOf(services_.log.TakeLines());
  if (lines.empty()) return;
  logFile_.Write(lines);
  ctrls_->Log().Append(lines);
}

// The loop

double MainWindow::SecondsSince(std::int64_t counter) const {
  return static_cast<double>(services_.clock.Counter() - counter) /
         static_cast<double>(services_.clock.Frequency());
}

void MainWindow::OnIdle() {
  try {
    DrawNext();
  } catch (const std::exception& failed) {
    OnFailure(failed);
  }
}

void MainWindow::DrawNext() {
  ctrls_->Chart().Advance(static_cast<float>(std::min(SecondsSince(lastFrame_), 0.1)));
  lastFrame_ = services_.clock.Counter();
  ShowNow();
}

/// All that shows a demo shows the same moment of it.
void MainWindow::ShowNow() {
  workbench_.LookAtDemo();
  if (isStale_) RefreshNow();
  if (workbench_.IsDemoRunning()) {
    RedrawChart();
    ctrls_->RefreshDemo();
  }
  ctrls_->Chart().DrawFrame();
}

bool MainWindow::IsQuiet() const {
  return !isStale_ && ctrls_->Chart().IsQuiet() && !workbench_.IsDemoRunning() &&
         SecondsSince(idleSince_) >= IdleSeconds;
}

void MainWindow::OnTimer(WPARAM id) {
  if (id == StartTimerId) {
    KillTimer(window_, StartTimerId);
    PostMessageW(window_, StartedMessage, 0, 0);
  }
  if (id == RendererTimerId) {
    KillTimer(window_, RendererTimerId);
    ctrls_->Chart().UseBestRenderer();
  }
  if (id != TimerId) return;
  const bool wasDemo = workbench_.IsDemoRunning();
  if (workbench_.Tick()) isStale_ = true;
  if (!IsWindow(window_)) return;  // it waited for a job to end
  if (wasDemo != workbench_.IsDemoRunning()) OnStarted();
  ShowNow();  // while a menu or a dialog has the loop
  if (mayRecover_ && ++ticks_ % TicksPerRecovery == 0) recovery_.Keep();
}

/// Controls and menus as they are when no demo runs, or one has begun.
void MainWindow::OnStarted() {
  UpdateMenuBar(GetMenu(window_), workbench_);
  DrawMenuBar(window_);
  isStale_ = true;
}

POINT MainWindow::LeastSize() const {
  return FittingSize(LeastWidth, LeastHeight);
}

/// That size, given for 96 dpi, or that of the screen where it has less room.
POINT MainWindow::FittingSize(int width, int height) const {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoW(MonitorFromWindow(window_, MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& room = monitor.rcWork;
  return {std::min<LONG>(Scaled(window_, width), room.right - room.left),
          std::min<LONG>(Scaled(window_, height), room.bottom - room.top)};
}

// Messages

void MainWindow::OnCommand(WPARAM wParam, LPARAM lParam) {
  const bool wasDemo = workbench_.IsDemoRunning();
  if (!ctrls_->OnCommand(reinterpret_cast<HWND>(lParam), LOWORD(wParam), HIWORD(wParam))) {
    workbench_.Run(LOWORD(wParam));
  }
  if (IsWindow(window_) && wasDemo != workbench_.IsDemoRunning()) OnStarted();
}

void MainWindow::OnDrop(WPARAM drop) {
  const auto files = reinterpret_cast<HDROP>(drop);
  std::wstring path(DragQueryFileW(files, 0, nullptr, 0), L'\0');
  DragQueryFileW(files, 0, path.data(), static_cast<UINT>(path.size() + 1));
  DragFinish(files);
  if (!path.empty()) OpenFile(workbench_, qor::win::Utf8FromWide(path));
}

/// Keys belong to the controls: to the one that had them before a dialog or another program came.
void MainWindow::OnFocus() {
  const bool isThere = IsChild(window_, focused_) && IsWindowEnabled(focused_);
  SetFocus(isThere ? focused_ : ctrls_->Chart().Window());
}

void MainWindow::Paint() {
  PAINTSTRUCT paint{};
  const HDC context = BeginPaint(window_, &paint);
  FillRect(context, &paint.rcPaint, GetSysColorBrush(COLOR_3DFACE));
  if (const auto area = ctrls_ ? ctrls_->LogoArea() : std::nullopt) logo_.Draw(context, *area);
  EndPaint(window_, &paint);
}

std::optional<LRESULT> MainWindow::OnPlacement(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_GETMINMAXINFO: reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = LeastSize(); return 0;
    case WM_SIZE:
      idleSince_ = services_.clock.Counter();
      if (wParam != SIZE_MINIMIZED) LayOut();
      return 0;
    case WM_EXITSIZEMOVE:
      idleSince_ = services_.clock.Counter();
      ctrls_->Chart().Resized();
      return 0;
    case WM_DPICHANGED: {
      const RECT& bounds = *reinterpret_cast<const RECT*>(lParam);
      SetWindowPos(window_, nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
                   bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE);
      ctrls_->ScalingChanged();
      return 0;
    }
    case WM_ERASEBKGND: return 1;
    case WM_PAINT: Paint(); return 0;
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      if (ctrls_) ctrls_->SettingsChanged(message);
      logo_.Load(instance_);
      InvalidateRect(window_, nullptr, TRUE);
      return std::nullopt;
    default: return std::nullopt;
  }
}

std::optional<LRESULT> MainWindow::OnInput(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND: OnCommand(wParam, lParam); return 0;
    case WM_NOTIFY: return ctrls_->OnNotify(reinterpret_cast<NMHDR*>(lParam));
    case WM_HSCROLL:
      ctrls_->OnScroll(reinterpret_cast<HWND>(lParam), LOWORD(wParam), static_cast<short>(HIWORD(wParam)));
      return 0;
    case WM_DRAWITEM: ctrls_->DrawButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)); return TRUE;
    case WM_INITMENUPOPUP: UpdateMenuBar(GetMenu(window_), workbench_); return 0;
    case WM_DROPFILES: OnDrop(wParam); return 0;
    case WM_ACTIVATE:
      if (LOWORD(wParam) == WA_INACTIVE) focused_ = GetFocus();
      return std::nullopt;
    case WM_SETFOCUS: OnFocus(); return 0;
    case WM_NEXTDLGCTL:  // what the edit control for several lines makes of Tab
      SetFocus(GetNextDlgTabItem(window_, GetFocus(), wParam != 0));
      return 0;
    case WM_CONTEXTMENU:
      if (reinterpret_cast<HWND>(wParam) != ctrls_->Log().Window()) return std::nullopt;
      ctrls_->Log().ShowMenu({static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
      return 0;
    default: return std::nullopt;
  }
}

LRESULT MainWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (const auto result = OnPlacement(message, wParam, lParam)) return *result;
  if (!ctrls_) return DefWindowProcW(window_, message, wParam, lParam);
  if (const auto result = OnInput(message, wParam, lParam)) return *result;
  switch (message) {
    case FlushLogMessage: Flush(); return 0;
    case DevicesMessage:
    case NotifyMessage: workbench_.DevicesChanged(); return 0;
    case StartedMessage: OnStarted(); return 0;
    case WM_TIMER: OnTimer(wParam); return 0;
    case WM_CLOSE:
      if (IsWindowEnabled(window_)) workbench_.Run(command::Exit);  // else a dialog is being answered
      return 0;
    case WM_QUERYENDSESSION:
      if (!workbench_.document.IsModified() || (mayRecover_ && recovery_.Keep())) return TRUE;
      if (!workbench_.MayDropProgram()) return FALSE;
      recovery_.Remove();  // the user has decided
      return TRUE;
    case WM_ENDSESSION:
      if (wParam != 0) OnSessionEnd();
      return 0;
    case WM_DESTROY: OnDestroy(); return 0;
    default: return DefWindowProcW(window_, message, wParam, lParam);
  }
}

void MainWindow::OnFailure(const std::exception& failed) {
  services_.log.ForeignMessage(failed.what());
}

}  // namespace UX
