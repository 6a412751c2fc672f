// SPDX-License-Identifier: MIT
#include "Frame.h"

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <stdexcept>

namespace SimTC421 {
namespace {

// Where things stand in a frame.
constexpr std::size_t CommandAt = 2, SubCommandAt = 3, AnswerTextAt = 4, ReservedAt = 4, LengthAt = 5;
constexpr std::size_t PayloadAt = 6, IdentityAt = 49, IdentitySize = 12, NetworkSumAt = 61, UsbSumAt = 63;

constexpr std::size_t NameSize = 7;   // of a mode or a demo
constexpr std::size_t SsidSize = 32;  // of a protected network
constexpr std::size_t MostText = 42;  // of a password or an open network's name
constexpr int NoMarker = -1;

template <typename... Values>
std::string Print(const char* format, Values... values) {
  char text[128];
  std::snprintf(text, sizeof text, format, values...);
  return text;
}

std::string Differs(const char* what, int got, int wanted) {
  return Print("%s is %02X and not %02X", what, static_cast<unsigned>(got), static_cast<unsigned>(wanted));
}

bool AllZero(Bytes bytes) {
  return std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte == 0; });
}

std::string Within(const char* what, int value, int lowest, int highest) {
  return value >= lowest && value <= highest ? "" : Print("the %s is %d", what, value);
}

std::string FirstOf(std::initializer_list<std::string> faults) {
  for (const std::string& fault : faults) {
    if (!fault.empty()) return fault;
  }
  return {};
}

std::string BadChannels(Bytes values) {
  return Within("highest channel value", *std::max_element(values.begin(), values.end()), 0, 100);
}

std::string BadName(Bytes field) {
  const std::size_t length = FixedText(field).size();
  return AllZero(field.subspan(length)) ? "" : "there is something after the name's end";
}

std::string BadModeInit(Bytes p) {
  return FirstOf({Within("bank", p[0], 0, 63), Within("name's first byte", p[1], 1, 255),
                  BadName(p.subspan(1, NameSize)), Within("byte after the name", p[8], 0, 0),
                  Within("number of samples", p[9], 2, 255)});
}

std::string BadTime(Bytes hourAndMinute) {
  return FirstOf({Within("hour", hourAndMinute[0], 0, 23), Within("minute", hourAndMinute[1], 0, 59)});
}

std::string BadModeStep(Bytes p) {
  return FirstOf({BadTime(p.subspan(1, 2)), BadChannels(p.subspan(3, 5))});
}

std::string BadTimeSync(Bytes p) {
  return FirstOf({Within("month", p[2], 1, 12), Within("day", p[3], 1, 31), BadTime(p.subspan(4, 2)),
                  Within("second", p[6], 0, 59)});
}

std::string BadPlayInit(Bytes p) {
  return FirstOf({Within("first byte", p[0], 1, 1), BadName(p.subspan(1, NameSize)),
                  Within("byte after the name", p[8], 0, 0), Within("last byte", p[9], 0, 0)});
}

std::string BadFind(Bytes p) {
  return p[0] == 0xDD && p[1] == 0xEE && p[2] == 0xFF ? "" : "the payload is not DD EE FF";
}

std::string BadSsid(Bytes p) {
  return FirstOf({BadName(p.subspan(1, SsidSize)), Within("security", p[33], 1, 2)});
}

std::string NoFault(Bytes) {
  return {};
}

std::string NoWords(Bytes) {
  return {};
}

