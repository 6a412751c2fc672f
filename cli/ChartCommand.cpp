// SPDX-License-Identifier: MIT
// chart
#include <memory>

#include "QorLib/Exceptions.h"
#include "QorLib/Format.h"
#include "cli/Commands.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"
#include "formats/FileBytes.h"
#include "ui/RendererSVG.h"

namespace cli {
namespace {

struct ChartOptions {
  std::string path, out;
  int mode = 1;
};

constexpr std::string_view Ending = ".svg";
constexpr float Width = 1024, Height = 640;

void CheckPicture(const ChartOptions& options, const Invocation& invocation) {
  CheckIsNoLog(options.out, invocation);
  const std::string& out = options.out;
  if (TCBase::EndingOf(out) != Ending)
    throw CommandError(WrongUsage, {"{1} does not end in {2}", {out, Ending}});
  CheckIsAnother(options.path, out);
}

ExitStatus RunChart(const ChartOptions& options, Invocation& invocation) {
  CheckPicture(options, invocation);
  const TCBase::Program program = Load(options.path, invocation);
  const std::size_t mode = ModeIndexOf(program, options.mode, options.path);
  UX::RendererSVG renderer;
  renderer.Draw(UX::MakeChartScene({program, mode, {}, {}, {}, {}}, {Width, Height, UX::ViewSpan()}));
  try {
    TCBase::ReplaceFileBytes(options.out, renderer.Picture());
  } catch (const qor::win::xsystem& failed) {
    throw CommandError(FileFailed, {"{1} could not be written", {options.out}, {failed.Reason()}});
  }
  return Done;
}

}  // namespace

Runner DefineChart(CLI::App& parser) {
  const auto options = std::make_shared<ChartOptions>();
  AddFile(parser, options->path);
  AddMode(parser, options->mode)
      ->required(false)
      ->description("The mode, the first one unless told otherwise");
  parser.add_option("-o", options->out, "The picture to write, in SVG")
      ->required()
      ->type_name("OUT.svg")
      ->check(CheckPath);
  return [options](Invocation& invocation) { return RunChart(*options, invocation); };
}

}  // namespace cli
