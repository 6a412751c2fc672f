// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <map>
#include <optional>
#include <random>
#include <span>
#include <vector>

#include "Files.h"
#include "Gadget.h"
#include "Options.h"

namespace SimUsb {

using Report = std::array<std::uint8_t, 64>;

// A controller's life: plugged in, frames recorded and answered, unplugged. SIGINT and SIGTERM end it; they
// must be blocked before (BlockEndSignals).
class Controller {
 public:
  explicit Controller(const Options& options);
  void Run();

 private:
  enum class End { Signal, Unplugged };

  void PlugIn();
  End Serve();
  void Record(std::span<const std::uint8_t> frame) const;
  SimTC421::Answering AnsweringOf(std::span<const std::uint8_t> frame);
  void QueueAnswers(std::span<const std::uint8_t> frame);
  std::chrono::milliseconds UntilNextAnswer() const;
  bool SendDueAnswers();
  Report MakeAnswer(std::span<const std::uint8_t> frame, int report);
  bool Send(const Report& report) const;  // false when a signal asks for the end
  // False when a signal asks for the end.
  bool Wait(std::chrono::milliseconds time) const;
  // Whether it has come to that; nothing when a signal asks for the end.
  std::optional<bool> WaitFor(short events, std::chrono::milliseconds time) const;

  Options options;
  Handle endSignals;
  Handle transcript;
  std::string serial;
  Gadget gadget;
  int frames = 0;                                                        // since it was plugged in
  std::multimap<std::chrono::steady_clock::time_point, Report> answers;  // by when they are due
  std::chrono::steady_clock::time_point busyUntil;
  std::vector<Report> heldBack;  // until the next packet has been answered
  std::minstd_rand random;
};

void BlockEndSignals();

}  // namespace SimUsb
