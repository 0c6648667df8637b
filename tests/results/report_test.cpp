// SPDX-License-Identifier: MIT
// The Reciprocal Link Report: its page byte for byte, its files, and lists that change under it.
#include "results/report.h"

#include <gtest/gtest.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <random>

#include "model/url_forms.h"
#include "platform/spooled_text.h"
#include "platform/text.h"
#include "results/links_by_site.h"
#include "shell/main_window/form1_rig.h"
#include "support/failure_number.h"

namespace requite::test {
namespace {

struct ReportRig : Form1Rig {
  void AddMainSite(const std::string& text, const std::vector<std::string>& urls) {
    Sites.List4.Add({text});
    LinkingSiteList& list = Sites.CreateLinkingSiteList();
    for (const std::string& url : urls) list.Add({url, "1", "", "", ""});
  }
  void AddResult(const std::string& linking, const std::string& status, const std::string& url = "u/x") {
    Sites.List3.Add({"main.example", linking, status, "001", url});
  }
  std::string Page() {
    Form.Report.GenerateLinkReport();
    return ReadFile(Folder.File("tempreport.html"));
  }
  /// The text after the heading of the sections.
  std::string Sections() {
    const std::string heading = "<h1>Main Site Specific Overviews</h1>\r\n";
    const std::string page = Page();
    return page.substr(page.find(heading) + heading.size());
  }

