// SPDX-License-Identifier: MIT
#pragma once

#include "device/TC420/Device.h"

namespace TC420 {

/// The emulator: a TC420 in memory. Packets are made and traced as for a real one, then kept; nothing is sent
/// and nothing waits.
class Mock : public Device {
 public:
  using Device::Device;

  bool Open() override { return true; }
  bool Write(const std::string& image) override;
  bool Read(std::string& reply) override;

  /// The images of all packets, in the order in which they were written.
  const std::vector<std::string>& Written() const { return written_; }

 private:
  bool DropAnswer() override { return false; }

  std::vector<std::string> written_;
};

}  // namespace TC420
