// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <thread>

#include "tests/cli/CliFixture.h"

using test::Cli;
using test::LineCount;

TEST_F(Cli, ShowsAProgram) {
  NewProgram();
  EXPECT_EQ(Halvex("info --json ./a.xml"), cli::Done);
  const auto info = nlohmann::json::parse(out);
  EXPECT_EQ(info["modes"][0]["name"], "Normal");
  EXPECT_EQ(info["modes"][0]["steps"], 12);
  EXPECT_EQ(info["modes"][1]["withinLimit"], true);
  EXPECT_EQ(info["channels"][4]["colour"], "#90EE90");
  EXPECT_EQ(Halvex("sample ./a.xml --mode 1 --at 11:45"), cli::Done);
  EXPECT_EQ(out, "    time     1     2     3     4     5\n11:45:00   65    65    65    65    30\n");
  EXPECT_EQ(Halvex("sample ./a.xml --every 720 --csv"), cli::Done);
  EXPECT_EQ(out,
            "time,Channel 1,Channel 2,Channel 3,Channel 4,Channel "
            "5\n00:00:00,0,0,0,0,0\n12:00:00,50,50,50,50,30\n");
  EXPECT_EQ(Halvex("sample ./a.xml --mode 2 --table --json"), cli::Done);
  EXPECT_EQ(nlohmann::json::parse(out)[1]["time"], "22:00:00");
  EXPECT_EQ(Halvex("--version"), cli::Done);
  EXPECT_EQ(out.substr(0, 7), "halvex ");
}

TEST_F(Cli, UploadsToTheEmulator) {
  NewProgram();
  EXPECT_EQ(Halvex("upload ./a.xml --device emulator"), cli::Done);
  EXPECT_EQ(out,
            "Configuring device TC420_Emulator\nUploading started\nUploading mode: Normal\n"
            "Uploading mode: AlwaysOn\nUploading finished\nFinished configuring device TC420_Emulator\n");
  EXPECT_EQ(err, "");
  EXPECT_EQ(Halvex("upload ./a.xml --device emulator --mode 2 --mode 1"), cli::Done);
  EXPECT_LT(out.find("AlwaysOn"), out.find("Normal"));
}

TEST_F(Cli, SendsTheLogWhereItIsWanted) {
  NewProgram();
  EXPECT_EQ(Halvex("--quiet upload ./a.xml --device emulator --trace --log ./halvex.log"), cli::Done);
  EXPECT_EQ(out, "");
  EXPECT_EQ(LineCount(err), 4u + 19u) << "UploadStart, two UploadMode, UploadFinish and the packets";
  EXPECT_EQ(err.substr(0, 23), "9:05:07:042 UploadStart");
  EXPECT_EQ(Halvex("upload ./a.xml --device emulator --log ./halvex.log"), cli::Done);
  EXPECT_EQ(LineCount(Contents("halvex.log")), 1u + 6 + 23 + 1 + 6);
  EXPECT_EQ(Halvex("upload ./a.xml --device emulator --log ./no/such/log"), cli::FileFailed);
  EXPECT_EQ(err.substr(0, 27), "halvex: Error creating file");
  EXPECT_EQ(out, "") << "nothing was uploaded";
}

TEST_F(Cli, NeverCallsAFailedUploadDone) {
  NewProgram();
  EXPECT_EQ(Halvex("upload ./a.xml --device tc420"), cli::NothingFound);
  EXPECT_EQ(out + err, "halvex: no TC420 is plugged in (halvex doctor says more)\n");
  EXPECT_EQ(Halvex("upload ./a.xml --device tc420 --device emulator"), cli::DeviceFailed);
  EXPECT_EQ(err, "halvex: Orvanta 24: Not connected: no TC420 is plugged in\n");
  hid.plugged = TCBase::TC420UsbId;
  hid.isDenied = true;
  EXPECT_EQ(Halvex("upload ./a.xml --device tc420"), cli::NoAccess);
  hid.isDenied = false;
  hid.unplugAfter = 3;
  EXPECT_EQ(Halvex("upload ./a.xml --device tc420 --device emulator"), cli::DeviceFailed);
  EXPECT_EQ(
      err,
      "halvex: Orvanta 24: Failed: modes not taken: 'Normal', 'AlwaysOn': 13 packets did not get through: "
      "Ger\xC3\xA4t weg\n");
}

TEST_F(Cli, StopsAtAnInterruptAndSaysSo) {
  NewProgram();
  isInterrupted = true;
  // The pause after the first mode lasts until the front end has come round to posting its Stop.
  clock.onSleep = [this](std::uint32_t milliseconds) {
    constexpr std::uint32_t ModePause = 500;
    const int asked = interruptQuestions;
    while (milliseconds == ModePause && interruptQuestions < asked + 2) std::this_thread::yield();
  };
  EXPECT_EQ(Halvex("upload ./a.xml --device emulator"), cli::Interrupted);
  EXPECT_EQ(
      out,
      "Configuring device TC420_Emulator\nUploading started\nUploading mode: Normal\nUploading finished\n"
      "TC420_Emulator: Stopped\nCancelled!\n");
}

