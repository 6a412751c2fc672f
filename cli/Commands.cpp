// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

namespace cli {

std::span<const Command> Commands() {
  static constexpr Command Table[] = {
      {"new", "Write a new program with the built-in modes", DefineNew},
      {"info", "Show a program's modes, step counts and channels", DefineInfo},
      {"sample", "Show the channels' values at a time, or a mode's sample table", DefineSample},
      {"convert", "Convert a program to another file", DefineConvert},
      {"packets", "Show the packets that an upload would send", DefinePackets},
      {"upload", "Upload a program to controllers", DefineUpload},
      {"devices", "List the controllers that are plugged in", DefineDevices},
      {"monitor", "Report controllers being plugged in and out, until Ctrl+C", DefineMonitor},
  };
  return Table;
}

}  // namespace cli
