// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <cstdio>
#include <nlohmann/json.hpp>
#include <thread>

#include "tests/cli/CliFixture.h"

using test::Cli;
using test::LineCount;

TEST_F(Cli, ConvertsWithoutChangingAByte) {
  const std::string a = NewProgram();
  const std::string b = folder.File("b.XML");
  EXPECT_EQ(Run({"convert", a, b}), cli::Done) << err;
  EXPECT_EQ(test::Contents(a), test::Contents(b));
  EXPECT_EQ(Run({"convert", a, b, "--mode", "2", "--force"}), cli::Done) << err;
  EXPECT_EQ(Run({"info", b}), cli::Done);
  EXPECT_EQ(out.substr(0, out.find("Channel 1")),
            "Mode 1: AlwaysOn, 2 steps:\n  the name is cut to 7 bytes on a TC421: 'AlwaysO'\n");
  EXPECT_EQ(Run({"convert", a, folder.File("b.doc")}), cli::WrongUsage);
}

TEST_F(Cli, ShowsAProgram) {
  const std::string path = NewProgram();
  EXPECT_EQ(Run({"info", "--json", path}), cli::Done);
  const auto info = nlohmann::json::parse(out);
  EXPECT_EQ(info["modes"][0]["name"], "Normal");
  EXPECT_EQ(info["modes"][0]["steps"], 12);
  EXPECT_EQ(info["modes"][1]["withinLimit"], true);
  EXPECT_EQ(info["channels"][4]["colour"], "#90EE90");

  EXPECT_EQ(Run({"sample", path, "--mode", "1", "--at", "11:45"}), cli::Done);
  EXPECT_EQ(out, "    time     1     2     3     4     5\n11:45:00   65    65    65    65    30\n");
  EXPECT_EQ(Run({"sample", path, "--every", "720", "--csv"}), cli::Done);
  EXPECT_EQ(out,
            "time,Channel 1,Channel 2,Channel 3,Channel 4,Channel "
            "5\n00:00:00,0,0,0,0,0\n12:00:00,50,50,50,50,30\n");
  EXPECT_EQ(Run({"sample", path, "--mode", "1", "--table"}), cli::Done);
  EXPECT_EQ(LineCount(out), 1u + 12);
  EXPECT_EQ(Run({"sample", path, "--mode", "2", "--table", "--json"}), cli::Done);
  EXPECT_EQ(nlohmann::json::parse(out)[1]["time"], "22:00:00");
}

TEST_F(Cli, PrintsThePacketsOfAnUpload) {
  const std::string path = NewProgram();
  EXPECT_EQ(Run({"packets", path, "--model", "tc420"}), cli::Done);
  EXPECT_EQ(LineCount(out), 19u);
  EXPECT_EQ(out.substr(0, 30), "55AA12000A000C4E6F726D616C0000");
  EXPECT_EQ(out.substr(128, 49), " Packet_ModeInit(Bank=0, Length=12, Name=Normal)\n");

  hid.plugged = TCBase::TC420UsbId;
  const std::string printed = out;
  EXPECT_EQ(Run({"upload", path, "--device", "tc420"}), cli::Done);
  std::istringstream lines(printed);
  for (const std::string& frame : hid.Frames()) {
    std::string hex, line;
    for (const char byte : frame) {
      char digits[3];
      std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned char>(byte));
      hex += digits;
    }
    std::getline(lines, line);
    EXPECT_EQ(line.substr(0, 128), hex);
  }
}

TEST_F(Cli, UploadsToTheEmulator) {
  const std::string path = NewProgram();
  EXPECT_EQ(Run({"upload", path, "--device", "emulator"}), cli::Done);
  EXPECT_EQ(out,
            "Configuring device TC420_Emulator\nUploading started\nUploading mode: Normal\n"
            "Uploading mode: AlwaysOn\nUploading finished\nFinished configuring device TC420_Emulator\n");
  EXPECT_EQ(err, "");
  EXPECT_EQ(Run({"upload", path, "--device", "emulator", "--mode", "2", "--mode", "1"}), cli::Done);
  EXPECT_LT(out.find("AlwaysOn"), out.find("Normal"));
}