  Project& Sites = Form.Sites;
};

std::string Head() {
  return "<html>\r\n<head>\r\n<title>Reciprocal Link Report</title>\r\n<body>\r\n"
         "<H1>Reciprocal Link Report</H1>\r\nDate: 1/2/2026<BR>\r\nTime: 3:04 PM<BR><BR>\r\n<hr>\r\n"
         "<table cellpadding=5 border=0>\r\n<tr><td colspan=2><b>Overview</b></td></tr>";
}

std::string Site(const std::string& host) { return "Site: <a href='" + host + "'>" + host + "</a><BR>"; }

TEST(LinkReport, AnEmptyProjectReportsItsConstants) {
  ReportRig rig;
  EXPECT_EQ(rig.Page(),
            Head() +
                "<tr><td>Total Main Sites:</td><td> 0</td></tr>\r\n"
                "<tr><td>Total Linking Sites:</td><td> 0</td></tr>\r\n"
                "<tr><td>Total Pages Scanned:</td><td> 0</td></tr>\r\n"
                "<tr><td>Total Reciprocal Links:</td><td> 0</td></tr>\r\n"
                "<tr><td><li>Direct Links</li></td><td> 0</td></tr>\r\n"
                "<tr><td><li>Indirect Links</li></td><td> 0</td></tr>\r\n"
                "<tr><td><li>Redirect Links</li></td><td> 0</td></tr>\r\n"
                "<tr><td>Total Non-Linking Sites:</td><td> 0</td></tr>\r\n"
                "<tr><td>Total Errors:</td><td> 0</td></tr>\r\n"
                "<tr><td colspan=2>&nbsp</td></tr><tr><td colspan=2><b>Percentages/Averages</b></td></tr>"
                "<tr><td>Sites with Reciprocal Links:</td><td>0%</td></tr>\r\n"
                "<tr><td>Sites with No Links:</td><td>100%</td></tr>\r\n"
                "<tr><td>Average Pages Scanned Per Site:</td><td>0</td></tr></table><BR><BR>\r\n"
                "<h1>Main Site Specific Overviews</h1>\r\n\r\n");
  EXPECT_EQ(rig.Form.WebBrowser2.AskedFor(), rig.Folder.File("tempreport.html"));
}

TEST(LinkReport, CountsAndSectionsOfEveryStatus) {
  ReportRig rig;
  rig.AddMainSite("http://www.Main.example/x",
                  {"www.direct.example/links/", "HTTP://missing.example", "no.example"});
  rig.AddMainSite("second.example",
                  {"none.example/a", "indirect.example", "redirect.example", "domain.example"});
  rig.AddResult("direct.example", "Direct Link", "direct.example/links/1.html");
  rig.AddResult("direct.example", "Missing 002");
  rig.AddResult("missing.example", "Missing 001");
  rig.AddResult("none.example", "none FOUND (Timeout)");
  rig.AddResult("indirect.example", "Indirect Link", "i/p");
  rig.AddResult("redirect.example", "Redirect Link", "r/p");
  rig.AddResult("domain.example", "Domain Link");
  rig.AddResult("no.example", "direct link");
  rig.AddResult("gone.example", "None Found");
  rig.Form.Lists.lstErr.Add({"404 Not found", "u"});
  rig.Form.Figures.PagesScanned = 7;

  const std::string page = rig.Page();
  for (const char* row :
       {"Total Main Sites:</td><td> 2<", "Total Linking Sites:</td><td> 7<",
        "Total Pages Scanned:</td><td> 7<", "Total Reciprocal Links:</td><td> 3<",
        "Direct Links</li></td><td> 1<", "Indirect Links</li></td><td> 1<", "Redirect Links</li></td><td> 1<",
        "Total Non-Linking Sites:</td><td> 2<", "Total Errors:</td><td> 1<",
        "Sites with Reciprocal Links:</td><td>60.00%</td></tr>\r\n",
        "Sites with No Links:</td><td>40.00%</td></tr>\r\n",
        "Average Pages Scanned Per Site:</td><td>1.40</td></tr></table><BR><BR>\r\n"}) {
    EXPECT_NE(page.find(row), std::string::npos) << row;
  }
}

TEST(LinkReport, OnlyDomainLinksAndShortfallsCountAsNoLinksAtAll) {
  ReportRig rig;
  rig.AddResult("a", "Domain Link");
  rig.AddResult("b", "Missing 001");
  rig.Form.Figures.PagesScanned = 5;
  const std::string page = rig.Page();
  EXPECT_NE(page.find("Reciprocal Links:</td><td>0%<"), std::string::npos);
  EXPECT_NE(page.find("No Links:</td><td>100%<"), std::string::npos);
}

/// The sections as a plain walk over all pairs writes them.
std::string NestedWalk(const Project& project) {
  std::string page;
  for (int k = 1; k <= project.ListCount(); ++k) {
    page += "<h3>" + project.List4.At(static_cast<std::size_t>(k) - 1).Text + "</h3>\r\n";
    for (std::size_t site = 0; site < project.List1(k).RowCount(); ++site) {
      for (std::size_t row = 0; row < project.List3.RowCount(); ++row) {
        const LinkResult& result = project.List3.At(row);
        std::string linking = result.Linking;
        std::string url = project.List1(k).At(site).WebsiteUrl;
        BareHost(linking);
        BareHost(url);
        if (linking != url) continue;
        page += Site(url);
        if (result.Status == "Direct Link" || result.Status == "Indirect Link" ||
            result.Status == "Redirect Link") {
          page += "Status: " + result.Status + "<BR>Found On: <a href='" + result.LinkUrl + "'>" +
                  result.LinkUrl + "</a><BR>";
        } else if (Contains(result.Status, "None Found", Compare::Text)) {
          page += "Status: " + result.Status + "<BR>";
        }
        page += "<BR>";
      }
    }
  }
  return page + "\r\n";
}

TEST(LinkReport, TheJoinWritesWhatTheNestedWalkWrites) {
  std::mt19937 random(1);
  const auto pick = [&random](const std::vector<std::string>& from) { return from[random() % from.size()]; };
  const std::vector<std::string> schemes{"", "http://", "https://", "HTTP://", "www.", "http://www.", "WWW."};
  const std::vector<std::string> hosts{"a.example", "b.example", "A.example", "", "www.", "c"};
  const std::vector<std::string> tails{"", "/", "/x/y.html", "http:///z"};
  const std::vector<std::string> words{"Direct Link", "Redirect Link", "None Found",   "NONE FOUND (Timeout)",
                                       "Missing 001", "Domain Link",   "Indirect Link"};
  for (int round = 0; round < 40; ++round) {
    ReportRig rig;
    for (int k = 0; k < 3; ++k) {
      std::vector<std::string> urls;
      for (auto n = random() % 5; n > 0; --n) urls.push_back(pick(schemes) + pick(hosts) + pick(tails));
      rig.AddMainSite("m" + std::to_string(k), urls);
    }
    for (auto n = random() % 12; n > 0; --n) {
      rig.AddResult(pick(schemes) + pick(hosts) + pick(tails), pick(words), "u/" + std::to_string(n));
    }
    ASSERT_EQ(rig.Sections(), NestedWalk(rig.Sites)) << "round " << round;
  }
}

TEST(LinkReport, ManySitesOfOneHostAreWrittenInBoundedMemory) {
  ReportRig rig;
  constexpr int kSites = 200;
  rig.AddMainSite("m", std::vector<std::string>(kSites, "same.example"));
  for (int i = 0; i < kSites; ++i) rig.AddResult("same.example", "Direct Link", std::string(100, 'u'));
  const auto allocated = [] {
    const auto figures = ::mallinfo2();
    return figures.uordblks + figures.hblkhd;
  };
  const std::size_t before = allocated();
  std::size_t most = before;
  rig.Services.EventLoop.OnEveryYield = [&] { most = std::max(most, allocated()); };
  rig.Form.Report.GenerateLinkReport();
  EXPECT_LT(most - before, 2 * SpooledText::kMostInMemory + 500'000);
  const std::string page = ReadFile(rig.Folder.File("tempreport.html"));
  EXPECT_GT(page.size(), 10 * SpooledText::kMostInMemory);
  EXPECT_TRUE(page.ends_with(NestedWalk(rig.Sites)));
}

TEST(LinkReport, ChangesDuringAYieldEnterTheRestOfTheWalk) {
  ReportRig rig;
  rig.AddMainSite("m1", {"a.example", "b.example"});
  rig.AddResult("a.example", "Domain Link");
  rig.AddResult("b.example", "Domain Link");
  rig.AddResult("b.example", "None Found");
  // The first yield comes after the first entry: the last row then leaves its site, as a mark does.
  rig.Services.EventLoop.AtYield(1, [&] { rig.Sites.List3.SetFieldAt(2, 1, "None Found"); });
  EXPECT_EQ(rig.Sections(), "<h3>m1</h3>\r\n" + Site("a.example") + "<BR>" + Site("b.example") + "<BR>\r\n");
}

TEST(LinkReport, ListsEmptiedAtAnyYieldEndTheSectionsWithoutAFailure) {
  for (int yield = 1; yield <= 8; ++yield) {
    for (const bool all : {false, true}) {
      ReportRig rig;
      rig.AddMainSite("m1", {"a.example", "b.example"});
      rig.AddMainSite("m2", {"a.example"});
      rig.AddResult("a.example", "Direct Link");
      rig.AddResult("a.example", "None Found");
      rig.Services.EventLoop.AtYield(yield, [&] {
        rig.Sites.List3.Clear();
        if (!all) return;
        rig.Sites.DropLinkingSiteLists();
        rig.Sites.List4.Clear();
      });
      EXPECT_NO_THROW(rig.Page()) << yield;
    }
  }
}

TEST(LinkReport, TheFilesAreReplacedAndTheCopyTakesTheProjectsName) {
  ReportRig rig;
  rig.Services.Store.Set("LastProject", "/somewhere/else/My.PRJ.prj");
  const std::string copy = rig.Folder.File("Project Files/My.html.html");
  WriteFile(copy, "old and long");
  WriteFile(rig.Folder.File("tempreport.html"), "old");
  const std::string page = rig.Page();
  EXPECT_TRUE(page.starts_with("<html>"));
  EXPECT_EQ(ReadFile(copy), page);
  EXPECT_EQ(rig.Form.WebBrowser2.AskedFor(), rig.Folder.File("tempreport.html"));
}

TEST(LinksBySite, CountsEachSiteOnceWhateverItsRowsSay) {
  RecordList<LinkResult> rows("List3");
  rows.Add({"m", "none", "None Found (Timeout)", "000", "u"});
  rows.Add({"m", "one", "Domain Link", "001", "u"});
  for (const char* status : {"Direct Link", "Missing 001", "Redirect Link"})
    rows.Add({"m", "two", status, "", "u"});
  rows.Add({"n", "one too", "Indirect Link", "001", "u"});
  std::string told;
  for (const SiteLinks& each : LinksBySite(rows)) told += each.Site + " " + std::to_string(each.Links) + ", ";
  EXPECT_EQ(told, "two 2, one 1, one too 1, none 0, ");
}

}  // namespace
}  // namespace requite::test
