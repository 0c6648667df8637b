// SPDX-License-Identifier: MIT
// What the Page Builder costs for a large project.
#include <benchmark/benchmark.h>

#include "pagebuilder/page_builder.h"
#include "support/fakes.h"

namespace requite::test {
namespace {

/// 10,000 results against one list of 10,000 Linking Sites, half of which are bare hosts in it.
void GenerateLinks(benchmark::State& state) {
  const ProgramFolder folder;
  ScriptedDialogs dialogs;
  Project project;
  OptionGroup optAll("optAll", {"all", "one"});
  ComboBox combo3("Combo3", "Select");
  CheckBox newWindow("chkNewWin", "");
  CheckBox bullets("chkBullet", "");
  project.AddMainSite("main.example");
  for (int n = 0; n < 10'000; ++n) {
    const std::string host = "site" + std::to_string(n) + ".example";
    project.List1(1).Add({(n % 2 == 0 ? "" : "www.") + host, "1", "http://" + host + "/in", "Site", "words"});
    project.List3.Add({"main.example", host, "Direct Link", "001", host + "/links.html"});
  }
  PageBuilder builder(project, {optAll, combo3, newWindow, bullets}, folder, dialogs);
  for (auto _ : state) builder.GenerateLinks();
}
BENCHMARK(GenerateLinks)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace requite::test
