// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

namespace cli {

std::span<const Command> Commands() {
  static constexpr Command Table[] = {
      {"new", "Write a new program with the built-in modes", DefineNew},
      {"info", "Show a program's modes, step counts and channels", DefineInfo},
      {"sample", "Show the channels' values at a time, or a mode's sample table", DefineSample},
      {"steps", "Show a channel's steps as text, or change them by a text", DefineSteps},
      {"chart", "Draw a mode's chart as a picture", DefineChart},
      {"convert", "Convert a program to another format", DefineConvert},
      {"optimize", "Bring modes under the number of steps that controllers take", DefineOptimize},
      {"align", "Align the steps to a grid of minutes", DefineAlign},
      {"add-step", "Add a step to all channels", DefineAddStep},
      {"packets", "Show the packets that an upload would send", DefinePackets},
      {"upload", "Upload a program to controllers", DefineUpload},
      {"demo", "Play a mode's whole day on controllers, in a minute", DefineDemo},
      {"sync-time", "Set controllers' clocks to this computer's time", DefineSyncTime},
      {"set-time", "Set controllers' clocks to a date and time", DefineSetTime},
      {"clear", "Remove all modes from controllers", DefineClear},
      {"wifi", "Have a TC421 join a Wi-Fi network", DefineWiFi},
      {"devices", "List the controllers that are plugged in, or on the network", DefineDevices},
      {"monitor", "Report controllers being plugged in and out, until Ctrl+C", DefineMonitor},
      {"doctor", "Say what may keep controllers out of reach, and what to do", DefineDoctor},
      {"udev-rule", "Print the rule by which Linux lets users reach controllers", DefineUdevRule},
      {"translation", "Write the program's texts for translators, or check their file", DefineTranslation},
      {"completion", "Print a shell's script for completing commands", DefineCompletion},
  };
  return Table;
}

}  // namespace cli
