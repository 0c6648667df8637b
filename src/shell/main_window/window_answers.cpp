// SPDX-License-Identifier: MIT
// The answers to the commands of the other windows.
#include "platform/text.h"
#include "shell/changes/frm_changes.h"
#include "shell/editors/form2.h"
#include "shell/imports/form4.h"
#include "shell/main_window/action_answers.h"
#include "shell/main_window/form1.h"
#include "shell/options/frm_options.h"

namespace requite {
namespace {

std::string Number(std::size_t count, const char* one, const char* several) {
  return std::to_string(count) + ' ' + (count == 1 ? one : several);
}

}  // namespace

void ActionAnswers::Made(ProgramWindow& window) {
  if (auto* const editor = dynamic_cast<Form2*>(&window)) FollowEditor(*editor);
  if (auto* const import = dynamic_cast<Form4*>(&window)) FollowImport(*import);
  if (auto* const options = dynamic_cast<frmOptions*>(&window)) FollowOptions(*options);
  if (auto* const changes = dynamic_cast<frmChanges*>(&window)) FollowChanges(*changes);
}

void ActionAnswers::FollowEditor(Form2& editor) {
  const auto save = [this, &editor](const Act& act) { SaveEditor(editor, act); };
  Replace(editor.cmdSave.OnClick, save);
  for (TextBox& each : editor.Text) {
    if (each.OnEnter) Replace(each.OnEnter, save);
  }
}

void ActionAnswers::SaveEditor(Form2& editor, const Act& act) {
  const std::size_t rules = editor.ListView1.RowCount();
  std::string words = Number(rules, "global rule", "global rules") + " stored.";
  if (editor.Kind.OfMainSite || editor.Kind.OfLinkingSite) {
    words = editor.Text[0].Text() + " stored" + (rules > 0 ? " with " + Number(rules, "rule", "rules") : "") +
            ".";
  }
  act();
  Say(words);
}

void ActionAnswers::FollowImport(Form4& import) {
  Replace(import.cmdAdd.OnClick, [this, &import](const Act& act) {
    if (form_.Sites.CurrentMainSite < 1 || form_.Sites.List4.Empty()) {
      Say("Select one of your Main Sites first.");
    } else if (import.ListView1.SelectedRow() < 0) {
      Say("Select links in the list first.");
    }
    Import(act);
  });
  Replace(import.Command4.OnClick, [this](const Act& act) { Import(act); });
  Replace(import.cmdPost.OnClick, [this, &import](const Act& act) { Post(import.Post(), act); });
}

/// Events may run meanwhile, so the list may even be another one after it.
void ActionAnswers::Import(const Act& act) {
  const std::string mainSite = CurrentMainSite();
  const SiteCount linking = LinkingSites();
  const SiteCount main = MainSites();
  act();
  if (CurrentMainSite() == mainSite) SayAdded(linking, LinkingSites(), mainSite);
  SayAdded(main, MainSites(), "your Main Sites");
}

void ActionAnswers::SayAdded(SiteCount before, SiteCount after, const std::string& where) const {
  if (after.Rows <= before.Rows || after.Different < before.Different) return;
  const std::size_t added = after.Rows - before.Rows;
  const std::size_t different = after.Different - before.Different;
  std::string words = Number(added, "site", "sites") + " added to " + where;
  if (different < added) {
    words += " (" + Number(added - different, "of them was", "of them were") + " in the list already)";
  }
  Say(words + ".");
}

/// Filling the controls as the window opens is not the user's doing.
void ActionAnswers::FollowOptions(frmOptions& options) {
  const auto stored = [this, &options](const Act& act) {
    act();
    if (options.Others.IsShown(options.Name())) Say("The option is stored.");
  };
  options.Controls.ForEach([&](Control& control) {
    if (auto* const box = dynamic_cast<CheckBox*>(&control)) Replace(box->OnClick, stored);
    if (auto* const list = dynamic_cast<ComboBox*>(&control)) Replace(list->OnClick, stored);
  });
  for (TextBox* box : {&options.txtTimeout, &options.txtUserAgent, &options.SitesAtATime}) {
    Replace(box->OnChange, stored);
  }
  const auto types = [this, &options](const Act& act) {
    const std::size_t before = options.List1.RowCount();
    act();
    if (options.List1.RowCount() != before) Say("The file types are stored.");
  };
  Replace(options.cmdAdd2.OnClick, types);
  Replace(options.txtDomain.OnEnter, types);
  Replace(options.cmdDelete.OnClick, types);
}

void ActionAnswers::FollowChanges(frmChanges& changes) {
  changes.OnSaved = [this](const std::string& path) { Say("Saved to", path); };
  Replace(changes.cmdCopy.OnClick, [this, &changes](const Act& act) {
    act();
    std::size_t rows = 0;
    for (std::size_t row = 0; row < changes.lstChanges.RowCount(); ++row) {
      if (changes.lstChanges.SelectedRow() < 0 || changes.lstChanges.IsSelected(row)) ++rows;
    }
    Say(Number(rows, "row", "rows") + " copied.");
  });
}

}  // namespace requite
