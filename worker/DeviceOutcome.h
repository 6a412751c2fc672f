// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <vector>

#include "QorLib/Sentence.h"
#include "device/DeviceBase.h"
#include "device/DeviceInfo.h"

namespace TCBase {

/// How far a job is with one device, and in the end how it went: whether a front end may call the work done.
struct DeviceOutcome {
  enum class Stage {
    // while the job runs
    Waiting,     // other devices come first
    Connecting,  // is being opened
    Working,     // the detail says at what
    // how it ended
    Done,          // all of it, and every packet got through
    NotReached,    // the job never came to the device
    NotConnected,  // the device could not be opened
    Failed,        // the device did not take what the job brought, in whole or in part
    Incomplete,    // taken, but packets were lost on the way
    Cancelled,     // stopped before the end
  };

  DeviceInfo device;
  Stage stage = Stage::Waiting;
  qor::Sentence detail = {};     // for one line; empty where the stage says it all
  Denial denial = Denial::None;  // who kept it from being connected

  bool IsDone() const { return stage == Stage::Done; }
  bool IsFault() const {
    return stage == Stage::NotConnected || stage == Stage::Failed || stage == Stage::Incomplete;
  }
  /// Whether the user wanted it so.
  bool IsStop() const { return stage == Stage::Cancelled || stage == Stage::NotReached; }
};

/// The devices that a job visits, in their order, and how far it is with each.
struct JobOutcomes {
  int number = 0;  // of the job, from 1: tells jobs apart
  std::vector<DeviceOutcome> devices;
};

/// "Mode 2 of 3", "Done", "Not connected: no such device": what stands before the first colon fits into a
/// list; it is the sentence without its reasons.
qor::Sentence SentenceOf(const DeviceOutcome& outcome);

/// Writes how it ended into the log, unless it is done: "Orvanta 24: Not connected: no such device".
void LogOutcome(const DeviceOutcome& outcome, qor::Log& log);

/// Opens the device for a job, and for nobody else meanwhile; on failure writes "Connect error" and gives the
/// outcome.
std::optional<DeviceOutcome> Connect(DeviceBase& device, const DeviceInfo& info, qor::Log& log);

/// The sentence, with why the device's last packet failed behind it: "the time did not get through: no
/// answer"
qor::Sentence WithReason(qor::Sentence sentence, const DeviceBase& device);

/// "3 packets did not get through: no answer"
qor::Sentence LostPackets(const DeviceBase& device);

}  // namespace TCBase
