// SPDX-License-Identifier: MIT
// The editors of a Linking Site, a Main Site and the global rules: one window in three versions.
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

/// A rule in an editor that is not saved yet. The captions differ from those of the project's list.
struct StagedRule : Rule {
  static constexpr std::array<Column<StagedRule>, 4> Columns() {
    return {{{"Main Site", &StagedRule::MainSite},
             {"Linking Site", &StagedRule::RemoteSite},
             {"Rule Type", &StagedRule::RuleType},
             {"Rule Value", &StagedRule::RuleValue}}};
  }
};

enum class EnterKey { Nothing, Acts };

/// A text box for one field of the edited record.
struct EditorField {
  std::string_view Label;
  std::string_view ToolTip;
  EnterKey Enter;  ///< whether Enter in the box saves
};

/// The differences between the three editors.
struct EditorKind {
  std::string_view Name;
  std::string_view Title;
  std::string_view Heading;
  std::string_view Note;  ///< the small print under the heading; may be empty
  std::span<const EditorField> Fields;
  bool OfMainSite;        ///< its rules name the current Main Site, else "Global"
  bool OfLinkingSite;     ///< its rules name a Website URL, else "Global"
  EnterKey EnterInValue;  ///< whether Enter in the rule's value adds the rule
};

extern const EditorKind kForm2;
extern const EditorKind kForm2a;
extern const EditorKind kForm2b;

/// An editor. It changes rules in a list of its own and copies them to the project when it is saved. It
/// looks up what it edits when it loads and again when it saves: while the window is open, another
/// selection in the main window changes where a save writes to.
struct Form2 : ProgramWindow {
  static constexpr std::size_t kMostFields = 5;

  /// `kind`, `project` and `dialogs` must outlive the window.
  Form2(Windows& windows, const EditorKind& kind, Project& project, Dialogs& dialogs);
  /// Throws Subscript when the row to be edited does not exist.
  void Load() override;

  const EditorKind& Kind;
  /// Text1, Text2 and so on. The window has only the first Kind.Fields.size() of them.
  std::array<TextBox, kMostFields> Text;
  std::array<Label, kMostFields> FieldLabel;
  Label lblHeading;
  Label lblNote;
  RecordList<StagedRule> ListView1{"ListView1"};
  OptionGroup Option1;  ///< the rule types, by index; none is chosen at first
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
  /// Throws Subscript when the edited row no longer exists.
  void WriteRecord();
  void RemoveRules();

  [[nodiscard]] std::string CurrentMainSiteText() const;
  /// The site fields of the listed rules; no value when the edited row no longer exists.
  [[nodiscard]] std::string RulesMainSite() const;
  [[nodiscard]] std::optional<std::string> RulesRemoteSite() const;

  Project& project_;
  Dialogs& dialogs_;
};

/// Registers the three editors.
void RegisterEditors(Windows& windows, Project& project, Dialogs& dialogs);

/// Opens Form2 for the row selected in the current list of Linking Sites; does nothing without one.
void cmdEdit(Project& project, Windows& windows);
/// Opens Form2a for the selected Main Site; does nothing without one.
void cmdEditMain(Project& project, Windows& windows);

}  // namespace requite
