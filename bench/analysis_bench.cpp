// SPDX-License-Identifier: MIT
// Page text through triage and analysis, with and without the work files. REQUITE_BENCH_PAGES names a folder
// of real pages; without it pages are generated.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>

#include "analysis_bench_rig.h"

namespace requite::test {
namespace {

struct Page {
  std::string Url;
  std::string Body;
};

/// A page of text with a link about every `spacing` bytes.
std::string GeneratedPage(std::size_t size, std::size_t spacing, int number) {
  std::string page = "<html><head><title>A page</title></head><body>\n";
  for (int link = 0; page.size() < size; ++link) {
    const std::string tag = "<a class=\"nav\" href=\"../section" + std::to_string(link % 40) + "/page" +
                            std::to_string((number * 7 + link) % 5000) + ".html\">a link</a>\n";
    page += tag;
    while (page.size() % spacing > tag.size()) page += "words of text, and a few more <b>words</b>\n";
  }
  return page + "</body></html>\n";
}

std::vector<Page> Pages() {
  std::vector<Page> pages;
  const char* folder = std::getenv("REQUITE_BENCH_PAGES");
  if (folder == nullptr) {
    for (int i = 0; i < 500; ++i) {
      pages.push_back(
          {"site.example/section/page" + std::to_string(i) + ".html", GeneratedPage(16000, 400, i)});
    }
    return pages;
  }
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.path().extension() != ".html") continue;
    pages.push_back({"site.example/" + entry.path().lexically_relative(folder).string(),
                     ReadFile(entry.path().string())});
  }
  return pages;
}

enum class WorkFiles { None, Written };

void CrawlOfAllPages(benchmark::State& state, WorkFiles files) {
  const std::vector<Page> pages = Pages();
  BenchRig rig;
  rig.Context().WritesWorkFiles = files == WorkFiles::Written;
  std::int64_t bytes = 0;
  std::int64_t links = 0;
  for (auto _ : state) {
    rig.NewSite();
    for (const Page& page : pages) {
      rig.Read(page.Url, page.Body);
      bytes += static_cast<std::int64_t>(page.Body.size());
    }
    links += rig.State().PagesQueued;
  }
  state.SetBytesProcessed(bytes);
  state.counters["pages"] = static_cast<double>(pages.size());
  state.counters["queued"] =
      benchmark::Counter(static_cast<double>(links), benchmark::Counter::kAvgIterations);
}
BENCHMARK_CAPTURE(CrawlOfAllPages, alone, WorkFiles::None)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(CrawlOfAllPages, with_files, WorkFiles::Written)->Unit(benchmark::kMillisecond);

/// 96 KB with a link every so many bytes; after the first run every page has been seen.
void DensePage(benchmark::State& state) {
  const std::string body = GeneratedPage(96 * 1024, static_cast<std::size_t>(state.range(0)), 1);
  std::int64_t links = 0;
  for (std::size_t at = body.find("href="); at != std::string::npos; at = body.find("href=", at + 1)) ++links;
  BenchRig rig;
  rig.NewSite();
  for (auto _ : state) rig.Read("site.example/section/page.html", body);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(body.size()));
  state.counters["links"] = static_cast<double>(links);
  state.counters["links/s"] =
      benchmark::Counter(static_cast<double>(links), benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(DensePage)->Arg(150)->Arg(200)->Unit(benchmark::kMicrosecond);

void PageWithoutLinks(benchmark::State& state) {
  const std::string body = GeneratedPage(96 * 1024, 200000, 1);
  BenchRig rig;
  rig.NewSite();
  for (auto _ : state) rig.Read("site.example/section/page.html", body);
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(body.size()));
}
BENCHMARK(PageWithoutLinks)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace requite::test
