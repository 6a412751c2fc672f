// SPDX-License-Identifier: MIT
#include "cli/ArgumentFault.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <vector>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/Help.h"

namespace cli {
namespace {

std::string LowerCase(std::string text) {
  for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  return text;
}

/// How many letters to put in, leave out, exchange, or swap with their neighbour lead from one word to the
/// other (the optimal string alignment distance).
std::size_t Slips(const std::string& from, const std::string& to) {
  std::vector<std::size_t> before, above, row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= from.size(); ++i) {
    before = std::exchange(above, row);
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t change = from[i - 1] == to[j - 1] ? 0 : 1;
      row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + change});
      const bool isSwap = i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1];
      if (isSwap) row[j] = std::min(row[j], before[j - 2] + 1);
    }
  }
  return row.back();
}

/// The command that was chosen; null when none was.
const CLI::App* ChosenOf(const CLI::App& program) {
  const std::vector<CLI::App*> chosen = program.get_subcommands();
  return chosen.empty() ? nullptr : chosen.front();
}

std::vector<const CLI::Option*> OptionsOf(const CLI::App& program) {
  std::vector<const CLI::Option*> options = program.get_options();
  if (const CLI::App* chosen = ChosenOf(program)) {
    const std::vector<const CLI::Option*> own = chosen->get_options();
    options.insert(options.end(), own.begin(), own.end());
  }
  return options;
}

std::vector<std::string> OptionNames(const CLI::App& program) {
  std::vector<std::string> names;
  for (const CLI::Option* option : OptionsOf(program)) {
    for (const std::string& name : option->get_lnames()) names.push_back("--" + name);
  }
  return names;
}

std::string NameOf(const CLI::Option& option) {
  return option.get_name(option.get_positional());
}

/// The first argument that has no place, if there is one.
std::string SurplusFault(const CLI::App& program) {
  const std::vector<std::string> surplus = program.remaining(true);
  if (surplus.empty()) return {};
  const auto option =
      std::ranges::find_if(surplus, [](const std::string& word) { return word.starts_with('-'); });
  if (option == surplus.end()) return qor::Format("'{1}' is one argument too many", {surplus.front()});
  const std::string name = option->substr(0, option->find('='));
  return qor::Format("there is no option {1}{2}", {name, DidYouMean(name, OptionNames(program))});
}

/// The first argument that is missing, if one is.
std::string MissingFault(const CLI::App& program) {
  for (const CLI::Option* option : OptionsOf(program)) {
    if (!option->get_required() || option->count() > 0) continue;
    return qor::Format(
        "{1} is missing",
        {option->get_positional() ? NameOf(*option) : NameOf(*option) + " " + ValueName(*option)});
  }
  return {};
}

/// An option that was given in the wrong way: without its value, with one that it does not take, or again.
std::string MisuseFault(const CLI::App& program, std::string_view parsers) {
  for (const CLI::Option* option : OptionsOf(program)) {
    const std::string name = NameOf(*option);
    if (parsers.find(name) == std::string_view::npos) continue;
    if (const std::size_t verb = parsers.find(" excludes "); verb != std::string_view::npos)
      return name + " does not go with " + std::string(parsers.substr(verb + 10));
    const std::string value = ValueName(*option);
    if (value.empty()) return name + " takes no value";
    if (parsers.find(" At Most ") != std::string_view::npos) return name + " was given twice";
    return qor::Format("{1} needs a value: {1} {2}", {name, value});
  }
  return {};
}

}  // namespace

std::string Nearest(const std::string& word, std::span<const std::string> words) {
  constexpr std::size_t MostSlips = 3;
  std::string nearest;
  std::size_t fewest = std::min(MostSlips, word.size() / 2) + 1;
  for (const std::string& candidate : words) {
    const std::size_t slips = Slips(LowerCase(word), candidate);
    if (slips < fewest) nearest = candidate;
    fewest = std::min(fewest, slips);
  }
  return nearest;
}

std::string DidYouMean(const std::string& word, std::span<const std::string> words) {
  const std::string nearest = Nearest(word, words);
  return nearest.empty() ? "" : "; did you mean " + nearest + "?";
}

std::string ArgumentFault(const CLI::App& program, const CLI::ParseError& failed) {
  std::string fault = SurplusFault(program);
  const std::string parsers = failed.what();
  if (fault.empty() && failed.get_name() == "ValidationError")
    fault = parsers;  // of this program's own checks
  if (fault.empty() && failed.get_name() != "RequiredError") fault = MisuseFault(program, parsers);
  if (fault.empty()) fault = ChosenOf(program) != nullptr ? MissingFault(program) : "a command is missing";
  const CLI::App* chosen = ChosenOf(program);
  return fault + (chosen != nullptr ? " (see halvex help " + chosen->get_name() + ")" : " (see halvex help)");
}

std::string CommandFault(const std::string& word) {
  std::vector<std::string> names;
  for (const Command& command : Commands()) names.push_back(command.name);
  if (std::ranges::find(names, word) != names.end()) return {};
  return qor::Format("there is no command '{1}'{2} (see halvex help)", {word, DidYouMean(word, names)});
}

}  // namespace cli
