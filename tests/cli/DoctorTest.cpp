// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "platform/Files.h"
#include "tests/cli/CliFixture.h"

namespace {

class Doctor : public test::Cli {
 protected:
  /// Runs it; its findings by their names.
  int Examine() {
    const int status = Run({"doctor", "--json"});
    findings.clear();
    const nlohmann::json answer = nlohmann::json::parse(out);
    for (const auto& finding : answer["findings"]) findings[finding["check"]] = finding;
    return status;
  }
  std::string State(const std::string& check) { return findings[check]["state"]; }
  std::string Advice(const std::string& check) { return findings[check]["advice"]; }

  std::map<std::string, nlohmann::json> findings;
};

}  // namespace

TEST_F(Doctor, FindsNothingWrongWithAFreshComputer) {
  computer = {"Linux 6.1", {{"wlan0", "192.168.1.5"}}, true, "/etc/udev/rules.d/71-halvex.rules", false};
  EXPECT_EQ(Run({"doctor"}), cli::Done);
  EXPECT_EQ(out.substr(0, out.find(' ')), "ok");
  EXPECT_EQ(out.find("problem"), std::string::npos) << out;
  EXPECT_NE(out.find("network          wlan0 192.168.1.5\n"), std::string::npos) << out;
  EXPECT_EQ(Examine(), cli::Done);
  EXPECT_EQ(State("tc420"), "note");
  EXPECT_NE(Advice("tc421"), "") << "no controller at all";
  EXPECT_TRUE(network.sent.empty());
  hid.plugged = TCBase::TC421UsbId;
  EXPECT_EQ(Examine(), cli::Done);
  EXPECT_EQ(State("tc421") + Advice("tc421"), "ok");
  EXPECT_TRUE(hid.Reports().empty());
}

TEST_F(Doctor, TellsMissingPermissionFromNoController) {
  computer.hasUdev = true;
  EXPECT_EQ(Examine(), cli::Done);
  EXPECT_EQ(State("udev-rule"), "note");
  hid.plugged = TCBase::TC420UsbId;
  hid.isDenied = true;
  EXPECT_EQ(Examine(), cli::NoAccess);
  EXPECT_EQ(State("tc420"), "problem");
  const auto advises = [&](const std::string& words) {
    EXPECT_EQ(Examine(), cli::NoAccess);
    EXPECT_NE(Advice("tc420").find(words), std::string::npos) << Advice("tc420");
    EXPECT_EQ(Run({"devices"}), cli::NoAccess);
    EXPECT_NE(err.find(words), std::string::npos) << err;
  };
  advises("\"halvex udev-rule | sudo tee /etc");
  computer.user = "pi";
  computer.isRemote = true;
  advises("halvex udev-rule --group plugdev");
  computer.isRemote = false;
  computer.udevRule = "/usr/lib/udev/rules.d/71-halvex.rules";
  advises("plug the controller in again");
  computer.deviceGroup = "plugdev";
  advises("sudo adduser pi plugdev");
  EXPECT_EQ(err.find("tee"), std::string::npos) << "the rule is right";
  computer.inDeviceGroup = platform::Computer::Membership::AfterLogin;
  advises("log out and in again");
  computer.hasUdev = false;
  EXPECT_EQ(Examine(), cli::NoAccess);
  EXPECT_EQ(Advice("tc420").find("rule"), std::string::npos);
  EXPECT_FALSE(findings.contains("udev-rule"));
}

TEST_F(Doctor, NamesWhatIsInUse) {
  hid.plugged = TCBase::TC420UsbId;
  locks.taken = {"tc420"};
  EXPECT_EQ(Examine(), cli::NoAccess);
  EXPECT_EQ(findings["tc420"]["text"], "in use by another program");
  locks.taken.clear();
  network.isPortTaken = true;
  EXPECT_EQ(Examine(), cli::NoAccess);
  EXPECT_EQ(State("tc420"), "ok");
  EXPECT_EQ(State("port-5000"), "problem");
}

TEST_F(Doctor, FindsSettingsThatAreBroken) {
  const std::string home = folder.File("home");
  ASSERT_FALSE(platform::CreateFolders(home));
  ASSERT_FALSE(platform::ReplaceWholeFile(platform::PathIn(home, "TC420Config.xml"), "no XML"));
  EXPECT_EQ(Examine(), cli::FileFailed);
  EXPECT_EQ(State("settings"), "problem");
  EXPECT_EQ(State("settings-folder"), "ok");
}

TEST_F(Doctor, FindsAFolderThatCannotBe) {
  ASSERT_FALSE(platform::ReplaceWholeFile(folder.File("home"), "a file"));
  EXPECT_EQ(Examine(), cli::FileFailed);
  EXPECT_EQ(State("settings-folder"), "problem");
}
