// SPDX-License-Identifier: MIT
#include "ui/DeviceList.h"

#include <gtest/gtest.h>

TEST(DeviceList, KeepsCheckMarksWhenDevicesComeAndGo) {
  using TCBase::DeviceKind;
  UX::DeviceList list;
  const auto lamp = TCBase::NetworkDevice("lamp", *platform::ParseIPv4("192.168.1.20"));
  list.Update({DeviceKind::TC420}, {});
  EXPECT_EQ(list.PickedNames(), "Orvanta 24") << "the only one";
  list.Update({DeviceKind::TC420, DeviceKind::TC421Usb}, {lamp});
  list.AddEmulator();
  EXPECT_EQ(list.PickedNames(), "Orvanta 24");
  list.Pick(2, true);
  list.Update({}, {lamp});
  EXPECT_EQ(list.PickedNames(), "lamp");
  EXPECT_EQ(list.Devices().back().kind, DeviceKind::Emulator);
}

TEST(DeviceList, KeepsAFaultInSightWhenTheNextJobGoesWell) {
  using Stage = TCBase::DeviceOutcome::Stage;
  UX::DeviceList list;
  list.AddEmulator();
  const TCBase::DeviceInfo& device = list.Devices()[0];
  list.ShowEnded({{device, Stage::Incomplete}});
  list.ShowRunning({{device, Stage::Connecting}});
  EXPECT_EQ(list.LastOutcome(device)->stage, Stage::Connecting);
  list.ShowEnded({{device, Stage::Done}});
  EXPECT_EQ(list.LastOutcome(device)->stage, Stage::Incomplete);
  list.ForgetOutcomes();
  EXPECT_EQ(list.LastOutcome(device), nullptr);
}
