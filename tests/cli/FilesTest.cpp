// SPDX-License-Identifier: MIT
// What can be done to programs without a device: formats, edits, languages.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "formats/Settings.h"
#include "tests/cli/CliFixture.h"
#include "tests/support/TestLog.h"

using test::Cli;
using test::LineCount;

namespace {

class CliFiles : public Cli {
 protected:
  /// The sample table of the file's first mode.
  std::string Table(const std::string& path) {
    EXPECT_EQ(Run({"sample", path, "--mode", "1", "--table"}), cli::Done) << err;
    return out;
  }
  /// A channel's steps text.
  std::string Steps(const std::string& path, const std::string& channel) {
    EXPECT_EQ(Run({"steps", path, "--mode", "1", "--channel", channel}), cli::Done) << err;
    return out;
  }
  std::string Info(const std::string& path) {
    EXPECT_EQ(Run({"info", path}), cli::Done) << err;
    return out.substr(0, out.find("Channel 1"));
  }
};

}  // namespace

TEST_F(Cli, DrawsAChart) {
  const std::string path = NewProgram();
  const std::string picture = folder.File("a.svg");
  EXPECT_EQ(Run({"chart", path, "--mode", "2", "-o", picture}), cli::Done) << err;
  EXPECT_EQ(test::Contents(picture).substr(0, 5), "<svg ");
  test::Write(picture, "precious");
  EXPECT_EQ(Run({"chart", path, "--mode", "3", "--force", "-o", picture}), cli::WrongUsage);
  EXPECT_EQ(Run({"chart", folder.File("none.xml"), "--force", "-o", picture}), cli::FileFailed);
  EXPECT_EQ(test::Contents(picture), "precious");
  EXPECT_EQ(Run({"chart", path, "-o", folder.File("a.png")}), cli::WrongUsage);
  EXPECT_EQ(Run({"chart", path, "-o", folder.File("no/folder.svg")}), cli::FileFailed);
  EXPECT_EQ(LineCount(err), 1u) << err;
}

TEST_F(CliFiles, ConvertsAmongAllFormats) {
  const std::string xml = NewProgram();
  const std::string tmf = folder.File(
      "R\xC3\xBC"
      "ck.TMF");
  const std::string back = folder.File("back.xml");
  EXPECT_EQ(Run({"convert", xml, tmf, "--mode", "1"}), cli::Done);
  EXPECT_EQ(err, "");
  EXPECT_EQ(Run({"convert", tmf, back}), cli::Done);
  EXPECT_EQ(Table(back), Table(xml));
  EXPECT_EQ(Info(back),
            "Mode 1: R\xC3\xBC"
            "ck, 12 steps, within all limits\n");

  const std::string lmf = folder.File("a.lmf");
  EXPECT_EQ(Run({"convert", tmf, lmf}), cli::Done) << err;
  EXPECT_EQ(Table(lmf), Table(xml)) << "all steps are at half hours";
  const std::string raw = folder.File("a.raw");
  EXPECT_EQ(Run({"convert", xml, raw, "--mode", "2"}), cli::Done);
  EXPECT_EQ(test::Contents(raw), std::string(432000, '\x64'));

  EXPECT_EQ(Run({"convert", xml, raw, "--force"}), cli::Done);
  EXPECT_EQ(err, "halvex: warning: " + raw +
                     ": only the mode 'Normal' is written, since RAW files hold one (see --mode)\n");
  in = "08:00 1\n20:00 2";
  EXPECT_EQ(Run({"steps", xml, "--mode", "2", "--channel", "1", "--set", "-", "--force", "-o", tmf}),
            cli::Done);
  EXPECT_EQ(Steps(tmf, "1"), "08:00 1\n09:00 1\n20:00 2\n22:00 1\n") << "the mode that was changed";
  EXPECT_EQ(Run({"new", tmf}), cli::WrongUsage);
  EXPECT_EQ(Run({"convert", raw, back, "--force"}), cli::FileFailed);
  EXPECT_EQ(err, "halvex: Error loading program " + raw + ": RAW files are written only\n");
}

