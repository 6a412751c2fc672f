// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "tests/cli/CliFixture.h"

using test::LineCount;

namespace {

/// With a TC421 on the network at 10.0.0.7 that answers everything.
class Devices : public test::Cli {
 protected:
  Devices() {
    network.onSend = [this](const test::FakeNetwork::Datagram& sent) {
      const std::string to = platform::AddressText(sent.peer);
      std::string answer = sent.bytes.substr(0, 4) + (to == "255.255.255.255" ? "10.0.0.7" : "");
      answer.resize(64);
      if (to == "255.255.255.255" || to == "10.0.0.7") network.Deliver("10.0.0.7", answer);
    };
  }

  /// The bytes at the beginnings of the lines that were printed.
  std::vector<std::string> Images() const {
    std::vector<std::string> images;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) {
      images.emplace_back();
      for (std::size_t i = 0; i < 128; i += 2)
        images.back() += static_cast<char>(std::stoi(line.substr(i, 2), nullptr, 16));
    }
    return images;
  }

  /// Command and sub-command of each frame that was sent.
  std::string Sent() {
    std::string sent;
    for (const test::FakeNetwork::Datagram& datagram : network.sent) sent += datagram.bytes.substr(2, 2);
    network.sent.clear();
    return sent;
  }
};

}  // namespace

TEST_F(Devices, SayInATableHowItWentForEach) {
  EXPECT_EQ(Halvex("clear --yes --device tc421@10.0.0.7,Reef --device emulator"), cli::Done);
  EXPECT_EQ(out.substr(out.find("tc421@")), "tc421@10.0.0.7,Reef  Done\nemulator             Done\n");
  EXPECT_EQ(Halvex("sync-time --device tc421@10.0.0.8 --device tc421@10.0.0.7 --device tc420"),
            cli::DeviceFailed);
  EXPECT_EQ(out.substr(out.find("tc421@")),
            "tc421@10.0.0.8  Failed: the time did not get through: no answer\n"
            "tc421@10.0.0.7  Done\n"
            "tc420           Not connected: no TC420 is plugged in\n");
  EXPECT_EQ(LineCount(err), 2u) << err;

  network.isPortTaken = true;
  EXPECT_EQ(Halvex("sync-time --device tc421@10.0.0.7"), cli::NoAccess);
  EXPECT_EQ(err,
            "halvex: 10.0.0.7: Not connected: UDP port 5000 of this computer is in use by another "
            "program\n");
  network.isPortTaken = false;
  network.failingCall = "sendto";
  EXPECT_EQ(Halvex("clear --yes --device tc421@10.0.0.7"), cli::DeviceFailed);
  EXPECT_EQ(err, "halvex: 10.0.0.7: Failed: the order to clear did not get through: no luck\n");
  EXPECT_EQ(Halvex("clear --yes --device tc421@10.0.0.1"), cli::DeviceFailed);
  EXPECT_NE(err.find("this computer's own address"), std::string::npos) << err;
}

TEST_F(Devices, AreFoundOnTheNetwork) {
  network.hostNames["10.0.0.7"] = "reef";
  EXPECT_EQ(Halvex("devices --scan"), cli::Done);
  EXPECT_EQ(out, "tc421@10.0.0.7  reef  network\n") << "packets carry what the controller calls itself";
  EXPECT_EQ(LineCount(err), 4u) << "the log lines do not mix with the list: " << err;
  EXPECT_EQ(Halvex("devices --scan --json"), cli::Done);
  EXPECT_EQ(nlohmann::json::parse(out)[0]["address"], "10.0.0.7");

  network.onSend = [this](const test::FakeNetwork::Datagram&) {
    network.Deliver("10.0.0.7", std::string("\x55\xAA\x17") + '\0' + "\x1B[31mred\n" + std::string(51, '\0'));
    network.Deliver("10.0.0.8", std::string("\x55\xAA\x17") + '\0' + "My reef, left" + std::string(47, '\0'));
  };
  EXPECT_EQ(Halvex("devices --scan"), cli::Done);
  EXPECT_EQ(out,
            "tc421@10.0.0.7  .[31mred.  network\ntc421@10.0.0.8,My reef, left  My reef, left  network\n");
  EXPECT_EQ(err.find('\x1B'), std::string::npos) << "a terminal gets no control characters from strangers";
  network.onSend = nullptr;
  EXPECT_EQ(Halvex("devices --scan"), cli::NothingFound);
  network.failingCall = "sendto";
  hid.plugged = TCBase::TC421UsbId;
  EXPECT_EQ(Halvex("devices --scan"), cli::DeviceFailed) << "whatever was found on the USB";
  EXPECT_NE(err.find("could not be searched to the end: no luck"), std::string::npos) << err;
  network.isPortTaken = true;
  EXPECT_EQ(Halvex("devices --scan"), cli::NoAccess);
}

