// SPDX-License-Identifier: MIT
#include "Options.h"

#include <stdexcept>

#include "../options/OptionTable.h"

namespace SimUsb {
namespace {

using std::chrono::milliseconds;
using ToolOptions::ParseNumber;

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

constexpr int MostMilliseconds = 600000;
constexpr int MostFrames = 1000000;

constexpr ToolOptions::Row<Options> Rows[] = {
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
    {"--on", "RULE", "some packets of a tc421 are answered otherwise, see below; may be repeated",
     [](Options& o, const std::string& text) { o.odd.Add(text); }},
    {"--unplug-after", "N", "unplugs itself as the Nth frame has arrived, in place of an answer",
     [](Options& o, const std::string& text) { o.unplugAfter = ParseNumber(text, 1, MostFrames); }},
    {"--once", "", "ends after unplugging itself; else it is plugged in again a second later",
     [](Options& o, const std::string&) { o.once = true; }},
    {"--refuse-open", "", "see below", [](Options& o, const std::string&) { o.refuseOpen = true; }},
    {"--help", "", "this text", [](Options& o, const std::string&) { o.help = true; }},
};

constexpr std::span<const ToolOptions::Row<Options>> Table = Rows;

}  // namespace

Options ParseOptions(int argc, char** argv) {
  return ToolOptions::Parse(Table, argc, argv);
}

std::string HelpText() {
  const std::string use =
      "sim-usb [OPTIONS]\n"
      "Plugs a simulated controller into a USB bus of this machine and unplugs it on SIGINT or SIGTERM.\n\n";
  return use + ToolOptions::Help(Table) +
         "\nOn a dummy_hcd bus the hidraw node of the controller appears on this same machine, and it is "
         "opened\n"
         "to every user (mode 0666), as a udev rule would do. With --refuse-open it stays with root (0600): "
         "the\n"
         "controller is listed on the bus, and opening it fails for every other user.\n\n" +
         SimTC421::OddAnswers::HelpText() +
         "\nIn the transcript of a tc421 the digits of a wrong frame are followed by \" wrong: \" and what "
         "is "
         "wrong.\n\n"
         "\"Plugged in\" (there with \" as \" and the node's name) and \"Unplugged\" are written to "
         "standard\n"
         "output as they happen.\n";
}

}  // namespace SimUsb
