// SPDX-License-Identifier: MIT
// window_bench [FOLDER]: how long the window's renderers take for a frame of 1920 x 1080, against the least
// that one takes, and how far their pictures are apart; the pictures go into the folder.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>

#include "QorLib/qor_win_str_utils.h"
#include "bench/window/BareFrames.h"
#include "bench/window/BenchWindow.h"
#include "model/Presets.h"
#include "ui/win32/WindowRenderer.h"

namespace {

constexpr int Width = 1920, Height = 1080;
constexpr int TurnsEach = 6, FramesIgnored = 3, FramesATurn = 10;

using Frame = std::function<void()>;
using MakeRenderer = std::unique_ptr<UX::WindowRenderer> (*)(HWND window);

double MillisecondsOf(const Frame& frame) {
  const auto start = std::chrono::steady_clock::now();
  frame();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void TakeTurn(const Frame& frame, std::vector<double>& times) {
  for (int i = 0; i < FramesIgnored; ++i) frame();
  for (int i = 0; i < FramesATurn; ++i) times.push_back(MillisecondsOf(frame));
}

double Median(std::vector<double> times) {
  std::nth_element(times.begin(), times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2), times.end());
  return times[times.size() / 2];
}

/// Prints a ratio and whether it is small enough. The two sides take turns, so that other work on the machine
/// meets both.
bool Compare(const char* what, const Frame& frame, const Frame& other, double most) {
  std::vector<double> times, otherTimes;
  for (int i = 0; i < TurnsEach; ++i) {
    TakeTurn(frame, times);
    TakeTurn(other, otherTimes);
  }
  const double ratio = Median(times) / Median(otherTimes);
  std::printf("%-40s %8.2f ms %8.2f ms %6.2f  (at most %.1f)%s\n", what, Median(times), Median(otherTimes),
              ratio, most, ratio <= most ? "" : "  TOO MUCH");
  std::fflush(stdout);
  return ratio <= most;
}

/// Scenes of the built-in program while a demo runs: no two in a row are the same.
class Scenes {
 public:
  Scenes() {
    content_.selectedChannel = 1;
    content_.selectedStep = UX::StepPlace{1, 3};
    content_.demoSecond = 52560;
  }
  UX::ChartScene Next() {
    content_.demoSecond = (*content_.demoSecond + 61) % TCBase::SecondsPerDay;
    return UX::MakeChartScene(content_, geometry_);
  }

 private:
  TCBase::Program program_ = TCBase::NewProgram(qor::InEnglish);
  UX::ChartContent content_{program_};
  UX::ChartGeometry geometry_{Width, Height, UX::ViewSpan()};
};

template <typename Bare>
bool CompareRenderer(const char* name, MakeRenderer make, double most) {
  const bench::BenchWindow window(Width, Height);
  const auto renderer = make(window.Handle());
  if (!renderer) {
    std::printf("%s is not to be had here\n", name);
    return false;
  }
  renderer->Resize(Width, Height, 1);
  Bare bare(window.Handle(), Width, Height);
  Scenes scenes;
  const Frame whole = [&] { renderer->Draw(scenes.Next()); };
  const std::string frame = std::string(name) + ": a frame over a bare one";
  const std::string lane = std::string(name) + ": a lane over a frame";
  const bool isQuick = Compare(
      frame.c_str(), whole, [&] { bare.Draw(); }, most);
  whole();
  return Compare(
             lane.c_str(), [&] { renderer->DrawLane(scenes.Next(), 1); }, whole, 0.5) &&
         isQuick;
}

bench::Picture PictureOf(MakeRenderer make, const std::wstring& path) {
  const bench::BenchWindow window(Width, Height);
  const auto renderer = make(window.Handle());
  renderer->Resize(Width, Height, 1);
  Scenes scenes;
  renderer->Draw(scenes.Next());
  bench::Picture picture = window.Grab();
  if (!path.empty()) bench::Save(picture, path);
  return picture;
}

bool ComparePictures(const std::wstring& folder) {
  const auto in = [&folder](const wchar_t* name) { return folder.empty() ? folder : folder + name; };
  const bench::Picture dx = PictureOf(UX::MakeRendererDX, in(L"/dx.png"));
  const bench::Picture gdi = PictureOf(UX::MakeRendererGDI, in(L"/gdi.png"));
  const double percent = 100 * bench::MeanDifference(dx, gdi);
  std::printf("mean difference of the two pictures: %.2f %% (under 2 %%)\n", percent);
  return percent < 2;
}

}  // namespace

int main(int argc, char** argv) {
  const Gdiplus::GdiplusStartupInput input;
  ULONG_PTR token = 0;
  Gdiplus::GdiplusStartup(&token, &input, nullptr);
  const bool isDxQuick = CompareRenderer<bench::BareDirect2D>("Direct2D", UX::MakeRendererDX, 3);
  const bool isGdiQuick = CompareRenderer<bench::BareGdi>("GDI+", UX::MakeRendererGDI, 4);
  const bool isSame = ComparePictures(argc > 1 ? qor::win::WideFromUtf8(argv[1]) : L"");
  Gdiplus::GdiplusShutdown(token);
  return isDxQuick && isGdiQuick && isSame ? 0 : 1;
}
