// SPDX-License-Identifier: MIT
// What the user does with the result lists: sort, browse, copy, mark.
#include <gtest/gtest.h>

#include "shell/main_window/form1_rig.h"
#include "shell/main_window/sorting.h"

namespace requite::test {
namespace {

LinkResult Row(const std::string& linking, const std::string& status, const std::string& no) {
  return {"main.example", linking, status, no, linking + "/links.html"};
}

std::string Column(const ListView& view, std::size_t column) {
  std::string all;
  for (std::size_t row = 0; row < view.RowCount(); ++row) all += view.FieldAt(row, column) + " ";
  return all;
}

TEST(Sorting, TheDirectionFlipsWhateverColumnIsClicked) {
  RecordList<LinkResult> list("List3");
  ScriptedDialogs dialogs;
  list.Add(Row("b", "x", "009"));
  list.Add(Row("C", "y", "010"));
  list.Add(Row("a", "z", "001"));
  EXPECT_TRUE(EnhListView_SortColumns(list, 2, dialogs));
  EXPECT_EQ(Column(list, 1), "C b a ");
  EXPECT_TRUE(EnhListView_SortColumns(list, 4, dialogs));
  EXPECT_EQ(Column(list, 3), "001 009 010 ");
  EXPECT_TRUE(EnhListView_SortColumns(list, 2, dialogs));
  EXPECT_EQ(Column(list, 1), "C b a ");
  list.Add(Row("bb", "w", "002"));
  EXPECT_EQ(Column(list, 1), "C bb b a ");
}

TEST(Sorting, AFailureIsToldInItsOwnBox) {
  RecordList<ErrorEntry> list("lstErr");
  ScriptedDialogs dialogs;
  list.Add({"404 Not found", "a.example/"});
  EXPECT_FALSE(EnhListView_SortColumns(list, 9, dialogs));
  ASSERT_EQ(dialogs.Boxes.size(), 1U);
  EXPECT_EQ(dialogs.Boxes[0].Title, "Error in Function : EnhListView_SortColumns");
  EXPECT_EQ(dialogs.Boxes[0].Text, "Error380\tInvalid property value");
  EXPECT_EQ(dialogs.Boxes[0].Icon, BoxIcon::Information);
}

struct LinksTab : Form1Rig {
  LinksTab() {
    Form.Start();
    Form.Sites.List3.Add(
        {"main.example", "partner.example", "None Found (Timeout)", "000", "partner.example/p"}, 1, kRed);
  }
};

TEST(ResultsPopup, BrowsesCopiesAndMarksTheSelectedRow) {
  LinksTab tab;
  for (int entry = -1; entry < 10; ++entry) tab.Form.Popup2.Click(entry);  // without a row
  EXPECT_EQ(tab.Form.TabStrip1.Selected(), 1);
  EXPECT_EQ(tab.Form.Sites.List3.At(0).Linking, "partner.example");
  tab.Form.Sites.List3.SelectOnly(0);
  const std::array<std::string, 3> fields{"main.example", "partner.example", "partner.example/p"};
  for (int i = 0; i < 3; ++i) {
    const std::string& field = fields[static_cast<std::size_t>(i)];
    tab.Form.Popup2.Click(i);
    EXPECT_EQ(tab.Form.WebBrowser1.AskedFor(), "http://" + field);
    tab.Form.Popup2.Click(i + 3);
    EXPECT_EQ(tab.Services.Clipboard.Text, field);
  }
  for (const auto& [entry, words, colour] : {std::tuple(7, "Direct Link", kBlue), {8, "None Found", kRed}}) {
    tab.Form.Popup2.Click(entry);
    EXPECT_EQ(tab.Form.Sites.List3.At(0).Linking, words) << "a mark is written into the wrong column";
    EXPECT_EQ(tab.Form.Sites.List3.At(0).Status, "None Found (Timeout)");
    EXPECT_EQ(tab.Form.Sites.List3.Colour(0), colour);
  }
}

TEST(WebTab, BrowsingShowsTheTabAndAddsASchemeOnlyWithoutTheLetters) {
  LinksTab tab;
  tab.Form.Web.BrowseInWebTab("partner.example/x");
  EXPECT_EQ(tab.Form.TabStrip1.Selected(), 2);
  EXPECT_TRUE(tab.Form.WebBrowser1.Visible());
  EXPECT_FALSE(tab.Form.Sites.List3.Visible() || tab.Form.Lists.lstErr.Visible() ||
               tab.Form.lblErr.Visible());
  EXPECT_EQ(tab.Form.txtURL.Text(), "http://partner.example/x");
  EXPECT_TRUE(tab.Form.WebBrowser1.Silent);
  for (const char* url : {"myHTTPserver.example", "HTTPS://a.example/"}) {
    tab.Form.Web.BrowseInWebTab(url);
    EXPECT_EQ(tab.Form.WebBrowser1.AskedFor(), url);
  }
}

TEST(WebTab, AnErrorRowOpensInsideWithoutTouchingTheAddressBox) {
  LinksTab tab;
  tab.Form.Lists.lstErr.Add({"404 Not found", "a.example/gone.html"});
  tab.Form.Lists.lstErr.OnLabelEdit(0);
  EXPECT_EQ(tab.Form.TabStrip1.Selected(), 1) << "no row is selected";
  tab.Form.Lists.lstErr.SelectOnly(0);
  tab.Form.Lists.lstErr.OnLabelEdit(0);
  EXPECT_EQ(tab.Form.WebBrowser1.AskedFor(), "http://a.example/gone.html");
  EXPECT_EQ(tab.Form.TabStrip1.Selected(), 2);
  EXPECT_FALSE(tab.Form.Lists.lstErr.Visible());
  EXPECT_EQ(tab.Form.txtURL.Text(), "");
  EXPECT_FALSE(tab.Form.WebBrowser1.Silent);
  tab.Form.Lists.lstErr.OnDoubleClick(0);
  EXPECT_EQ(tab.Services.Shell.Opened, std::vector<std::string>{"http://a.example/gone.html"});
}

}  // namespace
}  // namespace requite::test
