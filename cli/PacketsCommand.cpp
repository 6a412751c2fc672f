// SPDX-License-Identifier: MIT
// packets
#include <memory>
#include <ostream>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/LogPrinter.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "device/TC420/Device.h"
#include "model/ModeSample.h"

namespace cli {
namespace {

/// A device that prints its packets instead of sending them, one to a line: the bytes, a blank, the log text.
template <typename Device>
class PacketPrinter : public Device {
 public:
  PacketPrinter(const TCBase::DeviceContext& context, std::ostream& out) : Device(context), out_(out) {}

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

struct PacketsOptions {
  std::string path;
  std::string model;
  std::vector<int> modes;
};

ExitStatus RunPackets(const PacketsOptions& options, Invocation& invocation) {
  const TCBase::Program program = Load(options.path, invocation);
  const TCBase::Program::ModeListView modes(program, ModeIndicesOf(program, options.modes, options.path));
  LogPrinter& printer = invocation.printer;
  const TCBase::DeviceContext context{invocation.environment.clock, printer.Log()};
  PacketPrinter<TC420::Device> device(context, invocation.environment.out);

  WarnOfLongModes(modes, printer);
  ExitStatus status = Done;
  device.UploadStart();
  for (std::size_t i = 0; i < modes.Size(); ++i) {
    const std::vector<TCBase::ModeSample> samples = TCBase::SampleTable(modes[i]);
    if (!device.UploadMode(static_cast<int>(i), modes[i].name, samples)) {
      printer.Complain(
          qor::Format("the mode '{1}' would not be sent: a mode needs a name, 2 steps and one of 64 "
                      "places",
                      {modes[i].name}));
      status = DeviceFailed;
    }
  }
  device.UploadFinish();
  return status;
}

}  // namespace

Runner DefinePackets(CLI::App& parser) {
  const auto options = std::make_shared<PacketsOptions>();
  AddFile(parser, options->path);
  parser.add_option("--model", options->model, "The controller: tc420")
      ->required()
      ->type_name("MODEL")
      ->check(CLI::IsMember({"tc420"}));
  AddModes(parser, options->modes);
  return [options](Invocation& invocation) { return RunPackets(*options, invocation); };
}

}  // namespace cli
