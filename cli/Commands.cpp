// SPDX-License-Identifier: MIT
#include "cli/Commands.h"

namespace cli {

std::span<const Command> Commands() {
  static constexpr Command Table[] = {
      {"new", "Write a new program with the built-in modes", DefineNew, "  halvex new reef.xml\n"},
      {"info", "Show a program's modes, step counts and channels", DefineInfo,
       "  halvex info reef.xml\n"
       "  halvex info reef.xml --strict && halvex upload reef.xml\n"},
      {"table", "Show a mode's whole day as text, or take it from one", DefineTable,
       "  halvex table reef.xml > day.txt\n"
       "  halvex table reef.xml --set day.txt -i\n"},
      {"edit", "Edit a mode's whole day as text, in your editor", DefineEdit,
       "  halvex edit reef.xml\n"
       "  EDITOR=nano halvex edit reef.xml --mode 2\n"},
      {"steps", "Show a channel's steps as text, or change them by a text", DefineSteps,
       "  halvex steps reef.xml --channel 2\n"
       "  echo 12:30 60 | halvex steps reef.xml --channel 2 --add - -i\n"},
      {"add-step", "Add a step to all channels", DefineAddStep, "  halvex add-step reef.xml --at 12:30 -i\n"},
      {"align", "Align the steps to a grid of minutes", DefineAlign,
       "  halvex align reef.xml --minutes 15 -o aligned.xml\n"},
      {"optimize", "Bring modes under the number of steps that controllers take", DefineOptimize,
       "  halvex optimize reef.xml -i\n"
       "  halvex optimize reef.xml --steps 20 -o blue.xml\n"
       "  halvex optimize reef.xml --tc421 -o wifi.xml\n"},
      {"sample", "Show the channels' brightness at a time, or through the day", DefineSample,
       "  halvex sample reef.xml --at 12:30\n"
       "  halvex sample reef.xml --every 15 --csv > day.csv\n"},
      {"chart", "Draw a mode's chart as a picture", DefineChart,
       "  halvex chart reef.xml -o reef.svg\n"
       "  halvex chart reef.xml --mode 2 -o - > reef.svg\n"},
      {"convert", "Convert a program to another format", DefineConvert,
       "  halvex convert day.tmf reef.xml\n"
       "  halvex convert reef.xml night.lmf --mode 2\n"},
      {"packets", "Show the packets that an upload would send", DefinePackets,
       "  halvex packets reef.xml --model tc420\n"},
      {"upload", "Upload a program to controllers", DefineUpload,
       "  halvex upload reef.xml\n"
       "  halvex upload reef.xml -d tc420 -d 192.168.1.20 --sync-time\n"},
      {"demo", "Play a mode's whole day on controllers, in a minute", DefineDemo,
       "  halvex demo reef.xml\n"
       "  halvex demo reef.xml --seconds 180 --start 08:00\n"},
      {"sync-time", "Set controllers' clocks to this computer's time", DefineSyncTime,
       "  halvex sync-time --device all\n"},
      {"set-time", "Set controllers' clocks to a date and time", DefineSetTime,
       "  halvex set-time \"2026-03-29 12:00:00\" --device tc420\n"},
      {"clear", "Remove all modes from controllers", DefineClear, "  halvex clear --device tc420\n"},
      {"wifi", "Have a TC421 join a Wi-Fi network", DefineWiFi,
       "  halvex wifi --ssid Reef --security wpa2\n"
       "  halvex wifi --ssid Reef --security wpa2 --password-stdin < password.txt\n"},
      {"devices", "List the controllers that are plugged in, or on the network", DefineDevices,
       "  halvex devices\n"
       "  halvex devices --scan\n"},
      {"monitor", "Report controllers being plugged in and out, until Ctrl+C", DefineMonitor,
       "  halvex monitor\n"},
      {"doctor", "Say what may keep controllers out of reach, and what to do", DefineDoctor,
       "  halvex doctor\n"},
      {"udev-rule", "Print the rule by which Linux lets users reach controllers", DefineUdevRule,
       "  halvex udev-rule | sudo tee /etc/udev/rules.d/71-halvex.rules\n"
       "  halvex udev-rule --group plugdev\n"},
      {"translation", "Write the program's texts for translators, or check their file", DefineTranslation,
       "  halvex translation --export texts.xml --lang de\n"
       "  halvex translation --test texts.xml\n"},
      {"completion", "Print a shell's script for completing commands", DefineCompletion,
       "  halvex completion bash > ~/.local/share/bash-completion/completions/halvex\n"},
      {"help", "Show what the program can do, or a command's options", DefineHelp, "  halvex help upload\n"},
  };
  return Table;
}

}  // namespace cli
