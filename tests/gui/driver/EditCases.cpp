// SPDX-License-Identifier: MIT
// Editing on the chart, by mouse and keys, as the saved file shows it.
#include <cmath>

#include "formats/ProgramFile.h"
#include "formats/StepsText.h"
#include "platform/Files.h"
#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Controls.h"
#include "tests/gui/driver/Input.h"
#include "ui/CommandTable.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

/// The steps of a channel of the first mode, after the program is saved: "08:00 0, 10:00 80, ...".
std::string SavedSteps(const App& app, std::size_t channel) {
  const std::string path = app.FileIn("saved.xml");
  const bool isNew = BytesOf(path).empty();
  platform::RemoveFile(path);
  app.Run(isNew ? UX::command::SaveAs : UX::command::Save);
  if (isNew) app.ChooseFile(path);
  Until("the program is saved", [&] { return !BytesOf(path).empty(); });
  TCBase::Program program;
  const qor::Sentence fault = TCBase::LoadProgram(path, program);
  Expect(!fault, "the saved file cannot be read: " + fault.In(qor::InEnglish));
  std::string text;
  for (const TCBase::Step& step : program.modes.front().channels[channel].steps) {
    text += (text.empty() ? "" : ", ") + TCBase::StepText(step);
  }
  return text;
}

constexpr const char* Unchanged =
    "08:00 0, 10:00 80, 11:30 80, 12:00 50, 18:00 50, 19:00 90, 20:00 90, 23:30 0";

/// A time that falls on a whole pixel, so that the mouse can point at it exactly.
int MinuteAtPixel(const App& app, int minute) {
  const UX::ChartGeometry geometry = app.Geometry();
  return static_cast<int>(geometry.SecondAt(std::round(geometry.XOf(minute * 60.0)))) / 60;
}

int PercentAtPixel(const App& app, std::size_t channel, float percent) {
  const UX::ChartGeometry geometry = app.Geometry();
  return static_cast<int>(geometry.PercentAt(channel, std::round(geometry.YOf(channel, percent))));
}

std::string StepAt(const App& app, std::size_t channel, int minute, float percent) {
  const int exact = MinuteAtPixel(app, minute);
  return TCBase::StepText(
      TCBase::MakeStep(exact / 60, exact % 60, static_cast<float>(PercentAtPixel(app, channel, percent))));
}

/// Where a step comes to that was added at 15:00 and 70 %, by a pointer that goes from there to 16:00 and 20
/// %.
std::string MovedStep(const App& app, std::size_t channel) {
  const UX::ChartGeometry chart = app.Geometry();
  const auto x = [&](int minute) { return std::round(chart.XOf(minute * 60.0)); };
  const auto y = [&](float percent) { return std::round(chart.YOf(channel, percent)); };
  const int added = static_cast<int>(chart.SecondAt(x(900))) / 60 * 60;
  const int minute =
      static_cast<int>(std::round(added + chart.SecondAt(x(960)) - chart.SecondAt(x(900)))) / 60;
  const float percent = chart.PercentAt(channel, y(20));
  return TCBase::StepText(TCBase::MakeStep(minute / 60, minute % 60, percent));
}

void ExpectShown(const App& app, const char* steps) {
  Until(std::string("the first mode has ") + steps, [&] { return app.StepsShown() == steps; });
}

/// A first click in a lane selects its channel, the next one adds a step; steps are dragged, then deleted.
void WorksByMouse() {
  App app("mouse");
  Click(app.ChartPoint(1, 900, 70));
  app.Settle();
  ExpectEqual("the steps", app.StepsShown(), "12 steps");
  Click(app.ChartPoint(1, 900, 70));
  ExpectShown(app, "13 steps");
  const std::string added = StepAt(app, 1, 900, 70);
  app.AwaitLog("Added new step " + added + ". Current number of steps: 13");
  Drag(app.ChartPoint(1, 900, 70), app.ChartPoint(1, 960, 20));
  const std::string moved = MovedStep(app, 1);
  app.AwaitLog("Step " + moved);
  ExpectEqual("the title", app.Title(), "Orvanta 24 - New program");
  ExpectEqual("channel 2", SavedSteps(app, 1),
              "08:00 0, 10:00 80, 11:30 80, 12:00 50, " + moved + ", 18:00 50, 19:00 90, 20:00 90, 23:30 0");
  Until("the title names the file", [&] { return app.Title() == "Orvanta 24 - " + app.FileIn("saved.xml"); });
  Key(VK_DELETE);
  app.AwaitLog("Step deleted. Current number of steps: 12");
  ExpectEqual("channel 2", SavedSteps(app, 1), Unchanged);
  ExpectEqual("channel 1", SavedSteps(app, 0), Unchanged);
  app.Close();
}

