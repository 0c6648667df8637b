// SPDX-License-Identifier: MIT
// The actions of the controls that are never shown.
#include "shell/main_window/hidden_commands.h"

#include "shell/main_window/form1.h"

namespace requite {
namespace {

void DeleteAllEmails(Form1& form) {
  const MessageBox question{"Are you sure you want to delete all emails from the database?", "Confirm",
                            Buttons::OkCancel, BoxIcon::None};
  if (form.Platform.Dialogs.Show(question) != Answer::Ok) return;
  form.Database.DeleteAllEmails();
  form.Sites.List3.Clear();
}

}  // namespace

HiddenControls::HiddenControls(ControlIndex& index, Project& project) : Place(index) {
  Take(project.lstRules, {.Visible = false});
}

void HiddenControls::Wire(Form1& form) {
  cmdDoSearch.OnClick = [&form] { form.Scan.cmdDoSearch_Click(); };
  cmdNextSearch.OnClick = [&form] { form.SkipSiteWithoutReason(); };
  Command11.OnClick = [this] { mnuSkipPopup.PopUp(); };
  mnuSkipPopup.OnClick = [this, &form](int index) {
    mnuSkipPopup.CheckOnly(index);
    form.Settings.SaveSetting(setting::SkipType, index);
  };
  Command12.OnClick = [&form] { form.GenerateLinkReport(); };

  cmdResume.OnClick = [this, &form] {
    cmdResume.SetEnabled(false);
    form.Scan.cmdDoSearch_Click();
  };
  cmdViewDatabase.OnClick = [&form] { form.Platform.Shell.OpenFile(form.Folder.Path); };
  Command2.OnClick = [&form] { form.Windows.Show("frmExport"); };
  Command3.OnClick = [&form] { DeleteAllEmails(form); };

  Command7.OnClick = [&form] { form.Windows.Show("Form4"); };

  const auto saveRow = [&form](ComboBox& box, const SettingKey& key) {
    box.OnClick = [&form, &box, &key] { form.Settings.SaveSetting(key, box.ListIndex()); };
  };
  saveRow(Combo1, setting::Combo1);
  saveRow(Combo2, setting::Combo2);
  saveRow(cmbLastSearch, setting::cmbLastSearch);
  cmbLastSearch.OnChange = cmbLastSearch.OnClick;
}

}  // namespace requite
