// SPDX-License-Identifier: MIT
// translation
#include <memory>

#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/LogPrinter.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"

namespace cli {
namespace {

ExitStatus Export(const std::string& path, Invocation& invocation) {
  const TCBase::ExportResult result = invocation.texts.Export(path);
  if (!result.isExported)
    throw CommandError(FileFailed, invocation.Text(result.message) + " " + result.reason);
  invocation.printer.Log().Message(result.message);
  return Done;
}

ExitStatus Test(const std::string& path, Invocation& invocation) {
  const TCBase::TranslationTest result = invocation.texts.Test(path);
  if (result.isLoaded) {
    std::vector<std::string> warnings;
    warnings.reserve(result.notFound.size());
    for (const std::string& text : result.notFound) {
      warnings.push_back(qor::Format("{1}: the program has no text '{2}'", {path, text}));
    }
    invocation.printer.WarnOfEach(warnings);
    invocation.printer.Log().Message(result.message);
    return Done;
  }
  invocation.printer.Complain(path + ": " + invocation.Text(result.caption));
  for (const std::string& fault : result.faults)
    invocation.printer.Complain(qor::Format("{1}: {2}", {path, fault}));
  return FileFailed;
}

}  // namespace

Runner DefineTranslation(CLI::App& parser) {
  const auto exported = std::make_shared<std::string>();
  const auto tested = std::make_shared<std::string>();
  CLI::Option_group& what = *parser.add_option_group("what");
  what.add_option("--export", *exported, "Write all texts, with those marked that --lang lacks")
      ->type_name("OUT")
      ->check(CheckPath);
  what.add_option("--test", *tested, "Check a translator's file")->type_name("FILE")->check(CheckPath);
  what.require_option(1);
  return [=](Invocation& invocation) {
    CheckIsNoLog(tested->empty() ? *exported : *tested, invocation);
    return tested->empty() ? Export(*exported, invocation) : Test(*tested, invocation);
  };
}

}  // namespace cli
