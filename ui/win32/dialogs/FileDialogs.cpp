// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/FileDialogs.h"

#include <cderr.h>
#include <commdlg.h>

#include <algorithm>
#include <vector>

#include "QorLib/qor_win_str_utils.h"

namespace UX {
namespace {

using qor::win::WideFromUtf8;

constexpr std::size_t PathRoom = 32768;  // the longest path that Windows knows, and its end

struct KindOfFile {
  std::string name;
  std::wstring ending;
};

KindOfFile KindOf(FileKind kind, const qor::Translate& translate) {
  switch (kind) {
    case FileKind::Program: return {translate(TR("XML Program")), L"XML"};
    case FileKind::TMF: return {translate(TR("TMF PLed File")), L"TMF"};
    case FileKind::LMF: return {translate(TR("LMF LEDControl File")), L"LMF"};
    case FileKind::RAW: return {translate(TR("RAW Channel File")), L"RAW"};
    case FileKind::Translation: break;
  }
  return {translate(TR("XML Files")), L"XML"};
}

/// One entry of the list of filters: its name and its pattern, each with a zero behind it.
std::wstring Filter(const std::string& name, const std::wstring& pattern) {
  return WideFromUtf8(name) + L" (" + pattern + L")" + L'\0' + pattern + L'\0';
}

/// What one dialog needs; it must stay where it is while the dialog is open.
class FileDialog {
 public:
  FileDialog(HWND owner, FileKind kind, const qor::Translate& translate) : path_(PathRoom) {
    const KindOfFile file = KindOf(kind, translate);
    filters_ = Filter(file.name, L"*." + file.ending) + Filter(translate(TR("All Files")), L"*.*");
    ending_ = file.ending;
    dialog_.lStructSize = sizeof dialog_;
    dialog_.hwndOwner = owner;
    dialog_.lpstrFilter = filters_.c_str();
    dialog_.lpstrFile = path_.data();
    dialog_.nMaxFile = static_cast<DWORD>(path_.size());
    dialog_.lpstrDefExt = ending_.c_str();
    dialog_.Flags = OFN_EXPLORER | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_ENABLESIZING;
  }
  FileDialog(const FileDialog&) = delete;
  FileDialog& operator=(const FileDialog&) = delete;

  std::optional<std::string> Open() {
    dialog_.Flags |= OFN_FILEMUSTEXIST;
    return Result(GetOpenFileNameW(&dialog_));
  }

  std::optional<std::string> Save(const std::string& name) {
    dialog_.Flags |= OFN_OVERWRITEPROMPT;
    Offer(WideFromUtf8(name));
    BOOL isChosen = GetSaveFileNameW(&dialog_);
    if (!isChosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
      Offer({});  // a name that no file can have keeps the dialog from coming up
      isChosen = GetSaveFileNameW(&dialog_);
    }
    return Result(isChosen);
  }

 private:
  void Offer(std::wstring_view name) {
    name = name.substr(0, path_.size() - 1);
    std::ranges::copy(name, path_.begin());
    path_[name.size()] = L'\0';
  }

  std::optional<std::string> Result(BOOL isChosen) const {
    if (!isChosen) return std::nullopt;
    return qor::win::Utf8FromWide(path_.data());
  }

  std::wstring filters_, ending_;
  std::vector<wchar_t> path_;
  OPENFILENAMEW dialog_{};
};

}  // namespace

std::optional<std::string> AskPathToOpen(HWND owner, FileKind kind, const qor::Translate& translate) {
  return FileDialog(owner, kind, translate).Open();
}

std::optional<std::string> AskPathToSave(HWND owner, FileKind kind, const std::string& name,
                                         const qor::Translate& translate) {
  return FileDialog(owner, kind, translate).Save(name);
}

}  // namespace UX
