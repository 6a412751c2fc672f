// SPDX-License-Identifier: MIT
// Shows the dialogs one by one, with sample data.
#include <windows.h>

#include <algorithm>
#include <functional>
#include <iostream>
#include <string>

#include "formats/FileBytes.h"
#include "formats/Localisation.h"
#include "ui/win32/dialogs/DlgAbout.h"
#include "ui/win32/dialogs/DlgDateTime.h"
#include "ui/win32/dialogs/DlgGetValue.h"
#include "ui/win32/dialogs/DlgModeName.h"
#include "ui/win32/dialogs/DlgSteps.h"
#include "ui/win32/dialogs/DlgTC421_Config.h"
#include "ui/win32/dialogs/FileDialogs.h"
#include "ui/win32/dialogs/WiFiNetworks.h"

namespace {

using TCBase::DeviceOutcome;
using UX::WiFiSecurity;

struct Gallery {
  qor::Translate translate;
  std::string outcome;  // of sending
};

void Print(const char* what, const std::string& value) {
  std::cout << what << ": " << value << std::endl;
}

void ShowName(const Gallery& gallery) {
  const qor::Translate& translate = gallery.translate;
  UX::ValueRequest request;
  request.title = translate("Edit channel name");
  request.label = translate("Channel name (max 20 characters)");
  request.value = "Königsblau hell, vorn links";
  request.mostCharacters = 20;
  request.secondLabel = translate("Channel description");
  request.secondValue = "450 nm";
  const bool counts = UX::DlgGetValue(translate, request).Run(nullptr);
  Print(counts ? "OK" : "Cancel", request.value + "|" + request.secondValue);
}

void ShowNumber(const Gallery& gallery) {
  const qor::Translate& translate = gallery.translate;
  UX::ValueRequest request;
  request.title = translate("Enter playback speed");
  request.label = translate("Seconds to play whole demo (min 10, max 86400)");
  request.value = "60";
  request.isNumber = true;
  const bool counts = UX::DlgGetValue(translate, request).Run(nullptr);
  Print(counts ? "OK" : "Cancel", request.value);
}

void ShowMode(const Gallery& gallery) {
  UX::ModeNameRequest request{
      gallery.translate("Mode"), gallery.translate("Normal"),
      gallery.translate("Daily program that starts at 8:00, decreases intensity during "
                        "the afternoon and finishes before midnight.") +
          "\nII."};
  const bool counts = UX::DlgModeName(gallery.translate, request).Run(nullptr);
  Print(counts ? "OK" : "Cancel", request.name + "|" + request.description);
}

void ShowDateTime(const Gallery& gallery) {
  platform::SYSTEMTIME time{2026, 11, 6, 21, 18, 30, 5, 0};
  const bool counts = UX::DlgDateTime(gallery.translate, time).Run(nullptr);
  const std::string date =
      qor::Format("{1}-{2}-{3} {4}", {time.wYear, time.wMonth, time.wDay, time.wDayOfWeek});
  Print(counts ? "OK" : "Cancel",
        date + qor::Format(" {1}:{2}:{3}", {time.wHour, time.wMinute, time.wSecond}));
}

void ShowSteps(const Gallery& gallery) {
  UX::StepsRequest request{gallery.translate("Manual steps edit..."), {}};
  request.text = "00:00 0\r\n08:00 0\r\nnoon\r\n10:00 80 J\r\n10h:00 80\r\n12:00\r\n23:59 0\r\n";
  const bool counts = UX::DlgSteps(gallery.translate, request).Run(nullptr);
  Print(counts ? "OK" : "Cancel", request.text);
}

void ShowManySteps(const Gallery& gallery) {
  UX::StepsRequest request{gallery.translate("Manual steps add..."), {}};
  for (int minute = 0; minute < 400; ++minute)
    request.text += "x\r\n10:" + qor::ZeroFilled(minute % 60, 2) + " 5\r\n";
  const bool counts = UX::DlgSteps(gallery.translate, request).Run(nullptr);
  Print(counts ? "OK" : "Cancel", std::to_string(request.text.size()) + " bytes");
}

void ShowAbout(const Gallery& gallery) {
  UX::DlgAbout(gallery.translate, {"1.2.3", "Zofia Wiśniewska"}).Run(nullptr);
}

void ShowOpen(const Gallery& gallery) {
  Print("path", UX::AskPathToOpen(nullptr, UX::FileKind::TMF, gallery.translate).value_or("none"));
}

void ShowSave(const Gallery& gallery) {
  Print(
      "path",
      UX::AskPathToSave(nullptr, UX::FileKind::Program, "Riff ąöß.XML", gallery.translate).value_or("none"));
}

void ShowBadSave(const Gallery& gallery) {
  Print("path", UX::AskPathToSave(nullptr, UX::FileKind::RAW, "a<b>:c?", gallery.translate).value_or("none"));
}

UX::WiFiSearch SampleNetworks() {
  return {{{"Reef", 82, WiFiSecurity::WPA2},
           {"Reef", 40, WiFiSecurity::WPA2},
           {"Gäste im Haus", 64, WiFiSecurity::Open},
           {"Office of the upper floor, behind", 55, WiFiSecurity::Invalid},
           {"Caf\xE9", 31, WiFiSecurity::WPA2},
           {"", 90, WiFiSecurity::WPA2},
           {"TC421", 97, WiFiSecurity::Open}},
          {}};
}

DeviceOutcome SampleOutcome(const std::string& outcome, const TCBase::DeviceInfo& device) {
  if (outcome == "failed") {
    return {
        device, DeviceOutcome::Stage::Failed, {"the password did not get through", {}, {{"no answer", {}}}}};
  }
  if (outcome == "denied") {
    return {device,
            DeviceOutcome::Stage::NotConnected,
            {"port 5000 is in use by another program", {}},
            TCBase::Denial::InUse};
  }
  return {device, DeviceOutcome::Stage::Done, {}};
}

UX::WiFiSetup SampleSetup(const Gallery& gallery) {
  UX::WiFiSetup setup;
  setup.devices = {TCBase::NetworkDevice("aquarium-left.lan", *platform::ParseIPv4("192.168.1.20"))};
  setup.search = SampleNetworks;
  setup.send = [outcome = gallery.outcome](const TCBase::DeviceInfo& device,
                                           const TCBase::WiFiSettings& settings) {
    constexpr DWORD Wait = 1000;
    Sleep(Wait);
    Print("sent", qor::Format("{1}|{2}|{3}|{4}|{5}", {device.name, settings.ssid, settings.password,
                                                      settings.security, settings.encryption}));
    return SampleOutcome(outcome, device);
  };
  return setup;
}

/// The set-up, walked to one of its pages by itself.
class WalkedSetup : public UX::DlgTC421_Config {
 public:
  WalkedSetup(const Gallery& gallery, UX::WiFiSetup setup, int steps)
      : DlgTC421_Config(gallery.translate, std::move(setup)) {
    stepsToWalk = steps;
  }

