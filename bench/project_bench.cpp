// SPDX-License-Identifier: MIT
// What a project of 100,000 Linking Sites costs: to write, to read, to save and load as a file, to
// sort and to walk through by selecting each row.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "model/project_reader.h"
#include "model/project_text.h"
#include "platform/files.h"

namespace {

using namespace requite;

constexpr int kSites = 100'000;

/// Ten Main Sites with their share of the Linking Sites, a result for each of those and some rules.
void Fill(Project& project) {
  for (int k = 1; k <= 10; ++k) {
    project.AddMainSite("www.main" + std::to_string(k) + ".example");
    for (int i = 0; i < kSites / 10; ++i) {
      const std::string host = "partner" + std::to_string((i * 7919) % kSites) + ".example";
      project.List1(k).Add({host + "/links/page.html", "1", "http://" + host + "/", "Partner of main site",
                            "A longer description of what this partner offers"});
      project.List3.Add({"main.example", host, "Direct Link", "001", host + "/links/page.html"}, kIconGood);
    }
  }
  for (int i = 0; i < 1000; ++i) project.lstRules.Add({"Global", "Global", "ExcludeString", "x"});
  project.txtHTML1.SetText("<html>\r\n<body>");
  project.txtHTML2.SetText("links");
  project.txtHTML3.SetText("</body>\r\n</html>");
}

void WriteText(benchmark::State& state) {
  Project project;
  Fill(project);
  for (auto _ : state) benchmark::DoNotOptimize(ProjectText(project));
}
BENCHMARK(WriteText)->Unit(benchmark::kMillisecond);

void ReadText(benchmark::State& state) {
  Project filled;
  Fill(filled);
  const std::string text = ProjectText(filled);
  for (auto _ : state) {
    Project project;
    project.CurrentMainSite = 1;
    if (state.range(0) != 0) project.List3.SetSort({true, 1, 0});
    if (!ReadProjectText(text, project)) state.SkipWithError("the end was not reached");
  }
}
BENCHMARK(ReadText)->Arg(0)->Arg(1)->ArgName("sorted")->Unit(benchmark::kMillisecond);

void SaveAndLoadFile(benchmark::State& state) {
  Project filled;
  Fill(filled);
  const std::string path = (std::filesystem::temp_directory_path() / "requite-project-bench.prj").string();
  for (auto _ : state) {
    WriteFile(path, ProjectText(filled));
    Project project;
    project.CurrentMainSite = 1;
    ReadProjectText(ReadFile(path), project);
  }
  DeleteFile(path);
}
BENCHMARK(SaveAndLoadFile)->Unit(benchmark::kMillisecond);

void SortResults(benchmark::State& state) {
  Project project;
  Fill(project);
  int order = 0;
  for (auto _ : state) {
    project.List3.SetSort({true, 1, order});
    order = 1 - order;
  }
}
BENCHMARK(SortResults)->Unit(benchmark::kMillisecond);

void SelectEachRow(benchmark::State& state) {
  Project project;
  Fill(project);
  for (auto _ : state) {
    for (int row = 0; row < kSites; ++row) project.List3.SelectOnly(row);
  }
}
BENCHMARK(SelectEachRow)->Unit(benchmark::kMillisecond);

}  // namespace
