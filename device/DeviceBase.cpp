// SPDX-License-Identifier: MIT
#include "device/DeviceBase.h"

namespace TCBase {

bool WaitsFor(const OpenFailure& failure, const DeviceContext& context) {
  constexpr std::uint32_t PauseMilliseconds = 200;
  if (failure.denial != Denial::InUse || !context.mayWait()) return false;
  context.clock.Sleep(PauseMilliseconds);
  return true;
}

bool DeviceBase::OpenAlone(const std::string& lockName) {
  while (!TryOpenAlone(lockName)) {
    if (!WaitsFor(openFault_, context_)) return false;
  }
  return true;
}

bool DeviceBase::TryOpenAlone(const std::string& lockName) {
  lock_.reset();
  if (context_.locks != nullptr && !lockName.empty()) {
    lock_ = context_.locks->TryTake(lockName);
    if (lock_ == nullptr) {
      SetOpenFailure({TR("in use by another program"), Denial::InUse});
      return false;
    }
  }
  return Open();
}

bool DeviceBase::CheckReply(const std::string&, int) {
  return true;
}

bool DeviceBase::WritePacket(const PacketBase& packet) {
  if (Log().IsTracing()) Log().Trace("WritePacket: " + packet.Text());
  std::string image;
  packet.Serialize(image);
  return Write(image);
}

bool DeviceBase::ClearAll() {
  Log().Trace("ClearAll");
  return DoClearAll();
}

bool DeviceBase::TimeSync(const SYSTEMTIME& time) {
  Log().Trace("TimeSync");
  return DoTimeSync(time);
}

bool DeviceBase::UploadStart() {
  Log().Trace("UploadStart");
  return DoUploadStart();
}

bool DeviceBase::UploadMode(int bank, const std::string& name, const std::vector<ModeSample>& samples) {
  Log().Trace("UploadMode");
  return DoUploadMode(bank, name, samples);
}

bool DeviceBase::UploadFinish() {
  Log().Trace("UploadFinish");
  return DoUploadFinish();
}

bool DeviceBase::DemoStart(const std::string& name) {
  Log().Trace("DemoStart");
  return DoDemoStart(name);
}

bool DeviceBase::DemoSetChannels(const int (&channels)[ChannelCount]) {
  Log().Trace("DemoSetChannels");
  return DoDemoSetChannels(channels);
}

bool DeviceBase::DemoFinish() {
  Log().Trace("DemoFinish");
  return DoDemoFinish();
}

bool DeviceBase::ClearLine() {
  constexpr int AnyReply = -1, MostDropped = 1000;
  const auto drop = [this] { return DropAnswer(); };
  if (CheckReply({}, AnyReply)) {  // silence is an answer
    for (int dropped = 0; dropped < MostDropped && drop();) ++dropped;
    return true;
  }
  if (surplus_.Clear(drop)) return true;
  SetLastFailure(TR("answers that belong to no packet do not end"));
  return false;
}

bool DeviceBase::Counted(bool succeeded) {
  failedTransactions_ += succeeded ? 0 : 1;
  return succeeded;
}

}  // namespace TCBase
