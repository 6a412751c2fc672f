// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace gui {

// Each works with a program of its own, and throws gui::Failure when something does not hold.
void SpendADay();
void EditOnTheChart();
void UseTheWindow();
void CompareRenderers();
void RecoverAfterAKill();
/// Random use, for as long as the environment's MONKEY_SECONDS say; it begins with MONKEY_SEED.
void RunMonkey();

/// Makes a window with something of everything in it, prints "shown WIDTHxHEIGHT+LEFT+TOP", and keeps it
/// until the standard input ends. `arguments` are those of the program.
void ShowSample(const std::string& arguments);
/// The page of the Wi-Fi set-up on which the network is chosen.
void ShowWiFiSample();

}  // namespace gui