TEST_F(CliFiles, LimitsTmfFilesAndRefusesOtherSizes) {
  const std::string tmf = folder.File("long.tmf");
  const std::string xml = folder.File("long.xml");
  std::string bytes(12, '\0');
  for (char minute = 0; minute < 50; ++minute) bytes += std::string(5, '\0') + minute + std::string(50, '\0');
  test::Write(tmf, bytes);
  EXPECT_EQ(Run({"convert", tmf, xml}), cli::Done);
  EXPECT_EQ(err, "halvex: warning: " + tmf +
                     ": TMF max number of steps exceeded. Limiting to 48: the file has 50\n");
  EXPECT_EQ(LineCount(Table(xml)), 1u + 48);

  test::Write(tmf, bytes.substr(0, 12));
  const std::string before = test::Contents(xml);
  EXPECT_EQ(Run({"convert", tmf, xml, "--force", "--lang", "de"}), cli::FileFailed);
  EXPECT_EQ(err,
            "halvex: Fehler beim Laden des Programms " + tmf +
                ": Ung\xC3\xBCltiges Dateiformat: eine TMF-Datei hat 12 Byte und 56 mehr f\xC3\xBCr jeden "
                "Schritt, diese hat 12\n");
  EXPECT_EQ(test::Contents(xml), before);
}

TEST_F(CliFiles, EditsSteps) {
  const std::string a = NewProgram();
  const std::string b = folder.File("b.xml");
  EXPECT_EQ(Run({"add-step", a, "--at", "23:59:59", "--force", "-o", b, "--mode", "1"}), cli::Done);
  EXPECT_EQ(out, "Mode 1, 'Normal': Added step at 23:59 to all channels. Current number of steps is 13.\n");
  EXPECT_EQ(Steps(b, "5"), "09:00 0\n09:30 30\n21:30 30\n22:00 0\n23:59 0\n");

  EXPECT_EQ(Run({"align", a, "--minutes", "60", "--force", "-o", b, "--lang", "pl"}), cli::Done);
  EXPECT_EQ(out.substr(0, out.find('.')),
            "Tryb 1, 'Normal': Wszystkie kroki wyr\xC3\xB3wnano do odst\xC4\x99p\xC3\xB3w 60-minutowych");
  EXPECT_EQ(Steps(b, "5"), "09:00 0\n10:00 30\n21:00 30\n22:00 0\n");

  EXPECT_EQ(Run({"optimize", a, "--force", "-o", b}), cli::Done);
  EXPECT_EQ(out, "Mode 1, 'Normal': nothing to do\nMode 2, 'AlwaysOn': nothing to do\n");
  EXPECT_EQ(test::Contents(a), test::Contents(b)) << "all modes were within the limit";
  EXPECT_EQ(Run({"optimize", a, "--force", "-o", b, "--tc421", "--mode", "1"}), cli::Done);
  EXPECT_EQ(LineCount(out), 2u);
  EXPECT_EQ(Table(b), Table(a)) << "all steps are at half hours";

  for (const char* minutes : {"0", "61", "-5", "1.5", "x", "030", "0x10", ""}) {
    EXPECT_EQ(Run({"align", a, "--minutes", minutes, "--force", "-o", b}), cli::WrongUsage) << minutes;
  }
  EXPECT_EQ(Run({"add-step", a, "--at", "24:00", "--force", "-o", b}), cli::WrongUsage);
  EXPECT_EQ(Run({"optimize", a, "-o", folder.File("b.doc")}), cli::WrongUsage);
}

