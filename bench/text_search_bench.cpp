// SPDX-License-Identifier: MIT
// Text search over pages and over short texts. REQUITE_BENCH_PAGES names a folder of html files to
// take the page from; without it the page is made up.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "platform/files.h"
#include "platform/needle_set.h"
#include "platform/text.h"
#include "platform/text_search.h"

namespace {

using requite::Compare;

constexpr std::size_t kPageSize = std::size_t{1} << 20U;

std::string MadeUpPage() {
  constexpr std::string_view kWords[] = {
      "<p class=\"text\">", "the links of ", "<a href=\"http://www.", "site",
      ".com/page.html\">",  "our partners",  "</a></p>\r\n",          "and more, "};
  std::string page;
  for (std::uint32_t i = 1; page.size() < kPageSize; i = i * 1664525U + 1013904223U) page += kWords[i >> 29U];
  return page;
}

const std::string& Page() {
  static const std::string page = [] {
    std::string text;
    if (const char* folder = std::getenv("REQUITE_BENCH_PAGES")) {
      std::vector<std::string> paths;
      for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".html") paths.push_back(entry.path());
      }
      std::sort(paths.begin(), paths.end());
      for (std::size_t i = 0; i < paths.size() && text.size() < kPageSize; ++i)
        text += requite::ReadFile(paths[i]);
    }
    if (text.size() < kPageSize) text += MadeUpPage();
    return text.substr(0, kPageSize);
  }();
  return page;
}

constexpr std::string_view kMissing[] = {"requite.example",
                                         "www.garden-shop.co.uk",
                                         "301 Moved",
                                         "href=\"xq",
                                         "nosuchsite",
                                         "teapot",
                                         "\x8C"
                                         "uvre"};

void FindInPage(benchmark::State& state, Compare compare) {
  const std::string_view needle = kMissing[state.range(0)];
  for (auto _ : state) benchmark::DoNotOptimize(requite::Find(Page(), needle, compare));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Page().size()));
  const bool found = requite::Contains(Page(), needle, compare);
  const bool plain =
      static_cast<unsigned char>(needle.front()) < 0x80;  // labels in other scripts are not in our code page
  state.SetLabel((plain ? std::string(needle) : "a letter above 127") + (found ? " (found)" : ""));
}
BENCHMARK_CAPTURE(FindInPage, Text, Compare::Text)->DenseRange(0, std::size(kMissing) - 1);
BENCHMARK_CAPTURE(FindInPage, Binary, Compare::Binary)->DenseRange(0, std::size(kMissing) - 1);

/// The plain form, for comparison.
void LowerThenFind(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(requite::Lower(Page()).find(kMissing[0]));
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Page().size()));
}
BENCHMARK(LowerThenFind);

void FindAllHrefs(benchmark::State& state) {
  const requite::TextFinder finder("href=");
  for (auto _ : state) {
    std::size_t count = 0;
    for (std::size_t at = finder.Find(Page()); at != std::string::npos; at = finder.Find(Page(), at + 1))
      ++count;
    benchmark::DoNotOptimize(count);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Page().size()));
}
BENCHMARK(FindAllHrefs);

void ReplaceHrefs(benchmark::State& state) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(requite::Replace(Page(), "href=", "\r\nhref=", Compare::Text));
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Page().size()));
}
BENCHMARK(ReplaceHrefs);

constexpr std::string_view kUrl = "http://www.example.com/links/partners.html?page=2";

void FindInUrl(benchmark::State& state) {
  constexpr std::string_view kNeedles[] = {"mailto:", "javascript:", "www.example.com", ".html", "#"};
  std::size_t i = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(requite::Find(kUrl, kNeedles[i % std::size(kNeedles)], Compare::Text));
    ++i;
  }
}
BENCHMARK(FindInUrl);

void LettersOfUrl(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(requite::LettersOf(kUrl));
}
BENCHMARK(LettersOfUrl);

/// What one href costs when about twenty words must not be in it.
void NeedlesInUrl(benchmark::State& state) {
  std::vector<requite::Needle> needles;
  for (const std::string_view word :
       {"javascript:", "mailto:", "news:", "ftp:", "telnet:", ".css", ".jpg",  ".jpeg", ".gif",
        ".png",        ".bmp",    ".swf",  ".zip", ".exe",    ".pdf", ".doc",  ".xls",  ".mp3",
        ".wav",        ".avi",    ".mov",  ".js",  ".ico",    "#",    "&quot;"}) {
    needles.emplace_back(word);
  }
  for (auto _ : state) {
    const requite::LetterSet letters = requite::LettersOf(kUrl);
    bool any = false;
    for (const requite::Needle& needle : needles) any |= needle.IsIn(kUrl, letters);
    benchmark::DoNotOptimize(any);
  }
}
BENCHMARK(NeedlesInUrl);

void ReadLines(benchmark::State& state, requite::LineEnds ends) {
  for (auto _ : state) {
    requite::LineReader reader(Page(), ends);
    std::size_t count = 0;
    while (reader.Next()) ++count;
    benchmark::DoNotOptimize(count);
  }
  state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * Page().size()));
}
BENCHMARK_CAPTURE(ReadLines, CarriageReturn, requite::LineEnds::CarriageReturn);
BENCHMARK_CAPTURE(ReadLines, Any, requite::LineEnds::Any);

}  // namespace
