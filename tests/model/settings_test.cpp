// SPDX-License-Identifier: MIT
// Settings are texts, read as numbers only where they are used.
#include "model/settings.h"

#include <gtest/gtest.h>

#include "support/failure_number.h"
#include "support/fakes.h"

namespace requite::test {
namespace {

TEST(Settings, AMissingKeyGivesItsDefaultAndAnEmptyValueDoesNot) {
  MemorySettings store;
  const Settings settings(store);
  EXPECT_EQ(settings.GetSetting(setting::txtTimeout), "60");
  EXPECT_TRUE(settings.IsOne(setting::chkAuto));
  store.Set("txtTimeout", "");
  EXPECT_EQ(settings.GetSetting(setting::txtTimeout), "");
}

TEST(Settings, OnlyTheValueOneIsOne) {
  MemorySettings store;
  const Settings settings(store);
  for (const std::string_view value : {"0", "2", "-1", "11"}) {
    store.Set("chkAuto", value);
    EXPECT_FALSE(settings.IsOne(setting::chkAuto)) << value;
  }
  store.Set("CHKAUTO", " 1.4 ");
  EXPECT_TRUE(settings.IsOne(setting::chkAuto));
}

TEST(Settings, AStoredTextThatIsNoNumberFailsWhereItIsRead) {
  MemorySettings store;
  const Settings settings(store);
  struct Row {
    std::string_view Value;
    int Failure;  // 0: none
    int LongFailure;
  };
  for (const Row& row : {Row{"x", 13, 13}, Row{"", 13, 13}, Row{"40000", 6, 0}, Row{"3000000000", 6, 6}}) {
    store.Set("lHistWebScanned", row.Value);
    EXPECT_EQ(NumberOf([&] { return settings.Number(setting::lHistWebScanned); }), row.Failure) << row.Value;
    EXPECT_EQ(NumberOf([&] { return settings.LongNumber(setting::lHistWebScanned); }), row.LongFailure)
        << row.Value;
  }
}

}  // namespace
}  // namespace requite::test
