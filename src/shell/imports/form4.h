// SPDX-License-Identifier: MIT
// The windows that fill the site lists: one for Linking Sites, one for Main Sites.
#pragma once

#include "import/import_links.h"
#include "posting/posting.h"
#include "shell/label.h"
#include "shell/program_window.h"

namespace requite {

/// The controls of an import window as they are before it is loaded.
struct Form4Controls {
  explicit Form4Controls(const ImportVersion& version);

  TabStrip TabStrip1{"TabStrip1", {{"Get Links", ""}, {"Post Links", ""}}};
  StatusBar StatusBar1{"StatusBar1"};

  // "Get Links"
  Frame Frame1{"Frame1"};
  OptionGroup Option1;
  TextBox Text1{"Text1"};
  TextBox Text2{"Text2"};
  ComboBox Combo1{"Combo1",
                  std::string(kNoDelimiter),
                  {"Vertical Bar Symbol", "Percent Symbol", "Comma", "Exclamation Point"}};
  Button Command1{"Command1", "Get Links"};
  RecordList<FoundLink> ListView1{"ListView1"};
  Button cmdAdd{"cmdAdd", "Add Selected Links to My Link List"};
  Frame Frame3{"Frame3"};
  Label Label12;
  Button Command4{"Command4", "Import"};

  // "Post Links"
  Frame framePost{"framePost"};
  OptionGroup optScript{
      "optScript",
      {"Post results to one URL only:", "Post results to a different URL for each Main Site:"},
      0};
  TextBox txtPost{"txtPost"};
  ComboBox cmbSites{"cmbSites", "Select"};
  TextBox txtPost2{"txtPost2", "http://"};
  Button cmdScriptAdd{"cmdScriptAdd", "Add"};
  Button cmdScriptDel{"cmdScriptDel", "Del"};
  RecordList<ScriptUrlEntry> lstMulti{"lstMulti"};
  Button cmdPost{"cmdPost", "Post Links Now"};
  Button cmdVariables{"cmdVariables", "View URL Variables"};
  Button cmdExample{"cmdExample", "View Example"};
};

/// The window "Form4" or "Form4a", depending on the version. Only the settings, which both share, last from
/// one opening to the next.
struct Form4 : ProgramWindow, Form4Controls {
  /// `import` and `posting` are those of the main window, except that `Ended` is about this window.
  Form4(Windows& windows, const ImportVersion& version, ImportNeeds import, PostingNeeds posting);

  /// Fills cmbSites from the Main Sites and puts the settings into the controls.
  void Load() override;
  void Unload() override;
  /// The click of the tab strip. Does nothing for a number other than 1 and 2.
  void ShowTab(int number);
  [[nodiscard]] Posting& Post() { return post_; }

 private:
  void BuildIndex();
  void StayWhile(std::initializer_list<Button*> pressed);

  const Project& project_;
  requite::Settings settings_;
  ImportLinks import_;
  ImportPosting post_;
};

/// Registers "Form4" and "Form4a".
void RegisterImports(Windows& windows, const ImportNeeds& import, const PostingNeeds& posting);

}  // namespace requite
