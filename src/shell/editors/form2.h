// SPDX-License-Identifier: MIT
// The editors of a Linking Site, of a Main Site and of the global rules: one window with three scopes.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "model/project.h"
#include "platform/controls.h"
#include "platform/services.h"
#include "shell/label.h"
#include "shell/program_window.h"

namespace requite {

/// A rule while it waits in an editor; the captions differ from those of the project's own list.
struct StagedRule : Rule {
  static constexpr std::array<Column<StagedRule>, 4> Columns() {
    return {{{"Main Site", &StagedRule::MainSite},
             {"Linking Site", &StagedRule::RemoteSite},
             {"Rule Type", &StagedRule::RuleType},
             {"Rule Value", &StagedRule::RuleValue}}};
  }
};

enum class EnterKey { Nothing, Acts };

/// One box of an editor's record.
struct EditorField {
  std::string_view Label;
  std::string_view ToolTip;
  EnterKey Enter;  ///< whether Enter in the box saves
};

/// In what the three editors differ.
struct EditorKind {
  std::string_view Name;
  std::string_view Title;
  std::string_view Heading;
  std::string_view Note;  ///< the small print under the heading, or nothing
  std::span<const EditorField> Fields;
  bool OfMainSite;        ///< its rules name the current Main Site, else "Global"
  bool OfLinkingSite;     ///< its rules name a Website URL, else "Global"
  EnterKey EnterInValue;  ///< whether Enter in the rule's value adds the rule
};

/// Each of them is shown by the same struct.
extern const EditorKind kForm2;
extern const EditorKind kForm2a;
extern const EditorKind kForm2b;

/// An editor. Rules are changed in its own list and reach the project when it is saved. What it edits
/// is looked up in the project as it loads and again as it saves: with the window left open, another
/// selection in the main window changes what a save writes to.
struct Form2 : ProgramWindow {
  static constexpr std::size_t kMostFields = 5;

  /// `kind`, `project` and `dialogs` must outlive the window.
  Form2(Windows& windows, const EditorKind& kind, Project& project, Dialogs& dialogs);
  /// Throws Subscript when the row to be edited does not exist.
  void Load() override;

  const EditorKind& Kind;
  /// Text1 and on; only the first Kind.Fields.size() of them belong to the window.
  std::array<TextBox, kMostFields> Text;
  std::array<Label, kMostFields> FieldLabel;
  Label lblHeading;
  Label lblNote;
  RecordList<StagedRule> ListView1{"ListView1"};
  OptionGroup Option1;  ///< by the index of its rule type; none is chosen at first
  Label lblValue{"lblValue", "Value:"};
  TextBox Text6{"Text6"};
  Button Command1{"Command1", "Add Rule"};
  Button Command2{"Command2", "Delete Rule"};
  Button Command3{"Command3", "Cancel"};
  Button cmdSave{"cmdSave", "Save"};

 private:
  void Wire();
  void AddRule();
  void DeleteRule();
  void Save();
  /// Throws Subscript when the row has gone.
  void WriteRecord();
  void RemoveRules();

  [[nodiscard]] std::string CurrentMainSiteText() const;
  /// What the rules on show carry in their fields; nothing when the edited row has gone.
  [[nodiscard]] std::string RulesMainSite() const;
  [[nodiscard]] std::optional<std::string> RulesRemoteSite() const;

  Project& project_;
  Dialogs& dialogs_;
};

/// Makes the three editors known to `windows`.
void RegisterEditors(Windows& windows, Project& project, Dialogs& dialogs);

/// Opens Form2 on the row chosen in the current list of Linking Sites. Without one, nothing happens.
void cmdEdit(Project& project, Windows& windows);
/// Opens Form2a on the Main Site that is selected. Without one, nothing happens.
void cmdEditMain(Project& project, Windows& windows);

}  // namespace requite