TEST_F(Devices, GetThePacketsThatAreShown) {
  NewProgram();
  hid.plugged = TCBase::TC420UsbId;
  EXPECT_EQ(Halvex("upload ./a.xml --device tc420 --device tc421@10.0.0.7"), cli::Done) << err;
  EXPECT_EQ(Halvex("packets ./a.xml --model tc420"), cli::Done);
  EXPECT_EQ(out.substr(128, 49), " Packet_ModeInit(Bank=0, Length=12, Name=Normal)\n");
  EXPECT_EQ(Images(), hid.Frames());
  EXPECT_EQ(Halvex("packets ./a.xml --model tc421-net --identity 10.0.0.7"), cli::Done);
  std::vector<std::string> sent;
  for (const test::FakeNetwork::Datagram& datagram : network.sent) sent.push_back(datagram.bytes);
  EXPECT_EQ(Images(), sent);
}

TEST_F(Devices, AreClearedOnlyWhenTheUserIsSure) {
  terminal.isInput = true;
  in = "n\n";
  EXPECT_EQ(Halvex("clear --device tc421@10.0.0.7"), cli::Interrupted);
  EXPECT_EQ(Sent(), "");
  in = "Yes \n";
  EXPECT_EQ(Halvex("clear --device tc421@10.0.0.7"), cli::Done);
  EXPECT_EQ(err, "Remove all modes from tc421@10.0.0.7? They cannot be read back. [y/N] ");
  EXPECT_EQ(Sent(), "\x05\xFE");
}

TEST_F(Devices, AlwaysGetTheEndOfADemo) {
  NewProgram();
  isInterrupted = true;
  EXPECT_EQ(Halvex("demo ./a.xml --device tc421@10.0.0.7 --device emulator"), cli::Interrupted);
  const std::string sent = Sent();
  EXPECT_EQ(sent.substr(0, 2), "\x06\x01");
  EXPECT_EQ(sent.substr(sent.size() - 2), "\x03\x08");
  EXPECT_NE(out.find("Demo finished\n10.0.0.7: Stopped\nCancelled!\n"), std::string::npos);
}

TEST_F(Devices, PlayInTheTimeThatTheSettingsSay) {
  NewProgram();
  std::filesystem::create_directories(test::PathOf(folder.File("home")));
  Write("home/TC420Config.xml", "<config><demo_speed>12</demo_speed></config>");
  EXPECT_EQ(Halvex("demo ./a.xml --device emulator"), cli::Done);
  EXPECT_NE(out.find("Playing whole day in 12 seconds"), std::string::npos);
}

TEST_F(Devices, BeginADemoWhereTheyAreTold) {
  NewProgram();
  EXPECT_EQ(
      Halvex("demo ./a.xml --device tc421@10.0.0.7 --device tc421@10.0.0.9,Noon --seconds 10 --start 12:00"),
      cli::DeviceFailed);
  std::string first;
  for (const test::FakeNetwork::Datagram& datagram : network.sent) {
    const bool isValues = datagram.bytes.substr(2, 2) == "\x06\x02";
    if (isValues && first.empty()) first = datagram.bytes.substr(6, 5);
    if (isValues && datagram.bytes.substr(49, 4) == "Noon") break;
  }
  EXPECT_EQ(first, "\x32\x32\x32\x32\x1E") << "nothing of midnight shows";
  EXPECT_EQ(network.sent.back().bytes.substr(2, 2), "\x03\x08");
}