TEST_F(CliFiles, OptimisesLongModes) {
  std::string channel = "<c>";
  for (int i = 0; i < 60; ++i)
    channel += "<step hour='" + std::to_string(i / 3) + "' minute='" + std::to_string(i % 3) + "' value='" +
               std::to_string(i * 37 % 101) + "'/>";
  const std::string path = folder.File("long.xml");
  test::Write(path, "<l><mode name='m'>" + channel + "</c><c/><c/><c/><c/></mode></l>");
  const std::string optimised = folder.File("short.xml");
  EXPECT_EQ(Run({"add-step", path, "--at", "1:30", "-o", optimised}), cli::WrongUsage);
  EXPECT_EQ(err,
            "halvex: " + optimised +
                " was not written: mode 1, 'm': Unable to add new step. Maximum number of 48 steps for the "
                "current mode reached\n");
  EXPECT_FALSE(std::filesystem::exists(test::PathOf(optimised)));
  EXPECT_EQ(Run({"optimize", path, "-o", optimised}), cli::Done);
  EXPECT_EQ(out,
            "Mode m has more than 48 steps, optimizing...\nMode 1, 'm': 60 -> 48 steps, the light changes by "
            "at most 36 %\n");
  EXPECT_EQ(LineCount(Table(optimised)), 1u + 48);
}

TEST_F(CliFiles, SetsAndAddsStepsFromText) {
  const std::string a = NewProgram();
  const std::string b = folder.File("b.xml");
  const std::string text = folder.File("steps.txt");
  test::Write(text, "10:00 80 j\r\n09:00 7\r\n25:00 50\r\n10:00 1");
  EXPECT_EQ(Run({"steps", a, "--mode", "1", "--channel", "5", "--set", text, "--force", "-o", b}), cli::Done);
  EXPECT_EQ(out, "Text contains 4 steps\nMode 1, 'Normal': 10 steps\n");
  EXPECT_EQ(Steps(b, "5"), "09:00 7\n10:00 80 J\n23:59 50\n");

  in = "12:00 5\nnoon\n# in the morning\n9:30 1";
  EXPECT_EQ(Run({"steps", a, "--mode", "1", "--channel", "5", "--add", "-", "--force", "-o", b}), cli::Done);
  EXPECT_EQ(
      out,
      "Text contains 3 steps\nAdded new step 00:00 0.\nAdded new step 09:30 1.\nAdded new step 12:00 5.\n"
      "Mode 1, 'Normal': 13 steps\n");
  EXPECT_EQ(err,
            "halvex: warning: standard input: Skipped lines: 2\n"
            "halvex: warning: standard input: Lines with a missing number (read as 0): 3\n");
  EXPECT_EQ(Steps(b, "5"), "00:00 0\n09:00 0\n09:30 1\n12:00 5\n21:30 30\n22:00 0\n");

  const std::string before = test::Contents(a), other = test::Contents(b);
  struct Case {
    std::vector<std::string> arguments;
    std::string text;
    int status;
  };
  for (const Case& one :
       {Case{{"--set", "-", "--force", "-o", b}, "", cli::FileFailed},
        {{"--set", "-", "--force", "-o", b}, "9:00 1\n9:00 2", cli::WrongUsage},
        {{"--add", "-", "--force", "-o", b}, "no step", cli::FileFailed},
        {{"--add", "-", "--force", "-o", b}, std::string((1 << 20) + 1, ' '), cli::FileFailed},
        {{"--add", folder.File("missing"), "--force", "-o", b}, "", cli::FileFailed},
        {{"--add", "-", "--force", "-o", b}, "9\xFF:00 1\n8:00 1", cli::FileFailed},
        {{"--add", text, "-o", text}, "", cli::FileFailed},
        {{"--add", "", "--force", "-o", b}, "", cli::WrongUsage},
        {{"--add", "-", "--force", "-o", b, "--log", a}, "9:00 1", cli::FileFailed},
        {{"--add", "-", "--force", "-o", b, "--log", b}, "9:00 1", cli::FileFailed},
        {{"--add", "-"}, "9:00 1", cli::WrongUsage},
        {{"--add", "-", "--set", "-", "--force", "-o", b}, "9:00 1", cli::WrongUsage},
        {{"--force", "-o", b}, "", cli::WrongUsage},
        {{"--channel", "6"}, "", cli::WrongUsage}}) {
    std::vector<std::string> arguments = {"steps", a, "--mode", "1"};
    if (one.arguments[0] != "--channel") arguments.insert(arguments.end(), {"--channel", "1"});
    arguments.insert(arguments.end(), one.arguments.begin(), one.arguments.end());
    in = one.text;
    EXPECT_EQ(Run(arguments), one.status) << one.text << err;
    EXPECT_EQ(test::Contents(b), other);
    EXPECT_EQ(test::Contents(a), before);
  }
}

