// SPDX-License-Identifier: MIT
// What can be done to programs without a device: formats, edits, languages.
#include <gtest/gtest.h>

#include "QorLib/Format.h"
#include "formats/Settings.h"
#include "tests/cli/CliFixture.h"
#include "tests/support/TestLog.h"

using test::LineCount;

namespace {

class CliFiles : public test::Cli {
 protected:
  /// What a command that goes well prints.
  std::string Output(const std::string& line) {
    EXPECT_EQ(Halvex(line), cli::Done) << line << "\n" << err;
    return out;
  }
};

}  // namespace

TEST_F(CliFiles, DrawsAChart) {
  NewProgram();
  Output("chart ./a.xml --mode 2 -o ./a.svg");
  EXPECT_EQ(Contents("a.svg").substr(0, 5), "<svg ");
  Write("a.svg", "precious");
  EXPECT_EQ(Halvex("chart ./a.xml --mode 3 --force -o ./a.svg"), cli::WrongUsage);
  EXPECT_EQ(Contents("a.svg"), "precious");
  EXPECT_EQ(Halvex("chart ./a.xml -o ./a.png"), cli::WrongUsage);
}

TEST_F(CliFiles, ConvertsAmongAllFormats) {
  NewProgram();
  Output("convert ./a.xml ./b.XML");
  EXPECT_EQ(Contents("b.XML"), Contents("a.xml")) << "not a byte was changed";
  Output("convert ./a.xml ./b.XML --mode 2 --force");
  EXPECT_TRUE(Output("info ./b.XML")
                  .starts_with("Mode 1: AlwaysOn, 2 steps:\n"
                               "  the name is cut to 7 bytes on a TC421: 'AlwaysO'\n"));

  Output("convert ./a.xml ./Gr\xC3\xBCn.TMF --mode 1");
  EXPECT_EQ(err, "");
  Output("convert ./Gr\xC3\xBCn.TMF ./back.xml");
  const std::string table = Output("sample ./a.xml --table");
  EXPECT_EQ(Output("sample ./back.xml --table"), table);
  EXPECT_TRUE(Output("info ./back.xml").starts_with("Mode 1: Gr\xC3\xBCn, 12 steps, within all limits\n"));
  Output("convert ./a.xml ./a.lmf --mode 1");
  EXPECT_EQ(Output("sample ./a.lmf --table"), table) << "all steps are at half hours";
  Output("convert ./a.xml ./a.raw");
  EXPECT_EQ(err, "halvex: warning: " + folder.File("a.raw") +
                     ": only the mode 'Normal' is written, since RAW files hold one (see --mode)\n");
  Output("convert ./a.xml ./a.raw --mode 2 --force");
  in = Contents("a.xml");
  EXPECT_EQ(Output("convert - - --to raw --mode 2"), std::string(432000, '\x64'));
  in = "08:00 1\n20:00 2";
  Output("steps ./a.xml --mode 2 --channel 1 --set - -o ./two.tmf");
  EXPECT_EQ(Output("steps ./two.tmf --channel 1"), "08:00 1\n09:00 1\n20:00 2\n22:00 1\n")
      << "the mode that was changed";
  EXPECT_EQ(Halvex("new ./new.tmf"), cli::WrongUsage);
  EXPECT_EQ(Halvex("convert ./a.raw ./back.xml --force"), cli::FileFailed);
  EXPECT_EQ(err, "halvex: Error loading program " + folder.File("a.raw") + ": RAW files are written only\n");
}

TEST_F(CliFiles, SaysInTheUsersLanguageWhatIsWrongWithAFile) {
  Write("long.tmf", std::string(12 + 56 * 50, '\0'));
  Output("convert ./long.tmf ./long.xml");
  EXPECT_EQ(err, "halvex: warning: " + folder.File("long.tmf") +
                     ": TMF max number of steps exceeded. Limiting to 48: the file has 50\n");
  Write("long.tmf", std::string(12, '\0'));
  EXPECT_EQ(Halvex("convert ./long.tmf ./long.xml --force --lang de"), cli::FileFailed);
  EXPECT_EQ(err,
            "halvex: Fehler beim Laden des Programms " + folder.File("long.tmf") +
                ": Ung\xC3\xBCltiges Dateiformat: eine TMF-Datei hat 12 Byte und 56 mehr f\xC3\xBCr jeden "
                "Schritt, diese hat 12\n");
}

