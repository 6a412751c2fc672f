// SPDX-License-Identifier: MIT
#include <benchmark/benchmark.h>

#include <functional>

#include "bench/CountAllocations.h"
#include "device/TC420/Packets.h"
#include "device/TC421/Packets.h"

namespace bench {
namespace {

const TCBase::ModeSample Sample = {21, 45, {100, 99, 50, 7, 0}, {}};
constexpr TC421::Route Net = {"192.168.1.20", false};

std::string ImageOf(const TCBase::PacketBase& packet) {
  std::string image;
  packet.Serialize(image);
  return image;
}

/// Each packet may take memory for its payload and for its image, and for nothing else.
bool TakesTwoStringsAtMost(benchmark::State& state) {
  const platform::SYSTEMTIME time = {2026, 11, 6, 21, 9, 5, 7, 42};
  const std::string text(32, 'x');
  const std::function<std::string()> encoders[] = {
      [] { return ImageOf(TC420::Packet_ModeInit(1, 2, "Lagoon")); },
      [] { return ImageOf(TC420::Packet_ModeStep(Sample)); },
      [&] { return ImageOf(TC420::Packet_TimeSync(time)); },
      [] { return ImageOf(TC420::Packet_PlayInit("Lagoon")); },
      [] {
        return ImageOf(TC420::Packet_PlaySetChannels({1, 2, 3, 4, 5}));
      },
      [] { return ImageOf(TC421::Packet_ModeInit(Net, 1, 2, "Lagoon")); },
      [] { return ImageOf(TC421::Packet_ModeStep(Net, 1, Sample)); },
      [&] { return ImageOf(TC421::Packet_TimeSync(Net, time)); },
      [] { return ImageOf(TC421::Packet_ClearAll(Net)); },
      [] { return ImageOf(TC421::Packet_PlayInit(Net, 1, "Lagoon")); },
      [] {
        return ImageOf(TC421::Packet_PlaySetChannels(Net, {1, 2, 3, 4, 5}));
      },
      [] { return ImageOf(TC421::Packet_Find()); },
  };
  for (const auto& encode : encoders) {
    const std::size_t before = Allocations();
    encode();
    if (Allocations() - before <= 2) continue;
    state.SkipWithError("encoding a packet takes memory more than twice");
    return false;
  }
  return true;
}

void EncodePacket(benchmark::State& state) {
  if (!TakesTwoStringsAtMost(state)) return;
  for (auto _ : state) benchmark::DoNotOptimize(ImageOf(TC421::Packet_ModeStep(Net, 7, Sample)));
}

void EncodePacketAndText(benchmark::State& state) {
  for (auto _ : state) {
    const TC421::Packet_ModeStep packet(Net, 7, Sample);
    benchmark::DoNotOptimize(ImageOf(packet));
    benchmark::DoNotOptimize(packet.Text());
  }
}

BENCHMARK(EncodePacket)->Unit(benchmark::kMicrosecond);
BENCHMARK(EncodePacketAndText)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace bench
