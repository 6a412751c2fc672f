// SPDX-License-Identifier: MIT
#include "cli/Help.h"

#include <algorithm>
#include <memory>
#include <ostream>
#include <string_view>
#include <vector>

#include "cli/ArgumentFault.h"
#include "cli/Commands.h"

namespace cli {
namespace {

constexpr std::size_t MostColumns = 80;
constexpr std::size_t TermColumns = 26;  // in which arguments and options stand

constexpr std::string_view Footer =
    R"(Program files end in .xml; .tmf and .lmf files are read as programs of one mode,
too. The name - is standard input or output. Modes and channels count from 1.

A controller D is tc420 or tc421 (on the USB), an address such as 192.168.1.20
(a TC421 on the network), all (that are plugged in) or emulator. Without one:
what the variable HALVEX_DEVICE names, or else the only one plugged in.

Exit status: 0 done; 1 a device refused or could not be reached, or "info
--strict" remarked on something; 2 wrong usage; 3 a file could not be read or
written; 4 nothing found; 5 more than one device fits; 6 no permission, or the
device or UDP port 5000 in use by another program; 130 interrupted after the
device was left in order.
)";

/// The text in lines that stand between two columns; the first goes on behind what is in `text`.
void AppendWrapped(std::string& text, std::string_view words, std::size_t from) {
  std::size_t column = from;
  while (!words.empty()) {
    const std::size_t end = std::min(words.find(' '), words.size());
    const std::string_view word = words.substr(0, end);
    if (column > from && column + 1 + word.size() > MostColumns) {
      text += '\n' + std::string(from, ' ');
      column = from;
    } else if (column > from) {
      text += ' ';
      ++column;
    }
    text += word;
    column += word.size();
    words.remove_prefix(std::min(end + 1, words.size()));
  }
  text += '\n';
}

std::string Row(const std::string& term, const std::string& description, std::size_t width = TermColumns) {
  std::string row = "  " + term;
  if (description.empty()) return row + "\n";
  if (row.size() + 2 > width)
    row += "\n" + std::string(width, ' ');
  else
    row.resize(width, ' ');
  AppendWrapped(row, description, width);
  return row;
}

/// "-m, --mode N"
std::string TermOf(const CLI::Option& option) {
  std::string names;
  const auto add = [&names](const std::string& name) { names += (names.empty() ? "" : ", ") + name; };
  for (const std::string& name : option.get_snames()) add("-" + name);
  for (const std::string& name : option.get_lnames()) add("--" + name);
  const std::string value = ValueName(option);
  return value.empty() ? names : names + " " + value;
}

std::vector<const CLI::Option*> OptionsOf(const CLI::App& parser, bool arePositional) {
  return parser.get_options([&](const CLI::Option* option) {
    const bool isCommandsHelp = parser.get_parent() != nullptr && option == parser.get_help_ptr();
    return option->get_positional() == arePositional && !isCommandsHelp;
  });
}

std::string OptionRows(const CLI::App& parser, const CLI::Option* without = nullptr) {
  std::string text;
  for (const CLI::Option* option : OptionsOf(parser, false)) {
    if (option != without) text += Row(TermOf(*option), option->get_description());
  }
  return text;
}

}  // namespace

std::string ValueName(const CLI::Option& option) {
  return option.get_expected_max() == 0 ? "" : option.get_type_name();
}

std::string ProgramHelp(const CLI::App& program) {
  std::string text = program.get_description() + "\n\nUsage: halvex COMMAND [ARGUMENT]...\n\nCommands:\n";
  for (const Command& command : Commands()) text += Row(command.name, command.summary, 15);
  text += "\nOptions:\n" + OptionRows(program);
  text += "\n\"halvex help COMMAND\" shows a command's options and examples.\n\n";
  return text + std::string(Footer);
}

std::string CommandHelp(const CLI::App& command) {
  std::string text, usage = "halvex " + command.get_name(), arguments;
  for (const CLI::Option* argument : OptionsOf(command, true)) {
    const std::string name = argument->get_name(true);
    usage += argument->get_required() ? " " + name : " [" + name + "]";
    arguments += Row(name, argument->get_description());
  }
  const std::string options = OptionRows(command);
  for (const CLI::Option* option : OptionsOf(command, false)) {
    if (option->get_required()) usage += " --" + option->get_lnames().front() + " " + ValueName(*option);
  }
  if (!options.empty()) usage += " [OPTION]...";
  AppendWrapped(text, command.get_description() + ".", 0);
  text += "\nUsage: ";
  AppendWrapped(text, usage, 7);
  if (!arguments.empty()) text += "\n" + arguments;
  if (!options.empty()) text += "\nOptions:\n" + options;
  text += "\nOptions of every command:\n" +
          OptionRows(*command.get_parent(), command.get_parent()->get_version_ptr());
  return text + "\nExamples:\n" + command.get_footer();
}

Runner DefineHelp(CLI::App& parser) {
  const auto name = std::make_shared<std::string>();
  parser.add_option("COMMAND", *name, "The command; all of them without one")->type_name("COMMAND");
  return [name, &parser](Invocation& invocation) {
    const CLI::App& program = *parser.get_parent();
    if (name->empty()) {
      invocation.environment.out << ProgramHelp(program);
      return Done;
    }
    if (const std::string fault = CommandFault(*name); !fault.empty()) throw CommandError(WrongUsage, fault);
    invocation.environment.out << CommandHelp(*program.get_subcommand(*name));
    return Done;
  };
}

}  // namespace cli
