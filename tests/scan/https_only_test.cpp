// SPDX-License-Identifier: MIT
// Sites that send the visitor to https, and what the scan tells of certificates.
#include <gtest/gtest.h>

#include "scan/scan.h"
#include "support/scan_rig.h"

namespace requite::test {
namespace {

using Pages = std::map<std::string, std::string>;

/// A scan of a.example with the given pages, then of b.example, which has one plain page without links.
struct HttpsScan : ScanRig {
  explicit HttpsScan(Pages pages = {})
      : Served(std::move(pages)),
        Road(Sites, Lists, State, Controls.Window(), Host, Services.All, Folder.Folder, Work) {
    WriteFile(Folder.File("filetypes.txt"), ".htm\r\n");
    Services.Store.Set("txtTimeout", "2");
    Served["b.example/"] = "HTTP/1.1 200 OK\r\n\r\nplain";
    AddMainSite("main.example", {"a.example", "b.example"});
  }
  void Run() {
    Road.StartScan();
    for (int turns = 0; turns < 50 && State.Scanning; ++turns) {
      const auto page = Served.find(State.Page.PageHost + State.Page.PagePath);
      if (Services.Connection.Open && page != Served.end()) {
        Services.Connection.Serve(page->second);
      } else {
        Services.timTimeout.Tick();
      }
    }
  }
  [[nodiscard]] std::string Errors() const {
    std::string rows;
    for (std::size_t row = 0; row < Lists.lstErr.RowCount(); ++row)
      rows += Lists.lstErr.At(row).Error + " " + Lists.lstErr.At(row).Url + "\n";
    return rows;
  }

  Pages Served;
  requite::Scan Road;
};

std::string Moved(const std::string& to, const std::string& body = {}) {
  return "HTTP/1.1 301 Moved\r\nServer: x\r\nLocation: " + to + "\r\n\r\n" + body;
}

constexpr const char* kNext = "<a href=\"http://a.example/next.htm\">";
constexpr const char* kSecureForm =
    "<title>301 Moved Permanently</title>\r\n<a href=\"https://a.example/\">here</a>";

struct Web {
  const char* What;
  bool HttpsOnly;
  Pages Served;
  std::string MovedPage = {};  ///< what the library finds at "http://a.example"
};

TEST(HttpsOnly, IsASiteThatOnlySendsTheVisitorThere) {
  const std::string a = "a.example/";
  const std::string next = "a.example/next.htm";
  const std::string secure = Moved("https://a.example/");
  const std::string ok = "HTTP/1.1 200 OK\r\n\r\n";
  for (const Web& row :
       {Web{"a Location", true, {{a, secure}}},
        {"in any spelling", true, {{a, "HTTP/1.0 308\r\nLOCATION:\t HTTPS://a.example\r\n\r\n"}}},
        {"a moved page in words", true, {{a, ok + kSecureForm}}},
        {"after a plain move", true, {{a, Moved("http://www.a.example/", kNext)}, {next, secure}}},
        {"then silence", true, {{a, Moved("https://a.example/", kNext)}}},
        {"a followed move", false, {{a, Moved("https://a.example/", "301 Moved Permanently\r\n")}}, "read"},
        {"one page was read", false, {{a, ok + kNext}, {next, secure}}},
        {"a plain error page", false, {{a, secure + kNext}, {next, "HTTP/1.1 404 No\r\n\r\n"}}},
        {"a plain move", false, {{a, Moved("http://c.example/")}}},
        {"no redirect", false, {{a, "HTTP/1.1 200 OK\r\nLocation: https://a/\r\n\r\n"}}},
        {"another header", false, {{a, "HTTP/1.1 301 M\r\nX-Location: https://a/\r\n\r\n"}}},
        {"silence", false, {}},
        {"an empty answer", false, {{a, ""}}},
        {"it links back", false, {{a, secure + "<a href=\"http://main.example/\">"}}}}) {
    HttpsScan scan(row.Served);
    if (!row.MovedPage.empty()) scan.Services.Internet.Bodies["http://a.example"] = row.MovedPage;
    scan.Run();
    ASSERT_EQ(scan.Host.Verdicts.size(), 2U) << row.What;
    EXPECT_EQ(scan.Host.Verdicts[0].HttpsOnly, row.HttpsOnly) << row.What;
    EXPECT_FALSE(scan.Host.Verdicts[1].HttpsOnly) << row.What << ", the next site";
  }
}

TEST(HttpsOnly, NoSkipPutsTheBlameOnTheNextSite) {
  int n = 5;  // before, the scripted server has not answered, and would answer the next site instead
  for (bool given = true; given; ++n) {
    HttpsScan scan({{"a.example/", Moved("https://a.example/", kSecureForm)}});
    given = false;
    scan.Services.EventLoop.AtYield(n, [&] {
      given = true;
      scan.Road.cmdSkip();
    });
    scan.Run();
    ASSERT_FALSE(scan.Host.Verdicts.back().HttpsOnly) << n;
  }
  EXPECT_GT(n, 15);
}

TEST(Certificates, OneFaultAHostAndScanIsARowAndOnlyWhileSecureConnectionsAreOn) {
  HttpsScan scan;
  const auto fail = [&scan](const char* host, std::string_view words) {
    scan.Services.Connection.Events->OnCertificateFault(host, words);
  };
  for (const char* secure : {"0", "1", "1"}) {
    scan.Services.Store.Set("chkSecure", secure);
    fail("a.example", "Certificate has expired");  // too late or too early: no scan is in progress
    scan.Services.Connection.WhenConnecting = [&] {
      fail("A.example", "Certificate has expired");
      fail("a.example", "Certificate is not trusted");
    };
    scan.Services.Connection.Authorities = false;
    scan.Run();
    EXPECT_EQ(scan.Errors(), secure[0] == '0' ? "Timeout a.example\n"
                                              : "Certificate has expired A.example\nTimeout a.example\n");
  }
  EXPECT_EQ(std::count(scan.Host.Calls.begin(), scan.Host.Calls.end(), "TellAuthoritiesMissing"), 2);
}

}  // namespace
}  // namespace requite::test
