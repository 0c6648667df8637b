// SPDX-License-Identifier: MIT
// What it costs to store a scan of 10,000 sites when a year of such scans is kept, and to tell what it
// changed.
#include <benchmark/benchmark.h>

#include "history/change_list.h"
#include "history/store_scan.h"
#include "support/fakes.h"

namespace {

using namespace requite;

constexpr int kSites = 10'000;

std::string UrlOf(int site) { return "partner" + std::to_string(site) + ".example/links/page.html"; }

/// Every hundredth site has lost its link, another hundredth each day.
std::vector<SiteRecord> SitesOfDay(int day) {
  std::vector<SiteRecord> sites;
  for (int i = 0; i < kSites; ++i) {
    SiteRecord site;
    site.Main = "main.example";
    site.Host = "partner" + std::to_string(i) + ".example";
    site.UrlBefore = site.UrlAfter = UrlOf(i);
    site.Expected = 1;
    const bool found = i % 100 != day % 100;
    site.Found = found ? 1 : 0;
    site.State = found ? SiteState::Ok : SiteState::None;
    if (found) site.Links = {{"Direct Link", "001", UrlOf(i)}};
    sites.push_back(std::move(site));
  }
  return sites;
}

void StoreDay(HistoryFile& history, int day) {
  ScanRecord scan;
  scan.Project = "/home/user/partners.prj";
  scan.Started = scan.Finished = "2026-01-" + ZeroPadded(day % 28 + 1, 2) + "T00:00:00Z";
  StoreScan(history, scan, SitesOfDay(day), {});
}

/// This measures the disk of TMPDIR too.
void StoreTenThousandSites(benchmark::State& state) {
  const test::TemporaryFolder folder;
  HistoryFile history(folder.Folder, SqliteStore::Open::ToWrite);
  int day = 0;
  for (; day < state.range(0); ++day) StoreDay(history, day);
  for (auto _ : state) StoreDay(history, day++);
}
BENCHMARK(StoreTenThousandSites)
    ->Arg(1)
    ->Arg(100)
    ->ArgName("scans")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(10)
    ->UseRealTime();

void TellChanges(benchmark::State& state) {
  const test::TemporaryFolder folder;
  HistoryFile history(folder.Folder, SqliteStore::Open::ToWrite);
  for (int day = 0; day < state.range(0); ++day) StoreDay(history, day);
  std::vector<ProjectSite> sites;
  for (int i = 0; i < kSites; ++i) sites.push_back(SiteOf("main.example", UrlOf(i)));
  for (auto _ : state) {
    benchmark::DoNotOptimize(ReadChanges(history, "/home/user/partners.prj", sites, {}).Changes.size());
  }
}
BENCHMARK(TellChanges)->Arg(2)->Arg(100)->ArgName("scans")->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
