// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <span>

#include "cli/Environment.h"
#include "cli/ExitStatus.h"

namespace cli {

/// Runs a command with the options that it was given; returns an exit status or throws.
using Runner = std::function<ExitStatus(Invocation&)>;

/// A command of the program: `define` adds its arguments to the parser and gives what runs it.
struct Command {
  const char* name;
  const char* summary;
  Runner (*define)(CLI::App& parser);
  const char* examples;  // for its help, a line each, two blanks in
};

/// All commands, in the order of the help.
std::span<const Command> Commands();

// What they do
Runner DefineNew(CLI::App& parser);
Runner DefineInfo(CLI::App& parser);
Runner DefineHelp(CLI::App& parser);
Runner DefineEdit(CLI::App& parser);
Runner DefineTable(CLI::App& parser);
Runner DefineSample(CLI::App& parser);
Runner DefineSteps(CLI::App& parser);
Runner DefineChart(CLI::App& parser);
Runner DefineConvert(CLI::App& parser);
Runner DefineOptimize(CLI::App& parser);
Runner DefineAlign(CLI::App& parser);
Runner DefineAddStep(CLI::App& parser);
Runner DefinePackets(CLI::App& parser);
Runner DefineUpload(CLI::App& parser);
Runner DefineDemo(CLI::App& parser);
Runner DefineSyncTime(CLI::App& parser);
Runner DefineSetTime(CLI::App& parser);
Runner DefineClear(CLI::App& parser);
Runner DefineWiFi(CLI::App& parser);
Runner DefineDevices(CLI::App& parser);
Runner DefineMonitor(CLI::App& parser);
Runner DefineDoctor(CLI::App& parser);
Runner DefineUdevRule(CLI::App& parser);
Runner DefineTranslation(CLI::App& parser);
Runner DefineCompletion(CLI::App& parser);

}  // namespace cli