 protected:
  void Build(const qor::Translate& translate) override {
    constexpr UINT Soon = 50;  // ms
    DlgTC421_Config::Build(translate);
    SetTimer(Window(), 1, Soon, &WalkedSetup::Walk);
  }

 private:
  static void CALLBACK Walk(HWND dialog, UINT, UINT_PTR timer, DWORD) {
    KillTimer(dialog, timer);
    const HWND name = FindWindowExW(dialog, nullptr, L"Edit", nullptr);
    const HWND password = FindWindowExW(dialog, name, L"Edit", nullptr);
    for (int step = 0; step < stepsToWalk; ++step) {
      if (step == 1) SetWindowTextW(name, L"Reef");
      if (step == 2) SetWindowTextW(password, L"deep blue sea");
      SendMessageW(dialog, WM_COMMAND, LOWORD(SendMessageW(dialog, DM_GETDEFID, 0, 0)), 0);
    }
  }

  static inline int stepsToWalk = 0;
};

void ShowPage(const Gallery& gallery, int steps) {
  WalkedSetup(gallery, SampleSetup(gallery), steps).Run(nullptr);
}

/// The page with what there is to say without networks.
void ShowNoNetworks(const Gallery& gallery) {
  UX::WiFiSetup setup = SampleSetup(gallery);
  setup.search = [] { return UX::WiFiSearch{{}, UX::WiFiTrouble::NoWiFi}; };
  WalkedSetup(gallery, std::move(setup), 1).Run(nullptr);
}

/// The page with the networks that the system knows of.
void ShowNearby(const Gallery& gallery) {
  UX::WiFiSetup setup = SampleSetup(gallery);
  setup.search = UX::SearchWiFiNetworks;
  WalkedSetup(gallery, std::move(setup), 1).Run(nullptr);
}

/// A dialog whose scaling seems to change: everything must get its place again.
class MovedAbout : public UX::DlgAbout {
 public:
  using DlgAbout::DlgAbout;

