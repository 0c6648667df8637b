// SPDX-License-Identifier: MIT
// The import of a page of 10 MB with 100,000 links, of a script's output of that size, and of hostile tags.
#include <benchmark/benchmark.h>

#include <string>

#include "import/import_links.h"
#include "import/strip_tags.h"
#include "support/fakes.h"

namespace requite {
namespace {

constexpr int kLinks = 100'000;

struct ImportRun {
  ImportRun() {
    Option1.Choose(0);
    Combo1.SetListIndex(0);
    Text1.SetText("http://home.example");
    Text2.SetText("http://home.example");
  }

  test::FakeServices Services;
  Project Sites;
  ScanState State;
  ProgramFolder Folder;
  OptionGroup Option1{"Option1", {"", ""}};
  TextBox Text1{"Text1"};
  TextBox Text2{"Text2"};
  ComboBox Combo1{"Combo1", "", {"", "", "", ""}};
  Button Command1{"Command1", ""};
  RecordList<FoundLink> ListView1{"ListView1"};
  Button cmdAdd{"cmdAdd", ""};
  Button Command4{"Command4", ""};
  StatusBar StatusBar1{"StatusBar1"};
  ImportLinks Import{kImportLinkingSites,
                     {Sites, State, Settings(Services.Store), Services.Internet, Services.EventLoop,
                      Services.Dialogs, Folder, [] { return false; }},
                     {Option1, Text1, Text2, Combo1, Command1, ListView1, cmdAdd, Command4, StatusBar1}};
};

std::string Page() {
  std::string page;
  for (int i = 0; i < kLinks; ++i) {
    page += "<li><a href=\"http://site" + std::to_string(i) +
            ".example/links/page.html\">A partner</a> that has something to say about it<br>\r\n";
  }
  return page;
}

void BM_Import(benchmark::State& state) {
  ImportRun run;
  const std::string page = Page();
  run.Services.Internet.Bodies["http://home.example"] = page;
  run.Option1.Choose(static_cast<int>(state.range(0)));
  for (auto _ : state) run.Import.GetLinks();
  state.counters["rows"] = static_cast<double>(run.ListView1.RowCount());
  state.counters["megabytes"] = static_cast<double>(page.size()) / 1e6;
}
BENCHMARK(BM_Import)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_StripDifferentTags(benchmark::State& state) {
  std::string text;
  for (int i = 0; text.size() < 8'000'000; ++i) text += "<" + std::to_string(i) + ">x";
  for (auto _ : state) benchmark::DoNotOptimize(StripTags(text));
}
BENCHMARK(BM_StripDifferentTags)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace requite
