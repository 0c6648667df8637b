// SPDX-License-Identifier: MIT
// When what was put off is done.
#include "platform/late_work.h"

#include <gtest/gtest.h>

#include "platform/dialogs_after_late_work.h"
#include "support/fakes.h"

namespace requite::test {
namespace {

TEST(LateWork, WaitsOnlyWithinASliceAndIsDoneBeforeTheUserIsAsked) {
  LateWork late;
  std::vector<std::string> done;
  const int first = 0;
  const int second = 0;
  late.Add(&first, [&] {
    done.emplace_back("first");
    late.Finish();  // a task whose failure is reported may come here again
  });
  late.Add(&second, [&] { done.emplace_back("second"); });
  ScriptedDialogs dialogs;
  DialogsAfterLateWork asked(dialogs, late);
  dialogs.OnShow = [&] {
    done.emplace_back(late.MayWait() ? "box that lets work wait" : "box");
    const LateWork::Slice slice(late);  // events run while the box is open
    EXPECT_TRUE(late.MayWait());
  };

  EXPECT_FALSE(late.MayWait());
  {
    const LateWork::Slice slice(late);
    EXPECT_TRUE(late.MayWait());
    asked.Say("text");
    EXPECT_EQ(done, (std::vector<std::string>{"first", "second", "box"}));
    static_cast<void>(asked.AskOpenName({}));
    static_cast<void>(asked.AskSaveName({}));
    EXPECT_EQ(done.size(), 7U);
    EXPECT_TRUE(late.MayWait());
  }
  EXPECT_FALSE(late.MayWait());
  late.Remove(&first);
  late.Finish();
  EXPECT_EQ(done.size(), 8U);
}

}  // namespace
}  // namespace requite::test
