// SPDX-License-Identifier: MIT
#include "platform/Computer.h"

#include <winsock2.h>
// after winsock2.h
#include <iphlpapi.h>
#include <windows.h>

#include <bit>
#include <cstddef>
#include <cstring>

#include "QorLib/qor_win_str_utils.h"
#include "platform/SocketAddress.h"

namespace platform {
namespace {

std::vector<NetworkAdapter> Adapters() {
  constexpr ULONG Flags = GAA_FLAG_SKIP_ANYCAST | GAA_FLAG_SKIP_MULTICAST | GAA_FLAG_SKIP_DNS_SERVER;
  std::vector<NetworkAdapter> adapters;
  ULONG bytes = 16 << 10;  // what the system recommends to begin with
  std::vector<std::max_align_t> room;
  ULONG failed = ERROR_BUFFER_OVERFLOW;
  for (int attempt = 0; attempt < 3 && failed == ERROR_BUFFER_OVERFLOW; ++attempt) {
    room.resize(bytes / sizeof(std::max_align_t) + 1);
    failed = GetAdaptersAddresses(AF_INET, Flags, nullptr,
                                  reinterpret_cast<IP_ADAPTER_ADDRESSES*>(room.data()), &bytes);
  }
  if (failed != ERROR_SUCCESS) return adapters;
  for (const auto* adapter = reinterpret_cast<const IP_ADAPTER_ADDRESSES*>(room.data()); adapter != nullptr;
       adapter = adapter->Next) {
    if (adapter->OperStatus != IfOperStatusUp || adapter->IfType == IF_TYPE_SOFTWARE_LOOPBACK) continue;
    for (const auto* entry = adapter->FirstUnicastAddress; entry != nullptr; entry = entry->Next) {
      sockaddr_in own{};
      std::memcpy(&own, entry->Address.lpSockaddr, sizeof own);
      adapters.push_back(
          {qor::win::Utf8FromWide(adapter->FriendlyName), AddressText(std::bit_cast<SocketAddress>(own))});
    }
  }
  return adapters;
}

/// The version as it is: GetVersionEx tells what the program's manifest names.
std::string SystemName() {
  const HMODULE library = GetModuleHandleW(L"ntdll.dll");
  using GetVersion = LONG(WINAPI*)(OSVERSIONINFOW*);
  const auto getVersion = reinterpret_cast<GetVersion>(
      reinterpret_cast<void*>(library != nullptr ? GetProcAddress(library, "RtlGetVersion") : nullptr));
  OSVERSIONINFOW version{};
  version.dwOSVersionInfoSize = sizeof version;
  if (getVersion == nullptr || getVersion(&version) != 0) return "Windows";
  return "Windows " + std::to_string(version.dwMajorVersion) + "." + std::to_string(version.dwMinorVersion) +
         "." + std::to_string(version.dwBuildNumber);
}

}  // namespace

Computer LookAtComputer(const std::string&, const std::vector<std::string>&) {
  return {SystemName(), Adapters(), false, {}, false};
}

bool MayWriteInto(const std::string& folder) {
  const std::wstring path =
      qor::win::WideFromUtf8(folder + "\\halvex-" + std::to_string(GetCurrentProcessId()) + ".tmp");
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  CloseHandle(file);
  return true;
}

}  // namespace platform