TEST_F(CliFiles, TreatsAllThatWriteAlike) {
  const std::string program = NewProgram(), text = folder.File("steps.txt"), day = folder.File("day.txt");
  test::Write(text, "08:00 0\n20:00 90");
  EXPECT_EQ(Run({"table", program}), cli::Done);
  test::Write(day, out);
  const std::string other = folder.File("other.xml"), photo = folder.File("photo.xml");
  test::Write(photo, "precious");
  for (std::vector<std::string> command : {std::vector<std::string>{"optimize", "--tc421"},
                                           {"align", "--minutes", "7"},
                                           {"add-step", "--at", "12:34"},
                                           {"steps", "--channel", "2", "--set", text},
                                           {"table", "--set", day, "--mode", "2"}}) {
    SCOPED_TRACE(command[0]);
    const auto run = [&](const std::string& file, std::vector<std::string> where) {
      where.insert(where.begin(), command.begin(), command.end());
      where.insert(where.begin() + 1, file);
      return Run(where);
    };
    EXPECT_EQ(run(program, {}), cli::WrongUsage);
    EXPECT_EQ(run(program, {"-o", photo, "--force"}), cli::FileFailed);
    EXPECT_EQ(test::Contents(photo), "precious") << "no program is never replaced by one";
    EXPECT_EQ(run(program, {"-o", other}), cli::Done) << err;
    const std::string written = test::Contents(other);
    EXPECT_NE(written, test::Contents(program));
    EXPECT_EQ(run(program, {"-o", other}), cli::FileFailed) << "it exists";
    terminal.isInput = true;
    in = "n\n";
    EXPECT_EQ(run(program, {"-o", other}), cli::Interrupted);
    in = "y\n";
    EXPECT_EQ(run(program, {"-o", other}), cli::Done);
    terminal.isInput = false;
    in = test::Contents(program);
    EXPECT_EQ(run("-", {"-o", "-"}), cli::Done);
    EXPECT_EQ(out, written);
    EXPECT_EQ(run("-", {"-i"}), cli::WrongUsage);
    EXPECT_EQ(Run({"convert", program, other, "--force"}), cli::Done);
    EXPECT_EQ(run(other, {"-i"}), cli::Done);
    EXPECT_EQ(test::Contents(other), written);
    EXPECT_EQ(Run({"new", other}), cli::FileFailed);
    std::filesystem::remove(test::PathOf(other));
  }
  in = test::Contents(program);
  EXPECT_EQ(Run({"convert", "-", "-", "--to", "raw", "--mode", "2"}), cli::Done);
  EXPECT_EQ(out, std::string(432000, '\x64'));
}

