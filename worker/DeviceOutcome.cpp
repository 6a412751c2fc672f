// SPDX-License-Identifier: MIT
#include "worker/DeviceOutcome.h"

namespace TCBase {
namespace {

using Stage = DeviceOutcome::Stage;

qor::Sentence StageSentence(Stage stage) {
  switch (stage) {
    case Stage::Waiting: return TR("Waiting");
    case Stage::Connecting: return TR("Connecting");
    case Stage::Working: return {};
    case Stage::Done: return TR("Done");
    case Stage::NotReached: return TR("Not reached");
    case Stage::NotConnected: return TR("Not connected");
    case Stage::Failed: return TR("Failed");
    case Stage::Incomplete: return TR("Incomplete");
    case Stage::Cancelled: return TR("Stopped");
  }
  return {};
}

}  // namespace

qor::Sentence SentenceOf(const DeviceOutcome& outcome) {
  qor::Sentence sentence = StageSentence(outcome.stage);
  if (!sentence) return outcome.detail;
  if (outcome.detail) sentence.reasons.push_back(outcome.detail);
  return sentence;
}

void LogOutcome(const DeviceOutcome& outcome, qor::Log& log) {
  if (outcome.IsDone()) return;
  const qor::Sentence line = qor::About(outcome.device.name, SentenceOf(outcome));
  outcome.IsStop() ? log.Message(line) : log.Failure(line);
}

std::optional<DeviceOutcome> Connect(DeviceBase& device, const DeviceInfo& info, qor::Log& log) {
  if (device.OpenAlone(LockNameOf(info))) return std::nullopt;
  log.Message(TR("Connect error"));
  const OpenFailure& failure = device.OpenFault();
  return DeviceOutcome{info, Stage::NotConnected, failure.text, failure.denial};
}

qor::Sentence WithReason(qor::Sentence sentence, const DeviceBase& device) {
  if (device.LastFailure()) sentence.reasons.push_back(device.LastFailure());
  return sentence;
}

qor::Sentence LostPackets(const DeviceBase& device) {
  const int count = device.FailedTransactions();
  if (count == 1) return WithReason(TR("a packet did not get through"), device);
  return WithReason({TR("{1} packets did not get through"), {count}}, device);
}

}  // namespace TCBase
