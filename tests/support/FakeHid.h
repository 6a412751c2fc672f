// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "device/DeviceInfo.h"
#include "tests/support/VirtualClock.h"

namespace test {

/// A USB with at most one controller, behind hidapi's functions, which the test programs link instead of the
/// real ones. One at a time; what is not set up is an empty bus.
class FakeHid {
 public:
  FakeHid();
  ~FakeHid();

  // The controller; set up before the code under test runs
  std::optional<TCBase::UsbId> plugged;
  std::uint32_t openMilliseconds = 0;  // by which opening advances `clock`
  VirtualClock* clock = nullptr;       // needed for what takes time
  int equals = 0;                      // more controllers of the same model
  bool isDenied = false;               // opening is not permitted
  bool isErrorless = false;            // hidapi has no text for an error
  int unplugAfter = -1;                // frames until it is pulled out; -1 never
  std::optional<int> writeResult;
  std::function<int()> readResult;  // when set and not 0, what reading gives instead of a report
  /// The reports that answer a frame at once.
  std::function<std::vector<std::string>(const std::string& frame)> answer;

  /// Has a report come that many milliseconds from now, by `clock`.
  void Deliver(std::string report, std::int64_t afterMilliseconds);

  // What arrived
  std::vector<std::string> Reports();  // with the report id
  std::vector<std::string> Frames();   // without it
  int OpenHandles();

  // For the functions of hidapi
  int Count(std::uint16_t vendor, std::uint16_t product);
  bool Open(std::uint16_t vendor, std::uint16_t product);
  void Close();
  int Write(const std::string& report);
  int Read(unsigned char* buffer, std::size_t capacity);

 private:
  std::int64_t Now() const { return clock != nullptr ? clock->Milliseconds() : 0; }

  std::mutex mutex_;
  bool isPulled_ = false;
  int openHandles_ = 0;
  std::vector<std::string> reports_;
  std::multimap<std::int64_t, std::string> pending_;  // by when they come
};

}  // namespace test
