// SPDX-License-Identifier: MIT
#pragma once

#include <CLI/CLI.hpp>
#include <span>
#include <string>

namespace cli {

/// Which of the words was meant by one that is none of them: the one that is at most a few slips of typing
/// away; empty when none is.
std::string Nearest(const std::string& word, std::span<const std::string> words);
/// "; did you mean --device?", or nothing.
std::string DidYouMean(const std::string& word, std::span<const std::string> words);

/// What is wrong with a run's arguments, in the program's own words. `failed` is what the parser threw.
std::string ArgumentFault(const CLI::App& program, const CLI::ParseError& failed);

/// What is wrong with a word in the place of a command; empty when it is one.
std::string CommandFault(const std::string& word);

}  // namespace cli
