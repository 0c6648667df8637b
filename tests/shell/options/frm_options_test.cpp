// SPDX-License-Identifier: MIT
// The options: what is stored by opening them, by each change, and in the list of file types.
#include "shell/options/frm_options.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/runtime_failure.h"
#include "shell/main_window/form1_rig.h"

namespace requite {
namespace {

using test::Form1Rig;

class Options : public testing::Test {
 protected:
  frmOptions& Open() {
    rig_.Form.Command9.Click();
    return static_cast<frmOptions&>(*rig_.Form.Windows.Find("frmOptions"));
  }
  [[nodiscard]] std::string FileTypes() { return ReadFile(rig_.Folder.File("filetypes.txt")); }

  Form1Rig rig_;
};

TEST_F(Options, WhatIsStoredComesUpOrItsDefaultAndEachChangeIsStoredAtOnce) {
  rig_.Services.Store.Set("txtAutoSave", "7");
  rig_.Services.Store.Set("chkLog", "1");
  frmOptions& options = Open();
  EXPECT_EQ(options.txtTimeout.Text(), "60");
  EXPECT_EQ(rig_.Setting("txtTimeout"), "60") << "the default is stored by the opening";
  EXPECT_EQ(options.cmbAdvance.Text(), "500");
  EXPECT_EQ(options.txtAutoSave.Text(), "7");
  EXPECT_EQ(options.List1.At(0).Text, ".zip");
  EXPECT_EQ(rig_.Setting("chkSecure") + rig_.Setting("txtUserAgent"), "--") << "opening changes nothing";
  options.chkLog.Click();
  options.cmbAdvance.SetListIndex(12);
  options.chkSecure.Click();
  EXPECT_EQ(rig_.Setting("chkLog") + rig_.Setting("cmbAdvance") + rig_.Setting("chkSecure"), "0121");
}

TEST_F(Options, AStoredValueThatFitsNoControlFailsAtTheOpening) {
  const std::pair<const char*, const char*> bad[] = {
      {"cmbAdvance", "13"}, {"cmbAdvance", "-1"}, {"cmbAdvance", "x"}, {"chkLog", "yes"}};
  for (const auto& [key, value] : bad) {
    Form1Rig rig;
    rig.Services.Store.Set(key, value);
    EXPECT_THROW(rig.Form.Command9.Click(), RuntimeFailure) << key << value;
  }
}

TEST_F(Options, TheTimeoutIsCheckedAtEachCharacter) {
  frmOptions& options = Open();
  options.txtTimeout.UserSets("");
  EXPECT_EQ(rig_.Setting("txtTimeout"), "60");
  options.txtTimeout.UserTypes("4000");
  EXPECT_EQ(rig_.Setting("txtTimeout"), "4000");
  options.txtTimeout.UserTypes("0");
  EXPECT_EQ(options.txtTimeout.Text(), "60");
  EXPECT_EQ(rig_.Setting("txtTimeout"), "60");
  options.txtTimeout.UserSets("-3");
  EXPECT_EQ(rig_.Setting("txtTimeout"), "-3");
  options.txtTimeout.UserTypes("x");
  EXPECT_EQ(rig_.Setting("txtTimeout"), "60");
  options.txtTimeout.UserSets(std::string(100'000, '9'));
  EXPECT_EQ(options.txtTimeout.Text(), "60");
}

TEST_F(Options, TheAutoSaveBoxIsCheckedByTheTextOfTheOther) {
  frmOptions& options = Open();
  options.txtAutoSave.UserSets("often");
  EXPECT_EQ(rig_.Setting("txtAutoSave"), "often");
  options.txtTimeout.UserSets("");
  options.txtAutoSave.UserSets("9");
  EXPECT_EQ(options.txtAutoSave.Text(), "5");
  EXPECT_EQ(rig_.Setting("txtAutoSave"), "often");
}

TEST_F(Options, TheVisitorsNameIsStoredAtEachChangeWithoutControlCharacters) {
  rig_.Services.Store.Set("txtUserAgent", "old\r\nline");
  frmOptions& options = Open();
  EXPECT_EQ(options.txtUserAgent.Text() + rig_.Setting("txtUserAgent"), "oldlineoldline");
  options.txtUserAgent.UserSets("Visitor\tof\x7F\n");
  EXPECT_EQ(options.txtUserAgent.Text() + rig_.Setting("txtUserAgent"), "VisitorofVisitorof");
  options.txtUserAgent.UserSets("");
  EXPECT_EQ(rig_.Setting("txtUserAgent"), "");
}

TEST_F(Options, SitesAtATimeAreANumberFrom1To256) {
  frmOptions& options = Open();
  EXPECT_EQ(options.SitesAtATime.Text(), "1");
  EXPECT_FALSE(rig_.Services.Store.Read("SitesAtATime")) << "opening stores nothing";
  const std::pair<const char*, const char*> kRows[] = {
      {"16", "16"}, {"257", "256"}, {"0", "1"}, {"-5", "1"}, {"many", "1"}, {"99999", "1"}, {"256", "256"}};
  for (const auto& [typed, taken] : kRows) {
    options.SitesAtATime.UserSets(typed);
    EXPECT_EQ(options.SitesAtATime.Text(), taken) << typed;
    EXPECT_EQ(rig_.Setting("SitesAtATime"), taken) << typed;
  }
  options.SitesAtATime.UserSets("");
  EXPECT_EQ(rig_.Setting("SitesAtATime"), "256") << "an empty box is a box that is being edited";
}

TEST_F(Options, FileTypesGetTheirDotAndAreWrittenAtEachChange) {
  frmOptions& options = Open();
  EXPECT_FALSE(options.cmdAdd2.Enabled());
  options.txtDomain.UserPressesEnter();
  ASSERT_EQ(rig_.Services.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(rig_.Services.Dialogs.Boxes[0].Text, "Please enter a file extension first.");
  for (const char* typed : {"htm", "..php", "a...b", "page.x", " "}) {
    options.txtDomain.UserSets(typed);
    EXPECT_TRUE(options.cmdAdd2.Enabled());
    options.txtDomain.UserPressesEnter();
    EXPECT_FALSE(options.cmdAdd2.Enabled());
  }
  EXPECT_EQ(FileTypes(), ".zip\r\n.htm\r\n.php\r\na..b\r\npage.x\r\n. \r\n");
  EXPECT_FALSE(options.cmdDelete.Enabled());
  while (!options.List1.Empty()) {
    Form1Rig::ClickRow(options.List1, 0);
    options.cmdDelete.Click();
  }
  EXPECT_TRUE(options.cmdDelete.Enabled()) << "nothing disables it again";
  EXPECT_EQ(FileTypes(), "");
  options.List1.Add({"unsaved"});
  options.cmdDelete.Click();
  EXPECT_EQ(FileTypes(), "") << "without a chosen row nothing is saved";
}

TEST_F(Options, FileTypesAreListedFromAnyFileAndFailOnlyWhenTheyAreSaved) {
  const std::string file = rig_.Folder.File("filetypes.txt");
  WriteFile(file, std::string("\r\n \r\n.a|.b\n\0\xff\r\n  ", 17));
  frmOptions& options = Open();
  ASSERT_EQ(options.List1.RowCount(), 3U);
  EXPECT_EQ(options.List1.At(0).Text, ".a|.b");
  options.Close();
  DeleteFile(file);
  frmOptions& again = Open();
  EXPECT_TRUE(again.List1.Empty());
  std::filesystem::create_directory(file);
  again.txtDomain.UserSets(".htm");
  EXPECT_THROW(again.cmdAdd2.Click(), RuntimeFailure);
  EXPECT_EQ(again.List1.RowCount(), 1U);
}

}  // namespace
}  // namespace requite
