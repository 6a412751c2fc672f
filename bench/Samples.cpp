// SPDX-License-Identifier: MIT
#include "bench/Samples.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace bench {

using namespace TCBase;

namespace {

constexpr int BigProgramModes = 151;
constexpr int BigProgramStepsPerChannel = 288;  // one each five minutes

Channel RandomChannel(int steps, std::mt19937& random) {
  std::vector<int> minutes(MinutesPerDay);
  std::iota(minutes.begin(), minutes.end(), 0);
  std::vector<int> chosen;
  std::sample(minutes.begin(), minutes.end(), std::back_inserter(chosen), steps, random);
  Channel channel;
  for (const int minute : chosen) {
    const auto value = static_cast<float>(random() % 101);
    channel.steps.push_back(MakeStep(minute / 60, minute % 60, value, random() % 16 == 0));
  }
  return channel;
}

Mode RandomModeFrom(int stepsPerChannel, std::mt19937& random) {
  Mode mode{"Reef & lagoon", "Dawn at six, \"noon\" at one,\nmoonlight from nine. Größe <60 l>", {}};
  for (Channel& channel : mode.channels) channel = RandomChannel(stepsPerChannel, random);
  return mode;
}

}  // namespace

Mode RandomMode(int stepsPerChannel) {
  std::mt19937 random(1);
  return RandomModeFrom(stepsPerChannel, random);
}

Program TenMegabyteProgram() {
  std::mt19937 random(2);
  Program program;
  for (int i = 0; i < BigProgramModes; ++i) {
    program.modes.push_back(RandomModeFrom(BigProgramStepsPerChannel, random));
  }
  return program;
}

}  // namespace bench
