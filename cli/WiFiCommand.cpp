// SPDX-License-Identifier: MIT
// wifi
#include <algorithm>
#include <memory>
#include <optional>
#include <ostream>

#include "cli/Commands.h"
#include "cli/DeviceArguments.h"
#include "cli/DeviceJob.h"
#include "cli/LogPrinter.h"
#include "cli/ProgramArguments.h"
#include "worker/WiFiJob.h"

namespace cli {
namespace {

using TCBase::WiFiFault;
using TCBase::WiFiSettings;

struct WiFiOptions {
  DeviceOptions devices;
  std::string ssid;
  std::string security;
  std::optional<int> encryption;
  bool passwordFromInput = false;
};

/// What the number means that is sent; of the second one it is known, of the first it is the obvious guess.
struct Security {
  std::string_view name;
  int number;
};
constexpr Security Securities[] = {{"open", WiFiSettings::Open}, {"wpa", 1}, {"wpa2", 2}, {"1", 1}, {"2", 2}};

/// A line of standard input; from a terminal without showing it.
std::string ReadPassword(Environment& environment) {
  std::string password;
  if (environment.terminal.isInput) {
    environment.watchInterrupts();
    environment.err << "Password: " << std::flush;
    const std::optional<std::string> line = environment.terminal.readHiddenLine();
    environment.err << std::endl;
    if (!line) throw CommandError(Interrupted, TR("no password was given; nothing was sent"));
    password = *line;
  } else {
    std::getline(environment.in, password);
  }
  if (password.ends_with('\r')) password.pop_back();
  return password;
}

/// All but the password.
WiFiSettings SettingsOf(const WiFiOptions& options, const Environment& environment) {
  WiFiSettings settings;
  settings.ssid = options.ssid;
  settings.encryption = options.encryption.value_or(0);
  settings.security = std::ranges::find(Securities, options.security, &Security::name)->number;
  const bool isOpen = settings.security == WiFiSettings::Open;
  if (isOpen && (options.passwordFromInput || options.encryption)) {
    throw CommandError(WrongUsage,
                       TR("an open network has no password; leave --password-stdin and --encryption out"));
  }
  if (!isOpen && !options.passwordFromInput && !environment.terminal.isInput) {
    throw CommandError(
        WrongUsage,
        TR("a protected network needs its password: add --password-stdin and give it on standard input"));
  }
  return settings;
}

void Complain(WiFiFault found, const WiFiSettings& settings) {
  qor::Sentence fault;
  switch (found) {
    case WiFiFault::None: return;
    case WiFiFault::NoName: fault = TR("the network's name is empty"); break;
    case WiFiFault::NoPassword: fault = TR("the password is empty"); break;
    case WiFiFault::NameTooLong:
      fault = {TR("the network's name has {1} bytes; a controller takes at most {2}"),
               {settings.ssid.size(), TCBase::MostNameBytes(settings.security)}};
      break;
    case WiFiFault::PasswordTooLong:
      fault = {TR("the password has {1} bytes; a controller takes at most {2}"),
               {settings.password.size(), TCBase::MostPasswordBytes}};
      break;
  }
  throw CommandError(WrongUsage, fault);
}

ExitStatus RunWiFi(const WiFiOptions& options, Invocation& invocation) {
  WiFiSettings settings = SettingsOf(options, invocation.environment);
  const WiFiFault fault = TCBase::FaultOf(settings);
  if (fault != WiFiFault::NoPassword) Complain(fault, settings);
  const std::vector<TCBase::DeviceInfo> devices = DevicesOf(options.devices, invocation);
  if (devices.size() > 1) throw CommandError(WrongUsage, TR("one controller at a time can be set up"));
  const TCBase::DeviceInfo& device = devices.front();
  if (!TCBase::IsTC421(device.kind)) {
    throw CommandError(WrongUsage,
                       TR("only a TC421 has Wi-Fi; name one with --device tc421, or its address"));
  }
  // The controller is there, so the password is asked for.
  if (settings.security != WiFiSettings::Open) settings.password = ReadPassword(invocation.environment);
  Complain(TCBase::FaultOf(settings), settings);
  TCBase::DeviceOutcome outcome{device, TCBase::DeviceOutcome::Stage::NotReached, {}};
  const int wait = options.devices.waitSeconds;
  const auto setUp = [&] { outcome = TCBase::SetupWiFi(device, settings, ContextOf(invocation, wait)); };
  // A name without its password would leave the controller in no network at all: it is finished in any case.
  const ExitStatus status = RunJob({[&](TCBase::Worker& worker) { worker.Enqueue(setUp); }, wait,
                                    TR("waiting for the controller, which needs all of it")},
                                   invocation, [&](TCBase::Worker&) { return std::vector{outcome}; });
  if (status == Done) {
    invocation.printer.Log().Message(
        TR("The controller has the settings of {1}. Whether it could join, it does not say: look for it with "
           "halvex devices --scan in a minute."),
        {settings.ssid});
  }
  return status;
}

}  // namespace

Runner DefineWiFi(CLI::App& parser) {
  constexpr int MostEncryption = 255;  // a byte in the packet
  const auto options = std::make_shared<WiFiOptions>();
  AddDevices(parser, options->devices);
  parser.add_option("--ssid", options->ssid, "The name of the network to join")
      ->required()
      ->type_name("NAME");
  std::vector<std::string> securities;
  for (const Security& security : Securities) securities.emplace_back(security.name);
  TakeWord(
      *parser
           .add_option("--security", options->security,
                       "How the network is protected; open has no password, 1 and 2 are the numbers that "
                       "are sent for wpa and wpa2")
           ->required(),
      securities);
  parser
      .add_option("--encryption", options->encryption,
                  "A number that goes along with a protected network's name; else 0")
      ->type_name("N")
      ->check(CheckNumber(0, MostEncryption));
  parser.add_flag("--password-stdin", options->passwordFromInput, "Read the password from standard input");
  return [options](Invocation& invocation) { return RunWiFi(*options, invocation); };
}

}  // namespace cli
