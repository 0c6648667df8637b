// SPDX-License-Identifier: MIT
// Notes what a deletion takes away, and puts it back.
#include "shell/main_window/site_undo.h"

#include <algorithm>

#include "model/project_restore.h"
#include "model/project_text.h"
#include "platform/runtime_failure.h"
#include "shell/main_window/form1.h"

namespace requite {
namespace {

constexpr std::size_t kMostDeletions = 20;
constexpr std::size_t kMostBytes = std::size_t{64} * 1024 * 1024;  // of the texts of whole projects

using Colours = std::vector<std::uint32_t>;

Colours ColoursOf(const ListView& list) {
  Colours colours;
  for (std::size_t row = 0; row < list.RowCount(); ++row) colours.push_back(list.Colour(row));
  return colours;
}

void SetColours(ListView& list, const Colours& colours) {
  for (std::size_t row = 0; row < std::min(colours.size(), list.RowCount()); ++row) {
    if (list.Colour(row) != colours[row]) list.SetColour(row, colours[row]);
  }
}

std::size_t Fingerprint(const std::string& text) { return std::hash<std::string>()(text); }

/// The rules that are in the first list and no longer in the second.
std::vector<std::pair<std::size_t, Rule>> RulesGone(const std::vector<Rule>& before,
                                                    const RecordList<Rule>& after) {
  const auto same = [](const Rule& a, const Rule& b) {
    return a.MainSite == b.MainSite && a.RemoteSite == b.RemoteSite && a.RuleType == b.RuleType &&
           a.RuleValue == b.RuleValue;
  };
  std::vector<std::pair<std::size_t, Rule>> gone;
  std::size_t kept = 0;
  for (std::size_t row = 0; row < before.size(); ++row) {
    if (kept < after.RowCount() && same(before[row], after.At(kept))) {
      ++kept;
    } else {
      gone.emplace_back(row, before[row]);
    }
  }
  return gone;
}

std::vector<Rule> RulesOf(const RecordList<Rule>& list) {
  std::vector<Rule> rules;
  for (std::size_t row = 0; row < list.RowCount(); ++row) rules.push_back(list.At(row));
  return rules;
}

std::string Number(std::size_t count, const char* one, const char* several) {
  return std::to_string(count) + ' ' + (count == 1 ? one : several);
}

}  // namespace

SiteUndo::SiteUndo(Form1& form)
    : form_(form),
      mainDelete_(form.cmdDelete.OnClick),
      linkingDelete_(form.cmbDel.OnClick),
      popupDelete_(form.Popup1.OnClick) {
  form_.cmdDelete.OnClick = [this] { DeleteMainSite(mainDelete_); };
  form_.cmbDel.OnClick = [this] { DeleteLinkingSite(linkingDelete_); };
  form_.Popup1.OnClick = [this](int index) { DeleteLinkingSite([this, index] { popupDelete_(index); }); };
}

SiteUndo::~SiteUndo() {
  form_.cmdDelete.OnClick = mainDelete_;
  form_.cmbDel.OnClick = linkingDelete_;
  form_.Popup1.OnClick = popupDelete_;
}

void SiteUndo::DeleteMainSite(const std::function<void()>& act) {
  Project& project = form_.Sites;
  const std::size_t rows = project.List4.RowCount();
  // The only Main Site is deleted also when it is not selected.
  const int row = rows == 1 ? 0 : project.List4.SelectedRow();
  if (row < 0) return act();
  Deletion deletion;
  deletion.OfMainSite = true;
  deletion.MainSite = deletion.Name = project.List4.At(static_cast<std::size_t>(row)).Text;
  deletion.MainSiteNumber = row + 1;
  const LinkingSiteList& sites = project.List1(row + 1);
  for (std::size_t i = 0; i < sites.RowCount(); ++i) deletion.Sites.push_back(sites.At(i));
  deletion.SiteColours = ColoursOf(sites);
  deletion.ProjectSaved = project.ProjectSaved;
  WholeProject& before = deletion.Before;
  before.Text = ProjectText(project);
  for (int k = 1; k <= project.ListCount(); ++k) before.Sites.push_back(ColoursOf(project.List1(k)));
  before.Results = ColoursOf(project.List3);
  before.HalfTyped = form_.txtDomain.Text();
  before.ScriptUrl = form_.txtPost2.Text();
  deletion.BeforeDeletion = Fingerprint(before.Text);
  const std::vector<Rule> rules = RulesOf(project.lstRules);
  act();
  if (project.List4.RowCount() >= rows) return;
  for (std::size_t i = 0; i < rules.size(); ++i) {
    if (rules[i].MainSite == deletion.MainSite) deletion.Rules.emplace_back(i, rules[i]);
  }
  before.AfterDeletion = Fingerprint(ProjectText(project));
  Take(std::move(deletion));
}

void SiteUndo::DeleteLinkingSite(const std::function<void()>& act) {
  Project& project = form_.Sites;
  const int k = project.CurrentMainSite;
  if (k < 1 || k > project.ListCount() || project.List1(k).SelectedRow() < 0) return act();
  LinkingSiteList& list = project.List1(k);
  Deletion deletion;
  deletion.MainSite = project.List4.At(static_cast<std::size_t>(k - 1)).Text;
  deletion.MainSiteNumber = k;
  deletion.Row = static_cast<std::size_t>(list.SelectedRow());
  deletion.Sites = {list.At(deletion.Row)};
  deletion.SiteColours = {list.Colour(deletion.Row)};
  deletion.Name = deletion.Sites[0].WebsiteUrl;
  deletion.ProjectSaved = project.ProjectSaved;
  // Of a project that is unsaved anyway nobody asks, and the text of a large one takes its time.
  if (deletion.ProjectSaved) deletion.BeforeDeletion = Fingerprint(ProjectText(project));
  const std::vector<Rule> rules = RulesOf(project.lstRules);
  const std::size_t rows = list.RowCount();
  act();
  // A message box may have let events run.
  if (k > project.ListCount() || project.List1(k).RowCount() + 1 != rows) return;
  deletion.Rules = RulesGone(rules, project.lstRules);
  Take(std::move(deletion));
}

void SiteUndo::Take(Deletion deletion) {
  deletions_.push_back(std::move(deletion));
  std::size_t bytes = 0;
  std::size_t kept = 0;
  for (auto each = deletions_.rbegin(); each != deletions_.rend() && kept < kMostDeletions; ++each) {
    bytes += each->Before.Text.size();
    if (kept > 0 && bytes > kMostBytes) break;
    ++kept;
  }
  deletions_.erase(deletions_.begin(), deletions_.end() - static_cast<std::ptrdiff_t>(kept));
  if (OnDeleted) OnDeleted();
}

std::string SiteUndo::Words() const {
  if (deletions_.empty()) return {};
  const Deletion& last = deletions_.back();
  std::string with;
  if (last.OfMainSite && !last.Sites.empty()) {
    with = Number(last.Sites.size(), "Linking Site", "Linking Sites");
  }
  if (!last.Rules.empty()) {
    with += (with.empty() ? "" : " and ") + Number(last.Rules.size(), "rule", "rules");
  }
  return last.Name + " was deleted" + (with.empty() ? "" : " with its " + with) + ".";
}

std::string SiteUndo::Undo() {
  if (deletions_.empty() || form_.State.Scanning) return {};
  const Deletion deletion = std::move(deletions_.back());
  deletions_.pop_back();
  std::string words = deletion.Name + " is back.";
  if (!deletion.OfMainSite) {
    if (!InsertLinkingSite(deletion))
      return deletion.MainSite + " is gone, so " + deletion.Name + " stays deleted.";
  } else if (!RestoreProject(deletion)) {
    AppendMainSite(deletion);
    words = deletion.Name + " is back, after the other Main Sites.";
  }
  SetSavedFlag(deletion);
  // The deletion has written a report without the site.
  if (deletion.OfMainSite) EndSilently([this] { form_.GenerateLinkReport(); });
  return words;
}

/// Only for a project that has not changed since, and a text from which everything comes back.
bool SiteUndo::RestoreProject(const Deletion& deletion) {
  Project& project = form_.Sites;
  if (Fingerprint(ProjectText(project)) != deletion.Before.AfterDeletion) return false;
  Project scratch;
  if (!RestoreProjectText(deletion.Before.Text, scratch) || ProjectText(scratch) != deletion.Before.Text) {
    return false;
  }
  form_.Editing.NewProject();
  RestoreProjectText(deletion.Before.Text, project);
  for (int k = 1; k <= project.ListCount(); ++k) {
    SetColours(project.List1(k), deletion.Before.Sites[static_cast<std::size_t>(k - 1)]);
  }
  SetColours(project.List3, deletion.Before.Results);
  form_.txtDomain.SetText(deletion.Before.HalfTyped);
  form_.txtPost2.SetText(deletion.Before.ScriptUrl);
  form_.Editing.SelectMainSite(deletion.MainSiteNumber - 1);
  return true;
}

void SiteUndo::AppendMainSite(const Deletion& deletion) {
  Project& project = form_.Sites;
  project.AddMainSite(deletion.MainSite);
  LinkingSiteList& list = project.List1(project.ListCount());
  for (std::size_t row = 0; row < deletion.Sites.size(); ++row) {
    list.Insert(row, deletion.Sites[row], 0, deletion.SiteColours[row]);
  }
  for (const auto& [row, rule] : deletion.Rules) project.lstRules.Add(rule);
  form_.Editing.SelectMainSite(static_cast<int>(project.List4.RowCount()) - 1);
}

bool SiteUndo::InsertLinkingSite(const Deletion& deletion) {
  const int k = NumberOfMainSite(deletion);
  if (k == 0) return false;
  if (form_.Sites.List4.SelectedRow() != k - 1) form_.Editing.SelectMainSite(k - 1);
  LinkingSiteList& list = form_.Sites.List1(k);
  const std::size_t row = std::min(deletion.Row, list.RowCount());
  list.Insert(row, deletion.Sites[0], 0, deletion.SiteColours[0]);
  list.SelectOnly(static_cast<int>(row));
  form_.Editing.List1_MouseDown(k);
  form_.Editing.List1_ItemClick(static_cast<int>(row));
  InsertRules(deletion);
  return true;
}

void SiteUndo::InsertRules(const Deletion& deletion) {
  RecordList<Rule>& rules = form_.Sites.lstRules;
  for (const auto& [row, rule] : deletion.Rules) rules.Insert(std::min(row, rules.RowCount()), rule);
}

/// 0 for a Main Site that is gone. Others may have been deleted before it since.
int SiteUndo::NumberOfMainSite(const Deletion& deletion) const {
  const RecordList<MainSite>& sites = form_.Sites.List4;
  const auto isAt = [&](std::size_t row) {
    return row < sites.RowCount() && sites.At(row).Text == deletion.MainSite;
  };
  if (isAt(static_cast<std::size_t>(deletion.MainSiteNumber - 1))) return deletion.MainSiteNumber;
  for (std::size_t row = 0; row < sites.RowCount(); ++row) {
    if (isAt(row)) return static_cast<int>(row) + 1;
  }
  return 0;
}

/// The project counts as saved again if it is the one that was: unless its file was written meanwhile.
void SiteUndo::SetSavedFlag(const Deletion& deletion) {
  form_.Sites.ProjectSaved = deletion.ProjectSaved && !deletion.SavedSince &&
                             Fingerprint(ProjectText(form_.Sites)) == deletion.BeforeDeletion;
}

void SiteUndo::ProjectIsSaved() {
  for (Deletion& each : deletions_) each.SavedSince = true;
}

}  // namespace requite
