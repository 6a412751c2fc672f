// SPDX-License-Identifier: MIT
#include "ui/WiFiWizard.h"

#include <gtest/gtest.h>

using UX::WiFiNetwork;
using UX::WiFiPage;
using UX::WiFiSecurity;
using UX::WiFiWizard;
using Stage = TCBase::DeviceOutcome::Stage;

namespace {

TCBase::DeviceInfo Found(const char* name, const char* address, bool isSelected = false) {
  TCBase::DeviceInfo device = TCBase::NetworkDevice(name, platform::ParseIPv4(address).value());
  device.selected = isSelected;
  return device;
}

std::string Remark(const WiFiWizard& wizard) {
  return wizard.Remark(qor::InEnglish) + (wizard.MayGoOn() ? "" : " (stays)");
}

}  // namespace

TEST(WiFiWizard, OffersTheStrongestStationOfEachNetwork) {
  const std::vector<WiFiNetwork> found = {
      {"Reef", 40, WiFiSecurity::WPA2},      {"", 99, WiFiSecurity::WPA2},
      {"Guests", 60, WiFiSecurity::Open},    {"Reef", 80, WiFiSecurity::WPA2},
      {"Office", 90, WiFiSecurity::Invalid}, {"Mesh", 70, WiFiSecurity::Invalid},
      {"Mesh", 60, WiFiSecurity::WPA2},      {"Reef", 20, WiFiSecurity::Open},
  };
  const std::vector<WiFiNetwork> offered = {
      {"Office", 90, WiFiSecurity::Invalid}, {"Reef", 80, WiFiSecurity::WPA2},
      {"Guests", 60, WiFiSecurity::Open},    {"Mesh", 60, WiFiSecurity::WPA2},
      {"Reef", 20, WiFiSecurity::Open},
  };
  EXPECT_EQ(UX::NetworksToOffer(found), offered);
}

TEST(WiFiWizard, OffersTheUsbAndTheNetworksControllers) {
  const WiFiWizard alone({});
  ASSERT_EQ(alone.Controllers().size(), 1U);
  EXPECT_EQ(UX::ControllerText(alone.Controller(), qor::InEnglish), "TC421 over USB");
  const WiFiWizard wizard({TCBase::DeviceOfKind(TCBase::DeviceKind::TC420), Found("left", "10.0.0.7"),
                           Found("right", "10.0.0.8", true)});
  EXPECT_EQ(wizard.Controllers().size(), 3U);
  EXPECT_EQ(UX::ControllerText(wizard.Controller(), qor::InEnglish), "right (10.0.0.8)")
      << "the one that is picked in the window";
}

TEST(WiFiWizard, AsksForAPasswordWhereThereIsOne) {
  WiFiWizard wizard({});
  wizard.GoBack();
  EXPECT_EQ(wizard.Page(), WiFiPage::Controller);
  wizard.GoOn();
  wizard.GoOn();
  EXPECT_EQ(wizard.Page(), WiFiPage::Network) << "without a name there is no way on";
  wizard.SetNetwork("Guests", WiFiSecurity::Open);
  wizard.GoOn();
  EXPECT_EQ(wizard.Page(), WiFiPage::Send);
  EXPECT_EQ(wizard.Settings().security, 0);
  EXPECT_EQ(wizard.Settings().encryption, 0);
  wizard.GoBack();
  EXPECT_EQ(wizard.Page(), WiFiPage::Network);
  wizard.SetNetwork("Reef", WiFiSecurity::WPA2);
  wizard.GoOn();
  EXPECT_EQ(wizard.Page(), WiFiPage::Password);
  wizard.SetPassword("deep blue");
  wizard.GoOn();
  EXPECT_EQ(wizard.Page(), WiFiPage::Send);
  EXPECT_EQ(wizard.Settings().security, 2);
  EXPECT_EQ(wizard.Settings().password, "deep blue");
  wizard.GoBack();
  EXPECT_EQ(wizard.Page(), WiFiPage::Password);
}

TEST(WiFiWizard, SaysHowMuchRoomIsLeftAndWhyItStays) {
  WiFiWizard wizard({});
  wizard.GoOn();
  EXPECT_EQ(Remark(wizard), "Nothing is entered yet. (stays)");
  wizard.SetNetwork(std::string(33, 'n'), WiFiSecurity::WPA2);
  EXPECT_EQ(Remark(wizard), "Too long for the controller: 33 of at most 32 bytes (stays)");
  wizard.SetNetwork(std::string(33, 'n'), WiFiSecurity::Open);
  EXPECT_EQ(Remark(wizard), "33 of at most 42 bytes") << "the packet for open networks has more room";
  wizard.SetNetwork("Office", WiFiSecurity::Invalid);
  EXPECT_EQ(Remark(wizard),
            "It is not known whether the controller can join a network of this kind. Choose a "
            "security to try it. (stays)");
  wizard.SetNetwork("Office", WiFiSecurity::Number1);
  EXPECT_EQ(wizard.Settings().security, 1);
  EXPECT_TRUE(wizard.MayGoOn());
  wizard.SetNetwork("Reef", WiFiSecurity::WPA2);
  wizard.GoOn();
  EXPECT_EQ(Remark(wizard), "Nothing is entered yet. (stays)");
  wizard.SetPassword(std::string(40, 'p') + "\u00E4");
  EXPECT_EQ(Remark(wizard), "42 of at most 42 bytes");
  wizard.SetPassword(std::string(41, 'p') + "\u00E4");
  EXPECT_EQ(Remark(wizard), "Too long for the controller: 43 of at most 42 bytes (stays)");
}

TEST(WiFiWizard, SaysWhatCameOfItAndWhatToTry) {
  const auto text = [](Stage stage, const char* detail, bool isDenied) {
    const auto denial = isDenied ? TCBase::Denial::InUse : TCBase::Denial::None;
    return UX::OutcomeText({{}, stage, qor::Verbatim(detail), denial}, qor::InEnglish);
  };
  EXPECT_EQ(text(Stage::Done, "", false).find("The controller has taken the settings"), 0U);
  EXPECT_EQ(text(Stage::NotConnected, "not plugged in", false),
            "Connect error.\r\nThe controller has not confirmed the settings. Check that it is connected and "
            "switched on, then send again.\r\n"
            "(not plugged in)");
  EXPECT_EQ(
      text(Stage::NotConnected, "", true),
      "Connect error.\r\nAnother program is using the controller or its port. Close it and send again.");
  EXPECT_EQ(text(Stage::Failed, "the password did not get through: no answer", false),
            "The controller has not confirmed the settings. Check that it is connected and switched on, then "
            "send again.\r\n"
            "(the password did not get through: no answer)");
}