TEST_F(Cli, SendsTheLogWhereItIsWanted) {
  const std::string path = NewProgram();
  const std::string log = folder.File("halvex.log");
  EXPECT_EQ(Run({"--quiet", "upload", path, "--device", "emulator", "--trace", "--log", log}), cli::Done);
  EXPECT_EQ(out, "");
  EXPECT_EQ(LineCount(err), 4u + 19u) << "UploadStart, two UploadMode, UploadFinish and the packets";
  EXPECT_EQ(err.substr(0, 23), "9:05:07:042 UploadStart");
  EXPECT_EQ(Run({"upload", path, "--device", "emulator", "--log", log}), cli::Done);
  EXPECT_EQ(LineCount(test::Contents(log)), 1u + 6 + 23 + 1 + 6);
  EXPECT_EQ(Run({"upload", path, "--device", "emulator", "--log", folder.File("no/such/log")}),
            cli::FileFailed);
  EXPECT_EQ(err.substr(0, 27), "halvex: Error creating file");
  EXPECT_EQ(out, "") << "nothing was uploaded";
}

TEST_F(Cli, NeverCallsAFailedUploadDone) {
  const std::string path = NewProgram();
  EXPECT_EQ(Run({"upload", path, "--device", "tc420"}), cli::NothingFound);
  EXPECT_EQ(out + err, "halvex: no TC420 is plugged in (halvex doctor says more)\n");
  EXPECT_EQ(Run({"upload", path, "--device", "tc420", "--device", "emulator"}), cli::DeviceFailed);
  EXPECT_EQ(err, "halvex: Orvanta 24: Not connected: no TC420 is plugged in\n");

  hid.plugged = TCBase::TC420UsbId;
  hid.isDenied = true;
  EXPECT_EQ(Run({"upload", path, "--device", "tc420"}), cli::NoAccess);
  hid.isDenied = false;
  hid.unplugAfter = 3;
  EXPECT_EQ(Run({"upload", path, "--device", "tc420", "--device", "emulator"}), cli::DeviceFailed);
  EXPECT_EQ(
      err,
      "halvex: Orvanta 24: Failed: modes not taken: 'Normal', 'AlwaysOn': 13 packets did not get through: "
      "Ger\xC3\xA4t weg\n");
}

TEST_F(Cli, StopsAtAnInterruptAndSaysSo) {
  const std::string path = NewProgram();
  isInterrupted = true;
  // The pause after the first mode lasts until the front end has come round to posting its Stop.
  clock.onSleep = [this](std::uint32_t milliseconds) {
    constexpr std::uint32_t ModePause = 500;
    const int asked = interruptQuestions;
    while (milliseconds == ModePause && interruptQuestions < asked + 2) std::this_thread::yield();
  };
  EXPECT_EQ(Run({"upload", path, "--device", "emulator"}), cli::Interrupted);
  EXPECT_EQ(
      out,
      "Configuring device TC420_Emulator\nUploading started\nUploading mode: Normal\nUploading finished\n"
      "TC420_Emulator: Stopped\nCancelled!\n");
}

TEST_F(Cli, ListsControllers) {
  EXPECT_EQ(Run({"devices"}), cli::NothingFound);
  hid.plugged = TCBase::TC421UsbId;
  hid.isDenied = true;
  EXPECT_EQ(Run({"devices"}), cli::NoAccess);
  hid.isDenied = false;
  EXPECT_EQ(Run({"devices"}), cli::Done);
  EXPECT_EQ(out, "tc421  Orvanta 24 Wi-Fi  USB\n");
  EXPECT_EQ(Run({"devices", "--json"}), cli::Done);
  EXPECT_EQ(nlohmann::json::parse(out)[0]["device"], "tc421");
}

