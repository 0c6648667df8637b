// SPDX-License-Identifier: MIT
// How long a page of the largest size keeps the user's events waiting: the longest time between two yields
// from the server's close to the end of the analysis, for pages that are slow for one step or
// another, and for the first page of a scan of very many sites.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "scan/analyser.h"
#include "scan/fetcher.h"
#include "scan/triage.h"
#include "support/scan_rig.h"

namespace requite::test {
namespace {

constexpr std::size_t kLargest = Fetcher::kMostBytes;

/// Processor time, which does not depend on how busy the machine is.
std::chrono::nanoseconds Now() {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

/// The real steps of a page; those of the controller are not needed.
struct PageRoad : RecordedSteps {
  explicit PageRoad(std::size_t sites) {
    rig.Services.Connection.Events = &fetcher;
    std::vector<std::string> urls{"site.example"};
    while (urls.size() < sites) urls.push_back("site" + std::to_string(urls.size()) + ".example");
    rig.AddMainSite("main.example", urls);
    ScanState& state = rig.State;
    state.MainSiteKey = "main.example";
    state.FileTypes = {".htm", ".shtm", ".xhtm", ".php", ".phtm", ".asp",
                       ".jsp", ".cfm",  ".cgi",  ".pl",  ".py",   ".do"};
    state.SiteRow = 1;
    state.CurrentLinkingUrl = "site.example";
    state.LinksExpected = 1000;
    state.Scanning = true;
    rig.Services.EventLoop.OnEveryYield = [this] { Look(); };
  }

  void Look() {
    const auto now = Now();
    Longest = std::max(Longest, now - last_);
    last_ = now;
  }

  void Read(const std::string& response) {
    rig.State.PageUrl = "site.example/";
    fetcher.FetchPage();
    for (std::size_t at = 0; at < response.size(); at += kPiece) {
      rig.Services.Connection.Arrive(std::string_view(response).substr(at, kPiece));
    }
    last_ = Now();
    Longest = {};
    rig.Services.Connection.ServerCloses();
    Look();
  }

  void CheckHttpStatus(const std::string& header, const std::string& url) override {
    triage.CheckHttpStatus(header, url);
  }
  void ProcessPage(PageBody body) override { triage.ProcessPage(std::move(body)); }
  void AnalysePage() override { analyser.AnalysePage(); }

  static constexpr std::size_t kPiece = 128 * 1024;
  std::chrono::nanoseconds Longest{};
  ScanRig rig;
  Fetcher fetcher{rig.Context, *this};
  Triage triage{rig.Context, *this};
  Analyser analyser{rig.Context, *this};

 private:
  std::chrono::nanoseconds last_ = Now();
};

const std::string kHeader = "HTTP/1.1 200 OK\r\nServer: a server\r\n\r\n";

std::string Repeated(std::string_view what, std::size_t size = kLargest - 65536) {
  std::string text;
  text.reserve(size + what.size());
  while (text.size() < size) text += what;
  return text;
}

void LongestPause(benchmark::State& state, const std::string& response, std::size_t sites) {
  double longest = 0;
  for (auto _ : state) {
    state.PauseTiming();
    PageRoad road(sites);
    state.ResumeTiming();
    road.Read(response);
    longest = std::max(longest, std::chrono::duration<double, std::milli>(road.Longest).count());
  }
  state.counters["longest_pause_ms"] = longest;
}

struct Shape {
  const char* Name;
  std::function<std::string()> Make;
  std::size_t Sites = 1;
};

const Shape kShapes[] = {
    {"words", [] { return kHeader + Repeated("words of a page, and more of them\r\n"); }},
    {"one_line", [] { return kHeader + Repeated("words of a page, and more of them "); }},
    {"one_line_that_repeats", [] { return kHeader + Repeated("<title>Object <title>Object m"); }},
    {"links", [] { return kHeader + Repeated("<a href=\"x.html\">link</a> and a few words\r\n"); }},
    {"hrefs_only", [] { return kHeader + Repeated("href="); }},
    {"hrefs_with_blanks", [] { return kHeader + Repeated("HREF=          "); }},
    {"one_href_with_blanks", [] { return kHeader + "href=" + Repeated(" "); }},
    {"one_href_value", [] { return kHeader + "href=" + Repeated("a"); }},
    {"one_link", [] { return kHeader + "href=/" + Repeated("a/") + ".htm >"; }},
    {"header_repeated", [] { return kHeader + Repeated(kHeader); }},
    {"header_half_repeated", [] { return kHeader + Repeated(kHeader.substr(0, kHeader.size() - 2)); }},
    {"long_header",
     [] { return Repeated("X: a\r\n", kLargest / 2) + "\r\n" + Repeated("X: a\r\n", kLargest / 3); }},
    {"no_header", [] { return Repeated("x"); }},
    {"question_marks", [] { return kHeader + Repeated("?"); }},
    {"line_ends", [] { return kHeader + Repeated("\r\n"); }},
    {"moved_titles", [] { return kHeader + Repeated("moved</title>"); }},
    {"moved_and_line_ends", [] { return kHeader + "302 Found" + Repeated("\r"); }},
    {"moved_and_one_line", [] { return kHeader + "302 Found\r\nhref=" + Repeated("a'\""); }},
    {"first_link_of_many_sites",
     [] { return kHeader + "<a href=\"http://site.example/x.html\">link</a>\r\n"; }, 100'000},
};

}  // namespace
}  // namespace requite::test

int main(int argc, char** argv) {
  using namespace requite::test;
  for (const Shape& shape : kShapes) {
    benchmark::RegisterBenchmark(
        shape.Name, [&shape](benchmark::State& state) { LongestPause(state, shape.Make(), shape.Sites); })
        ->Unit(benchmark::kMillisecond)
        ->Iterations(2);
  }
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
