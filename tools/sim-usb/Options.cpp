// SPDX-License-Identifier: MIT
#include "Options.h"

#include <charconv>
#include <stdexcept>
#include <string_view>

namespace SimUsb {
namespace {

using std::chrono::milliseconds;

constexpr Model Models[] = {
    {"tc420", "TC420", 0x0888, 0x4000},
    {"tc421", "TC421", 0x0483, 0x5750},
};

Model ParseModel(const std::string& text) {
  for (const Model& model : Models) {
    if (text == model.name) return model;
  }
  throw std::invalid_argument("There is no model \"" + text + "\".");
}

int ParseNumber(const std::string& text, int lowest, int highest) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, number);
  if (parsed.ec != std::errc() || parsed.ptr != end || number < lowest || number > highest) {
    throw std::invalid_argument("\"" + text + "\" is not a number from " + std::to_string(lowest) + " to " +
                                std::to_string(highest) + ".");
  }
  return number;
}

struct Row {
  std::string_view name;
  std::string_view argument;  // empty for a plain switch
  std::string_view help;
  void (*apply)(Options& options, const std::string& argument);
};

constexpr int MostMilliseconds = 600000;
constexpr int MostFrames = 1000000;

constexpr Row Rows[] = {
    {"--model", "NAME", "tc420 (0888:4000, unless told otherwise) or tc421 (0483:5750)",
     [](Options& o, const std::string& text) { o.model = ParseModel(text); }},
    {"--udc", "NAME", "device controller as listed in /sys/class/udc; else the first free one",
     [](Options& o, const std::string& text) { o.udc = text; }},
    {"--transcript", "FILE", "appends each frame that arrives as a line of 128 hexadecimal digits, see below",
     [](Options& o, const std::string& text) { o.transcript = text; }},
    {"--reports", "1|2", "input reports in one answer",
     [](Options& o, const std::string& text) { o.reports = ParseNumber(text, 1, 2); }},
    {"--pause", "MS", "between the two reports of one answer; 30 unless told otherwise",
     [](Options& o, const std::string& text) {
       o.pause = milliseconds(ParseNumber(text, 0, MostMilliseconds));
     }},
    {"--delay", "MS", "before each answer",
     [](Options& o, const std::string& text) {
       o.delay = milliseconds(ParseNumber(text, 0, MostMilliseconds));
     }},
    {"--silent", "", "never answers", [](Options& o, const std::string&) { o.silent = true; }},
    {"--nonsense", "", "answers with random-looking bytes, the same ones in every run",
     [](Options& o, const std::string&) { o.nonsense = true; }},
    {"--unplug-after", "N", "unplugs itself as the Nth frame has arrived, in place of an answer",
     [](Options& o, const std::string& text) { o.unplugAfter = ParseNumber(text, 1, MostFrames); }},
    {"--once", "", "ends after unplugging itself; else it is plugged in again a second later",
     [](Options& o, const std::string&) { o.once = true; }},
    {"--refuse-open", "", "see below", [](Options& o, const std::string&) { o.refuseOpen = true; }},
    {"--help", "", "this text", [](Options& o, const std::string&) { o.help = true; }},
};

const Row& FindRow(std::string_view name) {
  for (const Row& row : Rows) {
    if (row.name == name) return row;
  }
  throw std::invalid_argument("There is no option \"" + std::string(name) + "\".");
}

}  // namespace

Options ParseOptions(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const Row& row = FindRow(argv[i]);
    std::string argument;
    if (!row.argument.empty()) {
      if (++i == argc) throw std::invalid_argument(std::string(row.name) + " needs a value.");
      argument = argv[i];
    }
    row.apply(options, argument);
  }
  return options;
}

std::string HelpText() {
  constexpr std::size_t Column = 21;
  std::string text =
      "sim-usb [OPTIONS]\n"
      "Plugs a simulated controller into a USB bus of this machine and unplugs it on SIGINT or SIGTERM.\n\n";
  for (const Row& row : Rows) {
    std::string left = "  " + std::string(row.name);
    if (!row.argument.empty()) left += " " + std::string(row.argument);
    left.resize(Column, ' ');
    text += left + "  " + std::string(row.help) + "\n";
  }
  return text +
         "\nOn a dummy_hcd bus the hidraw node of the controller appears on this same machine, and it is "
         "opened\n"
         "to every user (mode 0666), as a udev rule would do. With --refuse-open it stays with root (0600): "
         "the\n"
         "controller is listed on the bus, and opening it fails for every other user.\n\n"
         "In the transcript of a tc421 the digits of a wrong frame are followed by \" wrong: \" and what is "
         "wrong.\n\n"
         "\"Plugged in\" (there with \" as \" and the node's name) and \"Unplugged\" are written to "
         "standard\n"
         "output as they happen.\n";
}

}  // namespace SimUsb
