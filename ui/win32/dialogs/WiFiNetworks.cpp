// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/WiFiNetworks.h"

#include <windows.h>
#include <wlanapi.h>

namespace UX {
namespace {

/// The functions of wlanapi.dll, which editions of Windows without Wi-Fi lack.
class WlanLibrary {
 public:
  WlanLibrary() : library_(LoadLibraryExW(L"wlanapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32)) {
    Find(open, "WlanOpenHandle");
    Find(close, "WlanCloseHandle");
    Find(enumerate, "WlanEnumInterfaces");
    Find(list, "WlanGetAvailableNetworkList");
    Find(release, "WlanFreeMemory");
  }
  ~WlanLibrary() {
    if (library_ != nullptr) FreeLibrary(library_);
  }
  WlanLibrary(const WlanLibrary&) = delete;
  WlanLibrary& operator=(const WlanLibrary&) = delete;

  bool IsComplete() const { return open && close && enumerate && list && release; }

  decltype(&WlanOpenHandle) open = nullptr;
  decltype(&WlanCloseHandle) close = nullptr;
  decltype(&WlanEnumInterfaces) enumerate = nullptr;
  decltype(&WlanGetAvailableNetworkList) list = nullptr;
  decltype(&WlanFreeMemory) release = nullptr;

 private:
  template <class Function>
  void Find(Function& function, const char* name) {
    if (library_ == nullptr) return;
    function = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(library_, name)));
  }

  HMODULE library_;
};

/// A session with the system's Wi-Fi service.
class WlanSession {
 public:
  explicit WlanSession(const WlanLibrary& library) : library_(library) {
    constexpr DWORD Version = 2;  // of the interface, since Windows Vista
    DWORD negotiated = 0;
    isOpen_ = library.open(Version, nullptr, &negotiated, &session_) == ERROR_SUCCESS;
  }
  ~WlanSession() {
    if (isOpen_) library_.close(session_, nullptr);
  }
  WlanSession(const WlanSession&) = delete;
  WlanSession& operator=(const WlanSession&) = delete;

  bool IsOpen() const { return isOpen_; }
  std::vector<GUID> Adapters() const;
  /// Appends the networks that the adapter knows of; an error of the system otherwise.
  DWORD AppendNetworks(const GUID& adapter, std::vector<WiFiNetwork>& networks) const;

 private:
  const WlanLibrary& library_;
  HANDLE session_ = nullptr;
  bool isOpen_ = false;
};

WiFiSecurity SecurityOf(const WLAN_AVAILABLE_NETWORK& network) {
  if (!network.bSecurityEnabled) return WiFiSecurity::Open;
  const bool isWpa2 = network.dot11DefaultAuthAlgorithm == DOT11_AUTH_ALGO_RSNA_PSK;
  return isWpa2 ? WiFiSecurity::WPA2 : WiFiSecurity::Invalid;
}

WiFiNetwork NetworkOf(const WLAN_AVAILABLE_NETWORK& network) {
  const DOT11_SSID& name = network.dot11Ssid;
  const std::size_t length = std::min<std::size_t>(name.uSSIDLength, sizeof name.ucSSID);
  return {std::string(reinterpret_cast<const char*>(name.ucSSID), length),
          static_cast<int>(network.wlanSignalQuality), SecurityOf(network)};
}

std::vector<GUID> WlanSession::Adapters() const {
  std::vector<GUID> adapters;
  WLAN_INTERFACE_INFO_LIST* list = nullptr;
  if (library_.enumerate(session_, nullptr, &list) != ERROR_SUCCESS) return adapters;
  for (DWORD i = 0; i < list->dwNumberOfItems; ++i) adapters.push_back(list->InterfaceInfo[i].InterfaceGuid);
  library_.release(list);
  return adapters;
}

DWORD WlanSession::AppendNetworks(const GUID& adapter, std::vector<WiFiNetwork>& networks) const {
  WLAN_AVAILABLE_NETWORK_LIST* list = nullptr;
  const DWORD error = library_.list(session_, &adapter, 0, nullptr, &list);
  if (error != ERROR_SUCCESS) return error;
  for (DWORD i = 0; i < list->dwNumberOfItems; ++i) networks.push_back(NetworkOf(list->Network[i]));
  library_.release(list);
  return ERROR_SUCCESS;
}

WiFiTrouble TroubleOf(DWORD error) {
  // Windows 11 hides the networks from programs that may not know where the computer is.
  return error == ERROR_ACCESS_DENIED ? WiFiTrouble::Hidden : WiFiTrouble::NothingFound;
}

}  // namespace

WiFiSearch SearchWiFiNetworks() {
  constexpr WiFiTrouble NoWiFi = WiFiTrouble::NoWiFi;
  const WlanLibrary library;
  if (!library.IsComplete()) return {{}, NoWiFi};
  const WlanSession session(library);
  if (!session.IsOpen()) return {{}, NoWiFi};
  const std::vector<GUID> adapters = session.Adapters();
  if (adapters.empty()) return {{}, NoWiFi};
  WiFiSearch search;
  DWORD error = ERROR_SUCCESS;
  for (const GUID& adapter : adapters) {
    if (const DWORD failed = session.AppendNetworks(adapter, search.networks)) error = failed;
  }
  if (search.networks.empty()) search.trouble = TroubleOf(error);
  return search;
}

}  // namespace UX
