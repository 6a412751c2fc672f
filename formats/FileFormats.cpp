// SPDX-License-Identifier: MIT
#include "formats/FileFormats.h"

#include <algorithm>
#include <set>

#include "QorLib/qor_win_str_utils.h"
#include "QorLib/xml/reader.h"
#include "formats/FileBytes.h"
#include "formats/LmfFile.h"
#include "formats/ProgramFile.h"
#include "formats/RawFile.h"
#include "formats/TmfFile.h"
#include "model/ModeSample.h"
#include "model/TimeText.h"

namespace TCBase {
namespace {

constexpr FileFormat Table[] = {{".xml", "XML"},
                                {".tmf", "TMF", ImportTMF, ExportTMF, 1, MaxModeSteps},
                                {".lmf", "LMF", ImportLMF, ExportLMF, 0, 0, true},
                                {".raw", "RAW", nullptr, ExportRAW}};

std::size_t NameStart(const std::string& path) {
  return path.find_last_of("/\\") + 1;  // npos + 1 is 0
}

ImportResult FailedToLoad(const std::string& path, qor::Sentence reason) {
  return {false, {TR("Error loading program {1}"), {path}, {std::move(reason)}}};
}

constexpr std::size_t MostBytes = qor::xml::reader::MaxBytes;

ImportResult ImportMode(const FileFormat& format, std::string_view bytes, const std::string& name,
                        Mode& mode) {
  if (!format.IsRead()) return FailedToLoad(name, {TR("{1} files are written only"), {format.name}});
  if (bytes.size() > MostBytes) {
    return FailedToLoad(name, {TR("the file is larger than {1} MiB"), {MostBytes >> 20}});
  }
  mode = {BareName(name), "", {}};
  ImportResult result = format.import(bytes, mode);
  return result.isImported ? result : FailedToLoad(name, result.message);
}

/// "08:05, 12:10"; of many the first ones.
std::string TimesOffHalfHours(const Mode& mode) {
  constexpr std::size_t Most = 8;
  std::set<std::int64_t> minutes;
  for (const Channel& channel : mode.channels) {
    for (const Step& step : channel.steps) {
      if (step.MinuteOfDay() % 30 != 0) minutes.insert(step.MinuteOfDay());
    }
  }
  std::string text;
  std::size_t count = 0;
  for (const std::int64_t minute : minutes) {
    if (++count > Most) return text + ", ...";
    text += (text.empty() ? "" : ", ") + MinuteText(minute);
  }
  return text;
}

bool HasJump(const Channel& channel) {
  return std::ranges::any_of(channel.steps, &Step::jump);
}

}  // namespace

std::span<const FileFormat> FileFormats() {
  return Table;
}

const FileFormat* FormatOf(const std::string& path) {
  const auto found = std::ranges::find(Table, EndingOf(path), &FileFormat::ending);
  return found != std::end(Table) ? found : nullptr;
}

std::string EndingOf(const std::string& path) {
  const std::size_t dot = path.rfind('.');
  if (dot == std::string::npos || dot < NameStart(path)) return {};
  std::string ending = path.substr(dot);
  for (char& c : ending) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return ending;
}

std::string BareName(const std::string& path) {
  const std::string file = path.substr(NameStart(path));
  const std::string bare = file.substr(0, file.rfind('.'));
  std::string name = qor::win::WellFormedUtf8(bare.empty() ? file : bare);
  for (char& c : name) c = static_cast<unsigned char>(c) < ' ' ? '.' : c;
  return name;
}

ImportResult ReadMode(const FileFormat& format, const std::string& path, Mode& mode) {
  std::string bytes;
  qor::Sentence reason = Attempt([&] { bytes = ReadFileBytes(path, MostBytes); });
  return reason ? FailedToLoad(path, std::move(reason)) : ImportMode(format, bytes, path, mode);
}

ImportResult ReadWholeProgram(const std::string& path, Program& program) {
  qor::Sentence reason = LoadProgram(path, program);
  return reason ? FailedToLoad(path, std::move(reason)) : ImportResult{true, {}};
}

ImportResult ReadAnyBytes(const FileFormat& format, std::string bytes, const std::string& name,
                          Program& program) {
  if (!format.IsOfOneMode()) {
    const auto failed = ReadProgram(std::move(bytes), program);
    return failed ? FailedToLoad(name, failed->Told()) : ImportResult{true, {}};
  }
  Mode mode;
  ImportResult result = ImportMode(format, bytes, name, mode);
  if (result.isImported) program.modes = {std::move(mode)};
  return result;
}

qor::Sentence RefusalOf(const FileFormat& format, const Mode& mode) {
  if (StepCount(mode) >= format.fewestSteps) return {};
  return {TR("Unable to save mode {1} as {2}, it has no steps."), {mode.name, format.name}};
}

std::vector<qor::Sentence> LossesOf(const FileFormat& format, const Mode& mode) {
  std::vector<qor::Sentence> losses;
  if (format.isHalfHourly && std::ranges::any_of(mode.channels, HasJump)) {
    losses.push_back({TR("{1} files carry no jumps, only the values at each half hour"), {format.name}});
  }
  if (const std::string times = TimesOffHalfHours(mode); format.isHalfHourly && !times.empty()) {
    losses.push_back(
        {TR("{1} files hold the values at half hours; lost are the steps at {2}"), {format.name, times}});
  }
  const int steps = StepCount(mode);
  if (format.mostSteps > 0 && steps > format.mostSteps) {
    losses.push_back(
        {TR("the mode has {1} steps; a reader may take only the first {2}"), {steps, format.mostSteps}});
  }
  return losses;
}

std::string BytesOf(const FileFormat& format, const Program& program, std::size_t mode) {
  return format.IsOfOneMode() ? format.exported(program.modes[mode]) : WriteProgram(program);
}

qor::Sentence WriteMode(const FileFormat& format, const Mode& mode, const std::string& path) {
  if (qor::Sentence refusal = RefusalOf(format, mode)) return refusal;
  const qor::Sentence reason = Attempt([&] { ReplaceFileBytes(path, format.exported(mode)); });
  if (!reason) return {};
  return {TR("Error creating file {1}, error: {2}"), {path, reason.In(qor::InEnglish)}};
}

qor::Sentence WriteWholeProgram(const Program& program, const std::string& path) {
  qor::Sentence reason = SaveProgram(program, path);
  if (!reason) return {};
  return {TR("Error saving program {1}"), {path}, {std::move(reason)}};
}

}  // namespace TCBase