TEST_F(CliFiles, EditsSteps) {
  NewProgram();
  EXPECT_EQ(Output("add-step ./a.xml --at 23:59:59 --force -o ./b.xml --mode 1"),
            "Mode 1, 'Normal': Added step at 23:59 to all channels. Current number of steps is 13.\n");
  EXPECT_EQ(Output("steps ./b.xml --channel 5"), "09:00 0\n09:30 30\n21:30 30\n22:00 0\n23:59 0\n");
  EXPECT_TRUE(Output("align ./a.xml --minutes 60 --force -o ./b.xml --lang pl")
                  .starts_with("Tryb 1, 'Normal': Wszystkie kroki wyr\xC3\xB3wnano"));
  EXPECT_EQ(Output("steps ./b.xml --channel 5"), "09:00 0\n10:00 30\n21:00 30\n22:00 0\n");
  EXPECT_EQ(Output("optimize ./a.xml --force -o ./b.xml"),
            "Mode 1, 'Normal': nothing to do\nMode 2, 'AlwaysOn': nothing to do\n");
  EXPECT_EQ(Contents("a.xml"), Contents("b.xml"));
  EXPECT_EQ(LineCount(Output("optimize ./a.xml --force -o ./b.xml --tc421 --mode 1")), 2u);
  for (const char* minutes : {"0", "61", "-5", "1.5", "x", "030", "0x10"}) {
    EXPECT_EQ(Halvex("align ./a.xml --force -o ./b.xml --minutes=" + std::string(minutes)), cli::WrongUsage)
        << minutes;
  }
}

TEST_F(CliFiles, OptimisesLongModes) {
  std::string steps;
  for (int i = 0; i < 60; ++i)
    steps += "<step hour='" + std::to_string(i / 3) + "' minute='" + std::to_string(i % 3) + "' value='" +
             std::to_string(i * 37 % 101) + "'/>";
  Write("long.xml", "<l><mode name='m'><c>" + steps + "</c><c/><c/><c/><c/></mode></l>");
  EXPECT_EQ(Halvex("add-step ./long.xml --at 1:30 -o ./short.xml"), cli::WrongUsage);
  EXPECT_EQ(err,
            "halvex: " + folder.File("short.xml") +
                " was not written: mode 1, 'm': Unable to add new step. Maximum number of 48 steps for the "
                "current mode reached\n");
  EXPECT_EQ(folder.FileNames().size(), 1u);
  EXPECT_EQ(Output("optimize ./long.xml -o ./short.xml"),
            "Mode m has more than 48 steps, optimizing...\nMode 1, 'm': 60 -> 48 steps, the light changes by "
            "at most 36 %\n");
  EXPECT_EQ(LineCount(Output("sample ./short.xml --table")), 1u + 48);
}

