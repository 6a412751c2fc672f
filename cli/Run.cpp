// SPDX-License-Identifier: MIT
#include "cli/Run.h"

#include <exception>
#include <new>
#include <ostream>

#include "QorLib/Exceptions.h"
#include "cli/ArgumentFault.h"
#include "cli/Commands.h"
#include "cli/Help.h"
#include "cli/LogPrinter.h"
#include "formats/Settings.h"

namespace cli {
namespace {

/// A parser for all commands; the chosen command's runner is stored in `chosen`.
void Define(CLI::App& parser, CommonOptions& options, Runner& chosen) {
  parser.name("halvex");
  parser.set_version_flag("-v,--version", std::string("halvex ") + HALVEX_VERSION,
                          "Print the version and exit");
  parser.set_help_flag("-h,--help", "Print this help and exit");
  parser.require_subcommand(1);
  parser.fallthrough();
  parser.add_flag("-q,--quiet", options.quiet, "Print nothing when all goes well, but the result");
  parser.add_flag("--trace", options.trace, "Print what goes to controllers and comes back");
  parser.add_option("--log", options.logFile, "Append all lines to a file, too")->type_name("FILE");
  parser.add_option("--lang", options.language, "The language of messages and new texts, such as de")
      ->type_name("ID");
  for (const Command& command : Commands()) {
    CLI::App& subcommand = *parser.add_subcommand(command.name, command.summary);
    subcommand.fallthrough();
    subcommand.footer(command.examples);
    subcommand.parse_complete_callback([runner = command.define(subcommand), &chosen] { chosen = runner; });
  }
}

int Complain(Environment& environment, const std::string& text, ExitStatus status) {
  environment.err << "halvex: " << text << std::endl;
  return status;
}

/// The first argument where a command belongs; empty when there is none.
std::string CommandIn(const std::vector<std::string>& arguments) {
  auto argument = arguments.begin();
  while (argument != arguments.end() && argument->starts_with('-')) {
    const bool takesValue = *argument == "--log" || *argument == "--lang";
    argument += takesValue && argument + 1 != arguments.end() ? 2 : 1;
  }
  return argument == arguments.end() ? "" : *argument;
}

/// What the user's environment says of languages: of these variables the first that is set (POSIX, 8.2).
std::string LanguageOfEnvironment(const Environment& environment) {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    if (std::string language = environment.variable(variable); !language.empty()) return language;
  }
  return {};
}

/// Makes the language current that was asked for, or else the one in the settings or in the environment.
void ChooseLanguage(const std::string& asked, const Environment& environment, TCBase::Localisation& texts) {
  if (asked.empty()) {
    qor::Log unused([] { return qor::TimeOfDay{}; });  // reading settings logs nothing
    const std::string kept = TCBase::Settings(environment.settingsFolder, unused).Get(TCBase::SettingLocale);
    texts.SetLanguage(texts.FindLanguage(kept.empty() ? LanguageOfEnvironment(environment) : kept));
    return;
  }
  const std::string found = texts.FindLanguage(asked);
  if (found.empty()) {
    std::string known(TCBase::EnglishId);
    for (const TCBase::StringTable::Language& language : texts.Languages()) known += ", " + language.id;
    throw CommandError(WrongUsage, {TR("there is no language '{1}'; languages are {2}"), {asked, known}});
  }
  texts.SetLanguage(found);
}

ExitStatus RunCommand(const Runner& chosen, const CommonOptions& options, TCBase::Localisation& texts,
                      Environment& environment) {
  ChooseLanguage(options.language, environment, texts);
  LogPrinter printer(environment, options, texts.Translator());
  Invocation invocation{environment, texts, printer, options};
  try {
    const ExitStatus status = chosen(invocation);
    printer.Print();
    return status;
  } catch (const CommandError& failed) {
    printer.Complain(failed.Sentence());
    return failed.Status();
  }
}

}  // namespace

int Run(const std::vector<std::string>& arguments, Environment& environment) {
  CLI::App parser("Edit and upload the light programs of TC420 and TC421 LED controllers.");
  CommonOptions options;
  Runner chosen;
  Define(parser, options, chosen);
  if (arguments.empty()) {
    environment.out << ProgramHelp(parser);
    return Done;
  }
  if (const std::string command = CommandIn(arguments); !command.empty()) {
    const std::string fault = CommandFault(command);
    if (!fault.empty()) return Complain(environment, fault, WrongUsage);
  }
  try {
    parser.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::CallForHelp&) {
    const std::vector<CLI::App*> command = parser.get_subcommands();
    environment.out << (command.empty() ? ProgramHelp(parser) : CommandHelp(*command.front()));
    return Done;
  } catch (const CLI::Success& asked) {
    parser.exit(asked, environment.out, environment.err);
    return Done;
  } catch (const CLI::ParseError& failed) {
    return Complain(environment, ArgumentFault(parser, failed), WrongUsage);
  }
  TCBase::Localisation texts;
  try {
    return RunCommand(chosen, options, texts, environment);
  } catch (const CommandError& failed) {
    return Complain(environment, failed.Sentence().In(texts.Translator()), failed.Status());
  } catch (const qor::xout_of_memory&) {
    return Complain(environment, std::string(texts.Translate(TR("Out of memory."))), FileFailed);
  } catch (const std::bad_alloc&) {
    return Complain(environment, std::string(texts.Translate(TR("Out of memory."))), FileFailed);
  } catch (const std::exception& failed) {
    return Complain(environment, failed.what(), DeviceFailed);
  }
}

}  // namespace cli
