// SPDX-License-Identifier: MIT
// One URL against many rules of all kinds, none of which fails.
#include "scan/rules.h"

#include <benchmark/benchmark.h>

#include <array>

#include "analysis_bench_rig.h"

namespace requite::test {
namespace {

void PassesManyRules(benchmark::State& state) {
  constexpr std::array<const char*, 3> kTypes = {"ExcludeDirectory", "ExcludeString", "ExcludeRoot"};
  BenchRig rig;
  rig.NewSite();
  RecordList<Rule>& rules = rig.Context().Project.lstRules;
  for (std::int64_t i = 0; i < state.range(0); ++i) {
    rules.Add({"Global", "Global", kTypes[static_cast<std::size_t>(i) % 3], "private" + std::to_string(i)});
  }
  rig.Context().Project.List4.Set(0, &MainSite::Text, "main.example");
  ScanContext& scan = rig.Context();
  Rules tested(scan.Project, scan.State, scan.Settings, scan.Folder);
  std::int64_t number = 0;
  for (auto _ : state) {
    const std::string url = "site.example/section/page" + std::to_string(++number % 5000) + ".html?private";
    benchmark::DoNotOptimize(tested.PassesRules(url));
  }
}
BENCHMARK(PassesManyRules)->Arg(1)->Arg(10)->Arg(1000);

}  // namespace
}  // namespace requite::test
