// SPDX-License-Identifier: MIT
#include "worker/WiFiJob.h"

#include "device/CreateDevice.h"
#include "device/TC421/Packets.h"

namespace TCBase {
namespace {

using Stage = DeviceOutcome::Stage;

constexpr int AnyReply = -1;
constexpr std::size_t MostOpenNameBytes = 42;
constexpr std::size_t MostProtectedNameBytes = 32;

bool IsProtected(std::int32_t security) {
  return security == 1 || security == 2;
}

DeviceOutcome Send(const DeviceInfo& info, const WiFiSettings& settings, const DeviceContext& context) {
  const std::unique_ptr<DeviceBase> device = CreateDevice(info, context);
  if (const auto failed = Connect(*device, info, context.log)) return *failed;
  context.log.Message(TR("Setting up WiFi"));
  // A security that is not known sends nothing and is fine: there are controllers that need no more.
  if (settings.security == WiFiSettings::Open) {
    if (!device->Transact(TC421::Packet_SetWiFi_Open(settings.ssid), AnyReply)) {
      context.log.Message(TR("Error setting open WiFi"));
      return {info, Stage::Failed, WithReason(TR("the network's name did not get through"), *device)};
    }
  } else if (IsProtected(settings.security)) {
    const TC421::Packet_SetWiFi_SSID ssid(settings.ssid, settings.security, settings.encryption);
    if (!device->Transact(ssid, AnyReply)) {
      context.log.Message(TR("Error setting WiFi SSID"));
      return {info, Stage::Failed, WithReason(TR("the network's name did not get through"), *device)};
    }
    if (!device->Transact(TC421::Packet_SetWiFi_Password(settings.password), AnyReply)) {
      context.log.Message(TR("Error setting WiFi password"));
      return {info, Stage::Failed, WithReason(TR("the password did not get through"), *device)};
    }
  }
  return {info, Stage::Done, {}};
}

}  // namespace

std::size_t MostNameBytes(std::int32_t security) {
  return IsProtected(security) ? MostProtectedNameBytes : MostOpenNameBytes;
}

WiFiFault FaultOf(const WiFiSettings& settings) {
  if (settings.ssid.empty()) return WiFiFault::NoName;
  if (settings.ssid.size() > MostNameBytes(settings.security)) return WiFiFault::NameTooLong;
  if (!IsProtected(settings.security)) return WiFiFault::None;
  if (settings.password.empty()) return WiFiFault::NoPassword;
  return settings.password.size() > MostPasswordBytes ? WiFiFault::PasswordTooLong : WiFiFault::None;
}

DeviceOutcome SetupWiFi(const DeviceInfo& info, const WiFiSettings& settings, const DeviceContext& context) {
  DeviceOutcome outcome = Send(info, settings, context);
  LogOutcome(outcome, context.log);
  return outcome;
}

}  // namespace TCBase
