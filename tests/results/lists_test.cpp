// SPDX-License-Identifier: MIT
// What the user does with the result lists: sort, browse, copy, mark.
#include <gtest/gtest.h>

#include "model/project.h"
#include "results/results_popup.h"
#include "results/sorting.h"
#include "results/web_tab.h"
#include "support/fakes.h"

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

struct LinksTab {
  RecordList<LinkResult> List3{"List3"};
  RecordList<ErrorEntry> lstErr{"lstErr"};
  TabStrip TabStrip1{"TabStrip1", {{"Links", ""}, {"Web", ""}}};
  BrowserView WebBrowser1{"WebBrowser1"};
  TextBox lblErr{"lblErr", "Errors/Warnings:"};
  TextBox txtURL{"txtURL"};
  FakeShell Shell;
  FakeClipboard Clipboard;
  WebTab Tab{{TabStrip1, WebBrowser1, List3, lstErr, lblErr, txtURL}, Shell};
  ResultsPopup Popup{List3, Clipboard, [this](const std::string& url) { Tab.BrowseInWebTab(url); }};

  LinksTab() {
    WebBrowser1.SetVisible(false);
    List3.Add({"main.example", "partner.example", "None Found (Timeout)", "000", "partner.example/p"}, 1,
              kRed);
  }
};

TEST(ResultsPopup, BrowsesCopiesAndMarksTheSelectedRow) {
  LinksTab tab;
  for (int entry = -1; entry < 10; ++entry) tab.Popup.Click(entry);  // without a row
  EXPECT_EQ(tab.WebBrowser1.AskedFor(), "");
  EXPECT_EQ(tab.List3.At(0).Linking, "partner.example");
  tab.List3.SelectOnly(0);
  const std::array<std::string, 3> fields{"main.example", "partner.example", "partner.example/p"};
  for (int i = 0; i < 3; ++i) {
    const std::string& field = fields[static_cast<std::size_t>(i)];
    tab.Popup.Click(i);
    EXPECT_EQ(tab.WebBrowser1.AskedFor(), "http://" + field);
    tab.Popup.Click(i + 3);
    EXPECT_EQ(tab.Clipboard.Text, field);
  }
  for (const auto& [entry, words, colour] : {std::tuple(7, "Direct Link", kBlue), {8, "None Found", kRed}}) {
    tab.Popup.Click(entry);
    EXPECT_EQ(tab.List3.At(0).Linking, words) << "a mark goes into the wrong column";
    EXPECT_EQ(tab.List3.At(0).Status, "None Found (Timeout)");
    EXPECT_EQ(tab.List3.Colour(0), colour);
  }
}

TEST(WebTab, BrowsingShowsTheTabAndAddsASchemeOnlyWithoutTheLetters) {
  LinksTab tab;
  tab.Tab.BrowseInWebTab("partner.example/x");
  EXPECT_EQ(tab.TabStrip1.Selected(), 2);
  EXPECT_TRUE(tab.WebBrowser1.Visible());
  EXPECT_FALSE(tab.List3.Visible() || tab.lstErr.Visible() || tab.lblErr.Visible());
  EXPECT_EQ(tab.txtURL.Text(), "http://partner.example/x");
  EXPECT_TRUE(tab.WebBrowser1.Silent);
  for (const char* url : {"myHTTPserver.example", "HTTPS://a.example/"}) {
    tab.Tab.BrowseInWebTab(url);
    EXPECT_EQ(tab.WebBrowser1.AskedFor(), url);
  }
}

TEST(WebTab, AnErrorRowOpensInsideWithoutTouchingTheAddressBox) {
  LinksTab tab;
  tab.lstErr.Add({"404 Not found", "a.example/gone.html"});
  tab.Tab.OpenErrorInside();
  EXPECT_EQ(tab.TabStrip1.Selected(), 1);
  tab.lstErr.SelectOnly(0);
  tab.Tab.OpenErrorInside();
  EXPECT_EQ(tab.WebBrowser1.AskedFor(), "http://a.example/gone.html");
  EXPECT_EQ(tab.TabStrip1.Selected(), 2);
  EXPECT_FALSE(tab.lstErr.Visible());
  EXPECT_EQ(tab.txtURL.Text(), "");
  EXPECT_FALSE(tab.WebBrowser1.Silent);
}

}  // namespace
}  // namespace requite::test
