// SPDX-License-Identifier: MIT
// sample
#include <memory>
#include <ostream>

#include "cli/Commands.h"
#include "cli/JsonOutput.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "model/ModeSample.h"
#include "model/TimeText.h"

namespace cli {
namespace {

enum class Form { Text, Json, Csv };

/// Samples, each with its time, as they are printed.
class SamplePrinter {
 public:
  SamplePrinter(Form form, const TCBase::Program& program, Invocation& invocation)
      : form_(form), out_(invocation.environment.out) {
    if (form == Form::Text) {
      out_ << "    time";
      for (std::size_t i = 1; i <= TCBase::ChannelCount; ++i) out_ << "     " << i;
      out_ << '\n';
    } else if (form == Form::Csv) {
      out_ << "time";
      for (const auto& channel : program.channelInfos) out_ << ',' << CsvText(channel.name);
      out_ << '\n';
    }
  }

  void Add(std::int64_t second, const TCBase::ModeSample& sample) {
    const std::string time = TCBase::TimeOfDayText(second);
    switch (form_) {
      case Form::Text: return PrintLine(time, sample);
      case Form::Csv: return PrintRow(time, sample);
      case Form::Json: rows_.push_back(JsonOf(time, sample));
    }
  }

  /// To be called at the end: an object for one sample alone, or a list.
  void Finish(bool isOne) {
    if (form_ == Form::Json) Print(isOne ? rows_.front() : rows_, out_);
  }

 private:
  static Json JsonOf(const std::string& time, const TCBase::ModeSample& sample) {
    Json jumps = Json::array();
    for (const std::uint8_t jump : sample.jumps) jumps.push_back(jump != 0);
    return {{"time", time}, {"values", sample.values}, {"jumps", jumps}};
  }

  /// A field as RFC 4180 has it.
  static std::string CsvText(const std::string& text) {
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string quoted = "\"";
    for (const char c : text) quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + '"';
  }

  void PrintLine(const std::string& time, const TCBase::ModeSample& sample) {
    std::string line = time;
    for (std::size_t i = 0; i < sample.values.size(); ++i) {
      const std::string value = std::to_string(sample.values[i]);
      line += std::string(value.size() < 5 ? 5 - value.size() : 1, ' ') + value +
              (sample.jumps[i] != 0 ? "J" : " ");
    }
    while (line.ends_with(' ')) line.pop_back();
    out_ << line << '\n';
  }

  void PrintRow(const std::string& time, const TCBase::ModeSample& sample) {
    out_ << time;
    for (const int value : sample.values) out_ << ',' << value;
    out_ << '\n';
  }

  Form form_;
  std::ostream& out_;
  Json rows_ = Json::array();
};

struct SampleOptions {
  std::string path;
  int mode = 1;
  std::string at;
  bool table = false;
  int minutes = 0;  // between samples; 0: not asked for
  bool json = false, csv = false;
};

void CheckOptions(const SampleOptions& options) {
  const int asked = (options.at.empty() ? 0 : 1) + (options.table ? 1 : 0) + (options.minutes > 0 ? 1 : 0);
  if (asked != 1) {
    throw CommandError(WrongUsage, TR("give one of --at HH:MM, --table and --every MINUTES"));
  }
}

ExitStatus RunSample(const SampleOptions& options, Invocation& invocation) {
  CheckOptions(options);
  const int second = options.at.empty() ? 0 : SecondOf(options.at);
  const TCBase::Program program = Load(options.path, invocation);
  const TCBase::Mode& mode = program.modes[ModeIndexOf(program, options.mode, options.path)];
  SamplePrinter printer(options.json  ? Form::Json
                        : options.csv ? Form::Csv
                                      : Form::Text,
                        program, invocation);
  if (options.table) {
    for (const TCBase::ModeSample& sample : TCBase::SampleTable(mode))
      printer.Add(std::int64_t{sample.hour * 60 + sample.minute} * 60, sample);
  } else if (options.minutes > 0) {
    constexpr std::int64_t Minute = 60;
    for (std::int64_t at = 0; at < TCBase::SecondsPerDay; at += options.minutes * Minute)
      printer.Add(at, TCBase::SampleAt(mode, at));
  } else {
    printer.Add(second, TCBase::SampleAt(mode, second));
  }
  printer.Finish(!options.at.empty());
  return Done;
}

}  // namespace

Runner DefineSample(CLI::App& parser) {
  const auto options = std::make_shared<SampleOptions>();
  AddFile(parser, options->path);
  AddMode(parser, options->mode);
  parser.add_option("--at", options->at, "The brightness at a time of day")->type_name("HH:MM[:SS]");
  parser.add_flag("--table", options->table,
                  "The brightness, and J for a jump, at each step of the mode, as it is uploaded");
  parser.add_option("--every", options->minutes, "The brightness through the day, every so many minutes")
      ->type_name("MINUTES")
      ->check(CheckNumber(1, static_cast<int>(TCBase::MinutesPerDay)));
  CLI::Option* json = parser.add_flag("--json", options->json, "Answer as JSON");
  parser.add_flag("--csv", options->csv, "Answer as comma-separated values, for a spreadsheet")
      ->excludes(json);
  return [options](Invocation& invocation) { return RunSample(*options, invocation); };
}

}  // namespace cli
