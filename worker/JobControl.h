// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>

#include "model/ModeSample.h"

namespace TCBase {

/// The front end's hand on the running job: one pending command, of which a newer one takes the place, and
/// what a demo is showing.
class JobControl {
 public:
  enum Type : std::int32_t { Stop = 0, Resume = 1, Pause = 2, Seek = 3 };
  enum DemoState : std::int32_t { NoDemo = 0, DemoPaused = 1, DemoPlaying = 2 };
  static constexpr std::int32_t NoSecond = -1;

  struct Command {
    Type type;
    std::int32_t value = 0;  // of a Seek: the second of the day
  };

  std::atomic<std::int32_t> demoState = NoDemo;
  std::atomic<std::int32_t> demoSecond = NoSecond;  // second of the day that a demo shows

  void Post(Type type) { Put({type}); }
  /// A moment of the day for a demo to go on from: rounded down to its minute, clamped to 0…86399.
  void PostSeek(std::int32_t second);
  /// Takes the pending command; null when there is none.
  std::unique_ptr<Command> Take();
  /// Whether a command waits to be taken; a new one would take its place.
  bool IsPending();
  /// Takes the pending command; whether it was Stop. Any other is dropped.
  bool TakeStop();

  /// What a demo last sent to the controller.
  ModeSample LastChannels();
  void SetLastChannels(const ModeSample& sample);

 private:
  void Put(Command command);

  std::mutex channelsMutex_;
  ModeSample lastChannels_;
  std::mutex commandMutex_;
  std::unique_ptr<Command> command_;
};

}  // namespace TCBase
