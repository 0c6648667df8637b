// SPDX-License-Identifier: MIT
// A list and its index held against plain ones through long random edits, and what its view is told.
#include "model/record_list.h"

#include <gmock/gmock.h>

#include <random>

#include "model/keyed_list.h"
#include "model/project.h"
#include "support/rows.h"

namespace requite::test {
namespace {

using testing::ElementsAre;

struct Observed : ListObserver {
  void RowAdded(std::size_t row) override { Said.push_back("added " + std::to_string(row)); }
  void RowRemoved(std::size_t row) override { Said.push_back("removed " + std::to_string(row)); }
  void RowChanged(std::size_t row) override { Said.push_back("changed " + std::to_string(row)); }
  void ListReset() override { Said.emplace_back("reset"); }
  void SelectionChanged() override { Said.emplace_back("selection"); }
  std::vector<std::string> Said;
};

LinkResult Result(const std::string& main, const std::string& no = "") { return {main, "", "", no, ""}; }

TEST(RecordList, ASortedListPlacesNewRowsBehindTheirEquals) {
  RecordList<LinkResult> list("List3");
  for (const char* main : {"b", "D", "a"}) list.Add(Result(main, "1"));
  list.SetSort({true, 0, 0});
  EXPECT_EQ(list.Add(Result("B", "2")), 2U);  // letter case does not count
  EXPECT_EQ(list.Add(Result("c", "2")), 3U);
  EXPECT_THAT(Rows(list), ElementsAre("a|||1|", "b|||1|", "B|||2|", "c|||2|", "D|||1|"));
  list.SetSort({true, 0, 1});
  EXPECT_EQ(list.Add(Result("b", "3")), 4U);
  EXPECT_THAT(Rows(list), ElementsAre("D|||1|", "c|||2|", "b|||1|", "B|||2|", "b|||3|", "a|||1|"));
  list.SetSort({false, 0, 1});
  EXPECT_EQ(list.Add(Result("a", "4")), 6U);
}

TEST(RecordList, TheSelectionStaysWithItsRows) {
  RecordList<LinkResult> list("List3");
  for (const char* main : {"b", "c", "a"}) list.Add(Result(main));
  list.SelectOnly(1);
  list.SetSort({true, 0, 0});
  EXPECT_EQ(list.At(static_cast<std::size_t>(list.SelectedRow())).Main, "c");
  list.Add(Result("A"));
  EXPECT_EQ(list.SelectedRow(), 3);
  list.Remove(0);
  EXPECT_EQ(list.SelectedRow(), 2);

  list.AlsoSelect(0);  // two rows now; the last one selected is the selected one, also after a sort
  EXPECT_EQ(list.SelectedRow(), 0);
  list.SetSort({true, 0, 1});
  EXPECT_EQ(list.SelectedRow(), 2);
  list.Remove(2);
  EXPECT_EQ(list.SelectedRow(), 0) << "while rows are selected one of them is the selected one";
  list.Remove(0);
  EXPECT_EQ(list.SelectedRow(), -1);
}

TEST(RecordList, TheObserverHearsEachChangeAndTheVersionCountsThoseOfTheRows) {
  RecordList<LinkResult> list("List3");
  Observed view;
  list.SetObserver(&view);
  const auto changes = [&](auto&& change) {
    const auto before = list.Version();
    change();
    return list.Version() != before;
  };
  EXPECT_TRUE(changes([&] { list.Add(Result("b"), kIconGood, kBlue); }));
  EXPECT_TRUE(changes([&] { list.Add(Result("a")); }));
  EXPECT_TRUE(changes([&] { list.SetFieldAt(1, 2, "Direct Link"); }));
  EXPECT_FALSE(changes([&] { list.SetColour(0, kRed); }));
  EXPECT_FALSE(changes([&] { list.SelectOnly(1); }));
  EXPECT_TRUE(changes([&] { list.SetSort({true, 0, 0}); }));
  EXPECT_EQ(list.Icon(1), kIconGood);
  EXPECT_EQ(list.Colour(1), kRed);
  EXPECT_TRUE(changes([&] { list.Remove(1); }));
  EXPECT_FALSE(changes([&] { list.RemoveWhere([](const LinkResult& r) { return r.Main == "b"; }); }));
  EXPECT_TRUE(changes([&] { list.RemoveWhere([](const LinkResult& r) { return r.Main == "a"; }); }));
  EXPECT_TRUE(changes([&] { list.Clear(); }));
  EXPECT_THAT(view.Said, ElementsAre("added 0", "added 1", "changed 1", "changed 0", "selection", "reset",
                                     "removed 1", "reset", "reset"));
}

/// The plain form of what a list does, with the selection as the text of rows.
struct PlainRow {
  std::string Text;
  bool Selected = false;
};

TEST(RecordList, RandomEditsAgreeWithAPlainListAndItsIndex) {
  std::mt19937 random(7);
  const auto upTo = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
  PageQueue list("List2");
  std::vector<PlainRow> plain;
  const auto plainHas = [&](const std::string& key) {
    return std::any_of(plain.begin(), plain.end(), [&](const PlainRow& r) { return Lower(r.Text) == key; });
  };
  for (int step = 0; step < 5000; ++step) {
    const std::string text = (step % 2 == 0 ? "A" : "a") + std::to_string(upTo(20));
    const std::size_t row = plain.empty() ? 0 : upTo(plain.size());
    switch (plain.empty() ? 0 : upTo(9)) {
      case 0:
      case 1:
      case 2:
        plain.insert(plain.begin() + static_cast<std::ptrdiff_t>(list.Add({text})), PlainRow{text});
        break;
      case 3:
        list.Set(row, &QueuedPage::Url, text);
        plain[row].Text = text;
        break;
      case 4:
        list.Remove(row);
        plain.erase(plain.begin() + static_cast<std::ptrdiff_t>(row));
        break;
      case 5:
        list.SelectOnly(static_cast<int>(row));
        for (PlainRow& each : plain) each.Selected = false;
        plain[row].Selected = true;
        break;
      case 6:
        list.AlsoSelect(row);
        plain[row].Selected = true;
        break;
      case 7: {
        const std::string gone = plain[row].Text;
        EXPECT_EQ(list.RemoveWhere([&](const QueuedPage& page) { return page.Url == gone; }),
                  std::erase_if(plain, [&](const PlainRow& each) { return each.Text == gone; }));
        break;
      }
      default:
        if (upTo(40) == 0) {
          list.Clear();
          plain.clear();
        } else if (upTo(10) == 0) {
          list.SetSort({true, 0, step % 3 == 0 ? 1 : 0});
          std::stable_sort(plain.begin(), plain.end(), [&](const PlainRow& a, const PlainRow& b) {
            const int order = CompareText(a.Text, b.Text);
            return step % 3 == 0 ? order > 0 : order < 0;
          });
          list.SetSort({false, 0, 0});
        }
    }
    ASSERT_EQ(list.RowCount(), plain.size());
    bool anySelected = false;
    for (std::size_t i = 0; i < plain.size(); ++i) {
      ASSERT_EQ(list.At(i).Url, plain[i].Text) << step;
      ASSERT_EQ(list.IsSelected(i), plain[i].Selected) << step;
      anySelected = anySelected || plain[i].Selected;
    }
    ASSERT_EQ(list.SelectedRow() >= 0, anySelected) << step;
    if (anySelected) {
      ASSERT_TRUE(list.IsSelected(static_cast<std::size_t>(list.SelectedRow()))) << step;
    }
    if (step > 100) {
      ASSERT_EQ(list.HasKey(HashedText(Lower(text))), plainHas(Lower(text))) << step;
    }
  }
}

TEST(KeyedList, LinkingSitesAreFoundWithoutWwwAndWithoutLetterCase) {
  LinkingSiteList list("List1(1)");
  list.Add({"www.Site.example/Links", "1", "", "", ""});
  EXPECT_TRUE(list.HasKey(HashedText(WebsiteKey::Of("SITE.example/links"))));
  list.Set(0, &LinkingSite::WebsiteUrl, "WWW.site.example");  // capitals are no "www."
  EXPECT_FALSE(list.HasKey(HashedText(WebsiteKey::Of("site.example"))));
  EXPECT_TRUE(list.HasKey(HashedText("www.site.example")));
}

TEST(Project, ListsAreNumberedWithoutGapsAndTheTemplateIsNoneOfThem) {
  Project project;
  std::vector<std::string> said;
  project.OnListCreated = [&](LinkingSiteList& list, int k) {
    said.push_back(list.Name() + (project.ListCount() == k ? " made" : " out of step"));
  };
  project.OnListDropped = [&](LinkingSiteList& list, int k) {
    said.push_back(list.Name() + " " + std::to_string(k) + " goes");
  };
  project.AddMainSite("one.example");
  project.CreateLinkingSiteList();
  EXPECT_FALSE(project.List1(2).Visible());
  EXPECT_EQ(project.List1(0).RowCount(), 0U);
  EXPECT_THROW(static_cast<void>(project.List1(3)), RuntimeFailure);
  EXPECT_THROW(static_cast<void>(project.List1(-1)), RuntimeFailure);
  project.DropLinkingSiteLists();
  EXPECT_EQ(project.ListCount(), 0);
  EXPECT_THAT(said, ElementsAre("List1(1) made", "List1(2) made", "List1(2) 2 goes", "List1(1) 1 goes"));
}

}  // namespace
}  // namespace requite::test