TEST_F(Cli, RefusesWrongUsageInASentence) {
  const std::string path = NewProgram();
  hid.plugged = TCBase::TC420UsbId;
  const std::vector<std::string> cases[] = {
      {"paint"},
      {"info"},
      {"info", path, "more"},
      {"upload", path, "--device", "toaster"},
      {"upload", path, "--device", "tc420", "--device", "tc420"},
      {"upload", path, "--device", "tc421@reef"},
      {"upload", path, "--device", "tc421@192.0.2.256"},
      {"upload", path, "--device", "tc421@192.168.1.255"},
      {"upload", path, "--device", "tc421@127.0.0.1"},
      {"upload", path, "--device", "tc421@10.0.0.7,"},
      {"upload", path, "--device", "tc421@10.0.0.7,a", "--device", "tc421@10.0.0.7,b"},
      {"demo", path, "--device", "emulator", "--seconds", "9"},
      {"demo", path, "--device", "emulator", "--start", "noon"},
      {"set-time", "2026-02-29 10:00:00", "--device", "emulator"},
      {"clear", "--device", "emulator"},
      {"wifi", "--device", "tc420", "--ssid", "x", "--security", "open"},
      {"wifi", "--device", "tc421", "--ssid", "x", "--security", "1"},
      {"wifi", "--device", "tc421", "--ssid", "", "--security", "open"},
      {"wifi", "--device", "tc421", "--ssid", std::string(43, 'x'), "--security", "open"},
      {"wifi", "--device", "tc421", "--ssid", "x", "--security", "3"},
      {"wifi", "--device", "tc421", "--ssid", "x", "--security", "1", "--encryption", "256"},
      {"packets", path, "--model", "tc421-usb", "--identity", "x"},
      {"upload", path, "--device", "emulator", "--mode", "3"},
      {"upload", path, "--device", "emulator", "--mode", "x"},
      {"packets", path, "--model", "tc999"},
      {"sample", path, "--mode", "1"},
      {"packets", path, "--model", "tc420", "--mode", "02"},
      {"--quiet", "paint"},
      {"sample", path, "--mode", "0", "--table"},
      {"sample", path, "--mode", "1", "--at", "24:00"},
      {"sample", path, "--mode", "1", "--at", "8:00:00:00"},
      {"sample", path, "--mode", "1", "--at", "-1:00"},
      {"sample", path, "--mode", "1", "--at", "8:00", "--table"},
  };
  for (const auto& arguments : cases) {
    EXPECT_EQ(Run(arguments), cli::WrongUsage) << testing::PrintToString(arguments);
    EXPECT_EQ(LineCount(err), 1u) << err;
    EXPECT_EQ(out, "");
  }
}

TEST_F(Cli, NamesWhatIsWrongInItsOwnWords) {
  const std::string path = NewProgram();
  struct Case {
    std::vector<std::string> arguments;
    std::string fault;
  };
  for (const Case& one :
       {Case{{"uplaod", path}, "there is no command 'uplaod'; did you mean upload? (see halvex help)"},
        {{"upload", path, "--devcie", "tc420"},
         "there is no option --devcie; did you mean --device? (see halvex help upload)"},
        {{"upload", path, "--device", "TC420"},
         "there is no device 'TC420'; devices are tc420, tc421, an address such as 192.168.1.20, emulator, "
         "all: "
         "did you mean tc420?"},
        {{"packets", path, "--model", "tc42"},
         "--model: 'tc42' is not tc420, tc421-usb or tc421-net; did you mean tc420? (see halvex help "
         "packets)"},
        {{"info"}, "FILE is missing (see halvex help info)"},
        {{"info", path, "more"}, "'more' is one argument too many (see halvex help info)"},
        {{"steps", path}, "--channel C is missing (see halvex help steps)"},
        {{"steps", path, "--channel"}, "--channel needs a value: --channel C (see halvex help steps)"},
        {{"steps", path, "--channel", "1", "--channel", "2"},
         "--channel was given twice (see halvex help steps)"},
        {{"info", path, "--json=maybe"}, "--json takes no value (see halvex help info)"},
        {{"--quiet"}, "a command is missing (see halvex help)"},
        {{"sample", path, "--every", "15", "--json", "--csv"},
         "--json does not go with --csv (see halvex help sample)"}}) {
    EXPECT_EQ(Run(one.arguments), cli::WrongUsage);
    EXPECT_EQ(out + err, "halvex: " + one.fault + "\n");
  }
}

