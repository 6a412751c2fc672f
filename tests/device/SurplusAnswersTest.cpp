// SPDX-License-Identifier: MIT
#include "device/SurplusAnswers.h"

#include <gtest/gtest.h>

#include <random>

#include "device/TC421/Devices.h"
#include "tests/support/FakeHid.h"
#include "tests/support/FakeNetwork.h"
#include "tests/support/TestLog.h"
#include "tests/support/VirtualClock.h"

namespace {

constexpr const char* Address = "10.0.0.7";
constexpr int Packets = 12;

/// A TC421 whose answers say which packet they are for, in a place where nobody looks.
template <typename Device>
class Probe : public Device {
 public:
  using Device::Device;
  bool CheckReply(const std::string& reply, int expected) override {
    if (!reply.empty()) accepted = reply;
    return Device::CheckReply(reply, expected);
  }
  std::string accepted;
};

/// A controller that answers as `onPacket` has it, on the USB or on the network.
class OddController {
 public:
  explicit OddController(bool isOnUsb) {
    hid.clock = &clock;
    hid.plugged = TCBase::TC421UsbId;
    hid.answer = [this](const std::string& frame) {
      Hear(frame);
      return std::vector<std::string>();
    };
    network.onSend = [this](const test::FakeNetwork::Datagram& sent) { Hear(sent.bytes); };
    if (isOnUsb) {
      usb.emplace(context);
      device = &*usb;
    } else {
      udp.emplace(context, TCBase::NetworkDevice("Reef", platform::ParseIPv4(Address).value()));
      device = &*udp;
    }
    EXPECT_TRUE(device->Open());
  }

  bool Send(int packet) {
    TCBase::ModeSample sample;
    return device->Transact(TC421::Packet_ModeStep(TC421::Route{"", usb.has_value()}, packet, sample), -1);
  }

  /// Has an answer to that packet come, which the last of them is `after` the sending.
  void Answer(int packet, std::int64_t after) {
    std::string reply(64, '\0');
    reply[63] = static_cast<char>(packet);
    reply[62] = static_cast<char>(arrivals.size());
    arrivals.push_back({packet, clock.Milliseconds() + after});
    usb ? hid.Deliver(reply, after) : network.Deliver(Address, reply, after);
  }

  struct Arrival {
    int packet;
    std::int64_t time;
    bool isAccepted = false;
  };

  test::FakeHid hid;
  test::VirtualClock clock;
  test::TestLog log;
  test::FakeNetwork network{clock};
  TCBase::DeviceContext context{clock, log, network};
  std::function<void(int packet)> onPacket;
  std::vector<Arrival> arrivals;
  std::map<int, int> sendings;
  std::map<int, std::int64_t> firstSent;
  std::int64_t latestSeen = 0;  // of the answers that nobody waited for
  std::optional<Probe<TC421::USBDevice>> usb;
  std::optional<Probe<TC421::UDPDevice>> udp;
  TCBase::DeviceBase* device = nullptr;

 private:
  void Hear(const std::string& frame) {
    const int packet = frame[6];
    ++sendings[packet];
    if (firstSent.try_emplace(packet, clock.Milliseconds()).second) SeeSurplus();
    onPacket(packet);
  }
  /// All that has come by now was read, and was no packet's.
  void SeeSurplus() {
    for (Arrival& arrival : arrivals) {
      if (arrival.isAccepted || arrival.time > clock.Milliseconds()) continue;
      latestSeen = std::max(latestSeen, arrival.time - firstSent[arrival.packet]);
      arrival.isAccepted = true;
    }
  }
};

/// Whether the packet was taken for answered by an answer to an earlier one that was no later than others
/// that were seen before.
bool IsCovered(OddController& controller, int packet) {
  std::string& reply = controller.usb ? controller.usb->accepted : controller.udp->accepted;
  bool isOwn = false;
  std::int64_t late = 0;
  for (std::size_t end = 64; end <= reply.size(); end += 64) {
    OddController::Arrival& arrival = controller.arrivals[static_cast<unsigned char>(reply[end - 2])];
    arrival.isAccepted = true;
    isOwn |= arrival.packet == packet;
    late = std::max(late, arrival.time - controller.firstSent[arrival.packet]);
  }
  const bool isCovered = !isOwn && late <= controller.latestSeen;
  if (reply.size() > 64) controller.latestSeen = std::max(controller.latestSeen, late);
  reply.clear();
  return isCovered;
}

}  // namespace

TEST(SurplusAnswers, NeverHideALostPacketOnceTheyWereSeen) {
  for (const bool isOnUsb : {true, false}) {
    int done = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
      std::minstd_rand random(seed + 1);
      const auto upTo = [&random](std::int64_t most) {
        return static_cast<std::int64_t>(random() % (most + 1));
      };
      const std::int64_t mostBetween = std::array{30, 300, 1900}[seed % 3];
      OddController controller(isOnUsb);
      controller.onPacket = [&](int packet) {
        controller.network.Deliver("10.0.0.9", std::string(64, '\0'), upTo(50));
        if (upTo(9) == 0) return;
        const std::int64_t first = upTo(9) == 0 ? upTo(isOnUsb ? 700 : 3800) : upTo(25);
        controller.Answer(packet, first);
        if (upTo(3) == 0) controller.Answer(packet, first + upTo(mostBetween));
      };
      bool isDone = true, isCovered = false;
      for (int packet = 0; packet < Packets; ++packet) {
        controller.clock.Sleep(20);
        isDone &= controller.Send(packet);
        isCovered |= IsCovered(controller, packet);
      }
      done += isDone ? 1 : 0;
      EXPECT_FALSE(isDone && isCovered) << (isOnUsb ? "USB" : "network") << ", seed " << seed;
    }
    EXPECT_GT(done, 50) << "the test tests something";
  }
}

TEST(SurplusAnswers, OfALatePacketAreWaitedFor) {
  OddController controller(false);
  controller.onPacket = [&](int packet) {
    if (packet == 0) controller.Answer(packet, controller.sendings[0] == 1 ? 2100 : 0);
    if (packet == 2) controller.Answer(packet, 0);
  };
  EXPECT_TRUE(controller.Send(0));
  EXPECT_FALSE(controller.Send(1)) << "it was lost, three times";
  const std::int64_t start = controller.clock.Milliseconds();
  EXPECT_TRUE(controller.Send(2));
  EXPECT_GE(controller.clock.Milliseconds() - start, 2000);
}

TEST(SurplusAnswers, WithoutEndFailThePacket) {
  OddController controller(true);
  controller.onPacket = [&](int packet) {
    for (int i = 0; i < 100; ++i) controller.Answer(packet, i * 150);
  };
  EXPECT_TRUE(controller.Send(0));
  controller.clock.Sleep(1000);
  EXPECT_FALSE(controller.Send(1));
  EXPECT_EQ(controller.sendings[1], 0);
  EXPECT_EQ(controller.device->LastFailure().english, TR("answers that belong to no packet do not end"));
}

TEST(SurplusAnswers, AreWaitedForBeforeTheNextJob) {
  OddController controller(false);
  controller.onPacket = [&](int packet) {
    controller.Answer(packet, controller.sendings[packet] == 1 ? 2100 : 50);
  };
  EXPECT_TRUE(controller.Send(0)) << "by the answer to the second sending";
  controller.udp.reset();
  EXPECT_GT(controller.clock.Milliseconds(), controller.arrivals[0].time);
}
