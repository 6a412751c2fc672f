// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "QorLib/Translate.h"
#include "worker/WiFiJob.h"

/// Bringing a TC421 into a wireless network, page by page, without the pages.
namespace UX {

enum class WiFiPage { Controller, Network, Password, Send };

/// How a network is protected, as a controller is told: open, or by one of two numbers, of which the second
/// is WPA2. Invalid is a kind for which no number is known.
enum class WiFiSecurity { Open, WPA2, Number1, Invalid };

struct WiFiNetwork {
  std::string name;  // the bytes that the network sends, which need not be UTF-8; empty when it is hidden
  int strength = 0;  // percent
  WiFiSecurity security = WiFiSecurity::Invalid;

  bool operator==(const WiFiNetwork&) const = default;
};

/// Why a computer finds no networks.
enum class WiFiTrouble { None, NoWiFi, Hidden, NothingFound };
std::string TroubleText(WiFiTrouble trouble, const qor::Translate& translate);

/// The networks nearby, or why there are none.
struct WiFiSearch {
  std::vector<WiFiNetwork> networks;
  WiFiTrouble trouble = WiFiTrouble::None;
};

/// The networks as a list offers them, strongest first: hidden ones are left out, and of a network that
/// several stations send, the strongest stands for all. One that cannot be joined is left out when another
/// way into the network of its name is there.
std::vector<WiFiNetwork> NetworksToOffer(std::vector<WiFiNetwork> found);

std::string SecurityText(WiFiSecurity security, const qor::Translate& translate);

/// How the controller is shown: the one on the USB by that, others by name and address.
std::string ControllerText(const TCBase::DeviceInfo& controller, const qor::Translate& translate);

/// What came of sending, in lines: that it is done, or why not and what to try.
std::string OutcomeText(const TCBase::DeviceOutcome& outcome, const qor::Translate& translate);

/// Overwrites the text with zeros, spare room included, and empties it.
void Wipe(std::string& secret);

/// What the pages gather, and in which order they come. The password is wiped in the end.
class WiFiWizard {
 public:
  /// Offers the TC421s among the devices; one on the USB in any case, which may still be plugged in.
  explicit WiFiWizard(const std::vector<TCBase::DeviceInfo>& devices);
  ~WiFiWizard() { Wipe(settings_.password); }
  WiFiWizard(const WiFiWizard&) = delete;
  WiFiWizard& operator=(const WiFiWizard&) = delete;

  const std::vector<TCBase::DeviceInfo>& Controllers() const { return controllers_; }
  std::size_t ControllerIndex() const { return controller_; }
  const TCBase::DeviceInfo& Controller() const { return controllers_[controller_]; }
  void ChooseController(std::size_t index);

  void SetNetwork(std::string_view name, WiFiSecurity security);
  /// The number, 0 to 255, that goes along with the name of a protected network.
  void SetEncryption(std::int32_t number) { settings_.encryption = std::clamp(number, 0, 255); }
  WiFiSecurity Security() const { return security_; }
  void SetPassword(std::string_view password);
  /// What is sent to the controller.
  const TCBase::WiFiSettings& Settings() const { return settings_; }

  WiFiPage Page() const { return page_; }
  /// Whether the page holds what the ones behind it need.
  bool MayGoOn() const;
  /// How much of its room the page's text takes, or why the page cannot be left.
  std::string Remark(const qor::Translate& translate) const;
  /// To the next page, if there is one and the page may be left.
  void GoOn();
  void GoBack();

 private:
  std::vector<TCBase::DeviceInfo> controllers_;
  std::size_t controller_ = 0;
  TCBase::WiFiSettings settings_;
  WiFiSecurity security_ = WiFiSecurity::WPA2;
  WiFiPage page_ = WiFiPage::Controller;
};

}  // namespace UX
