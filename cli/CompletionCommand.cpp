// SPDX-License-Identifier: MIT
// completion
#include <memory>
#include <ostream>
#include <sstream>

#include "cli/Commands.h"
#include "cli/CompletionScripts.h"
#include "cli/Help.h"
#include "cli/ProgramArguments.h"

namespace cli {
namespace {

constexpr const char *Bash = "bash", *Zsh = "zsh", *Fish = "fish";

/// The words in "bash|zsh|fish", which is how an option's value is named that is one of them.
std::vector<std::string> ChoicesOf(const std::string& value) {
  std::vector<std::string> choices;
  if (value.find('|') == std::string::npos) return choices;
  std::istringstream words(value);
  for (std::string word; std::getline(words, word, '|');) choices.push_back(word);
  return choices;
}

std::vector<std::string> CommandNames() {
  std::vector<std::string> names;
  for (const Command& command : Commands()) names.emplace_back(command.name);
  return names;
}

ArgumentValue ValueOf(const CLI::Option& option, const std::vector<std::string>& languages) {
  const std::string name = ValueName(option);
  ArgumentValue value;
  value.isNone = name.empty();
  value.choices = ChoicesOf(name);
  if (name == "D") value.choices = {"tc420", "tc421", "tc421@", "emulator", "all"};
  if (name == "ID") value.choices = languages;
  if (name == "COMMAND") value.choices = CommandNames();
  value.isProgram = name == "PROGRAM";
  value.isFile = name == "FILE" || name == "TEXT" || name == "OUT";
  return value;
}

void AddOptions(CommandWords& words, const CLI::App& parser, const std::vector<std::string>& languages) {
  for (const CLI::Option* option : parser.get_options()) {
    // The help of a command is asked for as that of the program is.
    if (option == parser.get_help_ptr() && parser.get_parent() != nullptr) continue;
    const ArgumentValue value = ValueOf(*option, languages);
    if (option->get_positional()) {
      words.operand.isFile |= value.isFile;
      words.operand.isProgram |= value.isProgram;
      words.operand.choices.insert(words.operand.choices.end(), value.choices.begin(), value.choices.end());
      continue;
    }
    OptionWords described{{}, option->get_description(), value, option == parser.get_version_ptr()};
    for (const std::string& name : option->get_snames()) described.names.push_back("-" + name);
    for (const std::string& name : option->get_lnames()) described.names.push_back("--" + name);
    words.options.push_back(described);
  }
}

std::vector<CommandWords> WordsOf(const CLI::App& program, const std::vector<std::string>& languages) {
  std::vector<CommandWords> words(1);
  AddOptions(words.front(), program, languages);
  for (const CLI::App* command : program.get_subcommands([](const CLI::App*) { return true; })) {
    CommandWords& described =
        words.emplace_back(CommandWords{command->get_name(), command->get_description(), {}, {}});
    AddOptions(described, *command, languages);
  }
  return words;
}

}  // namespace

Runner DefineCompletion(CLI::App& parser) {
  const auto shell = std::make_shared<std::string>();
  TakeWord(*parser.add_option("SHELL", *shell, "The shell: bash, zsh or fish")->required(),
           {Bash, Zsh, Fish});
  return [shell, &parser](Invocation& invocation) {
    std::vector<std::string> languages{std::string(TCBase::EnglishId)};
    for (const TCBase::StringTable::Language& language : invocation.texts.Languages())
      languages.push_back(language.id);
    const std::vector<CommandWords> words = WordsOf(*parser.get_parent(), languages);
    invocation.environment.out << (*shell == Bash  ? BashScript(words)
                                   : *shell == Zsh ? ZshScript(words)
                                                   : FishScript(words));
    return Done;
  };
}

}  // namespace cli
