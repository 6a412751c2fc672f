// SPDX-License-Identifier: MIT
#include "cli/Run.h"

#include <algorithm>
#include <exception>
#include <new>
#include <ostream>

#include "QorLib/Exceptions.h"
#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/LogPrinter.h"
#include "formats/Settings.h"

namespace cli {
namespace {

constexpr const char* Version = HALVEX_VERSION;

constexpr const char* Footer =
    "Program files end in .xml; .tmf and .lmf files are read as programs of one mode, too.\n"
    "Devices: emulator, tc420, tc421 (on the USB), tc421@ADDRESS[,IDENTITY] (on the network).\n"
    "Modes and channels count from 1.\n"
    "Exit status: 0 done; 1 a device refused or could not be reached; 2 wrong usage; 3 a file could not be\n"
    "read or written; 4 nothing found; 5 more than one device fits; 6 no permission, or the device or UDP\n"
    "port 5000 in use by another program; 130 interrupted after the device was left in order.";

/// A parser for all commands; the chosen command's runner is stored in `chosen`.
void Define(CLI::App& parser, CommonOptions& options, Runner& chosen) {
  parser.name("halvex");
  parser.set_version_flag("--version", std::string("halvex ") + Version, "Print the version and exit");
  parser.require_subcommand(1);
  parser.fallthrough();
  parser.footer(Footer);
  parser.get_formatter()->column_width(34);
  parser.add_flag("--quiet", options.quiet, "No log lines on standard output");
  parser.add_flag("--trace", options.trace, "The communication trace on standard error");
  parser.add_option("--log", options.logFile, "Append all log lines to a file")->type_name("FILE");
  parser
      .add_option("--lang", options.language, "The language of messages and of new texts, such as de or en")
      ->type_name("ID");
  for (const Command& command : Commands()) {
    CLI::App& subcommand = *parser.add_subcommand(command.name, command.summary);
    subcommand.fallthrough();
    subcommand.parse_complete_callback([runner = command.define(subcommand), &chosen] { chosen = runner; });
  }
}

int Complain(Environment& environment, const std::string& text, ExitStatus status) {
  environment.err << "halvex: " << text << std::endl;
  return status;
}

/// The first argument where a command belongs, if it is none.
std::string UnknownCommand(const std::vector<std::string>& arguments) {
  auto argument = arguments.begin();
  while (argument != arguments.end() && argument->starts_with('-')) {
    const bool takesValue = *argument == "--log" || *argument == "--lang";
    argument += takesValue && argument + 1 != arguments.end() ? 2 : 1;
  }
  if (argument == arguments.end()) return {};
  const std::span<const Command> commands = Commands();
  const bool isKnown = std::any_of(commands.begin(), commands.end(),
                                   [&](const Command& command) { return command.name == *argument; });
  return isKnown ? "" : *argument;
}

/// Makes the language current that was asked for, or else the one in the settings.
void ChooseLanguage(const std::string& asked, const std::string& settingsFolder,
                    TCBase::Localisation& texts) {
  if (asked.empty()) {
    qor::Log unused([] { return qor::TimeOfDay{}; });  // reading settings logs nothing
    texts.SetLanguage(TCBase::Settings(settingsFolder, unused).Get(TCBase::SettingLocale));
    return;
  }
  texts.SetLanguage(asked);
  if (texts.CurrentLanguage() == asked) return;
  std::string known(TCBase::EnglishId);
  for (const TCBase::StringTable::Language& language : texts.Languages()) known += ", " + language.id;
  throw CommandError(WrongUsage, {"there is no language '{1}'; languages are {2}", {asked, known}});
}

ExitStatus RunCommand(const Runner& chosen, const CommonOptions& options, TCBase::Localisation& texts,
                      Environment& environment) {
  ChooseLanguage(options.language, environment.settingsFolder, texts);
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
  if (const std::string unknown = UnknownCommand(arguments); !unknown.empty()) {
    return Complain(environment, qor::Format("there is no command '{1}' (see halvex --help)", {unknown}),
                    WrongUsage);
  }
  try {
    parser.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::Success& asked) {
    parser.exit(asked, environment.out, environment.err);
    return Done;
  } catch (const CLI::ParseError& failed) {
    return Complain(environment, std::string(failed.what()) + " (see halvex --help)", WrongUsage);
  }
  TCBase::Localisation texts;
  try {
    return RunCommand(chosen, options, texts, environment);
  } catch (const CommandError& failed) {
    return Complain(environment, failed.Sentence().In(texts.Translator()), failed.Status());
  } catch (const qor::xout_of_memory&) {
    return Complain(environment, std::string(texts.Translate("Out of memory.")), FileFailed);
  } catch (const std::bad_alloc&) {
    return Complain(environment, std::string(texts.Translate("Out of memory.")), FileFailed);
  } catch (const std::exception& failed) {
    return Complain(environment, failed.what(), DeviceFailed);
  }
}

}  // namespace cli
