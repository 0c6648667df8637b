// SPDX-License-Identifier: MIT
// Any result page, through its reader and through its plain form: both must keep the same domains. A NUL
// separates two pages of one harvest.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include "harvest/domain_harvest.h"
#include "support/fakes.h"
#include "support/plain_harvest.h"

namespace requite::test {
namespace {

/// A harvest with controls of its own, in a folder without a database, which does not change the count.
struct HarvestOfPages {
  explicit HarvestOfPages(const TemporaryFolder& folder)
      : Database(folder.Folder, Platform.Clock, Figures, Lists.List2),
        Harvest({Text1, Combo, Combo, Status, Text1, View, Sites, Database, Platform.EventLoop, folder.Folder,
                 [this](Counted) { ++Found; }, [] {}, [] {}, [] {}}) {}

  FakeServices Platform;
  Project Sites;
  ScanLists Lists;
  TextBox Text1{"Text1"};
  ComboBox Combo{"Combo1"};
  StatusBar Status{"StatusBar1"};
  BrowserView View{"WebBrowser1"};
  std::array<TextBox, Statistics::kLabels> Labels{TextBox{"0"}, TextBox{"1"}, TextBox{"2"}, TextBox{"3"},
                                                  TextBox{"4"}, TextBox{"5"}, TextBox{"6"}};
  Statistics Figures{Settings(Platform.Store), Labels};
  modDatabase Database;
  DomainHarvest Harvest;
  int Found = 0;
};

}  // namespace
}  // namespace requite::test

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace requite::test;
  static const TemporaryFolder folder;
  HarvestOfPages pages(folder);
  pages.Harvest.TargetResults = 1'000'000;
  const std::string text(reinterpret_cast<const char*>(data), size);
  std::string seen;
  int found = 0;
  for (const std::string& page : requite::Split(text, std::string_view("\0", 1))) {
    const auto kept = static_cast<std::int32_t>(PlainDomains(page, seen).size());
    found += kept;
    pages.Harvest.ExtractResultPage(page);
    if (pages.Harvest.PageResults != kept || pages.Found != found) std::abort();
    if (kept == 0) break;  // nothing new ends the harvest
    if (pages.Harvest.SeenDomains != seen) std::abort();
  }
  return 0;
}
