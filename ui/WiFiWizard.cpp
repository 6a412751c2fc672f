// SPDX-License-Identifier: MIT
#include "ui/WiFiWizard.h"

#include <algorithm>

#include "QorLib/Format.h"

namespace UX {
namespace {

using TCBase::DeviceInfo;
using TCBase::DeviceKind;
using TCBase::DeviceOutcome;
using TCBase::WiFiFault;
using TCBase::WiFiSettings;

/// The number for a kind of security in the controller's packets.
std::int32_t NumberOf(WiFiSecurity security) {
  switch (security) {
    case WiFiSecurity::Open: return WiFiSettings::Open;
    case WiFiSecurity::Number1: return 1;
    default: return 2;
  }
}

// Room for what can be typed, so that no copy of a password is left behind where it grew.
constexpr std::size_t PasswordRoom = 1024;

bool IsStronger(const WiFiNetwork& a, const WiFiNetwork& b) {
  return a.strength != b.strength ? a.strength > b.strength : a.name < b.name;
}

/// Whether a network that is offered makes the other one needless.
bool Covers(const WiFiNetwork& offered, const WiFiNetwork& other) {
  return offered.name == other.name &&
         (offered.security == other.security || other.security == WiFiSecurity::Invalid);
}

std::string AdviceText(TCBase::Denial denial, const qor::Translate& translate) {
  switch (denial) {
    case TCBase::Denial::InUse:
      return translate(TR("Another program is using the controller or its port. Close it and send again."));
    case TCBase::Denial::NoPermission:
      return translate(TR("The system does not let this program open the controller."));
    case TCBase::Denial::None: break;
  }
  return translate(TR(
      "The controller has not confirmed the settings. Check that it is connected and switched on, then send "
      "again."));
}

}  // namespace

std::vector<WiFiNetwork> NetworksToOffer(std::vector<WiFiNetwork> found) {
  std::erase_if(found, [](const WiFiNetwork& network) { return network.name.empty(); });
  std::ranges::stable_sort(found, IsStronger);
  // Networks to join come first here, so that those that are covered are met behind what covers them.
  std::stable_partition(found.begin(), found.end(),
                        [](const WiFiNetwork& network) { return network.security != WiFiSecurity::Invalid; });
  std::vector<WiFiNetwork> offered;
  for (WiFiNetwork& network : found) {
    const auto covers = [&network](const WiFiNetwork& other) { return Covers(other, network); };
    if (std::ranges::none_of(offered, covers)) offered.push_back(std::move(network));
  }
  std::ranges::stable_sort(offered, IsStronger);
  return offered;
}

std::string TroubleText(WiFiTrouble trouble, const qor::Translate& translate) {
  switch (trouble) {
    case WiFiTrouble::NoWiFi:
      return translate(TR("This computer has no Wi-Fi adapter, or its Wi-Fi service is not running."));
    case WiFiTrouble::Hidden:
      return translate(
          TR("Windows hides the networks. Allow access to the location in its privacy settings."));
    case WiFiTrouble::NothingFound: return translate(TR("No networks were found."));
    case WiFiTrouble::None: break;
  }
  return {};
}

std::string SecurityText(WiFiSecurity security, const qor::Translate& translate) {
  switch (security) {
    case WiFiSecurity::Open: return translate(TR("Open"));
    case WiFiSecurity::WPA2: return "WPA2";
    case WiFiSecurity::Number1: return translate(TR("Protected, number 1"));
    case WiFiSecurity::Invalid: break;
  }
  return translate(TR("Invalid"));
}

std::string ControllerText(const DeviceInfo& controller, const qor::Translate& translate) {
  if (controller.kind == DeviceKind::TC421Usb) return translate(TR("TC421 over USB"));
  return controller.name + " (" + platform::AddressText(controller.address) + ")";
}

std::string OutcomeText(const DeviceOutcome& outcome, const qor::Translate& translate) {
  if (outcome.IsDone()) {
    return translate(TR(
        "The controller has taken the settings and now tries to join the network. After that, find it there "
        "with \"Scan WiFi devices\"."));
  }
  std::string text;
  if (outcome.stage == DeviceOutcome::Stage::NotConnected) text = translate(TR("Connect error")) + ".\r\n";
  text += AdviceText(outcome.denial, translate);
  if (outcome.detail) text += "\r\n(" + outcome.detail.In(translate) + ")";
  return text;
}

void Wipe(std::string& secret) {
  secret.resize(secret.capacity());
  volatile char* const bytes = secret.data();
  for (std::size_t i = 0; i < secret.size(); ++i) bytes[i] = 0;
  secret.clear();
}

WiFiWizard::WiFiWizard(const std::vector<DeviceInfo>& devices)
    : controllers_{TCBase::DeviceOfKind(DeviceKind::TC421Usb)} {
  for (const DeviceInfo& device : devices) {
    if (device.kind == DeviceKind::TC421Network) controllers_.push_back(device);
  }
  const auto picked = std::ranges::find(controllers_, true, &DeviceInfo::selected);
  if (picked != controllers_.end()) controller_ = static_cast<std::size_t>(picked - controllers_.begin());
  settings_.password.reserve(PasswordRoom);
}

void WiFiWizard::ChooseController(std::size_t index) {
  if (index < controllers_.size()) controller_ = index;
}

void WiFiWizard::SetNetwork(std::string_view name, WiFiSecurity security) {
  security_ = security;
  settings_.ssid = name;
  settings_.security = NumberOf(security);
}

void WiFiWizard::SetPassword(std::string_view password) {
  Wipe(settings_.password);
  settings_.password = password;
}

bool WiFiWizard::MayGoOn() const {
  const WiFiFault fault = TCBase::FaultOf(settings_);
  switch (page_) {
    case WiFiPage::Controller: return true;
    case WiFiPage::Network:
      return security_ != WiFiSecurity::Invalid && fault != WiFiFault::NoName &&
             fault != WiFiFault::NameTooLong;
    default: return fault == WiFiFault::None;
  }
}

std::string WiFiWizard::Remark(const qor::Translate& translate) const {
  const bool isName = page_ == WiFiPage::Network;
  if (!isName && page_ != WiFiPage::Password) return {};
  const std::size_t bytes = (isName ? settings_.ssid : settings_.password).size();
  const std::size_t most = isName ? TCBase::MostNameBytes(settings_.security) : TCBase::MostPasswordBytes;
  if (bytes == 0) return translate(TR("Nothing is entered yet."));
  if (bytes > most) {
    return qor::Format(translate(TR("Too long for the controller: {1} of at most {2} bytes")), {bytes, most});
  }
  if (isName && security_ == WiFiSecurity::Invalid) {
    return translate(
        TR("It is not known whether the controller can join a network of this kind. Choose a security to try "
           "it."));
  }
  if (isName && security_ == WiFiSecurity::Number1) {
    return translate(TR("What the controller makes of this number is not known."));
  }
  return qor::Format(translate(TR("{1} of at most {2} bytes")), {bytes, most});
}

void WiFiWizard::GoOn() {
  if (!MayGoOn()) return;
  switch (page_) {
    case WiFiPage::Controller: page_ = WiFiPage::Network; break;
    case WiFiPage::Network:
      page_ = security_ == WiFiSecurity::Open ? WiFiPage::Send : WiFiPage::Password;
      break;
    default: page_ = WiFiPage::Send; break;
  }
}

void WiFiWizard::GoBack() {
  switch (page_) {
    case WiFiPage::Send:
      page_ = security_ == WiFiSecurity::Open ? WiFiPage::Network : WiFiPage::Password;
      break;
    case WiFiPage::Password: page_ = WiFiPage::Network; break;
    default: page_ = WiFiPage::Controller; break;
  }
}

}  // namespace UX
