// SPDX-License-Identifier: MIT
#include "tests/gui/driver/Probe.h"

#include <psapi.h>
#include <shlobj.h>
#include <winternl.h>

#include <cstring>
#include <cwchar>

namespace {

using probe::Answer;
using probe::Question;

constexpr std::size_t TextRoom = sizeof(Answer::text) / sizeof(wchar_t);

void Append(Answer& answer, const wchar_t* text) {
  const std::size_t used = wcslen(answer.text), length = wcslen(text);
  if (used + length < TextRoom) wmemcpy(answer.text + used, text, length + 1);
}

const wchar_t* MarksOf(const MENUITEMINFOW& item, wchar_t (&marks)[8]) {
  if ((item.fType & MFT_SEPARATOR) != 0) return L"S";  // greyed as well on some systems
  wchar_t* end = marks;
  if (item.hSubMenu != nullptr) *end++ = L'P';
  if ((item.fState & MFS_GRAYED) != 0) *end++ = L'G';
  if ((item.fState & MFS_CHECKED) != 0) *end++ = L'C';
  if (end == marks) *end++ = L'-';
  *end = L'\0';
  return marks;
}

void WriteMenu(HMENU menu, int depth, Answer& answer) {
  for (UINT position = 0; position < static_cast<UINT>(GetMenuItemCount(menu)); ++position) {
    wchar_t text[256] = L"", marks[8], line[320];
    MENUITEMINFOW item{};
    item.cbSize = sizeof item;
    item.fMask = MIIM_FTYPE | MIIM_ID | MIIM_STATE | MIIM_STRING | MIIM_SUBMENU;
    item.dwTypeData = text;
    item.cch = 256;
    GetMenuItemInfoW(menu, position, TRUE, &item);
    const UINT number = item.hSubMenu != nullptr ? 0 : item.wID;
    swprintf(line, 320, L"%d\t%u\t%ls\t%ls\n", depth, number, MarksOf(item, marks), text);
    Append(answer, line);
    if (item.hSubMenu != nullptr) WriteMenu(item.hSubMenu, depth + 1, answer);
  }
}

/// Wine counts no resources, but keeps the table of GDI handles where Windows has it: in the process
/// environment block, for 65536 handles of 24 bytes, with a type that is 0 while a handle is free.
DWORD TableEntries() {
  struct Entry {
    ULONGLONG object;
    DWORD owner;
    WORD unique;
    BYTE type, flags;
    ULONGLONG user;
  };
  constexpr std::size_t TableInBlock = 0xF8;
  const auto* block = reinterpret_cast<const BYTE*>(NtCurrentTeb()->ProcessEnvironmentBlock);
  const Entry* table = nullptr;
  memcpy(&table, block + TableInBlock, sizeof table);
  DWORD count = 0;
  for (int i = 0; table != nullptr && i < 65536; ++i) count += table[i].type != 0 ? 1 : 0;
  return count;
}

BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
  ++*reinterpret_cast<DWORD*>(count);
  EnumChildWindows(
      window,
      [](HWND, LPARAM children) -> BOOL {
        ++*reinterpret_cast<DWORD*>(children);
        return TRUE;
      },
      count);
  return TRUE;
}

/// Windows and menus. Handles are small numbers here, given out again when they are free.
DWORD WindowsAndMenus() {
  constexpr UINT_PTR First = 0x20, Last = 0x4000;
  DWORD count = 0;
  EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&count));
  for (UINT_PTR handle = First; handle < Last; handle += 2) {
    count += IsMenu(reinterpret_cast<HMENU>(handle)) ? 1 : 0;
  }
  return count;
}

void CountObjects(Answer& answer) {
  const HANDLE process = GetCurrentProcess();
  answer.gdiObjects = GetGuiResources(process, GR_GDIOBJECTS);
  answer.userObjects = GetGuiResources(process, GR_USEROBJECTS);
  if (answer.gdiObjects == 0) answer.gdiObjects = TableEntries();
  if (answer.userObjects == 0) answer.userObjects = WindowsAndMenus();
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(process, &counters, sizeof counters);
  answer.privateBytes = counters.PagefileUsage;
}

/// What Explorer hands over; the program frees it.
void PostDrop(HWND window, const wchar_t* path) {
  const std::size_t bytes = (wcslen(path) + 2) * sizeof(wchar_t);  // the list ends with an empty name
  const HGLOBAL drop = GlobalAlloc(GHND, sizeof(DROPFILES) + bytes);
  auto* files = static_cast<DROPFILES*>(GlobalLock(drop));
  files->pFiles = sizeof(DROPFILES);
  files->fWide = TRUE;
  memcpy(files + 1, path, bytes - sizeof(wchar_t));
  GlobalUnlock(drop);
  PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(drop), 0);
}

void Reply(HWND window, Question question, Answer& answer) {
  switch (question) {
    case Question::Menu:
      answer.text[0] = L'\0';
      WriteMenu(GetMenu(window), 0, answer);
      break;
    case Question::Objects: CountObjects(answer); break;
    case Question::Rest:
      answer.isAtRest = HIWORD(GetQueueStatus(QS_INPUT | QS_POSTMESSAGE | QS_PAINT)) == 0;
      break;
    case Question::Drop: PostDrop(window, answer.text); break;
  }
  answer.isAnswered = true;
}

void OnQuestion(HWND window, Question question) {
  const HANDLE mapping = OpenFileMappingW(FILE_MAP_WRITE, FALSE, probe::MappingName);
  if (mapping == nullptr) return;
  if (void* view = MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, sizeof(Answer))) {
    Reply(window, question, *static_cast<Answer*>(view));
    UnmapViewOfFile(view);
  }
  CloseHandle(mapping);
}

}  // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK ProbeHook(int code, WPARAM wParam, LPARAM lParam) {
  static const UINT message = RegisterWindowMessageW(probe::MessageName);
  const auto* sent = reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && sent->message == message) {
    OnQuestion(sent->hwnd, static_cast<Question>(sent->wParam));
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}
