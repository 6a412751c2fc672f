// SPDX-License-Identifier: MIT
#include "tests/gui/driver/Controls.h"

#include <algorithm>
#include <cstdlib>

#include "QorLib/qor_win_str_utils.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Input.h"

#include <commctrl.h>  // after windows.h

namespace gui {
namespace {

constexpr UINT PatienceMilliseconds = 20000;

LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR result = 0;
  Expect(
      SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, PatienceMilliseconds, &result) != 0,
      "the window does not answer");
  return static_cast<LRESULT>(result);
}

/// A value in the memory of the process that owns a window, for messages that carry a pointer.
template <typename Value>
class Remote {
 public:
  explicit Remote(HWND window) {
    DWORD id = 0;
    GetWindowThreadProcessId(window, &id);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, id);
    place_ = VirtualAllocEx(process_, nullptr, sizeof(Value), MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    Expect(place_ != nullptr, "no memory in the program");
  }
  ~Remote() {
    VirtualFreeEx(process_, place_, 0, MEM_RELEASE);
    CloseHandle(process_);
  }
  Remote(const Remote&) = delete;
  Remote& operator=(const Remote&) = delete;

  std::byte* Place() const { return static_cast<std::byte*>(place_); }
  void Put(const Value& value) const { WriteProcessMemory(process_, place_, &value, sizeof value, nullptr); }
  Value Get() const {
    Value value{};
    ReadProcessMemory(process_, place_, &value, sizeof value, nullptr);
    return value;
  }

 private:
  HANDLE process_;
  void* place_;
};

struct Cell {
  LVITEMW item;
  wchar_t text[256];
};

std::string CellText(HWND list, const Remote<Cell>& remote, int row, int column) {
  Cell cell{};
  cell.item.iSubItem = column;
  cell.item.cchTextMax = static_cast<int>(std::size(cell.text));
  cell.item.pszText = reinterpret_cast<wchar_t*>(remote.Place() + offsetof(Cell, text));
  remote.Put(cell);
  Send(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(remote.Place()));
  return qor::win::Utf8FromWide(remote.Get().text);
}

RECT RowArea(HWND list, int row) {
  const Remote<RECT> remote(list);
  remote.Put({LVIR_BOUNDS, 0, 0, 0});
  Send(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(remote.Place()));
  return remote.Get();
}

void ClickInRow(HWND list, int row, int x) {
  Send(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
  const RECT area = RowArea(list, row);
  Click(OnScreen(list, area.left + x, (area.top + area.bottom) / 2));
}

}  // namespace

std::string TextOf(HWND control) {
  const auto length = static_cast<std::size_t>(Send(control, WM_GETTEXTLENGTH, 0, 0));
  std::wstring text(length + 1, L'\0');
  text.resize(static_cast<std::size_t>(
      Send(control, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  std::string utf8 = qor::win::Utf8FromWide(text);
  std::erase(utf8, '\r');
  return utf8;
}

void SetText(HWND control, const std::string& text) {
  const std::wstring wide = qor::win::WideFromUtf8(text);
  Send(control, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(wide.c_str()));
}

std::vector<ListRow> RowsOf(HWND list) {
  const Remote<Cell> remote(list);
  std::vector<ListRow> rows(static_cast<std::size_t>(Send(list, LVM_GETITEMCOUNT, 0, 0)));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto state =
        static_cast<UINT>(Send(list, LVM_GETITEMSTATE, i, LVIS_STATEIMAGEMASK | LVIS_SELECTED));
    const int row = static_cast<int>(i);
    rows[i] = {(state & LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2), (state & LVIS_SELECTED) != 0,
               CellText(list, remote, row, 0), CellText(list, remote, row, 1)};
  }
  return rows;
}

void ClickCheckBox(HWND list, int row) {
  constexpr int MiddleOfBox = 9;
  ClickInRow(list, row, MiddleOfBox);
}

void ClickRow(HWND list, int row) {
  constexpr int InTheName = 40;
  ClickInRow(list, row, InTheName);
}

Picture PictureOf(HWND window) {
  RECT area{};
  GetClientRect(window, &area);
  const int width = area.right, height = area.bottom;
  const POINT corner = OnScreen(window, 0, 0);
  Picture picture(static_cast<std::size_t>(width) * static_cast<std::size_t>(height));
  BITMAPINFO info{};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HDC screen = GetDC(nullptr), memory = CreateCompatibleDC(screen);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, width, height);
  const HGDIOBJ former = SelectObject(memory, bitmap);
  BitBlt(memory, 0, 0, width, height, screen, corner.x, corner.y, SRCCOPY);
  SelectObject(memory, former);
  GetDIBits(memory, bitmap, 0, static_cast<UINT>(height), picture.data(), &info, DIB_RGB_COLORS);
  DeleteObject(bitmap);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return picture;
}

double MeanDifference(const Picture& a, const Picture& b) {
  if (a.size() != b.size()) return 1;
  double sum = 0;
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (const int shift : {0, 8, 16}) {
      sum += std::abs(static_cast<int>(a[i] >> shift & 0xFF) - static_cast<int>(b[i] >> shift & 0xFF));
    }
  }
  return sum / (static_cast<double>(a.size()) * 3 * 255);
}

}  // namespace gui
