// SPDX-License-Identifier: MIT
#include "State.h"

#include <utility>

namespace SimTC421 {
namespace {

using namespace std::chrono;

constexpr std::size_t NameSize = 7, SsidSize = 32;

std::string NameIn(Bytes field) {
  return Printable(FixedText(field));
}

std::string TextIn(Bytes bytes) {
  return Printable({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::string Protected(Bytes p) {
  return "ssid " + NameIn(p.subspan(1, SsidSize)) + " security " + std::to_string(p[33]) + " encryption " +
         std::to_string(p[34]);
}

}  // namespace

void State::Take(Kind kind, Bytes p) {
  switch (kind) {
    case Kind::ModeInit: arriving = Arriving{p[0], {NameIn(p.subspan(1, NameSize)), {}}}; break;
    case Kind::ModeStep:
      if (arriving) arriving->mode.steps[p[0]] = HourAndMinute(p.subspan(1)) + " " + Channels(p.subspan(3));
      break;
    case Kind::ModeStepsStop: KeepArrivedMode(); break;
    case Kind::ModeStop: demo.reset(); break;
    case Kind::TimeSync: SetClock(p); break;
    case Kind::ClearAll: modes.clear(); break;
    case Kind::PlayInit: demo = Demo{NameIn(p.subspan(1, NameSize)), {}}; break;
    case Kind::PlaySetChannels:
      if (demo) demo->channels = Channels(p);
      break;
    case Kind::Find: break;
    case Kind::SetWiFi_SSID: network = Protected(p); break;
    case Kind::SetWiFi_Password: password = TextIn(p.subspan(1)); break;
    case Kind::SetWiFi_Open:
      network = "open " + TextIn(p.subspan(1));
      password.clear();
      break;
  }
}

void State::KeepArrivedMode() {
  if (!arriving) return;
  modes[arriving->bank] = std::move(arriving->mode);
  arriving.reset();
}

void State::SetClock(Bytes p) {
  const year_month_day date(year(p[0] << 8 | p[1]), month(p[2]), day(p[3]));
  clock = Clock{sys_days(date) + hours(p[4]) + minutes(p[5]) + seconds(p[6]), steady_clock::now()};
}

std::string State::ToText() const {
  std::string text = ModesToText() + ClockToText() + DemoToText();
  if (!network.empty()) text += "wifi " + network + "\n";
  if (!password.empty()) text += "wifi password " + password + "\n";
  return text;
}

std::string State::ModesToText() const {
  std::string text;
  for (const auto& [bank, mode] : modes) {
    text += "mode " + std::to_string(bank) + " " + mode.name + "\n";
    for (const auto& [index, step] : mode.steps) text += "step " + std::to_string(index) + " " + step + "\n";
  }
  return text;
}

std::string State::ClockToText() const {
  if (!clock) return {};
  const sys_seconds now = clock->set + floor<seconds>(steady_clock::now() - clock->when);
  const year_month_day date(floor<days>(now));
  const hh_mm_ss time(now - floor<days>(now));
  const auto at = [](auto value) { return static_cast<std::uint8_t>(value); };
  const int year = int(date.year());
  const std::uint8_t fields[] = {at(year >> 8),
                                 at(year),
                                 at(unsigned(date.month())),
                                 at(unsigned(date.day())),
                                 at(time.hours().count()),
                                 at(time.minutes().count()),
                                 at(time.seconds().count())};
  return "clock " + DateAndTime(fields) + "\n";
}

std::string State::DemoToText() const {
  if (!demo) return {};
  return "demo " + demo->name + "\n" + (demo->channels.empty() ? "" : "channels " + demo->channels + "\n");
}

}  // namespace SimTC421
