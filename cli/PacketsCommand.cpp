// SPDX-License-Identifier: MIT
// packets
#include <memory>
#include <ostream>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/DeviceJob.h"
#include "cli/LogPrinter.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "device/PacketEncoding.h"
#include "device/TC420/Device.h"
#include "device/TC421/Devices.h"
#include "worker/UploadJob.h"

namespace cli {
namespace {

/// A device that prints its packets instead of sending them, one to a line: the bytes, a blank, the log text.
template <typename Device>
class PacketPrinter : public Device {
 public:
  template <typename... Arguments>
  explicit PacketPrinter(std::ostream& out, const Arguments&... arguments)
      : Device(arguments...), out_(out) {}

  bool Transact(const TCBase::PacketBase& packet, int) override {
    std::string image;
    packet.Serialize(image);
    for (const char byte : image) {
      const auto value = static_cast<unsigned char>(byte);
      out_ << "0123456789ABCDEF"[value >> 4] << "0123456789ABCDEF"[value & 0xF];
    }
    out_ << ' ' << Printable(packet.Text()) << '\n';
    return true;
  }

 private:
  std::ostream& out_;
};

/// A clock on which nobody waits: there is no controller that needs time.
class HurriedClock : public platform::Clock {
 public:
  explicit HurriedClock(platform::Clock& clock) : clock_(clock) {}
  std::int64_t Counter() override { return clock_.Counter(); }
  std::int64_t Frequency() override { return clock_.Frequency(); }
  void Sleep(std::uint32_t) override {}
  platform::SYSTEMTIME LocalTime() override { return clock_.LocalTime(); }

 private:
  platform::Clock& clock_;
};

struct PacketsOptions {
  std::string path;
  std::string model;
  std::string identity;
  std::vector<int> modes;
};

constexpr const char* TC420Model = "tc420";
constexpr const char* UsbModel = "tc421-usb";
constexpr const char* NetworkModel = "tc421-net";

std::unique_ptr<TCBase::DeviceBase> PrinterFor(const PacketsOptions& options,
                                               const TCBase::DeviceContext& context, std::ostream& out) {
  if (options.model == TC420Model) return std::make_unique<PacketPrinter<TC420::Device>>(out, context);
  if (options.model == UsbModel) return std::make_unique<PacketPrinter<TC421::USBDevice>>(out, context);
  return std::make_unique<PacketPrinter<TC421::UDPDevice>>(out, context,
                                                           TCBase::NetworkDevice(options.identity, {}));
}

ExitStatus RunPackets(const PacketsOptions& options, Invocation& invocation) {
  const bool isTC420 = options.model == TC420Model;
  if (!options.identity.empty() && options.model != NetworkModel) {
    throw CommandError(WrongUsage, {TR("only packets for {1} carry an identity"), {NetworkModel}});
  }
  const TCBase::Program program = Load(options.path, invocation);
  const TCBase::Program::ModeListView modes(program, ModeIndicesOf(program, options.modes, options.path));
  LogPrinter& printer = invocation.printer;
  printer.KeepStandardOutputFree();
  HurriedClock clock(invocation.environment.clock);
  const TCBase::DeviceContext context{clock, printer.Log(), invocation.environment.network};
  const auto device = PrinterFor(options, context, invocation.environment.out);

  if (isTC420) WarnOfLongModes(modes, printer);
  const auto kind = isTC420 ? TCBase::DeviceKind::TC420 : TCBase::DeviceKind::TC421Usb;
  ExitStatus status = Done;
  device->UploadStart();
  for (std::size_t i = 0; i < modes.Size(); ++i) {
    const std::vector<TCBase::ModeSample> samples = TCBase::SamplesFor(kind, modes[i], printer.Log());
    if (!device->UploadMode(static_cast<int>(i), modes[i].name, samples)) {
      printer.Complain(
          {TR("the mode '{1}' would not be sent: a mode needs a name, {2} steps and one of {3} places"),
           {modes[i].name, TCBase::FewestSamples, TCBase::BankCount}});
      status = DeviceFailed;
    }
  }
  device->UploadFinish();
  return status;
}

}  // namespace

Runner DefinePackets(CLI::App& parser) {
  const auto options = std::make_shared<PacketsOptions>();
  AddFile(parser, options->path);
  TakeWord(*parser.add_option("--model", options->model, "The controller")->required(),
           {TC420Model, UsbModel, NetworkModel});
  parser
      .add_option("--identity", options->identity,
                  "The controller's identity in the packets for tc421-net, of 12 bytes; else none")
      ->type_name("TEXT");
  AddModes(parser, options->modes);
  return [options](Invocation& invocation) { return RunPackets(*options, invocation); };
}

}  // namespace cli
