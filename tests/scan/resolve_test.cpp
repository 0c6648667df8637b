// SPDX-License-Identifier: MIT
// Links as they are mended, and which of them are ours.
#include "scan/resolve.h"

#include <gtest/gtest.h>

#include "scan/climb.h"
#include "support/analysis_rig.h"
#include "support/generated_page.h"

namespace requite::test {
namespace {

TEST(ResolveLink, AgreesWithThePlainWording) {
  ScanRig rig;
  PageGenerator generate(1);
  for (int i = 0; i < 20000; ++i) {
    rig.State.PageDir = "site.example/" + generate.Value(generate.Below(3));
    rig.State.Page.PageHost = "site.example";
    std::string value = generate.Value(generate.Below(8));
    // Four rounds of halving leave two of seventeen slashes, so long runs are needed.
    if (i % 4 == 0) value += std::string(static_cast<std::size_t>(generate.Below(40)), '/') + "x";
    constexpr std::array<std::string_view, 6> kCutEnds = {"", "", "/hre", "/HREF", "/http:", "/http"};
    value += generate.Pick(kCutEnds);
    rig.Services.Store.Set("chkSecure", i % 3 == 0 ? "1" : "0");
    std::string link = value;
    ASSERT_EQ(ResolveLink(rig.State, rig.Context.Settings, link), PlainResolveLink(rig.Context, value))
        << value << " on " << rig.State.PageDir;
  }
}

TEST(Climb, AgreesWithThePlainWordingForDotsAndSlashes) {
  std::mt19937 random(2);
  for (int i = 0; i < 20000; ++i) {
    std::string link = "..";
    for (auto length = random() % 40; length > 0; --length) link += "../..//x."[random() % 9];
    const std::string plain = PlainClimb("h/a/b/c/", link);
    const std::string shown = link;
    Climb("h/a/b/c/", link);
    ASSERT_EQ(link, plain) << shown;
  }
}

TEST(Climb, IsQuickForMillionsOfSteps) {
  std::string link;
  for (int i = 0; i < 1000000; ++i) link += "../";
  link += "x";
  Climb("h/a/", link);
  EXPECT_EQ(link, "h//x");  // the dots run together, and each step takes three
}

TEST(SiteTests, AgreeWithThePlainWording) {
  ScanRig rig;
  LinkingSiteList& list = rig.AddMainSite("main.example", {""});
  rig.State.SiteRow = 1;
  SiteTests sites(rig.Sites, rig.State);
  PageGenerator generate(3);
  for (int i = 0; i < 20000; ++i) {
    if (i % 3 == 0) rig.State.MainSiteKey = generate.Value(generate.Below(4));
    if (i % 5 == 0) list.Set(0, &LinkingSite::WebsiteUrl, generate.Value(generate.Below(4)));
    std::string url = generate.Value(generate.Below(6));
    std::string plainUrl = url;
    const std::string shown = url + " for " + rig.State.MainSiteKey + " on " + list.At(0).WebsiteUrl;
    ASSERT_EQ(sites.IsLinkToMainSite(url), PlainIsLinkToMainSite(rig.Context, url)) << shown;
    ASSERT_EQ(sites.IsOnLinkingSite(url), PlainIsOnLinkingSite(rig.Context, url)) << shown;
    ASSERT_EQ(sites.IsSameDomain(url), PlainIsSameDomain(rig.Context, plainUrl)) << shown;
    ASSERT_EQ(url, plainUrl);
  }
  rig.State.SiteRow = 2;
  EXPECT_THROW((void)sites.IsOnLinkingSite("x"), RuntimeFailure);
}

}  // namespace
}  // namespace requite::test
