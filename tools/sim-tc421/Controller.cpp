// SPDX-License-Identifier: MIT
#include "Controller.h"

#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <utility>

namespace SimTC421 {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

constexpr std::string_view Accepted;
constexpr std::string_view Refused = "\x01";
constexpr unsigned MostNonsense = 1500;  // bytes

}  // namespace

Controller::Controller(const Options& wanted) : options(wanted) {
  if (options.transcript.empty()) return;
  transcript.open(options.transcript, std::ios::app);
  if (!transcript) throw std::runtime_error(options.transcript + " cannot be written.");
}

void Controller::Run() {
  std::puts("Listening");
  std::fflush(stdout);
  for (;;) {
    std::optional<milliseconds> timeout;
    if (!answers.empty()) {
      timeout = std::max(milliseconds(0), ceil<milliseconds>(answers.begin()->first - steady_clock::now()));
    }
    const Port::Event event = port.Wait(timeout);
    if (event == Port::Event::End) return;
    if (event == Port::Event::Datagram) {
      if (const auto datagram = port.Receive()) Hear(*datagram);
    }
    SendDueAnswers();
  }
}

void Controller::Hear(const Datagram& datagram) {
  ++datagrams;
  const std::string verdict = Judge(datagram);
  Record(datagram, verdict);
  if (verdict == "ok") Obey(datagram);
}

std::string Controller::Judge(const Datagram& datagram) {
  if (datagrams <= options.lose || datagrams > options.vanishAfter) return "lost";
  const std::string identity = options.identity.value_or(NameTowards(datagram));
  const std::string fault = FaultOf(datagram.bytes, Transport::Network, identity);
  return fault.empty() ? "ok" : "wrong: " + fault;
}

void Controller::Obey(const Datagram& datagram) {
  const Kind kind = KindOf(datagram.bytes);
  if (options.ignored.contains(kind)) return;
  Answering usual;
  if (!options.silent) usual.answers.assign(options.answers, std::chrono::milliseconds(options.delay));
  const Answering answering = options.odd.Next(kind, usual);
  if (answering.isLost) return;
  if (!options.refuse && kind != Kind::Find) KeepState(kind, PayloadOf(datagram.bytes));
  if (!answering.answers.empty()) QueueAnswers(datagram, answering);
}

void Controller::Record(const Datagram& datagram, const std::string& verdict) {
  if (!transcript.is_open()) return;
  const auto time = floor<milliseconds>(steady_clock::now() - start).count();
  transcript << time << '\t' << ToText(datagram.peer) << '\t' << verdict << '\t' << Describe(datagram.bytes)
             << '\t' << Hex(datagram.bytes) << std::endl;
  if (!transcript) throw std::runtime_error(options.transcript + " cannot be written.");
}

void Controller::KeepState(Kind kind, Bytes payload) {
  state.Take(kind, payload);
  if (options.state.empty()) return;
  const std::string fresh = options.state + ".new";
  std::ofstream file(fresh);
  file << state.ToText();
  file.close();
  if (!file) throw std::runtime_error(fresh + " cannot be written.");
  std::filesystem::rename(fresh, options.state);
}

void Controller::QueueAnswers(const Datagram& question, const Answering& answering) {
  const bool isFind = KindOf(question.bytes) == Kind::Find;
  const std::string name = NameTowards(question);
  const Frame frame = MakeAnswer(question.bytes, isFind ? name : options.refuse ? Refused : Accepted);
  Datagram answer{{frame.begin(), frame.end()}, question.peer, options.from.value_or(question.own)};
  const Time now = steady_clock::now();
  if (options.babble) QueueNonsense(answer, now + answering.answers.front());
  answer.bytes.resize(options.answerSize);
  if (answering.isHeldBack) return heldBack.push_back(answer);
  for (const milliseconds delay : answering.answers) answers.emplace(now + delay, answer);
  for (const Datagram& late : std::exchange(heldBack, {}))
    answers.emplace(now + answering.answers.back(), late);
}

void Controller::QueueNonsense(Datagram datagram, Time due) {
  for (auto left = 1 + random() % 3; left > 0; --left) {
    datagram.bytes.resize(random() % (MostNonsense + 1));
    for (std::uint8_t& byte : datagram.bytes) byte = static_cast<std::uint8_t>(random() >> 8);
    answers.emplace(due, datagram);
  }
}

void Controller::SendDueAnswers() {
  while (!answers.empty() && answers.begin()->first <= steady_clock::now()) {
    port.Send(answers.begin()->second);
    answers.erase(answers.begin());
  }
}

std::string Controller::NameTowards(const Datagram& datagram) const {
  return options.name.value_or(ToText(datagram.own));
}

}  // namespace SimTC421
