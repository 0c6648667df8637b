// SPDX-License-Identifier: MIT
// Harvests against engines that page, through the window that runs them.
#include <gtest/gtest.h>

#include <random>

#include "harvest/harvest_rig.h"
#include "support/plain_harvest.h"

namespace requite {
namespace {

using test::HarvestRig;

const std::string kFirst =
    "http://www.google.com/search?num=100&hl=en&lr=&ie=UTF-8&oe=UTF-8&safe=off&filter=0&start=0&sa=N&q=";

std::string Page(int from, int count) {
  std::string page = "<html>";
  for (int i = from; i < from + count; ++i)
    page += "<a href=\"http://www.d" + std::to_string(i) + "x.com/p\">";
  return page;
}

Form3* Window(HarvestRig& rig) { return static_cast<Form3*>(rig.Form.Windows.Find("Form3")); }

TEST(DomainHarvest, AsksPageAfterPageUntilTheTargetAndStartsTheCrawl) {
  HarvestRig rig;
  rig.Form.Combo1.SetListIndex(1);
  rig.Form.Combo2.SetListIndex(-1);
  rig.Form.txtSearch.UserSets("old boats");
  rig.Sql("insert into websites values ('gone.example', '')");
  int asked = 0;
  rig.Services.Internet.OnOpen = [&] {
    rig.Services.Internet.Bodies[rig.Services.Internet.Asked.back()] = Page(60 * asked++, 60);
  };
  rig.Form.Lists.List2.Add({"queued.example"});
  rig.Harvest();
  const std::string request = "http://www.yahoo.com/search/dir?h=s&xargs=0&p=old+boats&b=";
  EXPECT_EQ(rig.Services.Internet.Asked, (std::vector<std::string>{request + "1", request + "21"}));
  EXPECT_EQ(rig.Sql("select count(*), min(website) from websites"), "120|d0x.com;");
  EXPECT_EQ(rig.Form.Figures.PagesFound, 120);
  EXPECT_EQ(rig.Form.Figures.LinkingSitesScanned, 1) << "the crawl was begun, and found an empty queue";
  EXPECT_TRUE(rig.Form.Lists.List2.Empty());
  EXPECT_EQ(Window(rig), nullptr);
  EXPECT_FALSE(FileExists(rig.Folder.File("SearchOutput.txt")));
}

TEST(DomainHarvest, EndsByItsNumberOfDomainsAndOfLinkingSites) {
  for (const int domains : {20, 21}) {
    HarvestRig rig;
    rig.Form.txtSearch.UserSets("");
    rig.Services.Internet.Bodies[kFirst] = Page(10, domains);
    rig.Services.Internet.Bodies[kFirst.substr(0, kFirst.size() - 15) + "start=100&sa=N&q="] = Page(10, 5);
    rig.Harvest();
    EXPECT_EQ(rig.Services.Internet.Asked.size(), 2U) << "a page with nothing new ends it";
    EXPECT_EQ(rig.Form.StatusBar1.Panel(2) == "Not enough results", domains == 20);
    EXPECT_EQ(rig.Form.StatusBar1.Panel(3) == "Add more search terms", domains == 20);
    EXPECT_EQ(Window(rig), nullptr);
  }
  HarvestRig rig;
  rig.Form.txtDomain.UserSets("main.example");
  rig.Form.cmdAdd2.Click();
  for (const char* each : {"a.example", "b.example"}) {
    rig.Form.Text1.UserSets(each);
    rig.Form.cmdAdd.Click();
  }
  rig.Services.Internet.Bodies[kFirst + "Google+Search"] = "nothing";
  rig.Harvest();
  EXPECT_EQ(rig.Form.StatusBar1.Panel(3), "Trying next search");
  ASSERT_NE(Window(rig), nullptr) << "it stays loaded";
  EXPECT_FALSE(Window(rig)->Main.Visible());
  EXPECT_TRUE(Window(rig)->Harvest.Finished);
  EXPECT_EQ(Window(rig)->Text1.Text(), "Finished! Extracted 0 results.");
}

TEST(DomainHarvest, APageThatNeverComesLeavesItWaiting) {
  HarvestRig rig;
  rig.Harvest();
  EXPECT_EQ(Window(rig)->Text1.Text(), "Status...");
  EXPECT_FALSE(Window(rig)->Harvest.Finished);
  rig.Form.Windows.Close("Form3");
  rig.Form.Windows.Show("Form3");
  EXPECT_EQ(rig.Services.Internet.Started.size(), 1U);
  rig.Form.Windows.Close("Form3");
  EXPECT_TRUE(rig.Services.Internet.Started.empty()) << "the window ends its own request";
  DeleteFile(rig.Database());
  EXPECT_THROW(rig.Form.Windows.Show("Form3"), RuntimeFailure);
}

TEST(DomainHarvest, AWindowClosedInTheMiddleOfAPageReadsNoFurther) {
  HarvestRig rig;
  rig.Services.Internet.Bodies[kFirst + "Google+Search"] = Page(100, 50);
  rig.Services.EventLoop.OnEveryYield = [&] {
    if (Window(rig) != nullptr && Window(rig)->Harvest.UniqueResults == 7) rig.Form.Windows.Close("Form3");
  };
  rig.Harvest();
  EXPECT_EQ(rig.Sql("select count(*) from websites"), "7;");
  EXPECT_EQ(rig.Services.Internet.Asked.size(), 1U);
  // What the dead harvest left is read again, in front of the new page.
  rig.Services.EventLoop.OnEveryYield = nullptr;
  rig.Services.Internet.Bodies[kFirst + "Google+Search"] = Page(300, 1);
  rig.Harvest();
  EXPECT_EQ(rig.Sql("select count(*) from websites"), "51;");
}

TEST(ResultPage, IsReadAsItsPlainWordingSays) {
  std::mt19937 random(11);
  const std::string pieces[] = {
      "http://", "HTTP://",    "www.",    "example", ".com", ".Com", ".cOm",     ".org", ".gov",
      ".co.uk",  "yahoo.com",  "yimg",    "a",       "b",    "/",    ">",        "<",    "\"",
      " ",       "google.com", "mailto:", "\r\n",    "\n",   "'",    "ttp:.com", "."};
  for (int run = 0; run < 400; ++run) {
    HarvestRig rig;
    DeleteFile(rig.Database());  // kept domains still count
    std::string html;
    for (std::size_t left = random() % 80; left > 0; --left) {
      html += random() % 4 == 0 ? "http://a." : pieces[random() % std::size(pieces)];
    }
    std::string seen;
    const std::vector<std::string> plain = test::PlainDomains(html, seen);
    BrowserView view("WebBrowser1");
    TextBox text("Text1");
    DomainHarvest harvest({rig.Form.txtSearch, rig.Form.Combo1, rig.Form.Combo2, rig.Form.StatusBar1, text,
                           view, rig.Form.Sites, rig.Form.Database, rig.Services.EventLoop, rig.Folder.Folder,
                           [](Counted) {}, [] {}, [] {}, [] {}});
    harvest.TargetResults = 0;
    std::string kept;
    rig.Services.EventLoop.OnEveryYield = [&] {
      if (!harvest.SeenDomains.empty()) kept = harvest.SeenDomains;
    };
    harvest.ExtractResultPage(html);
    ASSERT_EQ(kept, seen) << html;
    ASSERT_EQ(harvest.UniqueResults, static_cast<std::int32_t>(plain.size())) << html;
  }
}

}  // namespace
}  // namespace requite
