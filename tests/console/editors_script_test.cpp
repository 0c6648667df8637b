// SPDX-License-Identifier: MIT
// The editors and the options through a script: a rule's road into a project, an option's into a setting.
#include <gtest/gtest.h>

#include "console_rig.h"

namespace requite {
namespace {

using test::ConsoleRig;

TEST(EditorScript, RulesOfAllThreeScopesReachTheProject) {
  ConsoleRig rig;
  const char* const script =
      "set txtDomain main.example\nclick cmdAdd2\nset Text1 a.example\nclick cmdAdd\n"
      "select List1 1\nclick cmdEdit\ntitle Form2\nset Form2.Text2 2\nset Form2.Text6 one\n"
      "enter Form2.Text6\nclick Form2.Option1(1)\nenter Form2.Text6\nrows Form2.ListView1\n"
      "click Form2.cmdSave\nrows List1\n"
      "select List4 1\nclick cmdEditMain\nclick Form2a.Option1(2)\nset Form2a.Text6 two\n"
      "click Form2a.Command1\nset Form2a.Text1 renamed.example\nenter Form2a.Text1\nrows List4\n"
      "click Command9\nclick frmOptions.Command1\nclick Form2b.Option1(5)\nset Form2b.Text6 three\n"
      "enter Form2b.Text6\nclick Form2b.Command1\nwindows\nclick Form2b.cmdSave\nrows lstRules\nmessages\n";
  EXPECT_EQ(rig.Run(script), ExitStatus::Done) << rig.Err.str();
  EXPECT_EQ(rig.Out.str(),
            "Edit an entry\n"
            "main.example\ta.example\tExcludeDirectory\tone\n"
            "a.example\t2\t\t\t\n"
            "renamed.example\n"
            "Form1\nfrmOptions\nForm2b\n"
            "main.example\ta.example\tExcludeDirectory\tone\n"
            "main.example\tGlobal\tLimitString\ttwo\n"
            "Global\tGlobal\tExcludeRoot\tthree\n"
            "message\tRequite\tPlease select a rule type before adding a rule.\tok\n");
}

TEST(EditorScript, OptionsAreReachedByTheirNames) {
  ConsoleRig rig;
  const char* const script =
      "click Command9\ntitle frmOptions\nclick frmOptions.chkLog\nget chkLog\n"
      "type frmOptions.txtTimeout x\nprint frmOptions.txtTimeout\n"
      "choose frmOptions.cmbAdvance 2\nget cmbAdvance\nprint frmOptions.cmbAdvance\n"
      "set frmOptions.txtDomain htm\nclick frmOptions.cmdAdd2\nselect frmOptions.List1 1\n"
      "click frmOptions.cmdDelete\nrows frmOptions.List1\n"
      "tip frmOptions.Label7\nstate frmOptions.txtAutoSave\nprint frmOptions.Label5(1)\n"
      "print frmOptions.chkFileTypes\nclose frmOptions\nwindows\n";
  EXPECT_EQ(rig.Run(script), ExitStatus::Done) << rig.Err.str();
  EXPECT_EQ(rig.Out.str(),
            "Scanning Options\n1\n60\n2\n50\n.htm\n"
            "If the specified number of pages have been scaned the search will automatically skip to the "
            "next site.\n"
            "enabled hidden\nWebpage File Types:\n1\nForm1\n");
  EXPECT_EQ(ReadFile(rig.Folder.File("filetypes.txt")), ".htm\r\n");
}

}  // namespace
}  // namespace requite
