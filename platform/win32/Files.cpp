// SPDX-License-Identifier: MIT
#include "platform/Files.h"

#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include "QorLib/qor_win_str_utils.h"

namespace platform {
namespace {

SystemError LastError() {
  return ErrorOf(GetLastError());
}

/// An open file; closed at the end of its life.
class Handle {
 public:
  explicit Handle(HANDLE handle) : handle_(handle) {}
  ~Handle() { Close(); }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, INVALID_HANDLE_VALUE)) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return handle_; }
  void Close() {
    if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
    handle_ = INVALID_HANDLE_VALUE;
  }

 private:
  HANDLE handle_;
};

constexpr std::size_t LargestTransfer = std::size_t{1} << 30;

bool WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto part = static_cast<DWORD>(std::min(bytes.size(), LargestTransfer));
    DWORD written = 0;
    if (!WriteFile(file, bytes.data(), part, &written, nullptr)) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

bool IsRegular(const std::wstring& path) {
  const Handle file(CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  return !file || GetFileType(file.Get()) == FILE_TYPE_DISK;
}

SystemError WriteInPlace(const std::wstring& path, std::string_view bytes) {
  const Handle file(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file || !WriteAll(file.Get(), bytes)) return LastError();
  return {};
}

/// A new file in the folder, whose path ends with a separator. (The system's own function for this takes no
/// long paths.)
Handle CreateTemporary(const std::wstring& folder, std::wstring& path) {
  constexpr int MostAttempts = 1000;
  for (int attempt = 0; attempt < MostAttempts; ++attempt) {
    path =
        folder + L"hvx" + std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(attempt) + L".tmp";
    Handle file(
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file || GetLastError() != ERROR_FILE_EXISTS) return file;
  }
  return Handle(INVALID_HANDLE_VALUE);
}

std::wstring FolderOf(const std::wstring& path) {
  const std::size_t separator = path.find_last_of(L"\\/:");
  return separator == std::wstring::npos ? L".\\" : path.substr(0, separator + 1);
}

}  // namespace

SystemError ReadWholeFile(const std::string& path, std::size_t limit, std::string& bytes) {
  bytes.clear();
  const Handle file(CreateFileW(qor::win::WideFromUtf8(path).c_str(), GENERIC_READ,
                                FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
  if (!file) return LastError();

  const std::size_t most = limit + 1;
  LARGE_INTEGER size{};
  GetFileSizeEx(file.Get(), &size);
  std::size_t length = 0;
  bytes.resize(std::clamp<std::size_t>(static_cast<std::size_t>(size.QuadPart) + 1, 4096, most));
  while (true) {
    if (length == bytes.size()) {
      if (length == most) break;
      bytes.resize(std::min(2 * length, most));
    }
    const auto part = static_cast<DWORD>(std::min(bytes.size() - length, LargestTransfer));
    DWORD got = 0;
    if (!::ReadFile(file.Get(), bytes.data() + length, part, &got, nullptr)) {
      if (GetLastError() == ERROR_BROKEN_PIPE) break;
      SystemError failed = LastError();
      bytes.clear();
      return failed;
    }
    if (got == 0) break;
    length += got;
  }
  bytes.resize(length);
  return {};
}

SystemError ReplaceWholeFile(const std::string& path, std::string_view bytes) {
  const std::wstring target = qor::win::WideFromUtf8(path);
  if (!IsRegular(target)) return WriteInPlace(target, bytes);

  std::wstring temporary;
  Handle file = CreateTemporary(FolderOf(target), temporary);
  if (!file) return LastError();
  bool isDone = WriteAll(file.Get(), bytes) && FlushFileBuffers(file.Get());
  SystemError failed = isDone ? SystemError{} : LastError();
  file.Close();
  if (isDone &&
      !MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
    failed = LastError();
    isDone = false;
  }
  if (!isDone) DeleteFileW(temporary.c_str());
  return failed;
}

bool IsSameFile(const std::string& path, const std::string& other) {
  std::error_code failed;
  return std::filesystem::equivalent(qor::win::WideFromUtf8(path), qor::win::WideFromUtf8(other), failed) &&
         !failed;
}

}  // namespace platform
