// SPDX-License-Identifier: MIT
// wifi
#include <memory>
#include <optional>
#include <ostream>

#include "cli/Commands.h"
#include "cli/DeviceArguments.h"
#include "cli/DeviceJob.h"
#include "cli/LogPrinter.h"
#include "worker/WiFiJob.h"

namespace cli {
namespace {

using TCBase::WiFiFault;
using TCBase::WiFiSettings;

struct WiFiOptions {
  std::string device;
  std::string ssid;
  std::string security;
  std::optional<int> encryption;
  bool passwordFromInput = false;
};

/// A line of standard input; from a terminal without showing it.
std::string ReadPassword(Environment& environment) {
  std::string password;
  if (environment.terminal.isInput) {
    environment.watchInterrupts();
    environment.err << "Password: " << std::flush;
    const std::optional<std::string> line = environment.terminal.readHiddenLine();
    environment.err << std::endl;
    if (!line) throw CommandError(Interrupted, {"no password was given; nothing was sent", {}});
    password = *line;
  } else {
    std::getline(environment.in, password);
  }
  if (password.ends_with('\r')) password.pop_back();
  return password;
}

WiFiSettings SettingsOf(const WiFiOptions& options, Environment& environment) {
  WiFiSettings settings;
  settings.ssid = options.ssid;
  settings.encryption = options.encryption.value_or(0);
  settings.security = options.security == "open" ? WiFiSettings::Open : std::stoi(options.security);
  const bool isOpen = settings.security == WiFiSettings::Open;
  if (isOpen && (options.passwordFromInput || options.encryption)) {
    throw CommandError(WrongUsage,
                       {"an open network has no password; leave --password-stdin and --encryption out", {}});
  }
  if (!isOpen && !options.passwordFromInput && !environment.terminal.isInput) {
    throw CommandError(
        WrongUsage,
        {"a protected network needs its password: add --password-stdin and give it on standard input", {}});
  }
  if (!isOpen) settings.password = ReadPassword(environment);
  return settings;
}

void Check(const WiFiSettings& settings) {
  qor::Sentence fault;
  switch (TCBase::FaultOf(settings)) {
    case WiFiFault::None: return;
    case WiFiFault::NoName: fault = {"the network's name is empty", {}}; break;
    case WiFiFault::NoPassword: fault = {"the password is empty", {}}; break;
    case WiFiFault::NameTooLong:
      fault = {"the network's name has {1} bytes; a controller takes at most {2}",
               {settings.ssid.size(), TCBase::MostNameBytes(settings.security)}};
      break;
    case WiFiFault::PasswordTooLong:
      fault = {"the password has {1} bytes; a controller takes at most {2}",
               {settings.password.size(), TCBase::MostPasswordBytes}};
      break;
  }
  throw CommandError(WrongUsage, fault);
}

ExitStatus RunWiFi(const WiFiOptions& options, Invocation& invocation) {
  const TCBase::DeviceInfo device = DeviceOf(options.device);
  if (!TCBase::IsTC421(device.kind)) {
    throw CommandError(WrongUsage,
                       {"only a TC421 has Wi-Fi; devices are {1}", {"tc421, tc421@ADDRESS[,IDENTITY]"}});
  }
  const WiFiSettings settings = SettingsOf(options, invocation.environment);
  Check(settings);
  TCBase::DeviceOutcome outcome{device, TCBase::DeviceOutcome::Stage::NotReached, {}};
  const auto setUp = [&] { outcome = TCBase::SetupWiFi(device, settings, ContextOf(invocation)); };
  // A name without its password would leave the controller in no network at all: it is finished in any case.
  return RunJob({[&](TCBase::Worker& worker) { worker.Enqueue(setUp); },
                 {"waiting for the controller, which needs all of it", {}}},
                invocation, [&](TCBase::Worker&) { return std::vector{outcome}; });
}

}  // namespace

Runner DefineWiFi(CLI::App& parser) {
  constexpr int MostEncryption = 255;  // a byte in the packet
  const auto options = std::make_shared<WiFiOptions>();
  parser.add_option("--device", options->device, "The TC421: tc421 or tc421@ADDRESS[,IDENTITY]")
      ->required()
      ->type_name("D");
  parser.add_option("--ssid", options->ssid, "The name of the network to join")
      ->required()
      ->type_name("NAME");
  parser.add_option("--security", options->security, "How the network is protected: open, 1 or 2")
      ->required()
      ->type_name("S")
      ->check(CLI::IsMember({"open", "1", "2"}));
  parser
      .add_option("--encryption", options->encryption,
                  "A number that goes along with a protected network's name; else 0")
      ->type_name("N")
      ->check(CLI::Range(0, MostEncryption));
  parser.add_flag("--password-stdin", options->passwordFromInput, "Read the password from standard input");
  return [options](Invocation& invocation) { return RunWiFi(*options, invocation); };
}

}  // namespace cli
