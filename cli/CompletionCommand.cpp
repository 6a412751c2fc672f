// SPDX-License-Identifier: MIT
// completion
#include <memory>
#include <ostream>

#include "cli/Commands.h"
#include "cli/CompletionScripts.h"

namespace cli {
namespace {

constexpr const char *Bash = "bash", *Zsh = "zsh", *Fish = "fish";

/// The choices in "SHELL:{bash,zsh,fish}", which is how the parser names what an option takes.
std::vector<std::string> ChoicesOf(const std::string& typeName) {
  std::vector<std::string> choices;
  const std::size_t open = typeName.find(":{"), close = typeName.rfind('}');
  if (open == std::string::npos || close == std::string::npos) return choices;
  std::string rest = typeName.substr(open + 2, close - open - 2) + ",";
  for (std::size_t comma = rest.find(','); comma != std::string::npos; comma = rest.find(',')) {
    choices.push_back(rest.substr(0, comma));
    rest.erase(0, comma + 1);
  }
  return choices;
}

ArgumentValue ValueOf(const CLI::Option& option, const std::string& name,
                      const std::vector<std::string>& languages) {
  ArgumentValue value;
  value.isNone = option.get_expected_max() == 0;
  value.choices = ChoicesOf(name);
  if (name == "D") value.choices = {"emulator", "tc420", "tc421", "tc421@"};
  if (name == "ID") value.choices = languages;
  value.isFile = name == "FILE" || name == "TEXTFILE" || name == "IN" || name.starts_with("OUT");
  return value;
}

void AddOptions(CommandWords& words, const CLI::App& parser, const std::vector<std::string>& languages) {
  for (const CLI::Option* option : parser.get_options()) {
    // The help of a command is asked for as that of the program is.
    if (option == parser.get_help_ptr() && parser.get_parent() != nullptr) continue;
    if (option->get_positional()) {
      const std::string name =
          option->get_type_name().empty() ? option->get_name(true) : option->get_type_name();
      const ArgumentValue value = ValueOf(*option, name, languages);
      words.operand.isFile |= value.isFile;
      words.operand.choices.insert(words.operand.choices.end(), value.choices.begin(), value.choices.end());
      continue;
    }
    OptionWords described{
        {}, option->get_description(), ValueOf(*option, option->get_type_name(), languages)};
    for (const std::string& name : option->get_snames()) described.names.push_back("-" + name);
    for (const std::string& name : option->get_lnames()) described.names.push_back("--" + name);
    words.options.push_back(described);
  }
  // Options of which one must be given stand in nameless groups.
  for (const CLI::App* group : parser.get_subcommands([](const CLI::App*) { return true; })) {
    if (group->get_name().empty()) AddOptions(words, *group, languages);
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
  parser.add_option("SHELL", *shell, "The shell: bash, zsh or fish")
      ->required()
      ->type_name("")
      ->check(CLI::IsMember({Bash, Zsh, Fish}));
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