TEST_F(Devices, ObeyTheKeysDuringADemo) {
  struct OnlyQ : platform::Keyboard {
    platform::Key Next() override { return platform::Key::Quit; }
  };
  NewProgram();
  terminal.openKeyboard = [] { return std::make_unique<OnlyQ>(); };
  EXPECT_EQ(Halvex("demo ./a.xml --device tc421@10.0.0.7 --device emulator"), cli::Done)
      << "to quit is no failure: " << err;
  EXPECT_EQ(Sent().substr(0, 2), "\x06\x01");
  EXPECT_NE(out.find("emulator        Not reached"), std::string::npos) << out;
}

TEST_F(Devices, JoinANetworkWithoutThePasswordOnTheCommandLine) {
  in = "s3cr\xC3\xA9t word\r\nmore\n";
  EXPECT_EQ(Run({"wifi", "--device", "tc421@10.0.0.7", "--ssid", "Caf\xC3\xA9", "--security", "2",
                 "--encryption", "4", "--password-stdin"}),
            cli::Done)
      << err;
  ASSERT_EQ(network.sent.size(), 2u);
  EXPECT_EQ(network.sent[0].bytes.substr(5, 8), std::string("\x05\x01") + "Caf\xC3\xA9" + '\0');
  EXPECT_EQ(network.sent[1].bytes.substr(5, 15), "\x0C\x02s3cr\xC3\xA9t word" + std::string(1, '\0'));
  in = std::string(43, 'p') + "\n";
  EXPECT_EQ(Halvex("wifi --device tc421@10.0.0.7 --ssid x --security 1 --password-stdin"), cli::WrongUsage);
  EXPECT_EQ(err, "halvex: the password has 43 bytes; a controller takes at most 42\n");
  EXPECT_EQ(network.sent.size(), 2u) << "nothing more was sent";

  terminal.isInput = true;
  const std::vector<std::string> asking = {"wifi",       "--device", "tc421@10.0.0.7", "--ssid", "x",
                                           "--security", "1"};
  EXPECT_EQ(Run(asking), cli::Interrupted) << "no line came from the terminal";
  terminal.readHiddenLine = [] { return std::string("secret"); };
  EXPECT_EQ(Run(asking), cli::Done);
  EXPECT_EQ(network.sent[3].bytes.substr(7, 6), "secret");
}

TEST_F(Devices, AreOneProgramsAtATime) {
  NewProgram();
  hid.plugged = TCBase::TC420UsbId;
  locks.taken = {"tc420"};
  EXPECT_EQ(Halvex("upload ./a.xml --device tc420"), cli::NoAccess);
  EXPECT_EQ(err, "halvex: Orvanta 24: Not connected: in use by another program\n");
  EXPECT_TRUE(hid.Reports().empty());
  EXPECT_EQ(Halvex("devices"), cli::Done) << "looking disturbs nobody";
  locks.taken = {"tc421@10.0.0.20"};
  EXPECT_EQ(Halvex("sync-time --device tc421@10.0.0.20"), cli::NoAccess);
  EXPECT_TRUE(network.sent.empty());
  locks.taken.clear();
  bool wasHeld = false;
  clock.onSleep = [&](std::uint32_t milliseconds) {
    constexpr std::uint32_t EraseMilliseconds = 3000;
    if (milliseconds == EraseMilliseconds) wasHeld = locks.taken.contains("tc420");
  };
  Halvex("clear --yes --device tc420");
  EXPECT_TRUE(wasHeld) << "to the end";
  EXPECT_TRUE(locks.taken.empty());
}
