// SPDX-License-Identifier: MIT
#include "device/SurplusAnswers.h"

#include <algorithm>

namespace TCBase {
namespace {

constexpr std::uint32_t PollMilliseconds = 20;
constexpr std::int64_t MostLateMilliseconds = 2000;  // between two sendings of a packet
constexpr std::int64_t PatienceMilliseconds = 10000;

/// A little longer, for what sleeping and the way vary by.
constexpr std::int64_t SilenceFor(std::int64_t lateMilliseconds) {
  const std::int64_t late = std::min(lateMilliseconds, MostLateMilliseconds);
  return late + late / 25 + PollMilliseconds;
}

}  // namespace

bool SurplusAnswers::Clear(const std::function<bool()>& drop) {
  const std::int64_t begin = Milliseconds();
  std::int64_t silentSince = begin;
  while (true) {
    while (Milliseconds() - begin < PatienceMilliseconds && drop()) {
      WasSurplus();
      silentSince = Milliseconds();
    }
    if (Milliseconds() - silentSince >= NeededSilence()) break;
    if (Milliseconds() - begin >= PatienceMilliseconds) return false;
    clock_.Sleep(PollMilliseconds);
  }
  if (!cleanSince_ || NeededSilence() > 0) cleanSince_ = Milliseconds();
  isMoreExpected_ = false;
  return true;
}

void SurplusAnswers::WasSurplus() {
  const std::int64_t now = Milliseconds();
  silence_ = std::max(silence_, SilenceFor(now - cleanSince_.value_or(now)));
}

std::int64_t SurplusAnswers::NeededSilence() const {
  return isMoreExpected_ ? SilenceFor(MostLateMilliseconds) : silence_;
}

}  // namespace TCBase
