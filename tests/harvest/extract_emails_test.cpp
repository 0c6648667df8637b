// SPDX-License-Identifier: MIT
// Addresses out of saved pages, and the reading of lines against its plain form.
#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "harvest/harvest_rig.h"
#include "support/email_collector.h"

namespace requite {
namespace {

using test::HarvestRig;

TEST(EmailLine, IsReadAsItsPlainWordingSays) {
  std::mt19937 random(7);
  const std::vector<std::string> pieces =
      Split("@|a|b1|.|-| |;|&|,|\"|%40|%20|&lt;|&rt;|a.b@|ab@c|\n|mailto:|0123456789012345678901234567", "|");
  for (int run = 0; run < 1500; ++run) {
    // Some lines use few of the pieces, so that much of them repeats.
    const std::size_t kinds = 1 + random() % std::size(pieces);
    const std::size_t first = random() % std::size(pieces);
    std::string line;
    for (std::size_t left = random() % 60; left > 0; --left) {
      line += pieces[(first + random() % kinds) % std::size(pieces)];
    }
    ASSERT_TRUE(test::EmailCollector(line).AllRight) << line;
  }
  // Hundreds of "@", most with something of their own before them: tables of them are made then.
  const std::vector<std::string> ends = Split("@|@x.org |@a.b|@ |@1.|@.-;a", "|");
  for (int run = 0; run < 140; ++run) {
    std::string line;
    const unsigned names = 3 + static_cast<unsigned>(run) * 3;
    const std::size_t style = static_cast<std::size_t>(run) % (ends.size() + 1);
    for (int i = 0; i < 120; ++i) {
      const std::string& end = ends[style < ends.size() ? style : random() % ends.size()];
      line +=
          (run % 3 == 0 ? "," : "") + std::string(random() % 4, 'x') + std::to_string(random() % names) + end;
    }
    ASSERT_TRUE(test::EmailCollector(line).AllRight) << line;
  }
}

/// Many "@" without a stop character before the end; few of them, most near the end, are in an address.
std::string LineWithoutStops(std::mt19937& random) {
  const std::vector<std::string> names = Split("|x|-|_|w|aw|b|\n-|,|y.|www.|.", "|");
  const std::vector<std::string> ends = Split("a.b|.c|@|_|-|..|9@z.a|www.|1@|-.-d|@e|3.4@|\n.|f_.g", "|");
  const std::size_t many = 3 + random() % 500;
  const std::size_t kinds = 1 + random() % 10;
  const std::size_t few = random() % 2 ? 200 : 20;
  std::string line;
  for (std::size_t left = 30 + random() % 100; left > 0; --left) {
    line += names[random() % few == 0 ? random() % names.size() : random() % std::min<std::size_t>(kinds, 7)];
    line += std::to_string(random() % many) + (random() % 50 == 0 ? std::string(45, 'l') : "") + "@";
  }
  for (std::size_t left = random() % 12; left > 0; --left) line += ends[random() % ends.size()];
  return line + (random() % 3 == 0 ? "k@l.m" : "") +
         std::string(random() % 4 == 0 ? 1 : 0, "&, ;"[random() % 4]);
}

TEST(EmailLine, WithoutStopsIsReadAsItsPlainWordingSays) {
  std::mt19937 random(11);
  int longAddresses = 0;
  for (int run = 0; run < 500; ++run) {
    const std::string line = LineWithoutStops(random);
    const test::EmailCollector found(line);
    ASSERT_TRUE(found.AllRight) << line;
    longAddresses += found.LongAddresses;
  }
  EXPECT_GT(longAddresses, 500);
}

TEST(EmailLine, OfManyAtsIsNotReadQuadratically) {
  constexpr int kMany = 100'000;
  HarvestRig rig;
  DeleteFile(rig.Database());
  std::string same;
  std::string spaced;
  std::string joined;
  std::string dotted;
  std::string repeated;  // what is removed is repeated further on
  for (int i = 0; i < kMany; ++i) {
    const std::string number = std::to_string(kMany + i);
    same += "a@";
    spaced += number + "@x\xE4.org ";
    joined += number + "@";
    dotted += number + ".x@";
    repeated += "u" + std::to_string(i) + "@x\xE4.org ";
  }
  for (const std::string& line :
       {std::string(kMany, '@'), same, spaced, joined, dotted, repeated, joined + "joe@site.example"}) {
    const auto begin = std::chrono::steady_clock::now();
    rig.ExtractEmails(line);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(30)) << line.substr(0, 40);
  }
}

TEST(ExtractEmails, StoresCountsAndAnnouncesEachNewAddress) {
  HarvestRig rig;
  const std::string far(60, '.');
  WriteFile(rig.Folder.File("filetypes.txt"), "");
  std::filesystem::create_directories(rig.Folder.File("sounds"));
  rig.ExtractEmails("near@lost.example " + far + "<a href=\"mailto:joe-x@site.example\">" + far +
                    " ann@nodot " + far + " JOEX@site.example; " + far + " bob@two.example.");
  EXPECT_EQ(rig.Sql("select * from emails"),
            "joex@site.example|2026-01-02 15:04:05;bob@two.example|2026-01-02 15:04:05;");
  EXPECT_EQ(rig.Sql("select website from websites"), "site.example/;two.example./;");
  EXPECT_EQ(rig.Form.Figures.LinksFound, 2);
  EXPECT_EQ(rig.Form.Figures.PagesFound, 2);
  EXPECT_EQ(rig.Services.Sounds.Played.front(), "foundemail.wav");
}

TEST(ExtractEmails, GoesOnWithTheScanWhateverFails) {
  HarvestRig rig;
  DeleteFile(rig.Database());
  rig.Form.Lists.List2.Add({"next.example"});
  rig.ExtractEmails(std::string(60, ' ') + "a.b@c.example ");
  EXPECT_EQ(rig.Services.Connection.Host, "next.example");
  EXPECT_EQ(rig.Form.State.LinksOnSite, 1);
  EXPECT_EQ(rig.Form.State.PagesQueued, 1);
  EXPECT_EQ(rig.Form.StatusBar1.Panel(2), "Page 1 of 2");

  HarvestRig noPage;
  noPage.Form.Lists.List2.Add({"next.example"});
  noPage.Form.State.Scanning = true;
  noPage.Form.State.LinksExpected = 1;
  noPage.Form.Emails.ExtractEmails(0);
  EXPECT_EQ(noPage.Services.Connection.Host, "next.example");
}

TEST(ExtractEmails, AStopEndsItInTheMiddleOfALine) {
  HarvestRig rig;
  std::string line;
  for (int i = 0; i < 50; ++i) line += std::string(60, '.') + " a" + std::to_string(i) + "@b.example ";
  rig.Form.Lists.List2.Add({"next.example"});
  rig.Services.EventLoop.OnEveryYield = [&] {
    if (rig.Form.State.LinksOnSite == 3) rig.Form.State.Scanning = false;
  };
  rig.ExtractEmails(line);
  EXPECT_EQ(rig.Sql("select count(*) from emails"), "3;");
  EXPECT_EQ(rig.Form.StatusBar1.Panel(2), "");
  EXPECT_EQ(rig.Services.Connection.Connects, 0);

  rig.Form.Emails.ExtractEmails(0);
  EXPECT_EQ(rig.Form.StatusBar1.Panel(2), "Getting Emails") << "outside of a scan the words stay";
}

TEST(IsValidEmail, WantsExactlyOneMatch) {
  HarvestRig rig;
  const EmailHarvester& emails = rig.Form.Emails;
  for (const char* valid : {"a@b.c", "!a_-.x@b-c.co.uk!",
                            "\xE4"
                            "a@b.c",
                            "a@b@c.d", "a@b.comc@d.com"}) {
    EXPECT_TRUE(emails.IsValidEmail(valid)) << valid;
  }
  for (const char* invalid : {"", "@", "a@b", "@b.c", "a@.c", "a@b.", "a@b.c,d@e.f", "a@b.c_@d.e"}) {
    EXPECT_FALSE(emails.IsValidEmail(invalid)) << invalid;
  }
}

}  // namespace
}  // namespace requite
