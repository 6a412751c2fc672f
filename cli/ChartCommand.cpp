// SPDX-License-Identifier: MIT
// chart
#include <memory>

#include "chart/RendererSVG.h"
#include "cli/Commands.h"
#include "cli/ProgramArguments.h"
#include "cli/ProgramFiles.h"

namespace cli {
namespace {

struct ChartOptions {
  std::string path;
  Output out;
  int mode = 1;
};

constexpr std::string_view Ending = ".svg";
constexpr float Width = 1024, Height = 640;

ExitStatus RunChart(const ChartOptions& options, Invocation& invocation) {
  const std::string& out = options.out.path;
  if (!IsStandardStream(out) && TCBase::EndingOf(out) != Ending) {
    throw CommandError(WrongUsage, {TR("{1} does not end in {2}"), {out, Ending}});
  }
  CheckOutput(options.path, options.out, invocation);
  const TCBase::Program program = Load(options.path, invocation);
  const std::size_t mode = ModeIndexOf(program, options.mode, options.path);
  UX::RendererSVG renderer;
  renderer.Draw(UX::MakeChartScene({program, mode, {}, {}, {}, {}}, {Width, Height, UX::ViewSpan()}));
  SaveBytes(renderer.Picture(), out, invocation);
  return Done;
}

}  // namespace

Runner DefineChart(CLI::App& parser) {
  const auto options = std::make_shared<ChartOptions>();
  AddFile(parser, options->path);
  AddMode(parser, options->mode);
  AddOutput(parser, options->out, "The picture to write, a file that ends in .svg");
  return [options](Invocation& invocation) { return RunChart(*options, invocation); };
}

}  // namespace cli