TEST_F(Cli, ListsControllers) {
  EXPECT_EQ(Halvex("devices"), cli::NothingFound);
  hid.plugged = TCBase::TC421UsbId;
  hid.isDenied = true;
  EXPECT_EQ(Halvex("devices"), cli::NoAccess);
  hid.isDenied = false;
  EXPECT_EQ(Halvex("devices"), cli::Done);
  EXPECT_EQ(out, "tc421  Orvanta 24 Wi-Fi  USB\n");
  EXPECT_EQ(Halvex("devices --json"), cli::Done);
  EXPECT_EQ(nlohmann::json::parse(out)[0]["device"], "tc421");
}

TEST_F(Cli, RefusesWrongUsageInASentence) {
  NewProgram();
  hid.plugged = TCBase::TC420UsbId;
  EXPECT_EQ(Run({"info", ""}), cli::WrongUsage);
  EXPECT_EQ(Run({"set-time", "2026-02-29 10:00:00", "--device", "emulator"}), cli::WrongUsage);
  for (const char* line :
       {"--quiet paint",
        "upload ./a.xml --device tc420 --device tc420",
        "upload ./a.xml --device tc421@reef",
        "upload ./a.xml --device tc421@192.168.1.255",
        "upload ./a.xml --device tc421@127.0.0.1",
        "upload ./a.xml --device tc421@10.0.0.7,",
        "upload ./a.xml --device tc421@10.0.0.7,a --device tc421@10.0.0.7,b",
        "upload ./a.xml --device emulator --mode 3",
        "demo ./a.xml --device emulator --seconds 9",
        "demo ./a.xml --device emulator --start noon",
        "clear --device emulator",
        "wifi --device tc420 --ssid x --security open",
        "wifi --device tc421 --ssid x --security 1",
        "wifi --device tc421 --ssid x --security 3",
        "wifi --device tc421 --ssid 0123456789012345678901234567890123456789012 --security open",
        "wifi --device tc421 --ssid x --security 1 --encryption 256",
        "convert ./a.xml ./b.doc",
        "optimize ./a.xml -o ./b.doc",
        "packets ./a.xml --model tc421-usb --identity x",
        "packets ./a.xml --model tc420 --mode 02",
        "sample ./a.xml --mode 1",
        "sample ./a.xml --mode 0 --table",
        "sample ./a.xml --mode 1 --at 24:00",
        "sample ./a.xml --mode 1 --at 8:00:00:00",
        "sample ./a.xml --mode 1 --at -1:00",
        "sample ./a.xml --mode 1 --at 8:00 --table"}) {
    EXPECT_EQ(Halvex(line), cli::WrongUsage) << line;
    EXPECT_EQ(LineCount(err), 1u) << err;
    EXPECT_EQ(out, "");
  }
}

TEST_F(Cli, NamesWhatIsWrongInItsOwnWords) {
  for (const auto& [line, fault] :
       {std::pair{"uplaod ./a.xml", "there is no command 'uplaod'; did you mean upload? (see halvex help)"},
        {"upload ./a.xml --devcie tc420",
         "there is no option --devcie; did you mean --device? (see halvex help upload)"},
        {"upload ./a.xml --device TC420",
         "there is no device 'TC420'; devices are tc420, tc421, an address such as 192.168.1.20, emulator, "
         "all: did you mean tc420?"},
        {"packets ./a.xml --model tc42",
         "--model: 'tc42' is not tc420, tc421-usb or tc421-net; did you mean tc420? (see halvex help "
         "packets)"},
        {"info", "FILE is missing (see halvex help info)"},
        {"info ./a.xml more", "'more' is one argument too many (see halvex help info)"},
        {"steps ./a.xml", "--channel C is missing (see halvex help steps)"},
        {"steps ./a.xml --channel", "--channel needs a value: --channel C (see halvex help steps)"},
        {"steps ./a.xml --channel 1 --channel 2", "--channel was given twice (see halvex help steps)"},
        {"info ./a.xml --json=maybe", "--json takes no value (see halvex help info)"},
        {"--quiet", "a command is missing (see halvex help)"},
        {"sample ./a.xml --every 15 --json --csv",
         "--json does not go with --csv (see halvex help sample)"}}) {
    EXPECT_EQ(Halvex(line), cli::WrongUsage);
    EXPECT_EQ(out + err, std::string("halvex: ") + fault + "\n");
  }
}

TEST_F(Cli, PicksTheController) {
  NewProgram();
  EXPECT_EQ(Halvex("sync-time"), cli::NothingFound);
  hid.plugged = TCBase::TC420UsbId;
  EXPECT_EQ(Halvex("sync-time"), cli::Done);
  EXPECT_NE(out.find("The clock was set to 2"), std::string::npos) << out;
  EXPECT_EQ(Halvex("--quiet sync-time --device all"), cli::Done);
  EXPECT_EQ(out + err, "");
  hid.equals = 1;
  EXPECT_EQ(Halvex("sync-time"), cli::NotUnique);
  EXPECT_NE(err.find("tc420, tc420"), std::string::npos) << err;
  EXPECT_EQ(Halvex("sync-time -d tc420"), cli::Done);
  EXPECT_EQ(err, "halvex: warning: 2 TC420 are plugged in; only the first of them can be reached\n");
  variables["HALVEX_DEVICE"] = "emulator";
  EXPECT_EQ(Halvex("upload ./a.xml --mode 2 --clear --sync-time"), cli::Done);
  EXPECT_EQ(LineCount(out), 1u + 3 + 5 + 3 + 1) << out;
  EXPECT_EQ(err, "");
}

