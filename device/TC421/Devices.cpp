// SPDX-License-Identifier: MIT
#include "device/TC421/Devices.h"

#include "device/PacketEncoding.h"
#include "device/TC421/Reply.h"

namespace TC421 {
namespace {

constexpr int AnyReply = -1;
constexpr std::uint32_t StepPauseMilliseconds = 20;  // in which the controller stores a step
constexpr std::uint8_t DemoLeading = 1;

}  // namespace

template <typename Transport>
bool Device<Transport>::CheckReply(const std::string& reply, int expected) {
  const std::optional<Reply> read = ReadReply(reply);
  return read && (expected < 0 || read->Verdict() == expected);
}

template <typename Transport>
bool Device<Transport>::Send(const TCBase::PacketBase& packet) {
  return this->Transact(packet, AnyReply);
}

template <typename Transport>
bool Device<Transport>::DoClearAll() {
  return Send(Packet_ClearAll(PacketRoute()));
}

template <typename Transport>
bool Device<Transport>::DoTimeSync(const TCBase::SYSTEMTIME& time) {
  return Send(Packet_TimeSync(PacketRoute(), time));
}

template <typename Transport>
bool Device<Transport>::DoUploadStart() {
  return true;
}

template <typename Transport>
bool Device<Transport>::DoUploadMode(int bank, const std::string& name,
                                     const std::vector<TCBase::ModeSample>& samples) {
  if (bank >= TCBase::BankCount || name.empty() || samples.size() < TCBase::FewestSamples) return false;
  const Route route = PacketRoute();
  if (!Send(Packet_ModeInit(route, bank, samples.size(), name.substr(0, TCBase::ModeNameBytes)))) {
    return false;
  }
  // A step that got lost does not stop the mode: the controller keeps the others.
  for (std::size_t i = 0; i < samples.size(); ++i) {
    this->SetProgress(i + 1, samples.size());
    this->Clock().Sleep(StepPauseMilliseconds);
    Send(Packet_ModeStep(route, static_cast<int>(i), samples[i]));
  }
  this->Clock().Sleep(StepPauseMilliseconds);
  return Send(Packet_ModeStepsStop(route));
}

// Nothing closes an upload.
template <typename Transport>
bool Device<Transport>::DoUploadFinish() {
  return true;
}

// A demo goes on whatever becomes of its packets.

template <typename Transport>
bool Device<Transport>::DoDemoStart(const std::string& name) {
  Send(Packet_PlayInit(PacketRoute(), DemoLeading, name));
  return true;
}

template <typename Transport>
bool Device<Transport>::DoDemoSetChannels(const int (&channels)[TCBase::ChannelCount]) {
  Send(Packet_PlaySetChannels(PacketRoute(), channels));
  return true;
}

template <typename Transport>
bool Device<Transport>::DoDemoFinish() {
  Send(Packet_ModeStop(PacketRoute()));
  return true;
}

template class Device<TCBase::USBDevice>;
template class Device<TCBase::UDPDevice>;

}  // namespace TC421