std::string Text(Bytes bytes) {
  return Printable({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

std::string ModeInitWords(Bytes p) {
  return Print("%d ", p[0]) + Printable(FixedText(p.subspan(1, NameSize))) + Print(" %d samples", p[9]);
}

std::string ModeStepWords(Bytes p) {
  return Print("%d ", p[0]) + HourAndMinute(p.subspan(1)) + " " + Channels(p.subspan(3));
}

std::string PlayInitWords(Bytes p) {
  return Printable(FixedText(p.subspan(1, NameSize)));
}

std::string SsidWords(Bytes p) {
  return Printable(FixedText(p.subspan(1, SsidSize))) + Print(" security %d encryption %d", p[33], p[34]);
}

std::string MarkedTextWords(Bytes p) {
  return Text(p.subspan(1));
}

// Packets go to one controller, named by its identity, or to whoever listens. The latter are built as for the
// network even when they go over USB.
enum class To { One, Whoever };

// Length byte and payload of a text are as long as it is.
constexpr int AsText = -1;

struct Row {
  Kind kind;
  const char* name;
  std::uint8_t command;
  std::uint8_t subCommand;
  int marker;   // the payload's first byte, which tells packets of one command apart
  int length;   // the length byte
  int payload;  // bytes of it
  To to;
  std::string (*fault)(Bytes payload);
  std::string (*words)(Bytes payload);
};

constexpr Row Rows[] = {
    {Kind::ModeInit, "ModeInit", 0x01, 0x01, NoMarker, 10, 10, To::One, BadModeInit, ModeInitWords},
    {Kind::ModeStep, "ModeStep", 0x01, 0x02, NoMarker, 8, 8, To::One, BadModeStep, ModeStepWords},
    {Kind::ModeStepsStop, "ModeStepsStop", 0x04, 0x0A, NoMarker, 0, 0, To::One, NoFault, NoWords},
    {Kind::ModeStop, "ModeStop", 0x03, 0x08, NoMarker, 0, 0, To::One, NoFault, NoWords},
    {Kind::TimeSync, "TimeSync", 0x02, 0x00, NoMarker, 7, 7, To::One, BadTimeSync, DateAndTime},
    {Kind::ClearAll, "ClearAll", 0x05, 0xFE, NoMarker, 0, 0, To::One, NoFault, NoWords},
    {Kind::PlayInit, "PlayInit", 0x06, 0x01, NoMarker, 10, 10, To::One, BadPlayInit, PlayInitWords},
    {Kind::PlaySetChannels, "PlaySetChannels", 0x06, 0x02, NoMarker, 5, 5, To::One, BadChannels, Channels},
    {Kind::Find, "Find", 0x17, 0x00, NoMarker, 3, 3, To::Whoever, BadFind, NoWords},
    {Kind::SetWiFi_SSID, "SetWiFi_SSID", 0x18, 0x00, 1, AsText, 35, To::Whoever, BadSsid, SsidWords},
    {Kind::SetWiFi_Password, "SetWiFi_Password", 0x18, 0x00, 2, AsText, AsText, To::Whoever, NoFault,
     MarkedTextWords},
    {Kind::SetWiFi_Open, "SetWiFi_Open", 0x18, 0x00, 3, AsText, AsText, To::Whoever, NoFault,
     MarkedTextWords},
};

const Row* FindRow(Bytes frame) {
  const auto* row = std::find_if(std::begin(Rows), std::end(Rows), [frame](const Row& candidate) {
    return frame[CommandAt] == candidate.command && frame[SubCommandAt] == candidate.subCommand &&
           (candidate.marker == NoMarker || frame[PayloadAt] == candidate.marker);
  });
  return row == std::end(Rows) ? nullptr : row;
}

std::size_t PayloadSize(const Row& row, Bytes frame) {
  return row.payload == AsText ? 1u + frame[LengthAt] : static_cast<std::size_t>(row.payload);
}

std::string BadLength(const Row& row, Bytes frame) {
  const int got = frame[LengthAt];
  if (row.length != AsText) return got == row.length ? "" : Differs("the length byte", got, row.length);
  if (row.payload == AsText) return Within("text's length", got, 0, MostText);
  const std::size_t field = FixedText(frame.subspan(PayloadAt + 1, SsidSize)).size();
  return static_cast<std::size_t>(got) == field ? ""
                                                : Differs("the length byte", got, static_cast<int>(field));
}

std::uint8_t Sum(Bytes frame) {
  const Bytes summed = frame.first(IdentityAt);
  return static_cast<std::uint8_t>(std::accumulate(summed.begin(), summed.end(), 0u));
}

std::string BadIdentity(Bytes frame, std::string_view identity) {
  std::array<std::uint8_t, IdentitySize> wanted{};
  std::copy_n(identity.begin(), std::min(identity.size(), IdentitySize), wanted.begin());
  const Bytes got = frame.subspan(IdentityAt, IdentitySize);
  if (std::equal(got.begin(), got.end(), wanted.begin())) return {};
  return "the identity is " + Hex(got) + " and not " + Hex(wanted);
}

std::string BadEnd(Bytes frame, Transport transport) {
  Frame wanted{};
  wanted[transport == Transport::Usb ? UsbSumAt : NetworkSumAt] = Sum(frame);
  for (std::size_t at = NetworkSumAt; at < frame.size(); ++at) {
    if (frame[at] != wanted[at]) return Differs(Print("byte %zu", at).c_str(), frame[at], wanted[at]);
  }
  return {};
}

std::string BadPayload(const Row& row, Bytes frame) {
  const std::size_t size = PayloadSize(row, frame);
  const Bytes rest = frame.subspan(PayloadAt + size, IdentityAt - PayloadAt - size);
  if (!AllZero(rest)) return "there is something after the payload's end";
  return row.fault(frame.subspan(PayloadAt, size));
}

}  // namespace

Kind ParseKind(std::string_view name) {
  for (const Row& row : Rows) {
    if (name == row.name) return row.kind;
  }
  throw std::invalid_argument("There is no packet \"" + std::string(name) + "\".");
}

std::string FaultOf(Bytes frame, Transport transport, std::string_view identity) {
  if (frame.size() != Frame().size()) return Print("it has %zu bytes", frame.size());
  if (frame[0] != 0x55 || frame[1] != 0xAA) return "it does not begin with 55 AA";
  const Row* row = FindRow(frame);
  if (row == nullptr) return "there is no such packet";
  if (frame[ReservedAt] != 0) return Differs("byte 4", frame[ReservedAt], 0);
  const bool hasIdentity = row->to == To::One && transport == Transport::Network;
  const std::string fault = FirstOf({BadLength(*row, frame), BadIdentity(frame, hasIdentity ? identity : ""),
                                     BadEnd(frame, row->to == To::One ? transport : Transport::Network)});
  return fault.empty() ? BadPayload(*row, frame) : fault;
}

Kind KindOf(Bytes frame) {
  return FindRow(frame)->kind;
}

Bytes PayloadOf(Bytes frame) {
  return frame.subspan(PayloadAt, PayloadSize(*FindRow(frame), frame));
}

std::string Describe(Bytes frame) {
  const Row* row = frame.size() == Frame().size() ? FindRow(frame) : nullptr;
  if (row == nullptr) return "unknown";
  if (!BadLength(*row, frame).empty()) return row->name;
  const std::string words = row->words(PayloadOf(frame));
  return words.empty() ? row->name : std::string(row->name) + " " + words;
}

Frame MakeAnswer(Bytes frame, std::string_view text) {
  Frame answer{0x55, 0xAA, frame[CommandAt], frame[SubCommandAt]};
  const std::size_t room = answer.size() - AnswerTextAt;
  std::copy_n(text.begin(), std::min(text.size(), room), answer.begin() + AnswerTextAt);
  // A long name runs on over the place of the checksum.
  if (text.size() < NetworkSumAt - AnswerTextAt) answer[NetworkSumAt] = Sum(answer);
  return answer;
}

std::string FixedText(Bytes field) {
  return {field.begin(), std::find(field.begin(), field.end(), 0)};
}

std::string Printable(std::string_view text) {
  std::string printable;
  for (const char character : text) {
    const auto byte = static_cast<unsigned char>(character);
    printable += byte >= 0x20 && byte <= 0x7E ? std::string(1, character) : Print("\\x%02X", byte);
  }
  return printable;
}

std::string Channels(Bytes values) {
  std::string text;
  for (const std::uint8_t value : values) text += (text.empty() ? "" : " ") + std::to_string(value);
  return text;
}

std::string HourAndMinute(Bytes two) {
  return Print("%02d:%02d", two[0], two[1]);
}

std::string DateAndTime(Bytes seven) {
  return Print("%04d-%02d-%02d ", seven[0] << 8 | seven[1], seven[2], seven[3]) +
         HourAndMinute(seven.subspan(4)) + Print(":%02d", seven[6]);
}

std::string Hex(Bytes bytes) {
  std::string digits;
  for (const std::uint8_t byte : bytes) digits += Print("%02X", byte);
  return digits;
}

}  // namespace SimTC421
