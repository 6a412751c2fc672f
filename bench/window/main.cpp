// SPDX-License-Identifier: MIT
// How long the window's renderers take for a frame, against the least that one takes, and whether they draw
// the same: window_bench [FOLDER]. The folder gets their pictures. Exits with 1 when something is not as
// required.
#include <cstdio>
#include <memory>
#include <string>

#include "QorLib/qor_win_str_utils.h"
#include "bench/window/BareFrames.h"
#include "bench/window/BenchWindow.h"
#include "bench/window/Report.h"
#include "model/Presets.h"
#include "ui/win32/WindowRenderer.h"

namespace {

constexpr int Width = 1920, Height = 1080;
constexpr std::size_t Channel = 1, Step = 3;  // what is selected

/// The built-in program's first mode with a step selected, while a demo runs.
class Scenes {
 public:
  /// Another one each time, out of many.
  const UX::ChartScene& Next() {
    next_ = (next_ + 1) % demo_.size();
    return demo_[next_];
  }

 private:
  std::vector<UX::ChartScene> MakeDemo() {
    std::vector<UX::ChartScene> demo;
    for (int second = 0; second < TCBase::SecondsPerDay; second += 601) {
      content_.demoSecond = second;
      demo.push_back(UX::MakeChartScene(content_, {Width, Height, UX::ViewSpan()}));
    }
    return demo;
  }

  TCBase::Program program_ = TCBase::NewProgram(qor::InEnglish);
  UX::ChartContent content_{
      .program = program_, .selectedChannel = Channel, .selectedStep = UX::StepIndex{Channel, Step}};
  std::vector<UX::ChartScene> demo_ = MakeDemo();
  std::size_t next_ = 0;
};

/// A renderer, its name and the rules for it.
struct Subject {
  const char* name;
  std::unique_ptr<UX::WindowRenderer> (*make)(HWND);
  double mostOfBare;  // so many times the bare frame's time
  int turns;          // at measuring
};

/// Measures the renderer and gives its picture; an empty one where there is no such renderer.
template <typename Bare>
bench::Picture Examine(const Subject& subject, bench::Report& report) {
  const bench::BenchWindow bareWindow(Width, Height), window(Width, Height);
  Bare bare(bareWindow.Handle(), Width, Height);
  const std::unique_ptr<UX::WindowRenderer> renderer = subject.make(window.Handle());
  if (!renderer) return {};
  renderer->Resize(Width, Height, 1);
  Scenes scenes;
  const std::string name = subject.name;
  const bench::Side whole{window, [&] { renderer->Draw(scenes.Next()); }};
  const bench::Side clear{bareWindow, [&] { bare.Draw(); }};
  report.Compare(name + ": a frame, against a bare one", whole, clear, subject.mostOfBare, subject.turns);
  renderer->Draw(Scenes().Next());  // for both renderers the same
  return window.Grab();
}

void Save(const bench::Picture& picture, const std::string& folder, const char* name) {
  if (folder.empty() || picture.pixels.empty()) return;
  const std::string path = folder + "/" + name + ".png";
  if (!bench::Save(picture, qor::win::WideFromUtf8(path))) {
    std::fprintf(stderr, "%s could not be written\n", path.c_str());
  }
}

bool Run(const std::string& folder) {
  bench::Report report;
  const bench::Picture first = Examine<bench::BareDirect2D>({"Direct2D", UX::MakeRendererDX, 3, 8}, report);
  const bench::Picture second = Examine<bench::BareGdi>({"GDI+", UX::MakeRendererGDI, 4, 60}, report);
  Save(first, folder, "direct2d");
  Save(second, folder, "gdi");
  if (first.pixels.size() != second.pixels.size()) {
    std::puts("One of the renderers is not to be had here.");
    return false;
  }
  report.Check("the two pictures differ by", bench::MeanDifference(first, second), 0.02);
  return report.Succeeded();
}

}  // namespace

int main(int argc, char** argv) {
  const bench::GdiPlus gdiPlus;
  return Run(argc > 1 ? argv[1] : "") ? 0 : 1;
}
