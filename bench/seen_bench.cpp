// SPDX-License-Identifier: MIT
// The seen tests of one new link, by the number of pages that were queued on the site before.
#include <benchmark/benchmark.h>

#include "analysis_bench_rig.h"
#include "scan/seen_url.h"

namespace requite::test {
namespace {

std::string PageUrl(std::int64_t number) {
  return "site.example/section/page" + std::to_string(number) + ".html";
}

void SeenPage(benchmark::State& state) {
  BenchRig rig;
  rig.NewSite();
  const auto pages = static_cast<std::int32_t>(state.range(0));
  for (std::int32_t i = 1; i <= pages; ++i) {
    rig.State().SeenPages.Store(i, HashedText(PageUrl(i)));
    rig.Context().Lists.List2.Add({PageUrl(i)});
    rig.Context().Project.List1(1).Add({"site" + std::to_string(i) + ".example", "1", "", "", ""});
  }
  rig.State().PagesQueued = pages;
  std::int64_t number = 0;
  for (auto _ : state) {
    number = (number + 7919) % (2 * std::int64_t{pages});  // half of them are new
    std::string url = PageUrl(number);
    benchmark::DoNotOptimize(IsSeenUrl(rig.Context().Project, rig.Context().Lists.List2, rig.State(), url));
  }
}
BENCHMARK(SeenPage)->Arg(100)->Arg(10000)->Arg(99999);

}  // namespace
}  // namespace requite::test
