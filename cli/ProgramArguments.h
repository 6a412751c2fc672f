// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

#include "cli/LogPrinter.h"
#include "cli/ProgramFiles.h"
#include "model/Editing.h"
#include "model/Program.h"

/// What the arguments of many commands have in common. All functions complain by CommandError.
namespace cli {

/// The index of the mode of that number, which counts from 1. `path` is for the message.
std::size_t ModeIndexOf(const TCBase::Program& program, int number, const std::string& path);

/// The indices of the modes of those numbers, in that order; of all modes when there are none.
std::vector<std::size_t> ModeIndicesOf(const TCBase::Program& program, const std::vector<int>& numbers,
                                       const std::string& path);

/// Names the modes that have more steps than controllers take.
void WarnOfLongModes(const TCBase::Program::ModeListView& modes, LogPrinter& printer);

/// Logs what an edit of the mode at `index` says. Throws where it was refused: `out` is not to be written.
void Report(const TCBase::EditResult& result, std::size_t index, const TCBase::Mode& mode,
            const std::string& out, Invocation& invocation);
/// Logs a sentence on the mode at `index`.
void ReportOn(std::size_t index, const TCBase::Mode& mode, const qor::Sentence& sentence,
              Invocation& invocation);
/// Logs how many steps the mode at `index` has come to have.
void ReportSteps(std::size_t index, const TCBase::Mode& mode, Invocation& invocation);

/// The second of the day that "HH:MM" or "HH:MM:SS" names.
int SecondOf(std::string_view time);

/// What makes sure of a whole number from `least` to `most`, in plain decimal digits.
std::function<std::string(const std::string&)> CheckNumber(int least, int most);
/// Has the option take one of those words only.
void TakeWord(CLI::Option& option, const std::vector<std::string>& words);
/// What is wrong with a text as the name of a file; empty when nothing is.
std::string CheckPath(const std::string& path);

/// Adds the argument FILE.
void AddFile(CLI::App& parser, std::string& path);
/// Adds "--force".
void AddForce(CLI::App& parser, Output& output);
/// Adds "-o OUT" and "--force", to a command that makes another file; `what` describes that.
void AddOutput(CLI::App& parser, Output& output, const std::string& what);
/// Adds "-o OUT", "-i" and "--force", to a command that edits a program.
void AddEditOutput(CLI::App& parser, Output& output);
/// Adds "--mode N" for one mode, which is the first unless told otherwise.
void AddMode(CLI::App& parser, int& number);
/// Adds "--mode N", which may be given several times.
void AddModes(CLI::App& parser, std::vector<int>& numbers);

}  // namespace cli
