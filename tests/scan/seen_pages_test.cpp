// SPDX-License-Identifier: MIT
// What counts as seen: other Linking Sites, the queue, and the slots of the seen table, stale ones too.
#include "scan/seen_pages.h"

#include <gtest/gtest.h>

#include "scan/seen_url.h"
#include "support/analysis_rig.h"
#include "support/generated_page.h"

namespace requite::test {
namespace {

TEST(IsSeenUrl, AgreesWithThePlainWording) {
  ScanRig rig;
  LinkingSiteList& sites = rig.AddMainSite("main.example", {"a", "", "www."});
  std::vector<std::string> seen(30);
  PageGenerator generate(6);
  for (int i = 0; i < 20000; ++i) {
    const std::string entry = generate.Value(generate.Below(3));
    const int slot = generate.Below(30);
    if (i % 7 == 0) sites.Set(static_cast<std::size_t>(generate.Below(3)), &LinkingSite::WebsiteUrl, entry);
    if (i % 5 == 0) {
      seen[static_cast<std::size_t>(slot)] = entry;
      rig.State.SeenPages.Store(slot, HashedText(Lower(entry)));
    }
    if (i % 3 == 0) rig.Lists.List2.Add({entry});
    if (rig.Lists.List2.RowCount() > 4) rig.Lists.List2.Remove(0);
    rig.State.PagesQueued = generate.Below(30);
    std::string url = generate.Value(generate.Below(4));
    std::string plainUrl = url;
    const std::string shown = url;
    ASSERT_EQ(IsSeenUrl(rig.Sites, rig.Lists.List2, rig.State, url),
              PlainIsSeenUrl(rig.Context, seen, plainUrl))
        << shown;
    ASSERT_EQ(url, plainUrl) << shown;
  }
}

TEST(RecordedPages, LookAtTheNumberColumnOnly) {
  ScanRig rig;
  RecordedPages recorded(rig.Sites.List3);
  const auto isRecorded = [&recorded](std::string page) { return recorded.IsPageRecorded(page); };
  rig.Sites.List3.Add({"m", "l", "Direct Link", "012", "site.example/x"});
  EXPECT_FALSE(isRecorded("site.example/x"));
  EXPECT_TRUE(isRecorded("12"));
  EXPECT_TRUE(isRecorded(""));
  rig.Sites.List3.Add({"m", "l", "Direct Link", "013", "site.example/x"});
  rig.Sites.List3.Set(0, &LinkResult::No, "see SITE.example");
  EXPECT_TRUE(isRecorded("site.example"));
  rig.Sites.List3.Remove(0);
  EXPECT_FALSE(isRecorded("site.example"));
  std::string page = " http://tp://site.example/x ";
  EXPECT_FALSE(recorded.IsPageRecorded(page));
  EXPECT_EQ(page, "site.example/x");
}

}  // namespace
}  // namespace requite::test
