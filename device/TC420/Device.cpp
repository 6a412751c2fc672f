// SPDX-License-Identifier: MIT
#include "device/TC420/Device.h"

#include "device/PacketEncoding.h"
#include "device/TC420/Packets.h"

namespace TC420 {
namespace {

constexpr int AnyReply = -1;

}  // namespace

bool Device::Send(const TCBase::PacketBase& packet) {
  return Transact(packet, AnyReply);
}

bool Device::DoClearAll() {
  return Send(Packet_ClearAll());
}

bool Device::DoTimeSync(const TCBase::SYSTEMTIME& time) {
  return Send(Packet_TimeSync(time));
}

bool Device::DoUploadStart() {
  return true;
}

bool Device::DoUploadMode(int bank, const std::string& name, const std::vector<TCBase::ModeSample>& samples) {
  if (bank >= TCBase::BankCount || name.empty() || samples.size() < TCBase::FewestSamples) return false;
  if (!Send(Packet_ModeInit(bank, samples.size(), name.substr(0, TCBase::ModeNameBytes)))) return false;
  // A step that got lost does not stop the mode: the controller keeps the others.
  for (std::size_t i = 0; i < samples.size(); ++i) {
    SetProgress(i + 1, samples.size());
    Send(Packet_ModeStep(samples[i]));
  }
  return Send(Packet_ModeStepsStop());
}

// The controller leaves upload and demo by these packets; there is nothing left to do when one fails.

bool Device::DoUploadFinish() {
  Send(Packet_ModeStop());
  return true;
}

bool Device::DoDemoStart(const std::string& name) {
  Send(Packet_PlayInit(name));
  return true;
}

bool Device::DoDemoSetChannels(const int (&channels)[TCBase::ChannelCount]) {
  Send(Packet_PlaySetChannels(channels));
  return true;
}

bool Device::DoDemoFinish() {
  Send(Packet_ModeStop());
  return true;
}

}  // namespace TC420