TEST_F(CliFiles, SetsAndAddsStepsFromText) {
  NewProgram();
  Write("steps.txt", "10:00 80 j\r\n09:00 7\r\n25:00 50\r\n10:00 1");
  EXPECT_EQ(Output("steps ./a.xml --channel 5 --set ./steps.txt -o ./b.xml"),
            "Text contains 4 steps\nMode 1, 'Normal': 10 steps\n");
  EXPECT_EQ(Output("steps ./b.xml --channel 5"), "09:00 7\n10:00 80 J\n23:59 50\n");
  in = "12:00 5\nnoon\n# in the morning\n9:30 1";
  EXPECT_EQ(
      Output("steps ./a.xml --channel 5 --add - --force -o ./b.xml"),
      "Text contains 3 steps\nAdded new step 00:00 0.\nAdded new step 09:30 1.\nAdded new step 12:00 5.\n"
      "Mode 1, 'Normal': 13 steps\n");
  EXPECT_EQ(err,
            "halvex: warning: standard input: Skipped lines: 2\n"
            "halvex: warning: standard input: Lines with a missing number (read as 0): 3\n");
  EXPECT_EQ(Output("steps ./b.xml --channel 5"), "00:00 0\n09:00 0\n09:30 1\n12:00 5\n21:30 30\n22:00 0\n");

  const std::string a = Contents("a.xml"), b = Contents("b.xml");
  struct Case {
    const char* options;
    std::string text;
    int status;
  };
  for (const auto& [options, text, status] :
       {Case{"--channel 1 --set - --force -o ./b.xml", "9:00 1\n9:00 2", cli::WrongUsage},
        {"--channel 1 --add - --force -o ./b.xml", "no step", cli::FileFailed},
        {"--channel 1 --add - --force -o ./b.xml", std::string((1 << 20) + 1, ' '), cli::FileFailed},
        {"--channel 1 --add ./missing --force -o ./b.xml", "", cli::FileFailed},
        {"--channel 1 --add - --force -o ./b.xml", "9\xFF:00 1\n8:00 1", cli::FileFailed},
        {"--channel 1 --add ./steps.txt -o ./steps.txt", "", cli::FileFailed},
        {"--channel 1 --add - --force -o ./b.xml --log ./a.xml", "9:00 1", cli::FileFailed},
        {"--channel 1 --add - --force -o ./b.xml --log ./b.xml", "9:00 1", cli::FileFailed},
        {"--channel 1 --add - --set - --force -o ./b.xml", "9:00 1", cli::WrongUsage},
        {"--channel 1 --force -o ./b.xml", "", cli::WrongUsage},
        {"--channel 6", "", cli::WrongUsage}}) {
    in = text;
    EXPECT_EQ(Halvex(std::string("steps ./a.xml ") + options), status) << options << err;
    EXPECT_EQ(Contents("b.xml"), b);
    EXPECT_EQ(Contents("a.xml"), a);
  }
}

TEST_F(CliFiles, TreatsAllThatWriteAlike) {
  NewProgram();
  Write("steps.txt", "08:00 0\n20:00 90");
  Write("day.txt", Output("table ./a.xml"));
  Write("photo.xml", "precious");
  for (const char* command :
       {"optimize {1} --tc421", "align {1} --minutes 7", "add-step {1} --at 12:34",
        "steps {1} --channel 2 --set ./steps.txt", "table {1} --set ./day.txt --mode 2"}) {
    const auto run = [&](const char* files) { return Halvex(qor::Format(command, {files})); };
    SCOPED_TRACE(command);
    EXPECT_EQ(run("./a.xml"), cli::WrongUsage);
    EXPECT_EQ(run("./a.xml -o ./photo.xml --force"), cli::FileFailed);
    EXPECT_EQ(Contents("photo.xml"), "precious") << "no program is never replaced by one";
    EXPECT_EQ(run("./a.xml -o ./b.xml"), cli::Done) << err;
    const std::string written = Contents("b.xml");
    EXPECT_NE(written, Contents("a.xml"));
    EXPECT_EQ(run("./a.xml -o ./b.xml"), cli::FileFailed) << "it exists";
    terminal.isInput = true;
    in = "n\n";
    EXPECT_EQ(run("./a.xml -o ./b.xml"), cli::Interrupted);
    in = "y\n";
    EXPECT_EQ(run("./a.xml -o ./b.xml"), cli::Done);
    terminal.isInput = false;
    in = Contents("a.xml");
    EXPECT_EQ(run("- -o -"), cli::Done);
    EXPECT_EQ(out, written);
    EXPECT_EQ(run("- -i"), cli::WrongUsage);
    Write("b.xml", in);
    EXPECT_EQ(run("./b.xml -i"), cli::Done);
    EXPECT_EQ(Contents("b.xml"), written);
    EXPECT_EQ(Halvex("new ./b.xml"), cli::FileFailed);
    std::filesystem::remove(test::PathOf(folder.File("b.xml")));
  }
}

