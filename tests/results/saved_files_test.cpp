// SPDX-License-Identifier: MIT
// Save Report As and Save Tab Delimited, by every road through their dialogs.
#include "results/saved_files.h"

#include <gtest/gtest.h>

#include <array>

#include "shell/main_window/form1_rig.h"

namespace requite::test {
namespace {

const std::string kHeader = "Main\tLinking\tStatus\tNo.\tLink URL\r\n\r\n";

struct SaveRig : Form1Rig {
  SaveRig() { WriteFile(Folder.File("tempreport.html"), "report"); }
  std::string Text(std::string_view name) {
    return FileExists(Folder.File(name)) ? ReadFile(Folder.File(name)) : "none";
  }
};

TEST(TabDelimited, HoldsTheRowsInTheOrderOfTheViewWithoutQuoting) {
  RecordList<LinkResult> list("List3");
  EXPECT_EQ(TabDelimitedText(list), kHeader + "\r\n");
  list.Add({"m", "a", "Direct Link", "001", "a/\tx"});
  list.Add({"m", "b", "None Found (Timeout)", "000", "b"});
  list.SetSort({true, 1, 1});
  EXPECT_EQ(TabDelimitedText(list),
            kHeader + "m\tb\tNone Found (Timeout)\t000\tb\r\nm\ta\tDirect Link\t001\ta/\tx\r\n\r\n");
}

TEST(SavedFiles, ACancelledDialogWritesNothing) {
  SaveRig rig;
  for (const char* name : {"", " "}) {
    rig.Services.Dialogs.Names = {name, name};
    rig.Form.Command8.Click();
    rig.Form.Command8a.Click();
  }
  EXPECT_TRUE(rig.Services.Dialogs.Boxes.empty());
  ASSERT_EQ(rig.Services.Dialogs.FileDialogs.size(), 4U);
  EXPECT_EQ(rig.Services.Dialogs.FileDialogs[0].Filter, "HTML Files (*.htm, *.html)|*.htm,*.html");
  EXPECT_EQ(rig.Services.Dialogs.FileDialogs[1].Filter, "TAB Files (*.tab)|*.tab");
  EXPECT_EQ(rig.Services.Dialogs.FileDialogs[1].DefaultName, "");
}

TEST(SavedFiles, AnExtensionAnywhereInTheNameIsEnough) {
  const std::array<std::string, 3> rows[] = {{"a", "a.htm", "report"},
                                             {"b.html", "b.html", "report"},
                                             {"C.HTM", "C.HTM", "report"},
                                             {"d.htm.old", "d.htm.old", "report"},
                                             {"a", "a.tab", kHeader + "\r\n"},
                                             {"B.TAB", "B.TAB", kHeader + "\r\n"},
                                             {"c.tab.1", "c.tab.1", kHeader + "\r\n"}};
  for (const auto& [typed, written, text] : rows) {
    SaveRig rig;
    rig.Services.Dialogs.Names = {rig.Folder.File(typed)};
    text == "report" ? rig.Form.Command8.Click() : rig.Form.Command8a.Click();
    EXPECT_EQ(rig.Text(written), text) << typed;
  }
}

TEST(SavedFiles, AnExistingFileIsReplacedOnlyAfterOk) {
  SaveRig rig;
  const auto press = [&](const char* name, Answer answer, bool tab) {
    WriteFile(rig.Folder.File(name), "old, and longer than the new one would ever become by itself");
    rig.Services.Dialogs.Names = {rig.Folder.File(name)};
    rig.Services.Dialogs.Answers = {answer};
    tab ? rig.Form.Command8a.Click() : rig.Form.Command8.Click();
    EXPECT_EQ(rig.Services.Dialogs.Boxes.back().Text,
              "File already exists.  Are you sure you want to overwrite it?");
    EXPECT_EQ(rig.Services.Dialogs.Boxes.back().Choice, Buttons::OkCancel);
    return rig.Text(name).substr(0, 6);
  };
  EXPECT_EQ(press("r.htm", Answer::Cancel, false), "old, a");
  EXPECT_EQ(press("r.htm", Answer::Ok, false), "report");
  EXPECT_EQ(press("t.tab", Answer::Cancel, true), "old, a");
  EXPECT_EQ(press("t.tab", Answer::Ok, true), "Main\tL");
}

TEST(SavedFiles, ANameWithoutExtensionOverwritesOrAppendsWithoutAsking) {
  SaveRig rig;
  WriteFile(rig.Folder.File("r.htm"), "old");
  WriteFile(rig.Folder.File("t.tab"), "old");
  rig.Services.Dialogs.Names = {rig.Folder.File("r"), rig.Folder.File("t")};
  rig.Form.Command8.Click();
  rig.Form.Command8a.Click();
  EXPECT_TRUE(rig.Services.Dialogs.Boxes.empty());
  EXPECT_EQ(rig.Text("r.htm"), "report");
  EXPECT_EQ(rig.Text("t.tab"), "old" + kHeader + "\r\n");
}

TEST(SavedFiles, WithoutAReportTheOldFileIsGoneAndNothingIsSaid) {
  SaveRig rig;
  DeleteFile(rig.Folder.File("tempreport.html"));
  WriteFile(rig.Folder.File("r.htm"), "old");
  rig.Services.Dialogs.Names = {rig.Folder.File("r.htm")};
  rig.Form.Command8.Click();
  EXPECT_EQ(rig.Text("r.htm"), "none");
  EXPECT_EQ(rig.Services.Dialogs.Boxes.size(), 1U);  // the question alone
}

TEST(SavedFiles, AFailureOfTheTabFileEndsInAMessage) {
  SaveRig rig;
  rig.Services.Dialogs.Names = {rig.Folder.File("nowhere/t.tab")};
  rig.Form.Command8a.Click();
  ASSERT_EQ(rig.Services.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(rig.Services.Dialogs.Boxes[0].Text, "Error: 76 - Path not found");
  EXPECT_EQ(rig.Services.Dialogs.Boxes[0].Title, "");
}

}  // namespace
}  // namespace requite::test
