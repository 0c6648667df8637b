// SPDX-License-Identifier: MIT
// Which URLs a rule keeps out, for which sites, and what the log then says.
#include "scan/rules.h"

#include <gtest/gtest.h>

#include "support/analysis_rig.h"
#include "support/generated_page.h"

namespace requite::test {
namespace {

struct RulesTest : testing::Test {
  RulesTest() {
    sites = &rig.AddMainSite("www.Main.example", {"site.example/start", "other.example"});
    rig.State.SiteRow = 1;
  }
  void Only(const Rule& rule) {
    rig.Sites.lstRules.Clear();
    rig.Sites.lstRules.Add(rule);
  }

  ScanRig rig;
  LinkingSiteList* sites = nullptr;
  Rules rules{rig.Sites, rig.State, rig.Context.Settings, rig.Folder.Folder};
};

TEST_F(RulesTest, ARuleForASiteStopsApplyingWhenTheRowChanges) {
  Only({"Global", "site.example/start", "ExcludeString", "x"});
  EXPECT_FALSE(rules.PassesRules("x"));
  sites->Set(0, &LinkingSite::WebsiteUrl, "site.example/found");
  EXPECT_TRUE(rules.PassesRules("x"));
  rig.Sites.lstRules.Set(0, &Rule::RemoteSite, "site.example/found");
  EXPECT_FALSE(rules.PassesRules("x"));
  rig.State.SiteRow = 2;
  EXPECT_TRUE(rules.PassesRules("x"));
}

TEST_F(RulesTest, TheFirstFailureIsLogged) {
  rig.Services.Store.Set("chkLog", "1");
  rig.Sites.lstRules.Add({"Global", "Global", "LimitString", "site"});
  rig.Sites.lstRules.Add({"Global", "Global", "ExcludeRoot", "deep"});
  rig.Sites.lstRules.Add({"Global", "Global", "ExcludeDirectory", "deep"});
  EXPECT_TRUE(rules.PassesRules("site.example/"));
  EXPECT_FALSE(FileExists(rig.Folder.File("rules.log")));
  EXPECT_FALSE(rules.PassesRules("site.example/deep/"));
  EXPECT_FALSE(rules.PassesRules("other"));
  EXPECT_EQ(ReadFile(rig.Folder.File("rules.log")),
            "Excluded Site: site.example/deep/\r\nRule Type: ExcludeRoot\r\nRule Value: deep\r\n\r\n\r\n"
            "Excluded Site: other\r\nRule Type: LimitString\r\nRule Value: site\r\n\r\n\r\n");
}

TEST_F(RulesTest, NoLogWithoutTheSettingAndNoFailureForALogThatCannotBeWritten) {
  Only({"Global", "Global", "ExcludeString", "x"});
  EXPECT_FALSE(rules.PassesRules("x"));
  EXPECT_FALSE(FileExists(rig.Folder.File("rules.log")));
  rig.Services.Store.Set("chkLog", "1");
  std::filesystem::create_directory(rig.Folder.File("rules.log"));
  EXPECT_FALSE(rules.PassesRules("x"));
}

TEST_F(RulesTest, AgreeWithThePlainWording) {
  PageGenerator generate(4);
  constexpr std::array<std::string_view, 7> kTypes = {
      "LimitDirectory", "ExcludeDirectory", "LimitString", "ExcludeString",
      "LimitRoot",      "ExcludeRoot",      "None"};
  constexpr std::array<std::string_view, 5> kMains = {"Global", "www.Main.example", "global",
                                                      "www.main.example", "Main.example"};
  constexpr std::array<std::string_view, 6> kRemotes = {"Global",       "site.example/start", "other.example",
                                                        "site.example", "Site.example/start", "global"};
  for (int round = 0; round < 2000; ++round) {
    rig.Sites.lstRules.Clear();
    for (int i = generate.Below(4); i > 0; --i) {
      rig.Sites.lstRules.Add({generate.Pick(kMains), generate.Pick(kRemotes), generate.Pick(kTypes),
                              generate.Value(generate.Below(3))});
    }
    rig.State.SiteRow = 1 + generate.Below(2);
    for (int i = 0; i < 5; ++i) {
      const std::string url = generate.Value(generate.Below(6));
      ASSERT_EQ(rules.PassesRules(url), PlainPassesRules(rig.Context, url)) << url;
    }
  }
}

}  // namespace
}  // namespace requite::test
