// SPDX-License-Identifier: MIT
// The window of changes: what it says when there is nothing to list, and what its list, filter and buttons
// do.
#include <gtest/gtest.h>

#include "history/recorded_scans.h"
#include "shell/changes/frm_changes.h"

namespace requite::test {
namespace {

struct ChangesWindow : RecordedScans {
  explicit ChangesWindow(const char* history = "1") : RecordedScans(history) {
    AddSites("main.example", {"stays.example/1", "goes.example/1", "short.example/1", "comes.example/1"});
    Linking = {"stays.example/1", "goes.example/1"};
  }
  frmChanges& Open() {
    Form.Windows.Show("frmChanges");
    return static_cast<frmChanges&>(*Form.Windows.Find("frmChanges"));
  }
  /// One is lost, one is new, one is missing as before.
  void ScanTwice() {
    Save();
    Scan();
    Linking = {"stays.example/1", "comes.example/1"};
    Scan();
  }
};

std::string Rows(const frmChanges& window) {
  std::string rows;
  for (std::size_t row = 0; row < window.lstChanges.RowCount(); ++row) {
    const ChangeLine& line = window.lstChanges.At(row);
    rows += (rows.empty() ? "" : "; ") + line.Change + " " + line.Linking;
  }
  return rows;
}

void Select(frmChanges& window, int row) {
  window.lstChanges.SelectOnly(row);
  window.lstChanges.OnItemClick(row);
}

TEST(ChangesWindow, SaysWhatIsMissingUntilThereAreTwoScans) {
  ChangesWindow rig("0");
  frmChanges& window = rig.Open();
  EXPECT_NE(window.lblState.Text().find("Switch on \"Keep a history of scans\""), std::string::npos);
  EXPECT_TRUE(window.cmdOptions.Visible());
  rig.Form.Settings.SaveSetting(setting::chkHistory, "1");
  window.cmdRefresh.Click();
  EXPECT_NE(window.lblState.Text().find("has not been saved"), std::string::npos);
  EXPECT_FALSE(window.cmdOptions.Visible());
  rig.Save();
  window.cmdRefresh.Click();
  EXPECT_NE(window.lblState.Text().find("No scan of this project"), std::string::npos);
  rig.Scan();
  EXPECT_NE(window.lblState.Text().find("One scan is recorded"), std::string::npos) << "read after the scan";
  for (const Button* each : {&window.cmdOpenPage, &window.cmdCopy, &window.cmdKnown, &window.cmdTakeBack})
    EXPECT_FALSE(each->Enabled()) << each->Name();

  WriteFile(rig.Folder.File(kHistoryFile), std::string(5000, 'x'));
  window.cmdRefresh.Click();
  EXPECT_EQ(window.lblState.Text().find("History.db is damaged."), 0U) << window.lblState.Text();
}

TEST(ChangesWindow, ListsFiltersAndSortsTheChanges) {
  ChangesWindow rig;
  rig.ScanTwice();
  EXPECT_EQ(rig.Form.Changed->Headline(), "1 link lost, 1 new, 1 still missing");
  frmChanges& window = rig.Open();
  EXPECT_EQ(window.picPast.Site(), "goes.example") << "the first row is selected";
  EXPECT_EQ(Rows(window), "lost goes.example; new comes.example; still missing short.example");
  EXPECT_EQ(window.lblState.Text().find("1 lost, 1 new, 1 still missing."), 0U) << window.lblState.Text();
  EXPECT_EQ(window.lstChanges.Colour(0), kRed);
  EXPECT_EQ(window.lstChanges.Icon(1), kIconGood);
  EXPECT_EQ(window.cmbFilter.Text(), "All changes (3)");
  EXPECT_EQ(window.cmbFilter.Items().back(), "Marked as known (0)");
  window.lstChanges.OnColumnClick(2);
  EXPECT_EQ(Rows(window), "new comes.example; lost goes.example; still missing short.example");
  window.lstChanges.OnColumnClick(2);
  Select(window, 1);
  ASSERT_EQ(window.picPast.Results().size(), 2U);
  EXPECT_EQ(window.picPast.Site(), "goes.example");
  EXPECT_EQ(window.picPast.Results().front().Found, 1);
  EXPECT_EQ(window.picPast.Results().back().State, SiteState::None);
  window.cmbFilter.SetListIndex(1);
  EXPECT_EQ(Rows(window), "lost goes.example");
  EXPECT_EQ(window.lstChanges.SelectedRow(), 0) << "the selection follows its site";
  window.cmdOpenPage.Click();
  EXPECT_EQ(rig.Services.Shell.Opened.back(), "goes.example/1") << "where the link was";
  rig.Linking.insert("goes.example/1");
  rig.Scan();
  EXPECT_EQ(Rows(window), "") << "the filter stays";
  window.cmbFilter.SetListIndex(0);
  EXPECT_EQ(Rows(window), "still missing short.example; found again goes.example") << "so does the sort";
}

TEST(ChangesWindow, AKnownSiteIsNotToldUntilItsMarkIsTakenBack) {
  ChangesWindow rig;
  rig.ScanTwice();
  frmChanges& window = rig.Open();
  Select(window, 1);
  EXPECT_FALSE(window.cmdKnown.Enabled()) << "it links back";
  Select(window, 0);
  window.txtWhy.UserTypes("moves");
  window.txtWhy.UserPressesEnter();
  EXPECT_EQ(Rows(window), "new comes.example; still missing short.example");
  EXPECT_EQ(window.txtWhy.Text() + window.picPast.Site(), "comes.example") << "the next row is selected";
  window.cmbFilter.SetListIndex(static_cast<int>(window.cmbFilter.Items().size()) - 1);
  ASSERT_EQ(Rows(window), "lost goes.example");
  EXPECT_NE(window.lstChanges.At(0).Now.find("known: moves"), std::string::npos);
  Select(window, 0);
  ASSERT_TRUE(window.cmdTakeBack.Enabled());
  window.cmdTakeBack.Click();
  EXPECT_EQ(Rows(window), "");
  EXPECT_EQ(window.cmbFilter.Items().front(), "All changes (3)");
}

TEST(ChangesWindow, HostileTextsStayOneCellInTheCopyAndInTheTable) {
  ChangesWindow rig;
  rig.ScanTwice();
  {
    HistoryFile history(rig.Folder.Folder, SqliteStore::Open::ToWrite);
    history.Store().Run("UPDATE site SET host = '=cmd\"' || char(9, 10) || 'x' WHERE host = 'goes.example'");
  }
  frmChanges& window = rig.Open();
  Select(window, 0);
  window.cmdCopy.Click();
  EXPECT_EQ(rig.Services.Clipboard.Text.find("Change\tMain Site\tLinking Site\t"), 0U);
  EXPECT_NE(rig.Services.Clipboard.Text.find("\r\nlost\tmain.example\t=cmd\"  x\t1 link"), std::string::npos);
  EXPECT_EQ(rig.Services.Clipboard.Text.find("comes.example"), std::string::npos) << "not selected";
  rig.Services.Dialogs.Names = {rig.Folder.File("c.csv")};
  window.cmdSaveCsv.Click();
  const std::string csv = ReadFile(rig.Folder.File("c.csv"));
  EXPECT_NE(csv.find("\r\nlost,main.example,\"'=cmd\"\"\t\nx\","), std::string::npos) << csv;
  EXPECT_NE(csv.find("\r\nnew,main.example,comes.example,"), std::string::npos) << csv;
  rig.Services.Dialogs.Names = {rig.Folder.File("none/c.csv")};
  window.cmdSaveCsv.Click();
  EXPECT_EQ(rig.Services.Dialogs.Boxes.size(), 1U) << "a failure is told";
}

}  // namespace
}  // namespace requite::test
