// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <string>

namespace gui {

/// A case throws gui::Failure when something does not hold.
struct Case {
  const char* name;
  void (*run)();
};

// By what they are about; each works with a program of its own.
std::span<const Case> DayCases();
std::span<const Case> EditCases();
std::span<const Case> EndCases();
std::span<const Case> WindowCases();

/// Random use, for `seconds`; throws as cases do.
void RunMonkey(unsigned seed, int seconds);
/// Makes a window with something of everything in it, prints "shown WIDTHxHEIGHT+LEFT+TOP", and keeps it
/// until the standard input ends. `arguments` are those of the program.
void ShowSample(const std::string& arguments);
/// The page of the Wi-Fi set-up on which the network is chosen.
void ShowWiFiSample();

}  // namespace gui
