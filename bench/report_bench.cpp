// SPDX-License-Identifier: MIT
// What the report costs for a large project.
#include <benchmark/benchmark.h>

#include <array>

#include "results/report.h"
#include "support/fakes.h"

namespace requite::test {
namespace {

/// 10,000 Linking Sites and 20,000 results, two for each site, in 10 Main Sites.
void LargeReport(benchmark::State& state) {
  TemporaryFolder folder;
  WorkFolder work{folder.Folder};
  FakeEventLoop loop;
  MemorySettings store;
  ManualClock clock;
  Project project;
  RecordList<ErrorEntry> lstErr("lstErr");
  std::array<TextBox, 7> lblStats{TextBox("0"), TextBox("1"), TextBox("2"), TextBox("3"),
                                  TextBox("4"), TextBox("5"), TextBox("6")};
  Statistics statistics(Settings(store), lblStats);
  BrowserView view("WebBrowser2");

  for (int k = 0; k < 10; ++k) {
    project.List4.Add({"main" + std::to_string(k) + ".example"});
    LinkingSiteList& list = project.CreateLinkingSiteList();
    for (int n = 0; n < 1000; ++n) {
      const std::string host = "site" + std::to_string(k * 1000 + n) + ".example";
      list.Add({"http://www." + host + "/links/", "1", "", "", ""});
      project.List3.Add({"main.example", host, "Direct Link", "001", host + "/links/partners.html"});
      project.List3.Add({"main.example", host, "None Found (Timeout)", "000", host});
    }
  }
  LinkReport report({project, lstErr, statistics, Settings(store), clock, loop, folder.Folder, work, view});
  for (auto _ : state) report.GenerateLinkReport();
}
BENCHMARK(LargeReport)->Unit(benchmark::kMillisecond);

/// One event of a scan: a counter, its setting and the seven labels.
void UpdateStats(benchmark::State& state) {
  MemorySettings store;
  std::array<TextBox, 7> lblStats{TextBox("0"), TextBox("1"), TextBox("2"), TextBox("3"),
                                  TextBox("4"), TextBox("5"), TextBox("6")};
  Statistics statistics(Settings(store), lblStats);
  for (auto _ : state) statistics.UpdateStats(Counted::PageScanned);
}
BENCHMARK(UpdateStats);

}  // namespace
}  // namespace requite::test
