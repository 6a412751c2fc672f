// SPDX-License-Identifier: MIT
#include "formats/StepsText.h"

#include <algorithm>

#include "QorLib/Format.h"
#include "QorLib/ParseInteger.h"

namespace TCBase {
namespace {

constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";  // what some editors put before UTF-8 text
constexpr std::string_view Separators = " \t:";

/// Takes the text up to one of the separators off the front, and the separator.
std::string_view TakeUntil(std::string_view separators, std::string_view& text) {
  const std::size_t end = std::min(text.find_first_of(separators), text.size());
  const std::string_view taken = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return taken;
}

/// Takes a line off the front of a text that is not empty.
std::string_view TakeLine(std::string_view& text) {
  const std::size_t end = text.find_first_of("\r\n");
  const bool isPair = end != std::string_view::npos && text.substr(end).starts_with("\r\n");
  const std::string_view line = TakeUntil("\r\n", text);
  if (isPair) text.remove_prefix(1);
  return line;
}

std::vector<std::string_view> FieldsOf(std::string_view line) {
  std::vector<std::string_view> fields;
  while (!line.empty()) {
    if (const std::string_view field = TakeUntil(Separators, line); !field.empty()) fields.push_back(field);
  }
  return fields;
}

/// The number at the start of a field, as the C library reads it, but saturating.
std::int32_t NumberAt(std::string_view field) {
  if (field.starts_with('+') && !field.starts_with("+-")) field.remove_prefix(1);
  return qor::ParseInteger(field);
}

bool HasNumber(std::string_view field) {
  if (field.starts_with('+') || field.starts_with('-')) field.remove_prefix(1);
  return !field.empty() && field[0] >= '0' && field[0] <= '9';
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

void ParseStepsText(std::string_view text, std::vector<Step>& steps, OddLines* odd) {
  steps.clear();
  if (text.starts_with(ByteOrderMark)) text.remove_prefix(ByteOrderMark.size());
  for (std::size_t number = 1; !text.empty(); ++number) {
    const std::vector<std::string_view> fields = FieldsOf(TakeLine(text));
    if (fields.size() == 3 || fields.size() == 4) {
      const bool jump = fields.size() == 4 && (fields[3] == "J" || fields[3] == "j");
      Step& step = steps.emplace_back();
      step = {NumberAt(fields[0]), NumberAt(fields[1]), static_cast<float>(NumberAt(fields[2])), jump, 0};
      step.Clamp();
      const bool areNumbers = std::all_of(fields.begin(), fields.begin() + 3, HasNumber);
      if (!areNumbers && odd != nullptr) odd->withoutNumber.push_back(number);
    } else if (!fields.empty() && odd != nullptr) {
      odd->skipped.push_back(number);
    }
  }
}

}  // namespace TCBase
