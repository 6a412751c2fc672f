// SPDX-License-Identifier: MIT
#include "formats/TableText.h"

#include <charconv>
#include <map>
#include <optional>

#include "QorLib/Format.h"
#include "formats/TextLines.h"
#include "model/TimeText.h"

namespace TCBase {
namespace {

constexpr std::string_view NoStep = "-";
constexpr std::string_view Separators = " \t";
constexpr std::size_t Width = 6;  // of a channel's column

std::string Cell(const Step* step) {
  std::string text = step == nullptr ? std::string(NoStep) : std::to_string(WholePercent(step->value));
  text.insert(0, text.size() < Width ? Width - text.size() : 1, ' ');
  return text + (step != nullptr && step->jump ? "J" : " ");
}

/// A number of at most so many digits from the front of the text.
std::optional<int> TakeNumber(std::string_view& text, std::size_t mostDigits, int most) {
  int number = -1;
  const char* end = text.data() + std::min(text.size(), mostDigits);
  const auto [next, failed] = std::from_chars(text.data(), end, number);
  if (failed != std::errc{} || number < 0 || number > most) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(next - text.data()));
  return number;
}

std::optional<int> MinuteOf(std::string_view text) {
  const std::optional<int> hour = TakeNumber(text, 2, 23);
  if (!hour || !text.starts_with(':')) return std::nullopt;
  text.remove_prefix(1);
  const std::optional<int> minute = TakeNumber(text, 2, 59);
  if (!minute || !text.empty()) return std::nullopt;
  return *hour * 60 + *minute;
}

/// Reads the lines one by one, and remembers which minutes they hold.
class Reader {
 public:
  explicit Reader(TableReading& reading) : reading_(reading) {}

  void Read(std::size_t line, std::string_view text) {
    const std::vector<std::string_view> fields = FieldsOf(text.substr(0, text.find('#')), Separators);
    if (fields.empty()) return;
    const std::optional<int> minute = MinuteOf(fields[0]);
    if (!minute) {
      return Fault({TR("line {1}: '{2}' is no time of day; give it as HH:MM"), {line, Shown(fields[0])}});
    }
    if (fields.size() != 1 + ChannelCount) {
      return Fault(
          {TR("line {1}: there are {2} values behind the time; one for each of the {3} channels is needed"),
           {line, fields.size() - 1, ChannelCount}});
    }
    const auto [first, isNew] = lines_.emplace(*minute, line);
    if (!isNew)
      return Fault(
          {TR("line {1}: {2} stands in line {3} already"), {line, MinuteText(*minute), first->second}});
    for (std::size_t i = 0; i < ChannelCount; ++i) ReadCell(line, i, *minute, fields[1 + i]);
  }

 private:
  void Fault(qor::Sentence fault) { reading_.faults.push_back(std::move(fault)); }

  void ReadCell(std::size_t line, std::size_t channel, int minute, std::string_view cell) {
    if (cell == NoStep) return;
    std::string_view rest = cell;
    const std::optional<int> percent = TakeNumber(rest, 3, 100);
    const bool isJump = rest == "J" || rest == "j";
    if (!percent || (!rest.empty() && !isJump)) {
      return Fault(
          {TR("line {1}, channel {2}: '{3}' is no brightness; give 0 to 100, with J behind it for a jump, "
              "or - for no step"),
           {line, channel + 1, Shown(cell)}});
    }
    Step step{minute / 60, minute % 60, static_cast<float>(*percent), isJump, 0};
    step.Clamp();
    reading_.steps[channel].push_back(step);
  }

  TableReading& reading_;
  std::map<int, std::size_t> lines_;  // by the minute
};

}  // namespace

std::string WriteTableText(const Mode& mode) {
  std::map<std::int64_t, std::array<const Step*, ChannelCount>> minutes;
  for (std::size_t i = 0; i < ChannelCount; ++i) {
    for (const Step& step : mode.channels[i].steps) {
      const Step*& cell = minutes[step.MinuteOfDay()][i];
      if (cell == nullptr) cell = &step;  // of equal times the first counts
    }
  }
  std::string text = "#time";
  for (std::size_t i = 1; i <= ChannelCount; ++i) {
    text += std::string(i == 1 ? Width - 1 : Width, ' ') + std::to_string(i);
  }
  for (const auto& [minute, cells] : minutes) {
    std::string line = "\n" + MinuteText(minute);
    for (const Step* step : cells) line += Cell(step);
    text += line.substr(0, line.find_last_not_of(' ') + 1);
  }
  return text + "\n";
}

TableReading ReadTableText(std::string_view text) {
  TableReading reading;
  Reader reader(reading);
  text = WithoutByteOrderMark(text);
  for (std::size_t line = 1; !text.empty(); ++line) reader.Read(line, TakeLine(text));
  return reading;
}

}  // namespace TCBase