TEST_F(CliFiles, EditsAWholeMode) {
  NewProgram();
  std::string typed = "8:00 0 0 0 0 0\n20:00 9 9 9 9 9J\n", found;
  edit = [&](const std::string& file) {
    found = test::Contents(file);
    test::Write(file, typed);
    return true;
  };
  EXPECT_EQ(Halvex("edit ./a.xml"), cli::WrongUsage) << "there is no terminal";
  terminal.isInput = true;
  EXPECT_EQ(Output("edit ./a.xml --mode 2"), "Mode 2, 'AlwaysOn': 2 steps\n");
  EXPECT_EQ(Output("steps ./a.xml --mode 2 --channel 5"), "08:00 0\n20:00 9 J\n");

  const std::string before = Contents("a.xml");
  typed = "8:00 0 0 0 0 0\n20:00 9 9 9 9 -\n";
  in = "y\nn\n";
  EXPECT_EQ(Halvex("edit ./a.xml"), cli::Interrupted);
  EXPECT_NE(err.find("Channel 5: Unable to delete step."), std::string::npos) << err;
  EXPECT_EQ(found, typed) << "what was typed is still there";
  const std::size_t name = err.rfind(' ') + 1;
  const std::string text = err.substr(name, err.size() - name - 1);
  EXPECT_EQ(test::Contents(text), typed);
  std::filesystem::remove(test::PathOf(text));
  EXPECT_EQ(Contents("a.xml"), before);
}

TEST_F(CliFiles, SpeaksTheUsersLanguage) {
  Output("--lang de new ./neu.xml");
  EXPECT_TRUE(Output("info ./neu.xml").starts_with("Mode 1: Tagesablauf"));
  EXPECT_NE(out.find("Channel 5: Kanal 5"), std::string::npos);
  Output("upload ./neu.xml --device emulator --lang fr");
  EXPECT_NE(out.find("Envoi du mode\xC2\xA0: Tagesablauf\n"), std::string::npos) << out;
  EXPECT_EQ(Halvex("new ./neu.xml --lang xx"), cli::WrongUsage);
  EXPECT_EQ(err, "halvex: there is no language 'xx'; languages are en, de, sk, it, cz, fr, pl\n");
  variables["LANG"] = "cs_CZ.UTF-8";
  Output("upload ./neu.xml --device emulator");
  EXPECT_NE(out.find("Nahr"), std::string::npos) << out;
  test::TestLog log;
  TCBase::Settings(folder.File("home"), log).Set(TCBase::SettingLocale, "it");
  Output("new ./neu.xml --force");
  EXPECT_TRUE(Output("info ./neu.xml").starts_with("Modalit\xC3\xA0 1: Ciclo giornaliero")) << out;
  Output("new ./neu.xml --lang en --force");
  EXPECT_NE(Output("info ./neu.xml").find(" 1: Normal"), std::string::npos) << out;
}

TEST_F(CliFiles, ServesTranslators) {
  const std::string path = folder.File("t.xml");
  EXPECT_EQ(Output("translation --export ./t.xml --lang de"),
            "Lokalisierungsdatei " + path + " erfolgreich exportiert!\n");
  EXPECT_EQ(Output("translation --test ./t.xml"), "Translation file " + path + " loaded successfully!\n");
  Write("t.xml",
        "<localisation><strings>\n<string "
        "id='Mode'><es>Modo</es>\n<de>{1}</de></string></strings></localisation>");
  EXPECT_EQ(Halvex("translation --test ./t.xml"), cli::FileFailed);
  EXPECT_EQ(err, "halvex: " + path + ": line 2, column 19: the program has no language 'es'\n" + "halvex: " +
                     path + ": line 3, column 1: there is no placeholder {1} in the English text\n" +
                     "halvex: Translation file " + path + " loaded in part, without what is faulty\n");
  EXPECT_EQ(Halvex("translation"), cli::WrongUsage);
}
