// SPDX-License-Identifier: MIT
// How the options are loaded, checked and saved.
#include "shell/options/frm_options.h"

#include <algorithm>

#include "model/visitor.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"
#include "shell/windows.h"

namespace requite {
namespace {

// Many labels share it, although it is about pages. Scripts that print tool tips depend on its words.
constexpr std::string_view kPagesTip =
    "If the specified number of pages have been scaned the search will automatically skip to the next site.";

// It is saved as txtAutoSave and read with this spelling. The store ignores letter case in keys.
constexpr SettingKey kAutoSaveMinutes{"txtAutosave", setting::txtAutoSave.Default};

constexpr std::string_view kSitesTip =
    "1 scans as always; more asks several sites at once, with the same results";
constexpr std::string_view kSecureTip =
    "Asks each site over HTTPS first and, if that fails, over plain HTTP as before. Links and moves to "
    "https:// are followed.";
constexpr std::string_view kUserAgentTip =
    "Sent with each request as its User-Agent. Many sites refuse a visitor without a name (status 403). "
    "Empty: pages are asked for without one.";

constexpr std::string_view kHistoryTip =
    "Notes after each scan what every site showed, in history.db of the program's folder. \"Changes Since "
    "Last "
    "Scan\" then tells who stopped linking back.";

bool IsInt16(const std::string& text) {
  return PassOver([&] { static_cast<void>(ReadInt16(text)); });
}

}  // namespace

frmOptions::frmOptions(Windows& windows, Settings& settings, const ProgramFolder& folder, Dialogs& dialogs)
    : ProgramWindow(windows, "frmOptions", "Scanning Options"),
      Label2("Label2",
             "Global Rules are applied to all sites when scaning, and can be used to increase the efficiency "
             "of your scans.  To edit the Global Rules list, use the button below.  To edit Main Site or "
             "Linking Site specific rules, use the edit buttons in the main window."),
      settings_(settings),
      folder_(folder),
      dialogs_(dialogs) {
  BuildControls();
  Wire();
}

void frmOptions::BuildControls() {
  Label9.ToolTip =
      "Skipping to the next site as soon as the expected number of links are found will increase the speed "
      "of your searches significantly";
  for (Label* each : {&Label7, &Label19, &Label21, &Label2, &Label1}) each->ToolTip = kPagesTip;
  txtDomain.ToolTip = "Enter the website you want to find links to from remote sites";
  cmdAdd2.ToolTip = "Add the file type you have entered to the left";
  cmdDelete.ToolTip = "Delete the file type you have selected below";
  lblSitesAtATime.ToolTip = kSitesTip;
  SitesAtATime.ToolTip = kSitesTip;
  chkSecure.ToolTip = kSecureTip;
  chkHistory.ToolTip = kHistoryTip;
  txtUserAgent.ToolTip = kUserAgentTip;
  cmdAdd2.SetEnabled(false);
  cmdDelete.SetEnabled(false);
  for (Control* each : std::initializer_list<Control*>{&Label5_0, &chkAutoSave, &Label1, &txtAutoSave}) {
    each->SetVisible(false);
  }
  const std::initializer_list<Control*> inFrame = {
      &Label6,       &chkAuto2,      &Label9,       &chkAuto,      &Label7,           &cmbAdvance,
      &Label18,      &chkRedirect,   &Label19,      &Label5_4,     &Label20,          &Label21,
      &txtTimeout,   &chkAudioEmail, &chkAudioNext, &Label5_3,     &chkAudioFinished, &chkLog,
      &Label5_5,     &chkUpdate,     &Label5_1,     &chkFileTypes, &txtDomain,        &cmdAdd2,
      &cmdDelete,    &List1,         &Label5_2,     &Label2,       &Command1,         &lblSitesAtATime,
      &SitesAtATime, &lblSecure,     &chkSecure,    &lblUserAgent, &txtUserAgent,     &chkHistory,
      &Label5_0,     &chkAutoSave,   &Label1,       &txtAutoSave};
  PutInto(Frame1, inFrame);
  Controls.Add(Frame1);
  for (Control* each : inFrame) Controls.Add(*each);
  Controls.AddDropDownList(cmbAdvance);
}

void frmOptions::Wire() {
  for (const CheckSetting& check : Checks()) {
    check.Box.OnClick = [this, check] { settings_.SaveSetting(check.Key, check.Box.Value()); };
  }
  cmbAdvance.OnClick = [this] { settings_.SaveSetting(setting::cmbAdvance, cmbAdvance.ListIndex()); };
  txtTimeout.OnChange = [this] { txtTimeout_Change(); };
  txtAutoSave.OnChange = [this] { txtAutoSave_Change(); };
  txtUserAgent.OnChange = [this] { txtUserAgent_Change(); };
  SitesAtATime.OnChange = [this] { SitesAtATime_Change(); };
  txtDomain.OnChange = [this] { cmdAdd2.SetEnabled(!txtDomain.Text().empty()); };
  txtDomain.OnEnter = [this] { AddFileType(); };
  List1.OnItemClick = [this](int) {
    if (List1.SelectedRow() >= 0) cmdDelete.SetEnabled(true);
  };
  cmdAdd2.OnClick = [this] { AddFileType(); };
  cmdDelete.OnClick = [this] { DeleteFileType(); };
  Command1.OnClick = [this] { Others.Show("Form2b"); };
}

std::array<frmOptions::CheckSetting, 12> frmOptions::Checks() {
  return {{{chkRedirect, setting::chkRedirect},
           {chkLog, setting::chkLog},
           {chkUpdate, setting::chkUpdate},
           {chkAuto, setting::chkAuto},
           {chkAuto2, setting::chkAuto2},
           {chkAudioEmail, setting::chkAudioEmail},
           {chkAudioNext, setting::chkAudioNext},
           {chkAudioFinished, setting::chkAudioFinished},
           {chkFileTypes, setting::chkFileTypes},
           {chkSecure, setting::chkSecure},
           {chkHistory, setting::chkHistory},
           {chkAutoSave, setting::chkAutoSave}}};
}

void frmOptions::Load() {
  txtTimeout.SetText(settings_.GetSetting(setting::txtTimeout));
  txtAutoSave.SetText(settings_.GetSetting(kAutoSaveMinutes));
  txtUserAgent.SetText(settings_.GetSetting(setting::txtUserAgent));
  SitesAtATime.SetText(settings_.GetSetting(setting::SitesAtATime));
  for (const CheckSetting& check : Checks()) check.Box.SetValue(settings_.Number(check.Key));
  const std::int16_t position = settings_.Number(setting::cmbAdvance);
  // SetListIndex would take -1 as no choice.
  if (position < 0) throw RuntimeFailure(Failure::InvalidProperty);
  cmbAdvance.SetListIndex(position);
  settings_.SaveSetting(setting::cmbAdvance, cmbAdvance.ListIndex());
  for (std::string& line : ListFileTypes(folder_)) List1.Add({std::move(line)});
}

void frmOptions::txtTimeout_Change() {
  const std::string typed = txtTimeout.Text();
  if (typed.empty()) return;
  if (IsInt16(typed)) {
    settings_.SaveSetting(setting::txtTimeout, typed);
  } else {
    txtTimeout.SetText(std::string(setting::txtTimeout.Default));  // which saves it
  }
}

void frmOptions::txtAutoSave_Change() {
  const std::string typed = txtAutoSave.Text();
  if (typed.empty()) return;
  // The other box is checked, so any text typed here is saved, as scripts and stored settings expect.
  if (IsInt16(txtTimeout.Text())) {
    settings_.SaveSetting(setting::txtAutoSave, typed);
  } else {
    txtAutoSave.SetText(std::string(setting::txtAutoSave.Default));
  }
}

void frmOptions::txtUserAgent_Change() {
  std::string clean = WithoutControlCharacters(txtUserAgent.Text());
  if (clean == txtUserAgent.Text()) {
    settings_.SaveSetting(setting::txtUserAgent, clean);
  } else {
    txtUserAgent.SetText(std::move(clean));  // which saves it
  }
}

void frmOptions::SitesAtATime_Change() {
  const std::string typed = SitesAtATime.Text();
  // The default is not stored by the opening.
  if (typed.empty() || typed == settings_.GetSetting(setting::SitesAtATime)) return;
  const std::string taken = std::to_string(
      IsInt16(typed) ? std::clamp(ReadInt16(typed), std::int16_t{1}, kMostSitesAtATime) : std::int16_t{1});
  if (taken == typed) {
    settings_.SaveSetting(setting::SitesAtATime, taken);
  } else {
    SitesAtATime.SetText(taken);  // which saves it
  }
}

void frmOptions::AddFileType() {
  const Running running(*this);  // a message box lets events run
  std::string entered = txtDomain.Text();
  if (entered.empty()) {
    dialogs_.Say("Please enter a file extension first.");
    if (!Closed()) txtDomain.SetFocus();
    return;
  }
  if (!Contains(entered, ".", Compare::Binary)) entered.insert(0, 1, '.');
  ReplaceIn(entered, "..", ".", Compare::Binary);
  List1.Add({std::move(entered)});
  txtDomain.SetText("");
  txtDomain.SetFocus();
  SaveList();
}

void frmOptions::DeleteFileType() {
  if (List1.SelectedRow() < 0) return;
  List1.Remove(static_cast<std::size_t>(List1.SelectedRow()));
  SaveList();
}

void frmOptions::SaveList() {
  std::vector<std::string> lines;
  for (std::size_t row = 0; row < List1.RowCount(); ++row) lines.push_back(List1.At(row).Text);
  SaveFileTypes(folder_, lines);
}

}  // namespace requite
