// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include "device/DeviceBase.h"
#include "tests/support/FakeHid.h"
#include "tests/support/FakeNetwork.h"
#include "tests/support/TestLog.h"
#include "tests/support/VirtualClock.h"

namespace test {

using Texts = std::vector<std::string>;

/// With all that devices need of a computer.
class DeviceTest : public testing::Test {
 protected:
  FakeHid hid;
  VirtualClock clock;
  TestLog log;
  FakeNetwork network{clock};
  TCBase::DeviceContext context{clock, log, network};
};

}  // namespace test
