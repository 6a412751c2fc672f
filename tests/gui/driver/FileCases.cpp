// SPDX-License-Identifier: MIT
// Opening, saving, asking to save, and what a crash leaves behind.
#include <cstdlib>

#include "formats/ProgramFile.h"
#include "model/Presets.h"
#include "tests/gui/driver/App.h"
#include "tests/gui/driver/Cases.h"
#include "tests/gui/driver/Check.h"
#include "tests/gui/driver/Controls.h"
#include "tests/gui/driver/Input.h"
#include "ui/CommandTable.h"
#include "ui/win32/panels/Panel.h"

namespace gui {
namespace {

constexpr const char* NewTitle = "Orvanta 24 - New program";
constexpr const char* SaveQuestion = "Program modified: Save changes?";
constexpr const char* RecoveryName = "HalvexRecovery.xml";

/// A program of one mode of that name, as a file.
std::string SomeFile(const std::string& name, const std::string& modeName) {
  TCBase::Program program = TCBase::NewProgram([](std::string_view text) { return std::string(text); });
  program.modes.resize(1);
  program.modes[0].name = modeName;
  const std::string path = TheRig().folder + "\\" + name;
  WriteBytes(path, TCBase::WriteProgram(program));
  return path;
}

std::string FirstMode(const App& app) {
  const auto rows = RowsOf(app.Control(UX::ModeListId));
  return rows.empty() ? "" : rows.front().name;
}

void Modify(const App& app) {
  Click(app.ChartPoint(0, 840, 20));
  Click(app.ChartPoint(0, 840, 20));
  Until("a step is added", [&] { return app.StepsShown() == "13 steps"; });
}

App::Start Opening(const std::string& folder, const std::string& path, bool isQuiet = true) {
  return {folder, "", '"' + path + '"', isQuiet};
}

void AsksToSave() {
  const std::string path = SomeFile("asked.xml", "Reef");
  App app(Opening("ask", path));
  ExpectEqual("the title", app.Title(), "Orvanta 24 - " + path);
  Modify(app);
  PostMessageW(app.Window(), WM_CLOSE, 0, 0);
  ExpectEqual("the question", app.Question(), SaveQuestion);
  app.Answer(IDCANCEL);
  app.Settle();
  ExpectEqual("the steps", app.StepsShown(), "13 steps");
  app.Run(UX::command::New);
  app.Answer(IDNO);
  Until("there is a new program", [&] { return app.Title() == NewTitle && app.StepsShown() == "12 steps"; });
  app.Drop(path);
  Until("the file is open", [&] { return FirstMode(app) == "Reef"; });
  ExpectEqual("the steps", app.StepsShown(), "12 steps");
  Modify(app);
  PostMessageW(app.Window(), WM_CLOSE, 0, 0);
  app.Answer(IDYES);
  ExpectEqual("the exit code", app.AwaitEnd(), 0U);
  App again(Opening("ask", path));
  ExpectEqual("the steps", again.StepsShown(), "13 steps");
  again.Close();
}

/// Yes for a program without a file asks for one; without an answer nothing is closed.
void AsksForAName() {
  App app("ask-name");
  Modify(app);
  PostMessageW(app.Window(), WM_CLOSE, 0, 0);
  app.Answer(IDYES);
  app.Answer(IDCANCEL);
  app.Settle();
  Expect(app.IsRunning() && app.StepsShown() == "13 steps", "the program is gone");
  app.Close();
}

void RefusesABrokenFile() {
  const std::string path = TheRig().folder + "\\broken.xml";
  WriteBytes(path, "<program><mode");
  App app(Opening("broken", path, false));
  const std::string text = app.Question();
  Expect(Contains(text, "Error loading program " + path), text);
  app.Answer(IDOK);
  Until("there is a program", [&] { return FirstMode(app) == "Normal"; });
  ExpectEqual("the title", app.Title(), NewTitle);
  ExpectEqual("the file", BytesOf(path), "<program><mode");
  app.Close();
}

void StartsWithTheLastFile() {
  const std::string path = SomeFile("last.xml", "Lagoon");
  const std::string setting = "<last_open_file>" + path + "</last_open_file>";
  {
    App app({"last", setting, "", true});
    ExpectEqual("the mode", FirstMode(app), "Lagoon");
    app.Close();
  }
  App app({"last-missing", "<last_open_file>Z:\\gone\\light.xml</last_open_file>", "", true});
  ExpectEqual("the title", app.Title(), NewTitle);
  Expect(app.FindDialog() == nullptr, "something is asked");
  app.Close();
}

void SaysWhenItCannotSave() {
  const char* const folder = std::getenv("HALVEX_READONLY");
  Expect(folder != nullptr, "HALVEX_READONLY does not name a read-only folder");
  App app("readonly");
  Modify(app);
  app.Run(UX::command::SaveAs);
  app.ChooseFile(std::string(folder) + "\\light.xml");
  const std::string text = app.Question();
  Expect(Contains(text, "Error saving program"), text);
  app.Answer(IDOK);
  ExpectEqual("the title", app.Title(), NewTitle);
  PostMessageW(app.Window(), WM_CLOSE, 0, 0);
  ExpectEqual("the question", app.Question(), SaveQuestion);
  app.Answer(IDNO);
  ExpectEqual("the exit code", app.AwaitEnd(), 0U);
}

/// Leaves what a crash in the middle of an edit leaves.
void Crash(const std::string& folder) {
  App app(folder);
  Modify(app);
  Until("a copy is kept", [&] { return !BytesOf(app.FileIn(RecoveryName)).empty(); });
  app.Kill();
}

void Recovers() {
  Crash("recovery");
  App app({"recovery", "", "", false});
  Expect(Contains(app.Question(), "Halvex was not closed properly."), app.Question());
  app.Answer(IDYES);
  Until("the edit is back", [&] { return app.StepsShown() == "13 steps"; });
  PostMessageW(app.Window(), WM_CLOSE, 0, 0);
  ExpectEqual("the question", app.Question(), SaveQuestion);
  app.Answer(IDNO);
  app.AwaitEnd();
  ExpectEqual("the copy", BytesOf(app.FileIn(RecoveryName)), "");
}

void ForgetsACrash() {
  Crash("no-recovery");
  App app({"no-recovery", "", "", false});
  app.Answer(IDNO);
  Until("the built-in program is there", [&] { return app.StepsShown() == "12 steps"; });
  ExpectEqual("the copy", BytesOf(app.FileIn(RecoveryName)), "");
  app.Close();
}

constexpr Case Cases[] = {
    {"file.asks", AsksToSave},
    {"file.asks-for-a-name", AsksForAName},
    {"file.broken", RefusesABrokenFile},
    {"file.last", StartsWithTheLastFile},
    {"file.readonly", SaysWhenItCannotSave},
    {"file.recovered", Recovers},
    {"file.not-recovered", ForgetsACrash},
};

}  // namespace

std::span<const Case> FileCases() {
  return Cases;
}

}  // namespace gui
