// SPDX-License-Identifier: MIT
// What is stored as the Page Builder is filled in, and its two commands.
#include "shell/main_window/pages.h"

#include "shell/main_window/form1.h"

namespace requite {

PagesControls::PagesControls(ControlIndex& index, const Frame& around, Project& project)
    : Place(index, &around, false) {
  Take(project.txtHTML1,
       {.Tip = "All HTML on your page that comes before your links goes here.", .In = &Frame5});
  Take(project.txtHTML2,
       {.Tip = "Links will be generated here based on your Links List.  You can edit it afterwards if you "
               "wish.",
        .In = &Frame5});
  Take(project.txtHTML3,
       {.Tip = "All HTML on your page that comes after your links goes here.", .In = &Frame5});
}

void PagesControls::Wire(Form1& form) {
  const auto saveChanges = [&form](TextBox& box, const SettingKey& key) {
    box.OnChange = [&form, &box, &key] { form.Settings.SaveSetting(key, box.Text()); };
  };
  saveChanges(form.Sites.txtHTML1, setting::txtHTML1);
  saveChanges(form.Sites.txtHTML2, setting::txtHTML2);
  saveChanges(form.Sites.txtHTML3, setting::txtHTML3);
  chkNewWin.OnClick = [this, &form] { form.Settings.SaveSetting(setting::chkNewWin, chkNewWin.Value()); };
  chkBullet.OnClick = [this, &form] { form.Settings.SaveSetting(setting::chkBullet, chkBullet.Value()); };
  optAll.OnClick = [this, &form](int index) {
    form.Settings.SaveSetting(setting::optAll, index);
    Combo3.SetEnabled(index == 1);
  };
  Command5.OnClick = [&form] { form.Pages.GenerateLinks(); };
  Command6.OnClick = [&form] { form.Pages.SaveWebpage(); };
}

void PagesControls::OnShown(const Project& project) { AddMainSites(project, Combo3); }

}  // namespace requite
