// SPDX-License-Identifier: MIT
#include "Options.h"

#include <arpa/inet.h>

#include <stdexcept>

#include "../options/OptionTable.h"

namespace SimTC421 {
namespace {

using std::chrono::milliseconds;
using ToolOptions::ParseNumber;

in_addr ParseAddress(const std::string& text) {
  in_addr address{};
  if (::inet_pton(AF_INET, text.c_str(), &address) == 1) return address;
  throw std::invalid_argument("\"" + text + "\" is not an IPv4 address.");
}

constexpr int MostMilliseconds = 600000;
constexpr int MostDatagrams = 1000000;

constexpr ToolOptions::Row<Options> Rows[] = {
    {"--name", "TEXT", "what it answers to Find; its own address unless told otherwise",
     [](Options& o, const std::string& text) { o.name = text; }},
    {"--identity", "TEXT", "by which packets must call it (12 bytes count); the name unless told otherwise",
     [](Options& o, const std::string& text) { o.identity = text; }},
    {"--transcript", "FILE", "appends a line for each datagram, see below",
     [](Options& o, const std::string& text) { o.transcript = text; }},
    {"--state", "FILE", "keeps there, in lines, what the controller holds",
     [](Options& o, const std::string& text) { o.state = text; }},
    {"--lose", "N", "the first N datagrams get lost",
     [](Options& o, const std::string& text) { o.lose = ParseNumber(text, 0, MostDatagrams); }},
    {"--vanish-after", "N", "after N datagrams all others get lost",
     [](Options& o, const std::string& text) { o.vanishAfter = ParseNumber(text, 0, MostDatagrams); }},
    {"--delay", "MS", "before each answer",
     [](Options& o, const std::string& text) {
       o.delay = milliseconds(ParseNumber(text, 0, MostMilliseconds));
     }},
    {"--short", "", "answers with 63 bytes", [](Options& o, const std::string&) { o.answerSize = 63; }},
    {"--long", "", "answers with 65 bytes", [](Options& o, const std::string&) { o.answerSize = 65; }},
    {"--twice", "", "answers twice", [](Options& o, const std::string&) { o.answers = 2; }},
    {"--from", "ADDRESS", "answers from this other address of its own",
     [](Options& o, const std::string& text) { o.from = ParseAddress(text); }},
    {"--silent", "", "does what it is told, but never answers",
     [](Options& o, const std::string&) { o.silent = true; }},
    {"--ignore", "KIND", "packets of this kind have no effect and no answer; may be repeated",
     [](Options& o, const std::string& text) { o.ignored.insert(ParseKind(text)); }},
    {"--on", "RULE", "some packets are answered otherwise, see below; may be repeated",
     [](Options& o, const std::string& text) { o.odd.Add(text); }},
    {"--refuse", "", "answers that it refuses, and does nothing",
     [](Options& o, const std::string&) { o.refuse = true; }},
    {"--babble", "", "sends one to three datagrams of nonsense before each answer, the same in every run",
     [](Options& o, const std::string&) { o.babble = true; }},
    {"--help", "", "this text", [](Options& o, const std::string&) { o.help = true; }},
};

constexpr std::span<const ToolOptions::Row<Options>> Table = Rows;

}  // namespace

Options ParseOptions(int argc, char** argv) {
  return ToolOptions::Parse(Table, argc, argv);
}

std::string HelpText() {
  const std::string use =
      "sim-tc421 [OPTIONS]\n"
      "A simulated TC421 on UDP port 5000 of every local address, until SIGINT or SIGTERM. It writes\n"
      "\"Listening\" to standard output when it is ready.\n\n";
  return use + ToolOptions::Help(Table) + "\n" + OddAnswers::HelpText() +
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

}  // namespace SimTC421
