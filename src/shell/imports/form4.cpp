// SPDX-License-Identifier: MIT
// How the import windows are built, filled and closed.
#include "shell/imports/form4.h"

#include <array>

#include "shell/windows.h"

namespace requite {
namespace {

constexpr const char* kAdvanced =
    "Advanced - Get links to scan directly from my database.  I have created a script at the following URL "
    "that outputs all domains separated by a delimiter.  For example: "
    "lighthouse.example,harbour.example,ferry.example,tide.example (no HTML)";

}  // namespace

Form4Controls::Form4Controls(const ImportVersion& version)
    : Option1(
          "Option1",
          {"Simple - Spider my link page at the following URL and add my links to be scanned:", kAdvanced},
          0),
      Label12("Label12", std::string(version.Label12)) {
  Frame1.Caption = "Scan my website for linking sites";
  Frame3.Caption = version.Frame3;
  Command1.ToolTip = version.Command1Tip;
  Command4.ToolTip = version.Command4Tip;
  cmdAdd.ToolTip = "Add the site you have entered above";
  cmdScriptAdd.ToolTip = "Add a new Script URL";
  cmdScriptDel.ToolTip = "Delete the selected script URL";
  cmdScriptDel.SetEnabled(false);  // a click on a row enables it
  PutInto(Frame1, {&Option1, &Text1, &Text2, &Combo1, &Command1, &ListView1, &cmdAdd});
  PutInto(Frame3, {&Label12, &Command4});
  PutInto(framePost, {&optScript, &txtPost, &cmbSites, &txtPost2, &cmdScriptAdd, &cmdScriptDel, &lstMulti,
                      &cmdPost, &cmdVariables, &cmdExample});
  framePost.SetVisible(false);
}

Form4::Form4(Windows& windows, const ImportVersion& version, ImportNeeds import, PostingNeeds posting)
    : ProgramWindow(windows, std::string(version.Name), std::string(version.Title)),
      Form4Controls(version),
      project_(import.Project),
      settings_(import.Settings),
      import_(version,
              {import.Project, import.State, import.Settings, import.Internet, import.EventLoop,
               import.Dialogs, import.Folder, [this] { return Closed(); }},
              {Option1, Text1, Text2, Combo1, Command1, ListView1, cmdAdd, Command4, StatusBar1}),
      post_({posting.List3, posting.Settings, posting.Internet, posting.EventLoop, posting.Dialogs,
             posting.Log, [this] { return Closed(); }},
            {optScript, txtPost, lstMulti, cmbSites, txtPost2, cmdScriptAdd, cmdScriptDel, cmdPost,
             cmdVariables, cmdExample, StatusBar1},
            [this] { Others.Show("Form4"); }) {
  import_.Wire();
  post_.Wire();
  txtPost.OnChange = [this] { settings_.SaveSetting(setting::getURL3, txtPost.Text()); };
  TabStrip1.OnClick = [this](int number) { ShowTab(number); };
  StayWhile({&Command1, &Command4, &cmdAdd, &cmdPost, &cmdVariables, &cmdExample});
  BuildIndex();
}

/// These actions let events run, so the window may be closed while they run.
void Form4::StayWhile(std::initializer_list<Button*> pressed) {
  for (Button* each : pressed) {
    each->OnClick = [this, act = each->OnClick] {
      const Running running(*this);
      act();
    };
  }
}

void Form4::BuildIndex() {
  for (Control* each : std::initializer_list<Control*>{
           &TabStrip1, &StatusBar1, &Frame1,       &Text1,     &Text2,        &Combo1,
           &Command1,  &ListView1,  &cmdAdd,       &Frame3,    &Label12,      &Command4,
           &framePost, &txtPost,    &cmbSites,     &txtPost2,  &cmdScriptAdd, &cmdScriptDel,
           &lstMulti,  &cmdPost,    &cmdVariables, &cmdExample}) {
    Controls.Add(*each);
  }
  Controls.Add(Option1);
  Controls.Add(optScript);
}

void Form4::Load() {
  for (std::size_t row = 0; row < project_.List4.RowCount(); ++row) {
    cmbSites.AddItem(project_.List4.At(row).Text);
  }
  if (!project_.List4.Empty()) cmbSites.SetListIndex(0);
  txtPost.SetText(settings_.GetSetting(setting::getURL3));
  import_.ReadSettings();
}

void Form4::Unload() {
  import_.Stop();
  post_.Stop();
}

void Form4::ShowTab(int number) {
  if (number < 1 || number > static_cast<int>(TabStrip1.Tabs.size())) return;
  Frame1.SetVisible(number == 1);
  Frame3.SetVisible(number == 1);
  framePost.SetVisible(number == 2);
}

void RegisterImports(Windows& windows, const ImportNeeds& import, const PostingNeeds& posting) {
  for (const ImportVersion* version : {&kImportLinkingSites, &kImportMainSites}) {
    windows.Register(std::string(version->Name), [&windows, version, import, posting] {
      return std::make_unique<Form4>(windows, *version, import, posting);
    });
  }
}

}  // namespace requite
