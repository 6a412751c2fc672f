// SPDX-License-Identifier: MIT
#include <hidapi.h>

#include <cerrno>
#include <iostream>

#include "cli/ExitStatus.h"
#include "cli/Run.h"
#include "cli/UdevRule.h"
#include "platform/Console.h"
#include "platform/Folders.h"
#include "platform/SystemError.h"

int main(int argc, char** argv) {
  const std::vector<std::string> arguments = platform::StartConsole(argc, argv);
  cli::Environment environment{std::cin,
                               std::cout,
                               std::cerr,
                               platform::SystemClock(),
                               platform::SystemNetwork(),
                               platform::SystemDeviceLocks(),
                               [](const std::vector<std::string>& devices) {
                                 return platform::LookAtComputer(cli::UdevRuleName, devices);
                               },
                               platform::SettingsFolder(),
                               platform::WatchInterrupts,
                               platform::IsInterrupted,
                               {platform::IsInputTerminal(), platform::IsErrorTerminal(),
                                platform::OpenKeyboard, platform::ReadHiddenLine},
                               platform::RunEditor,
                               platform::Variable};
  int status = cli::Run(arguments, environment);
  hid_exit();
  std::cout.flush();
  if (!std::cout && status == cli::Done) {
    std::cerr << "halvex: standard output could not be written" << std::endl;
    status = cli::FileFailed;
  }
  return status;
}
