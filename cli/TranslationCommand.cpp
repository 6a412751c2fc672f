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

ExitStatus Export(const Output& output, Invocation& invocation) {
  const std::string& path = output.path;
  CheckOutput({}, output, invocation);
  if (IsStandardStream(path)) {
    SaveBytes(invocation.texts.ExportText(), path, invocation);
    return Done;
  }
  if (const qor::Sentence failure = invocation.texts.Export(path)) throw CommandError(FileFailed, failure);
  invocation.printer.Log().Message(TR("Localization file {1} exported successfully!"), {path});
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
  CheckIsNoLog(path, invocation);
  const TCBase::TranslationTest result =
      IsStandardStream(path) ? invocation.texts.TestText(LoadText(path, invocation), NameOf(path, invocation))
                             : invocation.texts.Test(path);
  for (const qor::Sentence& remark : result.remarks) {
    invocation.printer.Complain(qor::About(NameOf(path, invocation), remark));
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
  const auto output = std::make_shared<Output>();
  const auto tested = std::make_shared<std::string>();
  CLI::Option* exporting =
      parser.add_option("--export", output->path, "Write all texts, with those marked that --lang lacks");
  exporting->type_name("OUT")->check(CheckPath);
  parser.add_option("--test", *tested, "Check a translator's file")
      ->type_name("FILE")
      ->check(CheckPath)
      ->excludes(exporting);
  AddForce(parser, *output);
  return [=](Invocation& invocation) {
    if (tested->empty() && output->path.empty()) {
      throw CommandError(WrongUsage, TR("give --export OUT or --test FILE"));
    }
    return tested->empty() ? Export(*output, invocation) : Test(*tested, invocation);
  };
}

}  // namespace cli
