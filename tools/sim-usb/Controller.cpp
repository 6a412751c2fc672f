// SPDX-License-Identifier: MIT
#include "Controller.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>
#include <utility>

#include "../tc421/Frame.h"
#include "HostNode.h"

namespace SimUsb {
namespace {

using namespace std::chrono_literals;

constexpr auto Forever = -1ms;
using std::chrono::milliseconds;
using std::chrono::steady_clock;
constexpr auto EnumerationPatience = 10s;
constexpr auto ReplugPause = 1s;
// An answer that nobody has fetched keeps the endpoint busy; the next one is then dropped, not waited for.
constexpr auto AnswerPatience = 200ms;

sigset_t EndSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGINT);
  sigaddset(&signals, SIGTERM);
  return signals;
}

Handle OpenTranscript(const std::string& path) {
  return path.empty() ? Handle() : OpenFile(path, O_WRONLY | O_CREAT | O_APPEND);
}

// What is wrong with a frame, with a blank before it; the frames of a TC420 are not looked into.
std::string Remark(const Model& model, std::span<const std::uint8_t> frame) {
  if (std::string_view(model.name) != "tc421") return {};
  const std::string fault = SimTC421::FaultOf(frame, SimTC421::Transport::Usb, "");
  return fault.empty() ? "" : " wrong: " + fault;
}

void Say(const std::string& line) {
  std::puts(line.c_str());
  std::fflush(stdout);
}

}  // namespace

void BlockEndSignals() {
  const sigset_t signals = EndSignals();
  sigprocmask(SIG_BLOCK, &signals, nullptr);
}

Controller::Controller(const Options& wanted)
    : options(wanted),
      transcript(OpenTranscript(wanted.transcript)),
      serial("sim-usb-" + std::to_string(::getpid())),
      gadget(wanted.model, wanted.udc, serial) {
  const sigset_t signals = EndSignals();
  endSignals = Handle(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
  if (endSignals.Get() < 0) throw std::system_error(errno, std::generic_category(), "signalfd");
}

void Controller::Run() {
  for (;;) {
    PlugIn();
    const End end = Serve();
    gadget.Unplug();
    Say("Unplugged");
    if (end == End::Signal || options.once || !Wait(ReplugPause)) return;
  }
}

void Controller::PlugIn() {
  frames = 0;
  gadget.PlugIn();
  std::string line = "Plugged in";
  if (gadget.Udc().starts_with("dummy_udc")) {
    const std::filesystem::path node = WaitForHostNode(serial, EnumerationPatience);
    SetHostNodeAccess(node, !options.refuseOpen);
    line += " as " + node.string();
  }
  Say(line);
}

Controller::End Controller::Serve() {
  Report buffer;
  answers.clear();
  heldBack.clear();
  for (;;) {
    if (!SendDueAnswers()) return End::Signal;
    const std::optional<bool> isReadable = WaitFor(POLLIN, UntilNextAnswer());
    if (!isReadable) return End::Signal;
    if (!*isReadable) continue;
    const ssize_t count = ::read(gadget.Descriptor(), buffer.data(), buffer.size());
    if (count < 0 && (errno == EAGAIN || errno == EINTR)) continue;
    if (count < 0) throw std::system_error(errno, std::generic_category(), "Reading a report");
    const std::span<const std::uint8_t> frame(buffer.data(), static_cast<std::size_t>(count));
    Record(frame);
    ++frames;
    if (frames == options.unplugAfter) return End::Unplugged;
    QueueAnswers(frame);
  }
}

void Controller::Record(std::span<const std::uint8_t> frame) const {
  if (transcript.Get() < 0) return;
  const std::string line = SimTC421::Hex(frame) + Remark(options.model, frame) + "\n";
  if (::write(transcript.Get(), line.data(), line.size()) != static_cast<ssize_t>(line.size())) {
    throw std::system_error(errno, std::generic_category(), options.transcript);
  }
}

SimTC421::Answering Controller::AnsweringOf(std::span<const std::uint8_t> frame) {
  SimTC421::Answering usual;
  if (!options.silent) usual.answers = {milliseconds(options.delay)};
  const bool isRight =
      std::string_view(options.model.name) == "tc421" && Remark(options.model, frame).empty();
  return isRight ? options.odd.Next(SimTC421::KindOf(frame), usual) : usual;
}

void Controller::QueueAnswers(std::span<const std::uint8_t> frame) {
  const SimTC421::Answering answering = AnsweringOf(frame);
  if (answering.answers.empty()) return;
  // It comes to a packet's usual answer when it is through with the one before.
  const bool isUsual = answering.answers == std::vector{milliseconds(options.delay)};
  const auto begin = isUsual ? std::max(steady_clock::now(), busyUntil) : steady_clock::now();
  if (answering.isHeldBack) return heldBack.push_back(MakeAnswer(frame, 1));
  milliseconds delay{0};
  for (const milliseconds wanted : answering.answers) {
    delay = wanted;
    for (int report = 1; report <= options.reports; ++report) {
      if (report > 1) delay += milliseconds(options.pause);
      answers.emplace(begin + delay, MakeAnswer(frame, report));
    }
  }
  if (isUsual) busyUntil = begin + delay;
  for (const Report& late : std::exchange(heldBack, {}))
    answers.emplace(begin + (delay += milliseconds(options.pause)), late);
}

milliseconds Controller::UntilNextAnswer() const {
  if (answers.empty()) return Forever;
  return std::max(0ms, ceil<milliseconds>(answers.begin()->first - steady_clock::now()));
}

bool Controller::SendDueAnswers() {
  while (!answers.empty() && answers.begin()->first <= steady_clock::now()) {
    if (!Send(answers.begin()->second)) return false;
    answers.erase(answers.begin());
  }
  return true;
}

// The frame's first four bytes, then 0 for "accepted". The two numbers after it mean nothing to a host; they
// tell one answer from another in a trace.
Report Controller::MakeAnswer(std::span<const std::uint8_t> frame, int report) {
  Report answer{};
  if (options.nonsense) {
    std::generate(answer.begin(), answer.end(), [this] { return static_cast<std::uint8_t>(random() >> 8); });
    return answer;
  }
  std::copy_n(frame.begin(), std::min<std::size_t>(frame.size(), 4), answer.begin());
  answer[5] = static_cast<std::uint8_t>(report);
  answer[6] = static_cast<std::uint8_t>(frames);
  return answer;
}

bool Controller::Send(const Report& report) const {
  if (!WaitFor(POLLOUT, AnswerPatience)) return false;
  // A full endpoint or a host that has gone away: the answer is lost, as with a real controller.
  [[maybe_unused]] const ssize_t sent = ::write(gadget.Descriptor(), report.data(), report.size());
  return true;
}

bool Controller::Wait(std::chrono::milliseconds time) const {
  pollfd end{endSignals.Get(), POLLIN, 0};
  return ::poll(&end, 1, static_cast<int>(time.count())) == 0;
}

std::optional<bool> Controller::WaitFor(short events, std::chrono::milliseconds time) const {
  pollfd both[] = {{endSignals.Get(), POLLIN, 0}, {gadget.Descriptor(), events, 0}};
  ::poll(both, 2, static_cast<int>(time.count()));
  if (both[0].revents != 0) return std::nullopt;
  return both[1].revents != 0;
}

}  // namespace SimUsb
