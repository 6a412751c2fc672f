// SPDX-License-Identifier: MIT
#include "worker/JobControl.h"

#include <algorithm>

namespace TCBase {

void JobControl::PostSeek(std::int32_t second) {
  const std::int32_t wholeMinutes = second / 60 * 60;
  Put({Seek, std::clamp(wholeMinutes, 0, SecondsPerDay - 1)});
}

std::unique_ptr<JobControl::Command> JobControl::Take() {
  const std::lock_guard lock(commandMutex_);
  return std::move(command_);
}

bool JobControl::IsPending() {
  const std::lock_guard lock(commandMutex_);
  return command_ != nullptr;
}

bool JobControl::TakeStop() {
  const std::unique_ptr<Command> command = Take();
  return command != nullptr && command->type == Stop;
}

ModeSample JobControl::LastChannels() {
  const std::lock_guard lock(channelsMutex_);
  return lastChannels_;
}

void JobControl::SetLastChannels(const ModeSample& sample) {
  const std::lock_guard lock(channelsMutex_);
  lastChannels_ = sample;
}

void JobControl::Put(Command command) {
  auto record = std::make_unique<Command>(command);
  const std::lock_guard lock(commandMutex_);
  command_ = std::move(record);
}

}  // namespace TCBase
