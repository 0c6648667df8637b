// SPDX-License-Identifier: MIT
// The store, its commands and the export, against a real file: whole, absent, damaged and locked.
#include <gtest/gtest.h>

#include "harvest/harvest_rig.h"
#include "shell/harvest_windows/frm_export.h"

namespace requite {
namespace {

using test::HarvestRig;

std::string After(bool (modDatabase::*operation)(std::string&), modDatabase& database, std::string text) {
  const bool result = (database.*operation)(text);
  return text + (result ? " True" : " False");
}

TEST(Database, AddWebsiteTakesTheSchemeAwayEverywhereAndAsksForNoDuplicate) {
  HarvestRig rig;
  modDatabase& database = rig.Form.Database;
  EXPECT_EQ(After(&modDatabase::AddWebsite, database, " HTTP://www.a.example/ "), "www.a.example/ True");
  EXPECT_EQ(After(&modDatabase::AddWebsite, database, "tp://a://b"), "ab True");
  EXPECT_EQ(After(&modDatabase::AddWebsite, database, "ab"), "ab True");
  EXPECT_EQ(rig.Sql("select * from websites"),
            "www.a.example/|2026-01-02 15:04:05;ab|2026-01-02 15:04:05;ab|2026-01-02 15:04:05;");
}

TEST(Database, AnAddressIsKnownInAnyCaseOfTheWholeCodePage) {
  HarvestRig rig;
  modDatabase& database = rig.Form.Database;
  EXPECT_TRUE(database.AddEmail("J\xC4GER\x8A@b.Example"));
  EXPECT_EQ(rig.Sql("select email from emails"), "J\xC3\x84GER\xC5\xA0@b.Example;") << "readable as UTF-8";
  EXPECT_EQ(After(&modDatabase::EmailExists, database, " j\xE4ger\x9A@B.example "),
            "j\xE4ger\x9A@B.example True");
  EXPECT_EQ(After(&modDatabase::EmailExists, database, "j\xE4ger\x9A@b.example."),
            "j\xE4ger\x9A@b.example True");
  EXPECT_EQ(After(&modDatabase::EmailExists, database, "other@b.example"), "other@b.example False");
  EXPECT_EQ(After(&modDatabase::EmailExists, database, "x' or '1'='1"), "x' or '1'='1 True")
      << "the text is pasted in";
  EXPECT_EQ(After(&modDatabase::EmailExists, database, "'; delete from emails; --"),
            "'; delete from emails; -- False");
  EXPECT_EQ(rig.Sql("select count(*) from emails"), "1;") << "but never more than one statement runs";
}

TEST(Database, AFieldHolds255Characters) {
  HarvestRig rig;
  modDatabase& database = rig.Form.Database;
  EXPECT_TRUE(database.AddEmail(std::string(255, '\xE4')));
  EXPECT_FALSE(database.AddEmail(std::string(256, 'a')));
  EXPECT_FALSE(database.AddEmail('a' + std::string(300, '\0')));
  std::string tooLong(256, 'a');
  EXPECT_TRUE(database.AddWebsite(tooLong));
  EXPECT_EQ(rig.Sql("select (select count(*) from emails), (select count(*) from websites)"), "1|0;");
  EXPECT_NE(rig.Sql("insert into emails values ('" + std::string(256, 'a') + "', '')").find("CHECK"),
            std::string::npos)
      << "whoever writes";
}

TEST(Database, DeletesResetTheCountersThatOnceBelongedToThem) {
  HarvestRig rig;
  rig.Form.Database.AddEmail("a@b.c");
  std::string url = "a.example";
  rig.Form.Database.AddWebsite(url);
  for (const Counted kind : {Counted::PageScanned, Counted::PageFound, Counted::LinkFound}) {
    rig.Form.UpdateStats(kind);
  }
  rig.Form.Lists.List2.Add({"a"});
  EXPECT_TRUE(rig.Form.Database.DeleteAllEmails());
  EXPECT_EQ(rig.Form.Figures.LinksFound, 0);
  EXPECT_EQ(rig.Form.Figures.PagesFound, 1);
  EXPECT_TRUE(rig.Form.Database.DeleteAllWebsites());
  EXPECT_EQ(rig.Form.Figures.PagesFound, 0);
  EXPECT_EQ(rig.Form.Figures.PagesScanned, 0);
  EXPECT_TRUE(rig.Form.Lists.List2.Empty());
  EXPECT_EQ(rig.Sql("select * from emails union all select * from websites"), "");
}

/// What is left of a rig whose database fails in some way.
void ExpectEachOperationFailsInItsOwnWay(HarvestRig& rig) {
  modDatabase& database = rig.Form.Database;
  rig.Form.UpdateStats(Counted::PageFound);
  rig.Form.UpdateStats(Counted::LinkFound);
  rig.Form.Lists.List2.Add({"a"});
  EXPECT_EQ(After(&modDatabase::AddWebsite, database, "http://a"), "a True");
  EXPECT_TRUE(database.DeleteAllEmails());
  EXPECT_EQ(rig.Form.Figures.LinksFound, 0);
  EXPECT_FALSE(database.AddEmail("a@b.c"));
  EXPECT_THROW(database.DeleteAllWebsites(), RuntimeFailure);
  EXPECT_EQ(rig.Form.Figures.PagesFound, 1);
  EXPECT_EQ(rig.Form.Lists.List2.RowCount(), 1U);
}

TEST(Database, AnAbsentADamagedAndALockedFileFailAsEachOperationSays) {
  HarvestRig absent;
  DeleteFile(absent.Database());
  ExpectEachOperationFailsInItsOwnWay(absent);
  EXPECT_EQ(After(&modDatabase::EmailExists, absent.Form.Database, "a@b.c."), "a@b.c False");
  EXPECT_FALSE(FileExists(absent.Database())) << "it is never made here";

  HarvestRig damaged;
  WriteFile(damaged.Database(), std::string(5000, 'x'));
  ExpectEachOperationFailsInItsOwnWay(damaged);
  EXPECT_EQ(ReadFile(damaged.Database()), std::string(5000, 'x'));

  HarvestRig locked;
  sqlite3* other = nullptr;
  sqlite3_open(locked.Database().c_str(), &other);
  sqlite3_exec(other, "begin exclusive", nullptr, nullptr, nullptr);
  ExpectEachOperationFailsInItsOwnWay(locked);
  sqlite3_close(other);

  HarvestRig unwritable;  // no journal can be made in the folder
  std::filesystem::create_directory(unwritable.Database() + "-journal");
  ExpectEachOperationFailsInItsOwnWay(unwritable);
}

TEST(DatabaseCommands, DeleteAllEmailsAsksAndEmptiesTheResultsToo) {
  HarvestRig rig;
  rig.Form.Database.AddEmail("a@b.c");
  rig.Form.Sites.List3.Add({"main", "site", "Direct Link", "001", "url"});
  rig.Services.Dialogs.Answers = {Answer::Cancel, Answer::Ok};
  rig.Form.Command3.Click();
  EXPECT_EQ(rig.Sql("select email from emails"), "a@b.c;");
  rig.Form.Command3.Click();
  EXPECT_EQ(rig.Sql("select email from emails"), "");
  EXPECT_TRUE(rig.Form.Sites.List3.Empty());
  EXPECT_EQ(rig.Services.Dialogs.Boxes.back().Title, "Confirm");
  rig.Form.cmdViewDatabase.Click();
  EXPECT_EQ(rig.Services.Shell.Opened.back(), rig.Folder.Folder.Path);
}

frmExport& OpenExport(HarvestRig& rig) {
  rig.Form.Command2.Click();
  return *static_cast<frmExport*>(rig.Form.Windows.Find("frmExport"));
}

TEST(EmailExport, WritesEachAddressWithADelimiterBehindIt) {
  HarvestRig rig;
  rig.Form.Database.AddEmail("a@b.c");
  rig.Form.Database.AddEmail("\xE4@b.c");
  const std::string file = rig.Folder.File("out.txt");
  const auto exported = [&](int position, int space) {
    frmExport& window = OpenExport(rig);
    if (position >= 0) window.Combo1.SetListIndex(position);
    window.Check2.SetValue(space);
    rig.Services.Dialogs.Names.push_back(file);
    window.Command1.Click();
    EXPECT_EQ(rig.Form.Windows.Find("frmExport"), nullptr);
    return ReadFile(file);
  };
  EXPECT_EQ(exported(-1, 0), "a@b.c;\xE4@b.c;\r\n");
  EXPECT_EQ(exported(0, 1), "a@b.c; \xE4@b.c; \r\n");
  EXPECT_EQ(exported(1, 1), "a@b.c\t\xE4@b.c\t\r\n");
  EXPECT_EQ(exported(2, 1), "a@b.c\r\n\xE4@b.c\r\n\r\n");
  EXPECT_EQ(rig.Services.Dialogs.FileDialogs[0].DefaultName, "export.txt");
  EXPECT_EQ(OpenExport(rig).Combo1.Text(), "Semi-Colon delimited (;)") << "no choice is remembered";
}

TEST(EmailExport, EmptiesTheTableBeforeItAsksAndTheResultsOnYesOnly) {
  HarvestRig rig;
  rig.Form.Sites.List3.Add({"main", "site", "Direct Link", "001", "url"});
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    rig.Form.Database.AddEmail("a@b.c");
    frmExport& window = OpenExport(rig);
    window.Check1.SetValue(1);
    rig.Services.Dialogs.Answers = {answer};
    window.Command1.Click();
    EXPECT_EQ(ReadFile(rig.Folder.File("export.txt")), "a@b.c;\r\n")
        << "the name that a cancelled dialog holds";
    EXPECT_EQ(rig.Sql("select * from emails"), "");
    EXPECT_EQ(rig.Form.Sites.List3.RowCount(), answer == Answer::No ? 1U : 0U);
  }
}

}  // namespace
}  // namespace requite