TEST_F(Cli, WaitsForABusyController) {
  hid.plugged = TCBase::TC420UsbId;
  locks.taken = {"tc420"};
  const std::int64_t start = clock.Milliseconds();
  EXPECT_EQ(Halvex("sync-time --wait 5"), cli::NoAccess);
  EXPECT_GE(clock.Milliseconds() - start, 5000);
  // The worker's thread is the one that waits for it.
  clock.onSleep = [this, start, own = std::this_thread::get_id()](std::uint32_t) {
    if (std::this_thread::get_id() == own) return;
    if (clock.Milliseconds() - start > 8000) locks.taken.clear();
  };
  EXPECT_EQ(Halvex("sync-time --wait 60"), cli::Done) << err;
}

TEST_F(Cli, NamesTheFileInOneLineWhateverItIsFor) {
  NewProgram();
  Write("bad.xml", "<modelist>\n  <mode name='x'>");
  Write("cut.tmf", std::string(100, '\0'));
  Write("steps.txt", "08:00 0\n20:00 90");
  EXPECT_EQ(Halvex("table ./a.xml"), cli::Done);
  Write("day.txt", out);
  std::filesystem::create_directory(test::PathOf(folder.File("folder.xml")));
  const std::string before = Contents("a.xml");
  const std::pair<const char*, const char*> refused[] = {
      {"missing.xml", "info ./missing.xml"},
      {"folder.xml", "info ./folder.xml"},
      {"cut.tmf", "convert ./cut.tmf ./a.xml --force"},
      {"bad.xml", "sample ./bad.xml --table"},
      {"bad.xml", "table ./bad.xml"},
      {"bad.xml", "steps ./bad.xml --channel 1"},
      {"bad.xml", "convert ./bad.xml ./a.xml --force"},
      {"bad.xml", "optimize ./bad.xml -o ./out.xml"},
      {"bad.xml", "align ./bad.xml --minutes 5 -o ./out.xml"},
      {"bad.xml", "add-step ./bad.xml --at 8:00 -o ./out.xml"},
      {"bad.xml", "packets ./bad.xml --model tc420"},
      {"bad.xml", "chart ./bad.xml --force -o ./out.svg"},
      {"bad.xml", "upload ./bad.xml --device emulator"},
      {"out.xml", "new ./no/out.xml"},
      {"out.xml", "convert ./a.xml ./no/out.xml"},
      {"out.svg", "chart ./a.xml -o ./no/out.svg"},
      {"out.xml", "optimize ./a.xml -o ./no/out.xml"},
      {"out.xml", "align ./a.xml --minutes 30 -o ./no/out.xml"},
      {"out.xml", "add-step ./a.xml --at 12:30 -o ./no/out.xml"},
      {"out.xml", "steps ./a.xml --channel 2 --set ./steps.txt -o ./no/out.xml"},
      {"out.xml", "table ./a.xml --set ./day.txt -o ./no/out.xml"},
      {"out.xml", "translation --export ./no/out.xml"},
  };
  for (const auto& [file, line] : refused) {
    EXPECT_EQ(Halvex(line), cli::FileFailed) << line;
    EXPECT_EQ(LineCount(err), 1u) << err;
    EXPECT_NE(err.find(file), std::string::npos) << err;
  }
  EXPECT_EQ(Contents("a.xml"), before);
}

TEST_F(Cli, WarnsOfLongModesAndPrintsNoControlCharacters) {
  std::string mode = "<mode name='A&#10;&#27;B'><c>";
  for (int i = 0; i < 49; ++i) mode += "<step hour='1' minute='" + std::to_string(i) + "' value='1'/>";
  Write("long.xml", "<modelist>" + mode + "</c><c/><c/><c/><c/></mode></modelist>");
  EXPECT_EQ(Halvex("upload ./long.xml --device emulator"), cli::Done);
  EXPECT_EQ(err.substr(0, err.find('\n')), "halvex: warning: Mode 'A..B': 49 steps are over the limit of 48");
  EXPECT_NE(out.find("Uploading mode: A..B\n"), std::string::npos);
  EXPECT_EQ(Halvex("packets ./long.xml --model tc420"), cli::Done);
  EXPECT_EQ(LineCount(out), 1u + 49 + 1 + 1) << "as it is";
  EXPECT_EQ(Halvex("info ./long.xml"), cli::Done);
  EXPECT_TRUE(out.starts_with("Mode 1: A..B, 49 steps:\n  49 steps are over the limit of 48\n")) << out;
}
