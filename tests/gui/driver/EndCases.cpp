// SPDX-License-Identifier: MIT
// Ends of the program that were not planned, and what the next start makes of them.
#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Input.h"
#include "ui/CommandTable.h"

namespace gui {
namespace {

void ClosesDuringADemo() {
  App app("demo-close");
  app.PickEmulator();
  Click(MiddleOf(app.Control(UX::command::PlayDemo)));
  app.AwaitLog("Playing whole day");
  PostMessageW(app.Window(), WM_CLOSE, 0, 0);
  ExpectEqual("the exit code", app.AwaitEnd(3000), 0U);
  Expect(Contains(BytesOf(app.FileIn("TC42xLog.txt")), "Demo finished"), "the demo was not ended");
}

/// A kill in the middle of an edit leaves a copy, which the next start offers.
void Recovers() {
  constexpr const char* Copy = "HalvexRecovery.xml";
  {
    App app("recovery");
    Click(app.ChartPoint(0, 840, 20));
    Click(app.ChartPoint(0, 840, 20));
    Until("a step is added", [&] { return app.StepsShown() == "13 steps"; });
    Until("a copy is kept", [&] { return !BytesOf(app.FileIn(Copy)).empty(); });
    app.Kill();
  }
  App app({"recovery", "", "", false});
  Expect(Contains(app.Question(), "Halvex was not closed properly."), app.Question());
  app.Answer(IDYES);
  Until("the edit is back", [&] { return app.StepsShown() == "13 steps"; });
  app.Close();
  ExpectEqual("the copy", BytesOf(app.FileIn(Copy)), "");
}

/// A file that the command line names is opened before anything else; a broken one is left as it is.
void RefusesABrokenFile() {
  const std::string path = TheRig().folder + "\\broken.xml";
  WriteBytes(path, "<program><mode");
  App app({"broken", "", '"' + path + '"', false});
  Expect(Contains(app.Question(), "Error loading program " + path), app.Question());
  app.Answer(IDOK);
  Until("there is a program", [&] { return app.Title() == "Orvanta 24 - New program"; });
  ExpectEqual("the file", BytesOf(path), "<program><mode");
  app.Close();
}

constexpr Case Cases[] = {
    {"end.demo", ClosesDuringADemo},
    {"end.killed", Recovers},
    {"end.broken-file", RefusesABrokenFile},
};

}  // namespace

std::span<const Case> EndCases() {
  return Cases;
}

}  // namespace gui