TEST_F(Cli, PicksTheController) {
  const std::string path = NewProgram();
  EXPECT_EQ(Run({"sync-time"}), cli::NothingFound);
  hid.plugged = TCBase::TC420UsbId;
  EXPECT_EQ(Run({"sync-time"}), cli::Done);
  EXPECT_NE(out.find("The clock was set to 2"), std::string::npos) << out;
  EXPECT_EQ(Run({"--quiet", "sync-time", "--device", "all"}), cli::Done);
  EXPECT_EQ(out + err, "");
  hid.equals = 1;
  EXPECT_EQ(Run({"sync-time"}), cli::NotUnique);
  EXPECT_NE(err.find("tc420, tc420"), std::string::npos) << err;
  EXPECT_EQ(Run({"sync-time", "-d", "tc420"}), cli::Done);
  EXPECT_EQ(err, "halvex: warning: 2 TC420 are plugged in; only the first of them can be reached\n");
  variables["HALVEX_DEVICE"] = "emulator";
  EXPECT_EQ(Run({"upload", path, "--mode", "2", "--clear", "--sync-time"}), cli::Done);
  EXPECT_EQ(LineCount(out), 1u + 3 + 5 + 3 + 1) << out;
  EXPECT_EQ(err, "");
}

TEST_F(Cli, WaitsForABusyController) {
  hid.plugged = TCBase::TC420UsbId;
  locks.taken = {"tc420"};
  const std::int64_t start = clock.Milliseconds();
  EXPECT_EQ(Run({"sync-time", "--wait", "5"}), cli::NoAccess);
  EXPECT_GE(clock.Milliseconds() - start, 5000);
  // The worker's thread is the one that waits for it.
  clock.onSleep = [this, start, own = std::this_thread::get_id()](std::uint32_t) {
    if (std::this_thread::get_id() == own) return;
    if (clock.Milliseconds() - start > 8000) locks.taken.clear();
  };
  EXPECT_EQ(Run({"sync-time", "--wait", "60"}), cli::Done) << err;
}

TEST_F(Cli, NamesABadFileAndLeavesTheOutputAlone) {
  const std::string bad = folder.File("bad.xml");
  const std::string good = folder.File("good.xml");
  test::Write(bad, "<modelist>\n  <mode name='x'>");
  EXPECT_EQ(Run({"new", good}), cli::Done);
  const std::string before = test::Contents(good);
  EXPECT_EQ(Run({"convert", bad, good, "--force"}), cli::FileFailed);
  EXPECT_EQ(err, "halvex: Error loading program " + bad +
                     ": line 2, column 18: the file ends inside <mode>; it may have been cut off\n");
  EXPECT_EQ(test::Contents(good), before);
}

