// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>

#include "platform/DeviceLock.h"

namespace test {

/// Holds of this process alone, among them those of programs that a test makes up.
class FakeLocks : public platform::DeviceLocks {
 public:
  std::set<std::string> taken;

  std::unique_ptr<platform::DeviceLock> TryTake(const std::string& name) override {
    if (!taken.insert(name).second) return nullptr;
    return std::make_unique<Lock>(*this, name);
  }

 private:
  class Lock : public platform::DeviceLock {
   public:
    Lock(FakeLocks& locks, std::string name) : locks_(locks), name_(std::move(name)) {}
    ~Lock() override { locks_.taken.erase(name_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

   private:
    FakeLocks& locks_;
    std::string name_;
  };
};

}  // namespace test
