// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "QorLib/Log.h"
#include "device/PacketBase.h"
#include "device/SurplusAnswers.h"
#include "model/ModeSample.h"
#include "platform/Clock.h"
#include "platform/DeviceLock.h"
#include "platform/Network.h"

namespace TCBase {

using platform::SYSTEMTIME;

/// What devices use of the program; all of it outlives them.
struct DeviceContext {
  platform::Clock& clock;
  qor::Log& log;
  platform::Network& network;
  platform::DeviceLocks* locks = nullptr;  // null: no other program is kept from the devices
  /// Asked again and again, from the worker's thread, while another program has a device or the UDP port:
  /// whether to go on waiting for it.
  std::function<bool()> mayWait = [] { return false; };
};

/// Who keeps a program from a device that is there.
enum class Denial { None, NoPermission, InUse };

/// Why a device could not be opened.
struct OpenFailure {
  qor::Sentence text;  // empty when nothing is known
  Denial denial = Denial::None;
};

/// Waits a little where another program stands in the way and may soon be gone; whether to try again.
bool WaitsFor(const OpenFailure& failure, const DeviceContext& context);

/// A controller: opened once, used for one job's operations, closed by its destructor. Every operation
/// blocks, reports failure by false and writes the communication trace; none throws. One thread at a time.
class DeviceBase {
 public:
  explicit DeviceBase(const DeviceContext& context) : context_(context), surplus_(context.clock) {}
  virtual ~DeviceBase() = default;
  DeviceBase(const DeviceBase&) = delete;
  DeviceBase& operator=(const DeviceBase&) = delete;

  // The transport
  virtual bool Open() = 0;
  /// Sends one serialized packet.
  virtual bool Write(const std::string& image) = 0;
  /// Collects the controller's reply, which may be empty.
  virtual bool Read(std::string& reply) = 0;
  /// Sends a packet, waits for the reply and has it checked.
  virtual bool Transact(const PacketBase& packet, int expected) = 0;
  virtual bool CheckReply(const std::string& reply, int expected);
  virtual bool WritePacket(const PacketBase& packet);

  /// Opens it for a job: until the object's end no other program on this computer that asks so gets the
  /// device. `lockName` tells devices apart; an empty one is free for all.
  bool OpenAlone(const std::string& lockName);

  // What jobs do with a controller
  virtual bool ClearAll();
  virtual bool TimeSync(const SYSTEMTIME& time);
  virtual bool UploadStart();
  virtual bool UploadMode(int bank, const std::string& name, const std::vector<ModeSample>& samples);
  virtual bool UploadFinish();
  virtual bool DemoStart(const std::string& name);
  virtual bool DemoSetChannels(const int (&channels)[ChannelCount]);
  virtual bool DemoFinish();

  /// Has that function told how far UploadMode is: with which step, from 1, of how many.
  void OnProgress(std::function<void(std::size_t step, std::size_t steps)> told) {
    onProgress_ = std::move(told);
  }

  /// Why `Open` or `OpenAlone` failed, as far as the system tells.
  const OpenFailure& OpenFault() const { return openFault_; }
  /// How many transactions have failed since the device was made. Some operations go on after a failed packet
  /// and do not report it; this tells whether everything got through.
  int FailedTransactions() const { return failedTransactions_; }
  /// Why the last of them failed, in a few words; empty when there are none.
  const qor::Sentence& LastFailure() const { return lastFailure_; }

 protected:
  // The models' part of each operation
  virtual bool DoClearAll() = 0;
  virtual bool DoTimeSync(const SYSTEMTIME& time) = 0;
  virtual bool DoUploadStart() = 0;
  virtual bool DoUploadMode(int bank, const std::string& name, const std::vector<ModeSample>& samples) = 0;
  virtual bool DoUploadFinish() = 0;
  virtual bool DoDemoStart(const std::string& name) = 0;
  virtual bool DoDemoSetChannels(const int (&channels)[ChannelCount]) = 0;
  virtual bool DoDemoFinish() = 0;

  qor::Log& Log() { return context_.log; }
  platform::Clock& Clock() { return context_.clock; }
  platform::Network& Network() { return context_.network; }
  void SetOpenFailure(OpenFailure failure) { openFault_ = std::move(failure); }
  void SetLastFailure(qor::Sentence why) { lastFailure_ = std::move(why); }
  /// Takes what waits and has nothing to answer; whether it may be an answer to an earlier packet.
  virtual bool DropAnswer() = 0;
  /// To be called before a packet's first sending: sees to it that no earlier answer can be taken for this
  /// packet's. It needs no time while each packet is answered once and in time, nor ever with a controller
  /// that may be silent. False when the answers do not end.
  bool ClearLine();
  SurplusAnswers& Surplus() { return surplus_; }
  /// Told by the models how many of a mode's steps the controller has got.
  void SetProgress(std::size_t step, std::size_t steps) const {
    if (onProgress_) onProgress_(step, steps);
  }
  /// Counts a transaction that failed; returns its result.
  bool Counted(bool succeeded);

 private:
  bool TryOpenAlone(const std::string& lockName);

  DeviceContext context_;
  SurplusAnswers surplus_;
  std::unique_ptr<platform::DeviceLock> lock_;
  OpenFailure openFault_;
  int failedTransactions_ = 0;
  qor::Sentence lastFailure_;
  std::function<void(std::size_t, std::size_t)> onProgress_;
};

}  // namespace TCBase
