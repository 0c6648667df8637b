// SPDX-License-Identifier: MIT
// What a project of 100,000 Linking Sites costs: writing, reading, loading from a file, sorting and selecting
// each row in turn; and how long a save takes, until the disk has it.
#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "editing/site_rig.h"
#include "model/project_reader.h"
#include "model/project_text.h"

namespace {

using namespace requite;

constexpr int kSites = 100'000;

/// Ten Main Sites with their share of the Linking Sites, a result for each of those and some rules.
void Fill(Project& project, int sites = kSites) {
  for (int k = 1; k <= 10; ++k) {
    project.AddMainSite("www.main" + std::to_string(k) + ".example");
    for (int i = 0; i < sites / 10; ++i) {
      const std::string host = "partner" + std::to_string((i * 7919) % kSites) + ".example";
      project.List1(k).Add({host + "/links/page.html", "1", "http://" + host + "/", "Partner of main site",
                            "A longer description of what this partner offers"});
      project.List3.Add({"main.example", host, "Direct Link", "001", host + "/links/page.html"}, kIconGood);
    }
  }
  for (int i = 0; i < sites / 100; ++i) project.lstRules.Add({"Global", "Global", "ExcludeString", "x"});
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

/// A save over an older file, as by the user or the auto-save, with all its flushes: this measures the disk
/// of TMPDIR. On a disk in memory only the program's own part is left.
void SaveProject(benchmark::State& state) {
  test::SiteRig rig;
  Fill(rig.Data, static_cast<int>(state.range(0)));
  const std::string path = rig.Folder.File("bench.prj");
  rig.Files.SaveProject(path);
  for (auto _ : state) rig.Files.SaveProject(path);
  state.counters["KB"] = static_cast<double>(std::filesystem::file_size(path)) / 1024;
}
BENCHMARK(SaveProject)
    ->Arg(40)
    ->Arg(4'500)
    ->Arg(22'500)
    ->ArgName("sites")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void LoadFile(benchmark::State& state) {
  Project filled;
  Fill(filled);
  const std::string path = (std::filesystem::temp_directory_path() / "requite-project-bench.prj").string();
  WriteFile(path, ProjectText(filled));
  for (auto _ : state) {
    Project project;
    project.CurrentMainSite = 1;
    ReadProjectText(ReadFile(path), project);
  }
  DeleteFile(path);
}
BENCHMARK(LoadFile)->Unit(benchmark::kMillisecond);

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