TEST_F(Cli, IsRefusedAFileInOneLineWhateverItIsFor) {
  const std::string program = NewProgram(), tmf = folder.File("a.tmf"), day = folder.File("day.txt");
  const std::string steps = folder.File("steps.txt"), text = folder.File("text.xml");
  EXPECT_EQ(Run({"convert", program, tmf, "--mode", "1"}), cli::Done);
  EXPECT_EQ(Run({"table", program}), cli::Done);
  test::Write(day, out);
  test::Write(steps, "08:00 0\n20:00 90");
  const std::string cut = folder.File("cut.tmf"), output = folder.File("out.xml");
  test::Write(text, "Leuchtbalken");
  test::Write(cut, std::string(100, '\0'));
  std::filesystem::create_directory(test::PathOf(folder.File("folder.xml")));
  // BAD is no program where it is read, and in no folder where it is written.
  const auto refuses = [this](std::vector<std::string> command, const std::string& bad) {
    for (std::string& word : command)
      if (word == "BAD") word = bad;
    EXPECT_EQ(Run(command), cli::FileFailed) << command[0] << " " << bad;
    EXPECT_EQ(LineCount(err), 1u) << err;
    EXPECT_NE(err.find(bad), std::string::npos) << err;
  };
  for (const std::string& bad : {folder.File("missing.xml"), cut, text, folder.File("folder.xml")}) {
    for (const std::vector<std::string>& reader :
         std::vector<std::vector<std::string>>{{"info", "BAD"},
                                               {"sample", "BAD", "--table"},
                                               {"table", "BAD"},
                                               {"steps", "BAD", "--channel", "1"},
                                               {"convert", "BAD", output},
                                               {"optimize", "BAD", "-o", output},
                                               {"align", "BAD", "--minutes", "5", "-o", output},
                                               {"add-step", "BAD", "--at", "8:00", "-o", output},
                                               {"packets", "BAD", "--model", "tc420"},
                                               {"chart", "BAD", "-o", output + ".svg"},
                                               {"upload", "BAD", "--device", "emulator"}}) {
      refuses(reader, bad);
    }
  }
  EXPECT_FALSE(std::filesystem::exists(test::PathOf(output)));
  for (const std::vector<std::string>& writer : std::vector<std::vector<std::string>>{
           {"new", "BAD"},
           {"convert", program, "BAD"},
           {"convert", tmf, "BAD"},
           {"optimize", program, "-o", "BAD"},
           {"align", program, "--minutes", "30", "-o", "BAD"},
           {"add-step", program, "--at", "12:30", "-o", "BAD"},
           {"steps", program, "--channel", "2", "--set", steps, "-o", "BAD"},
           {"table", program, "--set", day, "-o", "BAD"},
           {"translation", "--export", "BAD"}}) {
    refuses(writer, folder.File("nowhere/out.xml"));
  }
}

TEST_F(Cli, WarnsOfLongModesAndPrintsNoControlCharacters) {
  std::string mode = "<mode name='A&#10;&#27;B'><c>";
  for (int i = 0; i < 49; ++i) mode += "<step hour='1' minute='" + std::to_string(i) + "' value='1'/>";
  const std::string path = folder.File("long.xml");
  test::Write(path, "<modelist>" + mode + "</c><c/><c/><c/><c/></mode></modelist>");
  EXPECT_EQ(Run({"upload", path, "--device", "emulator"}), cli::Done);
  EXPECT_EQ(err.substr(0, err.find('\n')), "halvex: warning: Mode 'A..B': 49 steps are over the limit of 48");
  EXPECT_NE(out.find("Uploading mode: A..B\n"), std::string::npos);
  EXPECT_EQ(Run({"info", path}), cli::Done);
  EXPECT_EQ(out.substr(0, out.find("Channel 1")),
            "Mode 1: A..B, 49 steps:\n"
            "  49 steps are over the limit of 48\n"
            "  channel 2 has no steps; at least 2 are needed\n"
            "  channel 3 has no steps; at least 2 are needed\n"
            "  channel 4 has no steps; at least 2 are needed\n"
            "  channel 5 has no steps; at least 2 are needed\n");
  EXPECT_EQ(Run({"packets", path, "--model", "tc420"}), cli::Done);
  EXPECT_EQ(LineCount(out), 1u + 49 + 1 + 1);
}

TEST_F(Cli, TellsItsVersion) {
  EXPECT_EQ(Run({"--version"}), cli::Done);
  EXPECT_EQ(out.substr(0, 7), "halvex ");
}
