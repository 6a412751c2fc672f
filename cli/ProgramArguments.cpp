// SPDX-License-Identifier: MIT
#include "cli/ProgramArguments.h"

#include <algorithm>
#include <charconv>
#include <numeric>

#include "QorLib/Format.h"
#include "cli/ArgumentFault.h"
#include "cli/ExitStatus.h"
#include "model/ModeSample.h"

namespace cli {
namespace {

/// Takes a number of one or two digits from the front; -1 when there is none or it is over `max`.
int TakeNumber(std::string_view& text, int max) {
  int number = -1;
  const auto [next, failed] = std::from_chars(text.data(), text.data() + text.size(), number);
  const auto length = static_cast<std::size_t>(next - text.data());
  if (failed != std::errc{} || length > 2 || number < 0 || number > max) return -1;
  text.remove_prefix(length);
  return number;
}

constexpr int MostModes = 999999999;

}  // namespace

std::size_t ModeIndexOf(const TCBase::Program& program, int number, const std::string& path) {
  const std::size_t count = program.modes.size();
  if (number < 1 || static_cast<std::size_t>(number) > count) {
    throw CommandError(WrongUsage,
                       {TR("there is no mode {1} in {2}; its modes are 1 to {3}"), {number, path, count}});
  }
  return static_cast<std::size_t>(number) - 1;
}

std::vector<std::size_t> ModeIndicesOf(const TCBase::Program& program, const std::vector<int>& numbers,
                                       const std::string& path) {
  std::vector<std::size_t> indices;
  indices.reserve(program.modes.size());
  for (const int number : numbers) {
    const std::size_t index = ModeIndexOf(program, number, path);
    if (std::ranges::find(indices, index) != indices.end()) {
      throw CommandError(WrongUsage, {TR("the mode {1} is named twice"), {number}});
    }
    indices.push_back(index);
  }
  if (!indices.empty()) return indices;
  indices.resize(program.modes.size());
  std::iota(indices.begin(), indices.end(), std::size_t{0});
  return indices;
}

void WarnOfLongModes(const TCBase::Program::ModeListView& modes, LogPrinter& printer) {
  for (const TCBase::Mode& mode : modes) {
    const int steps = TCBase::StepCount(mode);
    if (steps <= TCBase::MaxModeSteps) continue;
    printer.Warn({TR("the mode '{1}' has {2} steps; a controller takes at most {3}"),
                  {mode.name, steps, TCBase::MaxModeSteps}});
  }
}

void Report(const TCBase::EditResult& result, std::size_t index, const TCBase::Mode& mode,
            const std::string& out, Invocation& invocation) {
  if (result.isRefused) {
    throw CommandError(
        WrongUsage,
        {TR("{1} was not written"), {out}, {{TR("mode {1}, '{2}'"), {index + 1, mode.name}}, result.status}});
  }
  if (result.status) ReportOn(index, mode, result.status, invocation);
}

void ReportOn(std::size_t index, const TCBase::Mode& mode, const qor::Sentence& sentence,
              Invocation& invocation) {
  invocation.printer.Log().Message({TR("Mode {1}, '{2}'"), {index + 1, mode.name}, {sentence}});
}

void ReportSteps(std::size_t index, const TCBase::Mode& mode, Invocation& invocation) {
  ReportOn(index, mode, {TR("{1} steps"), {TCBase::StepCount(mode)}}, invocation);
}

int SecondOf(std::string_view time) {
  std::string_view rest = time;
  int second = 0;
  int parts = 0;
  for (const int max : {23, 59, 59}) {
    if (parts > 0) {
      if (!rest.starts_with(':')) break;
      rest.remove_prefix(1);
    }
    const int number = TakeNumber(rest, max);
    if (number < 0) {
      parts = 0;
      break;
    }
    second = second * 60 + number;
    ++parts;
  }
  if (parts < 2 || !rest.empty()) {
    throw CommandError(WrongUsage, {TR("'{1}' is no time of day; give it as HH:MM or HH:MM:SS"), {time}});
  }
  return parts == 2 ? second * 60 : second;
}

std::function<std::string(const std::string&)> CheckNumber(int least, int most) {
  return [=](const std::string& text) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [next, failed] = std::from_chars(text.data(), end, number);
    const bool isPlain = failed == std::errc{} && next == end && (text[0] != '0' || text.size() == 1);
    if (isPlain && number >= least && number <= most) return std::string();
    const std::string range = most == MostModes ? "" : " to " + std::to_string(most);
    return qor::Format("'{1}' is no number from {2}{3}", {text, least, range});
  };
}

void TakeWord(CLI::Option& option, const std::vector<std::string>& words) {
  std::string value, list;
  for (const std::string& word : words) {
    value += (value.empty() ? "" : "|") + word;
    list += (list.empty() ? "" : word == words.back() ? " or " : ", ") + word;
  }
  option.type_name(value)->check([words, list](const std::string& word) {
    if (std::ranges::find(words, word) != words.end()) return std::string();
    return qor::Format("'{1}' is not {2}{3}", {word, list, DidYouMean(word, words)});
  });
}

std::string CheckPath(const std::string& path) {
  return path.empty() ? "the name of a file is empty" : "";
}

void AddFile(CLI::App& parser, std::string& path) {
  parser.add_option("FILE", path, "The program file; - is standard input")
      ->required()
      ->type_name("PROGRAM")
      ->check(CheckPath);
}

void AddForce(CLI::App& parser, Output& output) {
  parser.add_flag("--force", output.isForced, "Replace an existing file without asking");
}

void AddOutput(CLI::App& parser, Output& output, const std::string& what) {
  parser.add_option("-o,--output", output.path, what + "; - is standard output")
      ->required()
      ->type_name("OUT")
      ->check(CheckPath);
  AddForce(parser, output);
}

void AddEditOutput(CLI::App& parser, Output& output) {
  parser.add_option("-o,--output", output.path, "The program file to write; - is standard output")
      ->type_name("PROGRAM")
      ->check(CheckPath);
  parser.add_flag("-i,--in-place", output.isInPlace, "Change FILE itself");
  AddForce(parser, output);
}

void AddMode(CLI::App& parser, int& number) {
  number = 1;
  parser.add_option("-m,--mode", number, "The mode; the first one unless told otherwise")
      ->type_name("N")
      ->check(CheckNumber(1, MostModes));
}

void AddModes(CLI::App& parser, std::vector<int>& numbers) {
  parser.add_option("-m,--mode", numbers, "Only this mode; may be given several times")
      ->type_name("N")
      ->check(CheckNumber(1, MostModes))
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
}

}  // namespace cli