 protected:
  void Build(const qor::Translate& translate) override {
    constexpr UINT Soon = 300;  // ms
    DlgAbout::Build(translate);
    SetTimer(Window(), 1, Soon, &MovedAbout::Move);
  }

 private:
  static void CALLBACK Move(HWND dialog, UINT, UINT_PTR timer, DWORD) {
    KillTimer(dialog, timer);
    const RECT suggested{40, 60, 400, 300};
    SendMessageW(dialog, WM_DPICHANGED, MAKEWPARAM(96, 96), reinterpret_cast<LPARAM>(&suggested));
  }
};

void ShowMoved(const Gallery& gallery) {
  MovedAbout(gallery.translate, {"1.2.3", {}}).Run(nullptr);
}

/// The exception must end the dialog and nothing else.
void ShowFailure(const Gallery& gallery) {
  UX::WiFiSetup setup = SampleSetup(gallery);
  setup.search = []() -> UX::WiFiSearch { throw std::runtime_error("no search"); };
  Print("counts", WalkedSetup(gallery, std::move(setup), 1).Run(nullptr) ? "yes" : "no");
}

struct Exhibit {
  const char* name;
  std::function<void(const Gallery&)> show;
};

const Exhibit Exhibits[] = {
    {"name", ShowName},
    {"number", ShowNumber},
    {"mode", ShowMode},
    {"datetime", ShowDateTime},
    {"steps", ShowSteps},
    {"many-steps", ShowManySteps},
    {"about", ShowAbout},
    {"open", ShowOpen},
    {"save", ShowSave},
    {"bad-save", ShowBadSave},
    {"controller", [](const Gallery& gallery) { ShowPage(gallery, 0); }},
    {"network", [](const Gallery& gallery) { ShowPage(gallery, 1); }},
    {"password", [](const Gallery& gallery) { ShowPage(gallery, 2); }},
    {"send", [](const Gallery& gallery) { ShowPage(gallery, 3); }},
    {"sent", [](const Gallery& gallery) { ShowPage(gallery, 4); }},
    {"no-networks", ShowNoNetworks},
    {"nearby", ShowNearby},
    {"moved", ShowMoved},
    {"failure", ShowFailure},
};

int ListNames() {
  std::cerr << "dialog_gallery NAME LANGUAGE [done|failed|denied [TABLE]]; NAME is one of\n";
  for (const Exhibit& exhibit : Exhibits) std::cerr << "  " << exhibit.name << "\n";
  return 2;
}

}  // namespace

int main(int count, char** arguments) {
  const std::vector<std::string> words(arguments + 1, arguments + count);
  if (words.size() < 2) return ListNames();
  const auto exhibit = std::ranges::find(Exhibits, words[0], &Exhibit::name);
  if (exhibit == std::end(Exhibits)) return ListNames();
  constexpr std::size_t MostTableBytes = std::size_t{4} << 20;
  const std::string table =
      words.size() > 3 ? TCBase::ReadFileBytes(words[3], MostTableBytes) : std::string();
  TCBase::Localisation builtIn;
  TCBase::Localisation own(table);
  TCBase::Localisation& texts = table.empty() ? builtIn : own;
  texts.SetLanguage(words[1]);
  exhibit->show({texts.Translator(), words.size() > 2 ? words[2] : "done"});
  return 0;
}
