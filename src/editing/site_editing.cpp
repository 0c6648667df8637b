// SPDX-License-Identifier: MIT
// The steps of the site list commands, with their messages and enabled states.
#include "editing/site_editing.h"

#include <limits>
#include <string_view>

#include "model/settings.h"
#include "platform/runtime_failure.h"
#include "platform/schemes.h"
#include "platform/text.h"

namespace requite {

void SiteEditing::SelectMainSite(int row) {
  project_.List4.SelectOnly(row);
  List4_Click();
}

void SiteEditing::List4_Click() {
  const int n = project_.List4.SelectedRow() + 1;
  window_.Text1.SetEnabled(true);
  window_.Text1.SetText("");
  window_.cmdDelete.SetEnabled(true);
  window_.cmdEditMain.SetEnabled(true);
  ShowListOf(n);
  if (n > std::numeric_limits<std::int16_t>::max()) throw RuntimeFailure(Failure::Overflow);
  project_.CurrentMainSite = static_cast<std::int16_t>(n);
}

void SiteEditing::ShowListOf(int n) {
  for (int k = 1; k <= project_.ListCount(); ++k) {
    project_.List1(k).SetVisible(k == n);
    project_.List1(k).SetEnabled(k == n);
  }
  if (n < 1 || n > project_.ListCount()) return;
  window_.cmdAdd.SetVisible(true);
  window_.cmbDel.SetVisible(true);
  window_.cmdEdit.SetVisible(true);
  window_.Text1.SetVisible(true);
  window_.Label2.SetVisible(true);
  window_.innerFrame2.SetVisible(true);
  // The frame may have been disabled as a whole until now, and nothing else would enable it.
  window_.innerFrame2.SetEnabled(true);
  window_.lblblah.SetText("Enter linking sites: " + project_.List4.At(static_cast<std::size_t>(n - 1)).Text);
  window_.cmbDel.SetEnabled(false);
  window_.cmdEdit.SetEnabled(false);
}

void SiteEditing::List1_MouseDown(int k) { project_.CurrentMainSite = static_cast<std::int16_t>(k); }

void SiteEditing::List1_ItemClick(int row) {
  if (row < 0) return;
  window_.cmbDel.SetEnabled(true);
  window_.cmdEdit.SetEnabled(true);
  window_.cmdDelete.SetEnabled(false);
  window_.cmdEditMain.SetEnabled(false);
}

void SiteEditing::Text1_Change() { window_.cmdAdd.SetEnabled(!window_.Text1.Text().empty()); }

void SiteEditing::txtDomain_Change() {
  if (!window_.txtDomain.Text().empty()) window_.cmdAdd2.SetEnabled(true);
  // The first change after a load is ignored; the next one is an edit.
  if (project_.JustLoaded) {
    project_.JustLoaded = false;
  } else {
    project_.ProjectSaved = false;
  }
}

void SiteEditing::cmdAdd() {
  std::string entered = window_.Text1.Text();
  RemoveSchemes(entered);
  window_.Text1.SetText(entered);
  if (IsEmptyOrBlank(entered)) {
    dialogs_.Say("Please enter the Website URL first.");
    window_.Text1.SetFocus();
    return;
  }
  PassOver([&] { CurrentList().Add({std::string(Trim(entered)), "1", "", "", ""}); });
  project_.ProjectSaved = false;
  EnableNextSearch();
  window_.Text1.SetText("");
  window_.Text1.SetFocus();
}

void SiteEditing::cmdAdd2() {
  if (IsEmptyOrBlank(window_.txtDomain.Text())) {
    window_.StatusBar1.SetPanel(StatusPanel::Activity, "Error: Please enter a Remote Site first!");
    return;
  }
  EndSilently([&] {
    project_.AddMainSite(window_.txtDomain.Text());
    SelectMainSite(static_cast<int>(project_.List4.RowCount()) - 1);
    window_.txtDomain.SetText("");
    window_.txtDomain.SetFocus();
    project_.ProjectSaved = false;
  });
}

void SiteEditing::cmbDel() {
  EndSilently([&] {
    LinkingSiteList& list = CurrentList();
    if (list.SelectedRow() < 0) return;
    DeleteLinkingSite(list, list.SelectedRow() + 1);
    EnableNextSearch();
  });
}

void SiteEditing::DeleteLinkingSite(LinkingSiteList& list, int number) {
  if (number == 0) return dialogs_.Say("You must select a site to delete.");
  // Only the first site is protected during a scan, and only its rules are deleted with it: the rules of
  // the other sites stay in the project.
  if (number == 1) {
    if (scanning_()) {
      return dialogs_.Say("You cannot delete the current site while the search is running.");
    }
    const std::string url = list.At(0).WebsiteUrl;
    project_.lstRules.RemoveWhere([&](const Rule& rule) { return rule.RemoteSite == url; });
  }
  list.Remove(static_cast<std::size_t>(number - 1));
  project_.ProjectSaved = false;
}

/// Looks the list up again: events during a message box may have changed the lists. Without a current
/// Main Site there is nothing to skip to.
void SiteEditing::EnableNextSearch() {
  std::size_t sites = 0;
  PassOver([&] { sites = CurrentList().RowCount(); });
  window_.cmdNextSearch.SetEnabled(scanning_() && sites >= 2);
}

LinkingSiteList& SiteEditing::CurrentList() {
  // List 0 is the template and always empty.
  if (project_.CurrentMainSite < 1) throw RuntimeFailure(Failure::Subscript);
  return project_.List1(project_.CurrentMainSite);
}

void SiteEditing::NewProject() {
  project_.DropLinkingSiteLists();
  project_.CurrentMainSite = 1;
  lists_.List2.Clear();
  project_.List4.Clear();
  project_.lstRules.Clear();
  project_.List3.Clear();
  window_.txtDomain.SetText("");
  project_.txtPost.SetText(std::string(kHttp));
  window_.txtPost2.SetText(std::string(kHttp));
  project_.lstMulti.Clear();
  window_.cmbSites.Clear();
  window_.Text1.SetText("");
  project_.txtHTML1.SetText(std::string(setting::txtHTML1.Default));
  project_.txtHTML2.SetText(std::string(kNewProjectHtml2));
  project_.txtHTML3.SetText(std::string(setting::txtHTML3.Default));
  window_.innerFrame2.SetVisible(false);
}

void SiteEditing::WireWindow() {
  window_.Text1.OnChange = [this] { Text1_Change(); };
  window_.Text1.OnEnter = [this] { cmdAdd(); };
  window_.txtDomain.OnChange = [this] { txtDomain_Change(); };
  window_.txtDomain.OnEnter = [this] { cmdAdd2(); };
  window_.cmdAdd.OnClick = [this] { cmdAdd(); };
  window_.cmdAdd2.OnClick = [this] { cmdAdd2(); };
  window_.cmbDel.OnClick = [this] { cmbDel(); };
  project_.List4.OnItemClick = [this](int) { List4_Click(); };
  project_.List4.PressBesideSelectsNone = true;  // and then shows no list of Linking Sites
}

void SiteEditing::WireList(LinkingSiteList& list, int k) {
  list.OnMouseDown = [this, k](int) { List1_MouseDown(k); };
  list.OnItemClick = [this](int row) { List1_ItemClick(row); };
  list.RightPressSelects = true;  // the popup's entry is about the row under the mouse
}

}  // namespace requite
