// SPDX-License-Identifier: MIT
#include "ui/win32/dialogs/NetworkPage.h"

#include <commctrl.h>

#include "QorLib/ParseInteger.h"
#include "QorLib/qor_win_str_utils.h"

namespace UX {
namespace {

// The order of the choices of security
constexpr WiFiSecurity Securities[] = {WiFiSecurity::Open, WiFiSecurity::WPA2, WiFiSecurity::Number1};

constexpr int MostEncryptionDigits = 3;

int ChoiceOf(WiFiSecurity security) {
  return security == WiFiSecurity::Invalid ? -1 : static_cast<int>(security);
}

}  // namespace

void NetworkPage::Build(HWND dialog, StackLayout& rows, const qor::Translate& translate) {
  constexpr int ListLines = 7;
  constexpr int TroubleLines = 2;
  rows.Add({Paragraph(
      dialog,
      translate(TR("Choose the network for the controller. Type its name if it is not in the list.")))});
  const Cell list = ReportList(
      dialog, {translate(TR("Network name")), translate(TR("Signal")), translate(TR("Security"))}, ListLines);
  list_ = list.control;
  rows.Add({list});
  const Cell trouble = Paragraph(dialog, {}, TroubleLines);
  const Cell refresh = PushButton(dialog, translate(TR("Refresh")));
  trouble_ = trouble.control;
  refresh_ = refresh.control;
  rows.Add({trouble, refresh});
  BuildEntry(dialog, rows, translate);
}

void NetworkPage::BuildEntry(HWND dialog, StackLayout& rows, const qor::Translate& translate) {
  constexpr int RemarkLines = 2;
  std::vector<std::string> choices;
  for (const WiFiSecurity security : Securities) choices.push_back(SecurityText(security, translate));
  const Cell nameLabel = Caption(dialog, translate(TR("Network name")));
  const Cell name = LineEdit(dialog, {});
  const Cell securityLabel = Caption(dialog, translate(TR("Security")));
  const Cell security = ComboBox(dialog, choices, static_cast<std::size_t>(ChoiceOf(wizard_.Security())));
  const Cell encryptionLabel = Caption(dialog, translate(TR("Encryption number")));
  const Cell encryption = LineEdit(dialog, "0", ES_NUMBER);
  const Cell remark = Paragraph(dialog, {}, RemarkLines);
  rows.Add({nameLabel, name});
  rows.Add({securityLabel, security});
  rows.Add({encryptionLabel, encryption});
  rows.Add({remark});
  name_ = name.control;
  security_ = security.control;
  encryption_ = encryption.control;
  SendMessageW(encryption_, EM_SETLIMITTEXT, MostEncryptionDigits, 0);
  remark_ = remark.control;
}

void NetworkPage::OnShow() {
  if (!wasShown_) Refresh();
  wasShown_ = true;
  TakeEntry();
}

void NetworkPage::Refresh() {
  WiFiSearch search = search_();
  networks_ = NetworksToOffer(std::move(search.networks));
  std::vector<std::vector<std::string>> rows;
  for (const WiFiNetwork& network : networks_) {
    rows.push_back(
        {network.name, std::to_string(network.strength) + " %", SecurityText(network.security, translate_)});
  }
  SetRows(list_, rows);
  SetText(trouble_, TroubleText(search.trouble, translate_));
}

void NetworkPage::OnCommand(HWND control, int notification) {
  if (control == refresh_ && notification == BN_CLICKED) Refresh();
  const bool isName = control == name_ && notification == EN_CHANGE;
  const bool isSecurity = control == security_ && notification == CBN_SELCHANGE;
  const bool isEncryption = control == encryption_ && notification == EN_CHANGE;
  if ((isName || isSecurity || isEncryption) && !isTakingSelection_) TakeEntry();
}

bool NetworkPage::OnNotify(const NMHDR& header) {
  if (header.hwndFrom != list_) return false;
  if (header.code == LVN_ITEMCHANGED) TakeSelection();
  return header.code == NM_DBLCLK && SelectedRow(list_) >= 0;
}

void NetworkPage::OnLaidOut() {
  FitColumns(list_);
}

void NetworkPage::TakeSelection() {
  const int row = SelectedRow(list_);
  if (row < 0) return;
  const WiFiNetwork& network = networks_[static_cast<std::size_t>(row)];
  isTakingSelection_ = true;
  SetText(name_, network.name);
  Choose(security_, ChoiceOf(network.security));
  isTakingSelection_ = false;
  TakeEntry();
}

void NetworkPage::TakeEntry() {
  const int choice = ChosenOf(security_);
  wizard_.SetNetwork(EnteredName(), choice < 0 ? WiFiSecurity::Invalid : Securities[choice]);
  wizard_.SetEncryption(qor::ParseInteger(TextOf(encryption_)));
  EnableWindow(encryption_, wizard_.Settings().security != TCBase::WiFiSettings::Open);
  SetText(remark_, wizard_.Remark(translate_));
}

/// The name as bytes: those of the list's network while its name stands there as it is shown, which may be
/// other bytes where they are not UTF-8.
std::string NetworkPage::EnteredName() const {
  std::string text = TextOf(name_);
  const int row = SelectedRow(list_);
  if (row < 0) return text;
  const std::string& name = networks_[static_cast<std::size_t>(row)].name;
  return qor::win::WellFormedUtf8(name) == text ? name : text;
}

}  // namespace UX
