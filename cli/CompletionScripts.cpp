// SPDX-License-Identifier: MIT
#include "cli/CompletionScripts.h"

#include <map>

#include "QorLib/Format.h"

namespace cli {
namespace {

std::string Joined(const std::vector<std::string>& words, const std::string& between) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : between) + word;
  return text;
}

/// The text between single quotes, as all three shells take it.
std::string Quoted(std::string text) {
  for (std::size_t at = text.find('\''); at != std::string::npos; at = text.find('\'', at + 4))
    text.replace(at, 1, "'\\''");
  return "'" + text + "'";
}

/// With a backslash before each of those characters.
std::string Escaped(const std::string& text, std::string_view special) {
  std::string escaped;
  for (const char c : text) {
    if (special.find(c) != std::string_view::npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

std::vector<std::string> NamesOf(const std::vector<OptionWords>& options, bool areWithCommand) {
  std::vector<std::string> names;
  for (const OptionWords& option : options) {
    if (!option.isAlone || !areWithCommand)
      names.insert(names.end(), option.names.begin(), option.names.end());
  }
  return names;
}

std::vector<std::string> CommandNames(const std::vector<CommandWords>& commands) {
  std::vector<std::string> names;
  for (const CommandWords& command : commands) {
    if (!command.name.empty()) names.push_back(command.name);
  }
  return names;
}

// bash

constexpr const char* BashCandidates = "mapfile -t COMPREPLY < <(compgen {1} -- \"$word\")\n";

std::string BashReply(const ArgumentValue& value) {
  if (value.isFile) return "compopt -o filenames\n    " + qor::Format(BashCandidates, {"-f"});
  if (value.isProgram) {
    return "compopt -o filenames\n"
           "    mapfile -t COMPREPLY < <(compgen -d -- \"$word\"\n"
           "      for i in xml tmf lmf; do compgen -f -X \"!*.$i\" -- \"$word\"; done)\n";
  }
  if (value.choices.empty()) return ":\n";
  return qor::Format(BashCandidates, {"-W " + Quoted(Joined(value.choices, " "))});
}

/// The cases for what stands behind an option that takes a value, those with the same answer together.
std::string BashValues(const std::vector<CommandWords>& commands) {
  std::map<std::string, std::vector<std::string>> patterns;  // by what is answered
  for (const CommandWords& command : commands) {
    const std::string before = command.name.empty() ? "*' " : "'" + command.name + " ";
    for (const OptionWords& option : command.options) {
      if (option.value.isNone) continue;
      for (const std::string& name : option.names)
        patterns[BashReply(option.value)].push_back(before + name + "'");
    }
  }
  std::string text;
  for (const auto& [reply, those] : patterns)
    text += "  " + Joined(those, " | \\\n    ") + ")\n    " + reply + "    return\n    ;;\n";
  return text;
}

// zsh

std::string ZshAction(const ArgumentValue& value) {
  if (value.isFile) return "_files";
  if (value.isProgram) return "_files -g \"*.(xml|tmf|lmf)\"";
  return value.choices.empty() ? " " : "(" + Joined(value.choices, " ") + ")";
}

std::string ZshArguments(const CommandWords& command, const std::string& indent, bool areAlone = false) {
  std::string text;
  for (const OptionWords& option : command.options) {
    if (option.isAlone != areAlone) continue;
    const std::string description = "[" + Escaped(option.description, "[]:\\") + "]";
    const std::string value = option.value.isNone ? "" : ":value:" + ZshAction(option.value);
    for (const std::string& name : option.names) {
      // With "=" the value may stand behind one, too.
      const std::string equals = !option.value.isNone && name.starts_with("--") ? "=" : "";
      text += indent;
      text += Quoted(qor::Format("*{1}{2}{3}{4}", {name, equals, description, value}));
      text += " \\\n";
    }
  }
  return text;
}

// fish

constexpr const char* FishPrograms =
    R"( -a '(__fish_complete_path (commandline -ct) | string match -r ".*(?:/|\.xml|\.tmf|\.lmf)(?:\t.*)?\$")')";

std::string FishOptions(const CommandWords& command) {
  const std::string with =
      command.name.empty() ? "" : " -n " + Quoted("__fish_seen_subcommand_from " + command.name);
  std::string text;
  for (const OptionWords& option : command.options) {
    text += "complete -c halvex" + (option.isAlone ? " -n __fish_use_subcommand" : with);
    for (const std::string& name : option.names)
      text += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
    if (option.value.isFile) {
      text += " -r -F";
    } else if (option.value.isProgram) {
      text.append(" -x").append(FishPrograms);
    } else if (!option.value.isNone) {
      text += " -x";
      if (!option.value.choices.empty()) text += " -a " + Quoted(Joined(option.value.choices, " "));
    }
    text += " -d " + Quoted(option.description) + "\n";
  }
  return text;
}

}  // namespace

std::string BashScript(const std::vector<CommandWords>& commands) {
  const CommandWords& program = commands.front();
  std::string script =
      "# bash completion for halvex\n"
      "_halvex() {\n"
      "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} command= i\n"
      "  COMPREPLY=()\n"
      "  # \"--option=value\" comes as three words.\n"
      "  [[ $word != = ]] || word=\n"
      "  [[ $before != = ]] || before=${COMP_WORDS[COMP_CWORD - 2]}\n"
      "  for ((i = 1; i < COMP_CWORD; ++i)); do\n"
      "    case ${COMP_WORDS[i]} in\n"
      "    --log | --lang)\n"
      "      [[ ${COMP_WORDS[i + 1]} != = ]] || ((++i))\n"
      "      ((++i))\n"
      "      ;;\n"
      "    -*) ;;\n"
      "    *)\n"
      "      command=${COMP_WORDS[i]}\n"
      "      break\n"
      "      ;;\n"
      "    esac\n"
      "  done\n"
      "  case \"$command $before\" in\n";
  script += BashValues(commands) + "  esac\n  case $command in\n";
  const std::string common = Joined(NamesOf(program.options, true), " ");
  const std::string everything =
      Joined(CommandNames(commands), " ") + " " + Joined(NamesOf(program.options, false), " ");
  script += "  '')\n    " + qor::Format(BashCandidates, {"-W " + Quoted(everything)}) + "    ;;\n";
  for (const CommandWords& command : commands) {
    if (command.name.empty()) continue;
    const std::string options = Quoted(Joined(NamesOf(command.options, true), " ") + " " + common);
    script += "  " + command.name + ")\n    if [[ $word == -* ]]; then\n      " +
              qor::Format(BashCandidates, {"-W " + options}) + "    else\n      " +
              BashReply(command.operand) + "    fi\n    ;;\n";
  }
  script += "  esac\n}\ncomplete -F _halvex halvex\n";
  return script;
}

std::string ZshScript(const std::vector<CommandWords>& commands) {
  const CommandWords& program = commands.front();
  std::string script = "#compdef halvex\n\n_halvex() {\n  local state line\n  local -a commands=(\n";
  for (const CommandWords& command : commands) {
    if (!command.name.empty())
      script += "    " + Quoted(command.name + ":" + Escaped(command.summary, ":\\")) + "\n";
  }
  script += "  )\n  local -a common=(\n";
  std::string common = ZshArguments(program, "    ");
  for (std::size_t at = common.find(" \\\n"); at != std::string::npos; at = common.find(" \\\n", at))
    common.erase(at, 2);
  script += common +
            "  )\n"
            "  _arguments -C $common \\\n" +
            ZshArguments(program, "    ", true) +
            "    '1:command:->command' '*::argument:->argument'\n"
            "  case $state in\n"
            "  command) _describe command commands ;;\n"
            "  argument)\n"
            "    case $words[1] in\n";
  for (const CommandWords& command : commands) {
    if (command.name.empty()) continue;
    script += "    " + command.name + ")\n      _arguments $common \\\n" + ZshArguments(command, "        ") +
              "        " + Quoted("*:argument:" + ZshAction(command.operand)) + "\n      ;;\n";
  }
  script +=
      "    esac\n    ;;\n  esac\n}\n\n"
      "# Read from fpath this file is the function itself; sourced, it only defines it.\n"
      "if [[ $funcstack[1] == _halvex ]]; then\n  _halvex \"$@\"\nelse\n  compdef _halvex halvex\nfi\n";
  return script;
}

std::string FishScript(const std::vector<CommandWords>& commands) {
  std::string script = "# fish completion for halvex\ncomplete -c halvex -f\n";
  for (const CommandWords& command : commands) {
    if (!command.name.empty()) {
      script += "complete -c halvex -n __fish_use_subcommand -a " + command.name + " -d " +
                Quoted(command.summary) + "\n";
      const std::string seen = " -n " + Quoted("__fish_seen_subcommand_from " + command.name);
      if (command.operand.isFile) script += "complete -c halvex" + seen + " -F\n";
      if (command.operand.isProgram)
        script.append("complete -c halvex").append(seen).append(FishPrograms) += '\n';
      if (!command.operand.choices.empty())
        script += "complete -c halvex" + seen + " -a " + Quoted(Joined(command.operand.choices, " ")) + "\n";
    }
    script += FishOptions(command);
  }
  return script;
}

}  // namespace cli
