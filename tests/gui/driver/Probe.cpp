// SPDX-License-Identifier: MIT
#include "tests/gui/driver/Probe.h"

#include <shlobj.h>

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

void WriteMenu(HMENU menu, Answer& answer) {
  for (UINT position = 0; position < static_cast<UINT>(GetMenuItemCount(menu)); ++position) {
    wchar_t text[256] = L"";
    GetMenuStringW(menu, position, text, 256, MF_BYPOSITION);
    const UINT state = GetMenuState(menu, position, MF_BYPOSITION);
    if ((state & MF_GRAYED) != 0) Append(answer, L"G");
    if ((state & MF_CHECKED) != 0) Append(answer, L"C");
    Append(answer, L" ");
    Append(answer, text);
    Append(answer, L"\n");
    if (const HMENU below = GetSubMenu(menu, static_cast<int>(position))) WriteMenu(below, answer);
  }
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
      WriteMenu(GetMenu(window), answer);
      break;
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
