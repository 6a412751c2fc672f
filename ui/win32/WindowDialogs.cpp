// SPDX-License-Identifier: MIT
#include "ui/win32/WindowDialogs.h"

#include "QorLib/qor_win_str_utils.h"
#include "ui/win32/dialogs/DlgAbout.h"
#include "ui/win32/dialogs/DlgDateTime.h"
#include "ui/win32/dialogs/DlgGetValue.h"
#include "ui/win32/dialogs/DlgModeName.h"
#include "ui/win32/dialogs/DlgSteps.h"
#include "ui/win32/dialogs/DlgTC421_Config.h"
#include "ui/win32/dialogs/FileDialogs.h"
#include "ui/win32/dialogs/WiFiNetworks.h"

namespace UX {
namespace {

using qor::win::WideFromUtf8;

UINT ButtonsOf(const Question& question) {
  if (question.hasCancel) return MB_YESNOCANCEL | (question.usual == Answer::No ? MB_DEFBUTTON2 : 0);
  return MB_YESNO | (question.usual == Answer::No ? MB_DEFBUTTON2 : 0);
}

}  // namespace

std::optional<std::string> WindowDialogs::PathToOpen(FileKind kind) {
  return AskPathToOpen(owner_, kind, Translator());
}

std::optional<std::string> WindowDialogs::PathToSave(FileKind kind, const std::string& name) {
  return AskPathToSave(owner_, kind, name, Translator());
}

Answer WindowDialogs::Ask(const Question& question) {
  const int pressed =
      MessageBoxW(owner_, WideFromUtf8(question.text).c_str(), WideFromUtf8(question.caption).c_str(),
                  ButtonsOf(question) | MB_ICONQUESTION);
  switch (pressed) {
    case IDYES: return Answer::Yes;
    case IDNO: return Answer::No;
    default: return Answer::Cancel;
  }
}

void WindowDialogs::Tell(const std::string& caption, const std::string& text) {
  MessageBoxW(owner_, WideFromUtf8(text).c_str(), WideFromUtf8(caption).c_str(), MB_OK | MB_ICONINFORMATION);
}

bool WindowDialogs::EditValue(ValueRequest& request) {
  return DlgGetValue(Translator(), request).Run(owner_);
}

bool WindowDialogs::EditModeName(ModeNameRequest& request) {
  const bool isEdited = DlgModeName(Translator(), request).Run(owner_);
  std::erase(request.description, '\r');  // the program's lines end with LF
  return isEdited;
}

bool WindowDialogs::EditSteps(StepsRequest& request) {
  return DlgSteps(Translator(), request).Run(owner_);
}

bool WindowDialogs::EditDateTime(platform::SYSTEMTIME& time) {
  return DlgDateTime(Translator(), time).Run(owner_);
}

void WindowDialogs::ShowAbout() {
  std::string translator;
  for (const TCBase::StringTable::Language& language : services_.texts.Languages()) {
    if (language.id == services_.texts.CurrentLanguage()) translator = language.author;
  }
  DlgAbout(Translator(), {HALVEX_VERSION, translator}).Run(owner_);
}

void WindowDialogs::RunWiFiWizard() {
  WiFiSetup setup;
  if (devices_ != nullptr) setup.devices = devices_->Devices();
  setup.search = SearchWiFiNetworks;
  setup.send = [this](const TCBase::DeviceInfo& device, const TCBase::WiFiSettings& settings) {
    return TCBase::SetupWiFi(device, settings,
                             {services_.clock, services_.log, network_, &platform::SystemDeviceLocks()});
  };
  DlgTC421_Config(Translator(), std::move(setup)).Run(owner_);
}

}  // namespace UX
