// SPDX-License-Identifier: MIT
// translation
#include <algorithm>
#include <memory>

#include "cli/Commands.h"
#include "cli/LogPrinter.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"

namespace cli {
namespace {

ExitStatus Export(const std::string& path, Invocation& invocation) {
  const TCBase::ExportResult result = invocation.texts.Export(path);
  if (!result.isExported) throw CommandError(FileFailed, result.message);
  invocation.printer.Log().Message(result.message);
  return Done;
}

/// Complains of each line of a text that a box could show.
void ComplainOfLines(std::string text, LogPrinter& printer) {
  constexpr std::string_view LineEnd = "\r\n";
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(LineEnd), text.size());
    if (end > 0) printer.Complain(text.substr(0, end));
    text.erase(0, end + LineEnd.size());
  }
}

ExitStatus Test(const std::string& path, Invocation& invocation) {
  const TCBase::TranslationTest result = invocation.texts.Test(path);
  for (const qor::Sentence& remark : result.remarks) {
    invocation.printer.Complain(qor::About(path, remark));
  }
  if (!result.isWhole) {
    ComplainOfLines(invocation.Text(result.message), invocation.printer);
    return FileFailed;
  }
  invocation.printer.Log().Message(result.message);
  return Done;
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
