// SPDX-License-Identifier: MIT
#include "formats/StepsText.h"

#include <algorithm>

#include "QorLib/Format.h"
#include "QorLib/ParseInteger.h"
#include "QorLib/qor_win_str_utils.h"
#include "formats/TextLines.h"
#include "model/TimeText.h"

namespace TCBase {
namespace {

constexpr std::string_view Separators = " \t:";

/// The number at the start of a field, as the C library reads it, but saturating.
std::int32_t NumberAt(std::string_view field) {
  if (field.starts_with('+') && !field.starts_with("+-")) field.remove_prefix(1);
  return qor::ParseInteger(field);
}

bool HasNumber(std::string_view field) {
  if (field.starts_with('+') || field.starts_with('-')) field.remove_prefix(1);
  return !field.empty() && field[0] >= '0' && field[0] <= '9';
}

bool IsJump(std::string_view field) {
  return field == "J" || field == "j";
}

/// Of the three or four fields of a line.
Step StepOf(const std::vector<std::string_view>& fields) {
  Step step{NumberAt(fields[0]), NumberAt(fields[1]), static_cast<float>(NumberAt(fields[2])),
            fields.size() == 4 && IsJump(fields[3]), 0};
  step.Clamp();
  return step;
}

/// "2, 5, 7"; of many lines the first ones.
std::string NumbersText(const std::vector<std::size_t>& numbers) {
  constexpr std::size_t Most = 8;
  std::string text;
  for (std::size_t i = 0; i < numbers.size() && i < Most; ++i) {
    text += (i == 0 ? "" : ", ") + std::to_string(numbers[i]);
  }
  return numbers.size() > Most ? text + ", ..." : text;
}

/// Says where the step is another than the line's fields give.
void AddRemarks(const std::vector<std::string_view>& fields, const Step& step, std::size_t line,
                std::vector<qor::Sentence>& remarks) {
  if (NumberAt(fields[0]) != step.hour || NumberAt(fields[1]) != step.minute) {
    const std::string time = Shown(fields[0]) + ":" + Shown(fields[1]);
    const std::int64_t minute = step.MinuteOfDay();
    remarks.push_back(
        {TR("line {1}: {2} is no time of day and became {3}"), {line, time, MinuteText(minute)}});
  }
  if (NumberAt(fields[2]) != WholePercent(step.value)) {
    remarks.push_back({TR("line {1}: {2} is no percentage and became {3}"),
                       {line, Shown(fields[2]), WholePercent(step.value)}});
  }
  if (fields.size() == 4 && !IsJump(fields[3])) {
    remarks.push_back({TR("line {1}: {2} is not J and was passed over"), {line, Shown(fields[3])}});
  }
}

}  // namespace

std::string StepText(const Step& step) {
  return qor::Format("{1}:{2} {3}{4}", {qor::ZeroFilled(step.hour, 2), qor::ZeroFilled(step.minute, 2),
                                        WholePercent(step.value), step.jump ? " J" : ""});
}

void WriteStepLine(const Step& step, std::string& text) {
  text += StepText(step) + "\r\n";
}

std::string WriteStepsText(const std::vector<Step>& steps) {
  std::string text;
  for (const Step& step : steps) WriteStepLine(step, text);
  return text;
}

StepsReading ReadStepsText(std::string_view text) {
  StepsReading reading;
  std::vector<std::size_t> skipped, withoutNumber;
  text = WithoutByteOrderMark(text);
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::vector<std::string_view> fields = FieldsOf(TakeLine(text), Separators);
    if (fields.size() == 3 || fields.size() == 4) {
      reading.steps.push_back(StepOf(fields));
      if (std::all_of(fields.begin(), fields.begin() + 3, HasNumber)) {
        AddRemarks(fields, reading.steps.back(), number, reading.remarks);
      } else {
        withoutNumber.push_back(number);
      }
    } else if (!fields.empty()) {
      skipped.push_back(number);
    }
  }
  if (!withoutNumber.empty()) {
    reading.remarks.insert(reading.remarks.begin(), {TR("Lines with a missing number (read as 0): {1}"),
                                                     {NumbersText(withoutNumber)}});
  }
  if (!skipped.empty())
    reading.remarks.insert(reading.remarks.begin(), {TR("Skipped lines: {1}"), {NumbersText(skipped)}});
  return reading;
}

qor::Sentence RefusalToEdit(std::string_view text) {
  constexpr std::size_t Most = 2048;  // that a dialog takes
  const std::size_t length = qor::win::Utf16FromUtf8(text).size();
  if (length <= Most) return {};
  return {TR("The steps make a text of {1} characters, at most {2} can be edited here."), {length, Most}};
}

}  // namespace TCBase