TEST_F(CliFiles, EditsAWholeMode) {
  const std::string path = NewProgram();
  const auto typing = [](std::string text) {
    return [text](const std::string& file) {
      test::Write(file, text);
      return true;
    };
  };
  edit = typing("8:00 0 0 0 0 0\n20:00 9 9 9 9 9J\n");
  EXPECT_EQ(Run({"edit", path}), cli::WrongUsage) << "there is no terminal";
  terminal.isInput = true;
  EXPECT_EQ(Run({"edit", path, "--mode", "2"}), cli::Done) << err;
  EXPECT_EQ(out, "Mode 2, 'AlwaysOn': 2 steps\n");
  EXPECT_EQ(Run({"steps", path, "--mode", "2", "--channel", "5"}), cli::Done);
  EXPECT_EQ(out, "08:00 0\n20:00 9 J\n");

  const std::string before = test::Contents(path);
  std::string kept;
  edit = [&](const std::string& file) {
    EXPECT_TRUE(kept.empty() || kept == test::Contents(file)) << "what was typed is still there";
    test::Write(file, kept = "8:00 0 0 0 0 0\n20:00 9 9 9 9 -\n");
    return true;
  };
  in = "y\nn\n";
  EXPECT_EQ(Run({"edit", path}), cli::Interrupted);
  EXPECT_NE(err.find("Channel 5: Unable to delete step."), std::string::npos) << err;
  const std::size_t name = err.rfind(' ') + 1;
  const std::string text = err.substr(name, err.size() - name - 1);
  EXPECT_EQ(test::Contents(text), kept);
  std::filesystem::remove(test::PathOf(text));
  EXPECT_EQ(test::Contents(path), before);
}

TEST_F(CliFiles, SpeaksTheUsersLanguage) {
  const std::string path = folder.File("neu.xml");
  EXPECT_EQ(Run({"--lang", "de", "new", path}), cli::Done);
  EXPECT_EQ(Info(path).substr(0, 19), "Mode 1: Tagesablauf");
  EXPECT_NE(out.find("Channel 5: Kanal 5"), std::string::npos);
  EXPECT_EQ(Run({"upload", path, "--device", "emulator", "--lang", "fr"}), cli::Done);
  EXPECT_NE(out.find("Envoi du mode\xC2\xA0: Tagesablauf\n"), std::string::npos) << out;

  EXPECT_EQ(Run({"new", path, "--lang", "xx"}), cli::WrongUsage);
  EXPECT_EQ(err, "halvex: there is no language 'xx'; languages are en, de, sk, it, cz, fr, pl\n");
  variables["LANG"] = "cs_CZ.UTF-8";
  EXPECT_EQ(Run({"upload", path, "--device", "emulator"}), cli::Done);
  EXPECT_NE(out.find("Nahr"), std::string::npos) << out;
  test::TestLog log;
  TCBase::Settings(folder.File("home"), log).Set(TCBase::SettingLocale, "it");
  EXPECT_EQ(Run({"new", path, "--force"}), cli::Done);
  EXPECT_TRUE(Info(path).starts_with("Modalit\xC3\xA0 1: Ciclo giornaliero")) << out;
  EXPECT_EQ(Run({"new", path, "--lang", "en", "--force"}), cli::Done);
  EXPECT_NE(Info(path).find(" 1: Normal"), std::string::npos) << out;
}

TEST_F(CliFiles, ServesTranslators) {
  const std::string path = folder.File("t.xml");
  EXPECT_EQ(Run({"translation", "--export", path, "--lang", "de"}), cli::Done);
  EXPECT_EQ(out, "Lokalisierungsdatei " + path + " erfolgreich exportiert!\n");
  EXPECT_EQ(Run({"translation", "--test", path}), cli::Done);
  EXPECT_EQ(out, "Translation file " + path + " loaded successfully!\n");

  test::Write(path,
              "<localisation><strings>\n<string "
              "id='Mode'><es>Modo</es>\n<de>{1}</de></string></strings></localisation>");
  EXPECT_EQ(Run({"translation", "--test", path}), cli::FileFailed);
  EXPECT_EQ(err, "halvex: " + path + ": line 2, column 19: the program has no language 'es'\n" + "halvex: " +
                     path + ": line 3, column 1: there is no placeholder {1} in the English text\n" +
                     "halvex: Translation file " + path + " loaded in part, without what is faulty\n");
  EXPECT_EQ(Run({"translation", "--export", folder.File("no/t.xml")}), cli::FileFailed);
  EXPECT_EQ(Run({"translation"}), cli::WrongUsage);
}
