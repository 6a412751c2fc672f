// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <map>
#include <optional>
#include <string>

#include "../tc421/Frame.h"

namespace SimTC421 {

// What a controller holds.
class State {
 public:
  void Take(Kind kind, Bytes payload);
  // In lines, as --help describes them; all names in printable form.
  std::string ToText() const;

 private:
  using Steps = std::map<int, std::string>;  // by index, each "HH:MM" and its five percentages
  struct Mode {
    std::string name;
    Steps steps;
  };
  struct Arriving {
    int bank = 0;
    Mode mode;
  };
  struct Clock {
    std::chrono::sys_seconds set;
    std::chrono::steady_clock::time_point when;
  };
  struct Demo {
    std::string name;
    std::string channels;
  };

  void KeepArrivedMode();
  void SetClock(Bytes payload);
  std::string ModesToText() const;
  std::string ClockToText() const;
  std::string DemoToText() const;

  std::optional<Arriving> arriving;  // there is no such mode before its last packet
  std::map<int, Mode> modes;         // by bank
  std::optional<Clock> clock;
  std::optional<Demo> demo;
  std::string network;  // as its line says it
  std::string password;
};

}  // namespace SimTC421
