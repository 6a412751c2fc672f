// SPDX-License-Identifier: MIT
#include "Options.h"

#include <arpa/inet.h>

#include <stdexcept>
#include <vector>

namespace SimTC421 {
namespace {

constexpr int MostMilliseconds = 600000;
constexpr int MostDatagrams = 1000000;

in_addr ParseAddress(const std::string& text) {
  in_addr address{};
  if (::inet_pton(AF_INET, text.c_str(), &address) == 1) return address;
  throw std::invalid_argument("\"" + text + "\" is not an IPv4 address.");
}

std::string Footer() {
  return OddAnswers::HelpText() +
         "\nA line of the transcript has five fields with a tab between them:\n"
         "  milliseconds since the start\n"
         "  the sender as ADDRESS:PORT\n"
         "  \"ok\", \"lost\", or \"wrong: \" and what is wrong; a wrong or lost datagram changes nothing "
         "and\n"
         "  gets no answer\n"
         "  the packet and its values, as \"ModeStep 0 08:00 10 20 30 40 50\", or \"unknown\"\n"
         "  the datagram in hexadecimal digits\n"
         "\nThe state has a line for each thing that is held:\n"
         "  mode BANK NAME, then for each of its samples: step INDEX HH:MM and five percentages\n"
         "  clock YYYY-MM-DD HH:MM:SS, as it stood when the file was written; not before it was set\n"
         "  demo NAME, and once it shows something: channels and five percentages; until the demo ends\n"
         "  wifi ssid NAME security N encryption N, wifi password TEXT, or wifi open NAME\n"
         "Bytes of a name or text outside 0x20 to 0x7E stand as \\xNN, in both files.\n";
}

}  // namespace

void AddOptions(CLI::App& app, Options& o) {
  app.name("sim-tc421");
  app.description(
      "A simulated TC421 on UDP port 5000 of every local address, until SIGINT or SIGTERM. It writes\n"
      "\"Listening\" to standard output when it is ready.");
  app.footer(Footer());
  app.add_option("--name", o.name, "what it answers to Find; its own address unless told otherwise");
  app.add_option("--identity", o.identity,
                 "by which packets must call it (12 bytes count); the name unless told otherwise");
  app.add_option("--transcript", o.transcript, "appends a line for each datagram, see below");
  app.add_option("--state", o.state, "keeps there, in lines, what the controller holds");
  app.add_option("--lose", o.lose, "the first so many datagrams get lost")
      ->check(CLI::Range(0, MostDatagrams));
  app.add_option("--vanish-after", o.vanishAfter, "after so many datagrams all others get lost")
      ->check(CLI::Range(0, MostDatagrams));
  app.add_option("--delay", o.delay, "milliseconds before each answer")
      ->check(CLI::Range(0, MostMilliseconds));
  app.add_flag_callback(
      "--short", [&o] { o.answerSize = 63; }, "answers with 63 bytes");
  app.add_flag_callback(
      "--long", [&o] { o.answerSize = 65; }, "answers with 65 bytes");
  app.add_flag_callback(
      "--twice", [&o] { o.answers = 2; }, "answers twice");
  app.add_option_function<std::string>(
      "--from", [&o](const std::string& text) { o.from = ParseAddress(text); },
      "answers from this other address of its own");
  app.add_flag("--silent", o.silent, "does what it is told, but never answers");
  app.add_option_function<std::vector<std::string>>(
      "--ignore",
      [&o](const std::vector<std::string>& kinds) {
        for (const std::string& kind : kinds) o.ignored.insert(ParseKind(kind));
      },
      "packets of this kind have no effect and no answer; may be repeated");
  app.add_option_function<std::vector<std::string>>(
      "--on",
      [&o](const std::vector<std::string>& rules) {
        for (const std::string& rule : rules) o.odd.Add(rule);
      },
      "some packets are answered otherwise, see below; may be repeated");
  app.add_flag("--refuse", o.refuse, "answers that it refuses, and does nothing");
  app.add_flag("--babble", o.babble,
               "sends one to three datagrams of nonsense before each answer, the same in every run");
}

}  // namespace SimTC421
