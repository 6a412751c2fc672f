// SPDX-License-Identifier: MIT
#include "Options.h"

#include <stdexcept>
#include <vector>

namespace SimUsb {
namespace {

constexpr int MostMilliseconds = 600000;
constexpr int MostFrames = 1000000;

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

std::string Footer() {
  return "On a dummy_hcd bus the hidraw node of the controller appears on this same machine, and it is "
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

}  // namespace

void AddOptions(CLI::App& app, Options& o) {
  app.name("sim-usb");
  app.description(
      "Plugs a simulated controller into a USB bus of this machine and unplugs it on SIGINT or SIGTERM.");
  app.footer(Footer());
  app.add_option_function<std::string>(
      "--model", [&o](const std::string& text) { o.model = ParseModel(text); },
      "tc420 (0888:4000, unless told otherwise) or tc421 (0483:5750)");
  app.add_option("--udc", o.udc, "device controller as listed in /sys/class/udc; else the first free one");
  app.add_option("--transcript", o.transcript,
                 "appends each frame that arrives as a line of 128 hexadecimal digits, see below");
  app.add_option("--reports", o.reports, "input reports in one answer")->check(CLI::Range(1, 2));
  app.add_option("--pause", o.pause,
                 "milliseconds between the two reports of one answer; 30 unless told otherwise")
      ->check(CLI::Range(0, MostMilliseconds));
  app.add_option("--delay", o.delay, "milliseconds before each answer")
      ->check(CLI::Range(0, MostMilliseconds));
  app.add_flag("--silent", o.silent, "never answers");
  app.add_flag("--nonsense", o.nonsense, "answers with random-looking bytes, the same ones in every run");
  app.add_option_function<std::vector<std::string>>(
      "--on",
      [&o](const std::vector<std::string>& rules) {
        for (const std::string& rule : rules) o.odd.Add(rule);
      },
      "some packets of a tc421 are answered otherwise, see below; may be repeated");
  app.add_option("--unplug-after", o.unplugAfter,
                 "unplugs itself as that many frames have arrived, in place of an answer")
      ->check(CLI::Range(1, MostFrames));
  app.add_flag("--once", o.once, "ends after unplugging itself; else it is plugged in again a second later");
  app.add_flag("--refuse-open", o.refuseOpen, "see below");
}

}  // namespace SimUsb