void UndoesAndRedoes() {
  App app("undo");
  Click(app.ChartPoint(0, 840, 20));
  Click(app.ChartPoint(0, 840, 20));
  ExpectShown(app, "13 steps");
  Click(app.ChartPoint(0, 960, 20));
  ExpectShown(app, "14 steps");
  Key('Z', VK_CONTROL);
  ExpectShown(app, "13 steps");
  Key('Z', VK_CONTROL);
  Key('Z', VK_CONTROL);  // there is nothing more
  ExpectShown(app, "12 steps");
  Key('Y', VK_CONTROL);
  Key('Y', VK_CONTROL);
  ExpectShown(app, "14 steps");
  Key('Z', VK_CONTROL);
  Key('Z', VK_CONTROL);
  ExpectShown(app, "12 steps");
  PostMessageW(app.Window(), WM_CLOSE, 0, 0);  // nothing is to be saved: no question
  ExpectEqual("the exit code", app.AwaitEnd(), 0U);
}

void WorksByKeys() {
  App app("arrows");
  Click(app.ChartPoint(0, 600, 80));
  constexpr WORD Keys[] = {VK_RIGHT, VK_RIGHT, VK_RIGHT, VK_LEFT, VK_DOWN, VK_DOWN, VK_UP};
  for (const WORD key : Keys) Key(key);
  Key('J');
  app.AwaitLog("Step jump toggle");
  ExpectEqual("channel 1", SavedSteps(app, 0),
              "08:00 0, 10:02 79 J, 11:30 80, 12:00 50, 18:00 50, 19:00 90, 20:00 90, 23:30 0");
  Key('Z', VK_CONTROL);  // the jump, then the whole run of keys
  Key('Z', VK_CONTROL);
  ExpectEqual("channel 1", SavedSteps(app, 0), Unchanged);
  Key(VK_F1);
  ExpectEqual("channel 1", SavedSteps(app, 0),
              "08:00 0, 10:00 80 J, 11:30 80, 12:00 50, 18:00 50, 19:00 90, 20:00 90, 23:30 0");
  app.Close();
}

/// Keys that mean something to the chart belong to a text while it is typed.
void TypesADescription() {
  App app("description");
  const HWND description = app.Control(UX::DescriptionId);
  Click(app.ChartPoint(0, 600, 80));
  Key(VK_ADD);
  Click(MiddleOf(description));
  Key('A', VK_CONTROL);
  Key(VK_DELETE);
  Type(L"ab j+");
  Key(VK_BACK);
  Key(VK_HOME);
  Key(VK_DELETE);
  Key(VK_END);
  Key(VK_NEXT);
  Until("the text is typed", [=] { return TextOf(description) == "b j"; });
  Key(VK_ESCAPE);
  ExpectEqual("the steps", app.StepsShown(), "12 steps");
  ExpectEqual("the view", ScrollOf(app.Control(UX::ScrollBarId)).position, 0);
  ExpectEqual("the view", ScrollOf(app.Control(UX::ScrollBarId)).page, 1380);
  Expect(!Contains(app.LogText(), "jump"), "J came to the chart");
  app.Close();
}

/// The list of modes takes its own keys; the chart's step stays.
void RenamesAndDeletesModes() {
  App app("modes");
  const HWND modes = app.Control(UX::ModeListId);
  Click(app.ChartPoint(0, 600, 80));
  ClickRow(modes, 0);
  Key(VK_F2);
  app.Dialog();
  Type(L" ");
  Key(VK_RETURN);
  Until("it says that a name is missing", [&] { return app.Question() == "Rename: A mode needs a name."; });
  app.Answer(IDOK);
  Type(L"Reef");
  Key(VK_RETURN);
  Until("the mode has its name", [=] { return RowsOf(modes).front().name == "Reef"; });
  ExpectEqual("the steps", app.StepsShown(), "12 steps");
  Key(VK_DELETE);
  Until("the mode is gone", [=] { return RowsOf(modes).size() == 1; });
  app.Close();
}

constexpr Case Cases[] = {
    {"edit.mouse", WorksByMouse},
    {"edit.undo", UndoesAndRedoes},
    {"edit.keys", WorksByKeys},
    {"edit.description", TypesADescription},
    {"edit.modes", RenamesAndDeletesModes},
};

}  // namespace

std::span<const Case> EditCases() {
  return Cases;
}

}  // namespace gui
