// SPDX-License-Identifier: MIT
#pragma once

#include "ui/WiFiWizard.h"

namespace UX {

/// The networks that this computer's Wi-Fi adapters know of now, hidden ones and all stations included. None
/// and the reason where there is no adapter, no service, or no permission to see them.
WiFiSearch SearchWiFiNetworks();

}  // namespace UX
