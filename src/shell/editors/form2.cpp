// SPDX-License-Identifier: MIT
// How the editors load a record, change its rules and save both.
#include "shell/editors/form2.h"

#include <limits>

#include "model/rule_kinds.h"
#include "platform/runtime_failure.h"
#include "shell/windows.h"

namespace requite {
namespace {

constexpr std::string LinkingSite::*kSiteFields[] = {&LinkingSite::WebsiteUrl, &LinkingSite::LinksExpected,
                                                     &LinkingSite::LinkPageUrl, &LinkingSite::LinkPageText,
                                                     &LinkingSite::Description};

/// The row, counted from 0, of a number counted from 1. The row need not exist.
std::size_t RowOf(std::int16_t number) { return static_cast<std::size_t>(number) - 1; }

std::vector<std::string> RuleCaptions() {
  std::vector<std::string> captions;
  captions.reserve(kRuleKinds.size());
  for (const RuleKind& each : kRuleKinds) captions.emplace_back(each.Caption);
  return captions;
}

TextBox FieldBox(int number) { return TextBox("Text" + std::to_string(number)); }
Label FieldCaption(int number) { return Label("Label" + std::to_string(number)); }

}  // namespace

Form2::Form2(Windows& windows, const EditorKind& kind, Project& project, Dialogs& dialogs)
    : ProgramWindow(windows, std::string(kind.Name), std::string(kind.Title)),
      Kind(kind),
      Text{FieldBox(1), FieldBox(2), FieldBox(3), FieldBox(4), FieldBox(5)},
      FieldLabel{FieldCaption(1), FieldCaption(2), FieldCaption(3), FieldCaption(4), FieldCaption(5)},
      lblHeading("lblHeading", std::string(kind.Heading)),
      lblNote("lblNote", std::string(kind.Note)),
      Option1("Option1", RuleCaptions()),
      project_(project),
      dialogs_(dialogs) {
  for (std::size_t i = 0; i < Kind.Fields.size(); ++i) {
    FieldLabel[i].SetText(std::string(Kind.Fields[i].Label));
    Text[i].ToolTip = Kind.Fields[i].ToolTip;
    Controls.Add(FieldLabel[i]);
    Controls.Add(Text[i]);
  }
  Control* const plain[] = {&lblHeading, &lblNote,  &ListView1, &lblValue, &Text6,
                            &Command1,   &Command2, &Command3,  &cmdSave};
  for (Control* each : plain) Controls.Add(*each);
  Controls.Add(Option1);
  Wire();
}

void Form2::Wire() {
  for (std::size_t i = 0; i < Kind.Fields.size(); ++i) {
    if (Kind.Fields[i].Enter == EnterKey::Acts) Text[i].OnEnter = [this] { Save(); };
  }
  if (Kind.EnterInValue == EnterKey::Acts) Text6.OnEnter = [this] { AddRule(); };
  Command1.OnClick = [this] { AddRule(); };
  Command2.OnClick = [this] { DeleteRule(); };
  Command3.OnClick = [this] { Close(); };
  cmdSave.OnClick = [this] { Save(); };
}

void Form2::Load() {
  if (Kind.OfLinkingSite) {
    const LinkingSiteList& sites = project_.List1(project_.CurrentMainSite);
    const LinkingSite& site = sites.At(RowOf(project_.CurrentEditIndex));
    for (std::size_t i = 0; i < Kind.Fields.size(); ++i) Text[i].SetText(site.*kSiteFields[i]);
  } else if (Kind.OfMainSite) {
    Text[0].SetText(project_.List4.At(static_cast<std::size_t>(project_.CurrentEditIndex)).Text);
  }
  const std::string mainSite = RulesMainSite();
  const std::optional<std::string> remoteSite = RulesRemoteSite();
  for (std::size_t row = 0; row < project_.lstRules.RowCount(); ++row) {
    const Rule& rule = project_.lstRules.At(row);
    if (rule.MainSite == mainSite && rule.RemoteSite == remoteSite) ListView1.Add({rule});
  }
}

void Form2::AddRule() {
  const Running running(*this);  // a message box lets events run
  if (IsEmptyOrBlank(Text6.Text())) {
    dialogs_.Show({"Please enter a rule to add.", "Error"});
    return;
  }
  if (Option1.Chosen() < 0) return dialogs_.Say("Please select a rule type before adding a rule.");
  // The Website URL as it is typed now, saved or not.
  const std::string remoteSite = Kind.OfLinkingSite ? Text[0].Text() : std::string(kGlobal);
  const RuleKind& kind = kRuleKinds[static_cast<std::size_t>(Option1.Chosen())];
  ListView1.Add({{RulesMainSite(), remoteSite, std::string(kind.Word), Text6.Text()}});
  Text6.SetText("");
  Text6.SetFocus();
}

void Form2::DeleteRule() {
  if (ListView1.SelectedRow() >= 0) ListView1.Remove(static_cast<std::size_t>(ListView1.SelectedRow()));
}

void Form2::Save() {
  RemoveRules();
  WriteRecord();
  // Saved rules move to the end of the project's list and keep the site's name from before the edit, so
  // a renamed site loses its rules. The order of rules in saved project files depends on this.
  for (std::size_t row = 0; row < ListView1.RowCount(); ++row) project_.lstRules.Add(ListView1.At(row));
  project_.ProjectSaved = false;
  Close();
}

void Form2::RemoveRules() {
  const std::string mainSite = RulesMainSite();
  const std::optional<std::string> remoteSite = RulesRemoteSite();
  project_.lstRules.RemoveWhere(
      [&](const Rule& rule) { return rule.MainSite == mainSite && rule.RemoteSite == remoteSite; });
}

void Form2::WriteRecord() {
  if (Kind.OfLinkingSite) {
    LinkingSiteList& sites = project_.List1(project_.CurrentMainSite);
    const std::size_t row = RowOf(project_.CurrentEditIndex);
    for (std::size_t i = 0; i < Kind.Fields.size(); ++i) sites.Set(row, kSiteFields[i], Text[i].Text());
  } else if (Kind.OfMainSite) {
    const auto row = static_cast<std::size_t>(project_.CurrentEditIndex);
    project_.List4.Set(row, &MainSite::Text, Text[0].Text());
  }
}

std::string Form2::CurrentMainSiteText() const {
  const std::size_t row = RowOf(project_.CurrentMainSite);
  return row < project_.List4.RowCount() ? project_.List4.At(row).Text : std::string();
}

std::string Form2::RulesMainSite() const {
  return Kind.OfMainSite ? CurrentMainSiteText() : std::string(kGlobal);
}

std::optional<std::string> Form2::RulesRemoteSite() const {
  if (!Kind.OfLinkingSite) return std::string(kGlobal);
  if (project_.CurrentMainSite < 0 || project_.CurrentMainSite > project_.ListCount()) return std::nullopt;
  const LinkingSiteList& sites = project_.List1(project_.CurrentMainSite);
  const std::size_t row = RowOf(project_.CurrentEditIndex);
  if (row >= sites.RowCount()) return std::nullopt;
  return sites.At(row).WebsiteUrl;
}

void RegisterEditors(Windows& windows, Project& project, Dialogs& dialogs) {
  for (const EditorKind* kind : {&kForm2, &kForm2a, &kForm2b}) {
    windows.Register(std::string(kind->Name), [kind, &windows, &project, &dialogs] {
      return std::make_unique<Form2>(windows, *kind, project, dialogs);
    });
  }
}

void cmdEdit(Project& project, Windows& windows) {
  int number = 0;
  EndSilently([&] { number = project.List1(project.CurrentMainSite).SelectedRow() + 1; });
  // CurrentEditIndex cannot name a higher row, so such a row cannot be edited.
  if (number == 0 || number > std::numeric_limits<std::int16_t>::max()) return;
  project.CurrentEditIndex = static_cast<std::int16_t>(number);
  windows.Show(kForm2.Name);
}

void cmdEditMain(Project& project, Windows& windows) {
  const int row = project.List4.SelectedRow();
  if (row > std::numeric_limits<std::int16_t>::max()) return;
  project.CurrentEditIndex = static_cast<std::int16_t>(row);
  if (row >= 0) windows.Show(kForm2a.Name);
}

}  // namespace requite
