// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

namespace cli {

/// What stands in the place of an argument.
struct ArgumentValue {
  bool isNone = false;  // an option without a value
  bool isFile = false;
  bool isProgram = false;            // the file of a program
  std::vector<std::string> choices;  // empty for anything
};

struct OptionWords {
  std::vector<std::string> names;  // with their dashes
  std::string description;
  ArgumentValue value;
  bool isAlone = false;  // stands with no command
};

/// A command as shells complete it.
struct CommandWords {
  std::string name;  // empty for the program itself: its options stand with every command
  std::string summary;
  std::vector<OptionWords> options;
  ArgumentValue operand;  // the arguments that are no options
};

/// Scripts for bash (with or without the package bash-completion), zsh (compsys) and fish. The first of the
/// commands is the program.
std::string BashScript(const std::vector<CommandWords>& commands);
std::string ZshScript(const std::vector<CommandWords>& commands);
std::string FishScript(const std::vector<CommandWords>& commands);

}  // namespace cli
