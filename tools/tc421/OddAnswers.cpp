// SPDX-License-Identifier: MIT
#include "OddAnswers.h"

#include <algorithm>
#include <charconv>
#include <stdexcept>

namespace SimTC421 {
namespace {

using std::chrono::milliseconds;

constexpr int MostPackets = 1000000;
constexpr int MostMilliseconds = 600000;

struct How {
  std::string_view name;
  bool hasTime;
  void (*apply)(Answering& answering, milliseconds time);
};

constexpr How Hows[] = {
    {"lost", false,
     [](Answering& answering, milliseconds) {
       answering.isLost = true;
       answering.answers.clear();
     }},
    {"silent", false, [](Answering& answering, milliseconds) { answering.answers.clear(); }},
    {"delay", true, [](Answering& answering, milliseconds time) { answering.answers = {time}; }},
    {"twice", true,
     [](Answering& answering, milliseconds time) {
       answering.answers = {milliseconds(0), time};
     }},
    {"swap", false, [](Answering& answering, milliseconds) { answering.isHeldBack = true; }},
};

const How& FindHow(std::string_view name, bool hasTime) {
  for (const How& how : Hows) {
    if (how.name == name && how.hasTime == hasTime) return how;
  }
  throw std::invalid_argument("\"" + std::string(name) + "\" is no way to answer.");
}

int ParseNumber(const std::string& text, int lowest, int highest) {
  int number = 0;
  const char* end = text.data() + text.size();
  const auto parsed = std::from_chars(text.data(), end, number);
  if (parsed.ec == std::errc() && parsed.ptr == end && number >= lowest && number <= highest) return number;
  throw std::invalid_argument("\"" + text + "\" is not a number from " + std::to_string(lowest) + " to " +
                              std::to_string(highest) + ".");
}

}  // namespace

void OddAnswers::Add(const std::string& rule) {
  const std::size_t equals = std::min(rule.find('='), rule.size());
  const std::size_t hash = std::min(rule.find('#'), equals);
  const std::size_t colon = std::min(rule.find(':', equals), rule.size());
  Rule parsed{ParseKind(std::string_view(rule).substr(0, hash)), {}, {}, {}};
  const std::string how = rule.substr(std::min(equals + 1, colon), colon - std::min(equals + 1, colon));
  parsed.apply = FindHow(how, colon < rule.size()).apply;
  if (hash < equals) {
    parsed.number = ParseNumber(rule.substr(hash + 1, equals - hash - 1), 1, MostPackets);
  }
  if (colon < rule.size()) {
    parsed.time = milliseconds(ParseNumber(rule.substr(colon + 1), 0, MostMilliseconds));
  }
  rules.push_back(parsed);
}

std::string OddAnswers::HelpText() {
  return "A rule is KIND=HOW for each packet of a kind, or KIND#N=HOW for the Nth that arrives; the first "
         "that\n"
         "fits counts. KIND is a packet's name, as ModeStep. HOW is one of\n"
         "  lost      it has no effect and no answer\n"
         "  silent    it has no answer\n"
         "  delay:MS  it is answered that many milliseconds later\n"
         "  twice:MS  it is answered at once, and again that many milliseconds later\n"
         "  swap      it is answered behind the packet that comes next\n";
}

Answering OddAnswers::Next(Kind kind, const Answering& usual) {
  const int number = ++counts[kind];
  const auto rule = std::ranges::find_if(rules, [&](const Rule& candidate) {
    return candidate.kind == kind && candidate.number.value_or(number) == number;
  });
  Answering answering = usual;
  if (rule != rules.end()) rule->apply(answering, rule->time);
  return answering;
}

}  // namespace SimTC421
