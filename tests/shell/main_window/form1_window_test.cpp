// SPDX-License-Identifier: MIT
// What the main window's controls do: enabled states, tabs, menus, lists and the Web tab.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>

#include "scan/scan_share.h"
#include "shell/main_window/form1_rig.h"

namespace requite {
namespace {

using test::Form1Rig;

/// The names of the given controls that are enabled in effect.
std::string EnabledOf(Form1& form, std::initializer_list<const char*> names) {
  std::string enabled;
  for (const char* name : names) {
    const NamedControl control = form.Controls.Find(name);
    EXPECT_TRUE(control) << name;
    if (control && control.Which->EnabledInEffect()) enabled += std::string(name) + " ";
  }
  return enabled;
}

std::string Commands(Form1& form) {
  return EnabledOf(form, {"Command1", "cmdStop", "cmdSkip", "cmdNextSearch", "Command10", "Command11",
                          "cmdNew", "cmdOpen", "cmdSave", "txtDomain", "List4", "cmdAdd2", "cmdResume",
                          "cmdViewDatabase", "Command2", "Command3"});
}

TEST(Form1Commands, AreSwitchedByTheStartAndTheEndOfAScan) {
  Form1Rig rig;
  rig.Form.Start();
  EXPECT_EQ(Commands(rig.Form),
            "Command1 cmdNextSearch Command10 Command11 cmdNew cmdOpen cmdSave txtDomain List4 "
            "cmdViewDatabase Command2 Command3 ");
  rig.AddSites("main.example", {"partner.example"});
  rig.Form.Command1.Click();
  // Start Scan itself stays enabled until the second site begins: that gap is wanted.
  EXPECT_EQ(Commands(rig.Form), "Command1 cmdStop cmdSkip cmdNextSearch Command11 ");
  EXPECT_EQ(rig.Services.Connection.Host, "partner.example");
  rig.Form.Lists.List2.Add({"partner.example/next"});
  rig.Form.cmdDoSearch.Click();
  EXPECT_EQ(Commands(rig.Form), "cmdStop cmdSkip cmdNextSearch Command11 ");
  rig.Form.cmdStop.Click();
  EXPECT_EQ(Commands(rig.Form),
            "Command1 Command10 Command11 cmdNew cmdOpen cmdSave txtDomain List4 cmdAdd2 cmdResume "
            "cmdViewDatabase Command2 Command3 ");
}

TEST(Form1Https, SitesThatWereNotReadAreOfferedSecureConnectionsAndTheSameScan) {
  Form1Rig rig;
  Form1& form = rig.Form;
  form.Start();
  std::vector<std::string> sites;
  for (int site = 0; site < 32; ++site)
    sites.push_back(std::string(100, 'x') + std::to_string(site) + "/dir");
  rig.AddSites("main.example", sites);
  rig.AddSites("second.example", {"WWW.one.example", "http://www.ONE.example/links.html"});
  int offers = 0;
  form.OnHttpsOnly = [&offers] { ++offers; };
  const auto scan = [&rig, &form] {
    form.Command1.Click();
    while (form.State.Scanning)
      rig.Services.Connection.Serve("HTTP/1.1 301 Moved\r\nLocation: https://a.example/\r\n\r\n");
  };
  form.mnuScan.Click(1);
  scan();
  EXPECT_EQ(form.HttpsOnly.Words(), "1 site answers over HTTPS only; this scan could not read it.");
  EXPECT_EQ(form.HttpsOnly.Names(), "one.example");
  form.mnuScan.Click(0);
  scan();
  EXPECT_EQ(form.HttpsOnly.Words(), "33 sites answer over HTTPS only; this scan could not read them.");
  EXPECT_TRUE(form.HttpsOnly.Names().ends_with("xxx...\nand 13 more")) << form.HttpsOnly.Names();
  EXPECT_LT(form.HttpsOnly.Names().size(), 2000U);
  EXPECT_EQ(offers, 2);

  form.mnuScan.Click(1);  // changed after the scan: "again" means the same scan
  form.Windows.Show("frmOptions");
  form.TurnOnSecureAndScanAgain();
  EXPECT_EQ(rig.Setting("chkSecure"), "1");
  EXPECT_TRUE(form.State.Scanning);
  EXPECT_EQ(form.State.ScanType, ScanType::AllMainSites);
  EXPECT_TRUE(form.HttpsOnly.Empty());
  while (form.State.Scanning)
    rig.Services.Connection.Serve("HTTP/1.1 301 Moved\r\nLocation: https://a.example/\r\n\r\n");
  EXPECT_TRUE(form.HttpsOnly.Empty()) << "secure connections are on";
  EXPECT_EQ(offers, 2);
}

TEST(Form1Tabs, EachShowsItsControlsAndHidesAllOthers) {
  Form1Rig rig;
  rig.Form.Start();
  const std::vector<std::string> ofTab[] = {
      {"List3", "lstErr", "lblErr"},
      {"WebBrowser1", "cmdBack", "cmdForward", "cmdWebStop", "cmdRefresh", "cmdGo", "txtURL"},
      {"Frame5"},
      {"WebBrowser2", "Command8", "Command8a"},
      {"framePost", "SkinLabel9"}};
  const auto expectOnShow = [&](int shown) {
    for (int tab = 1; tab <= 5; ++tab) {
      for (const std::string& name : ofTab[tab - 1]) {
        EXPECT_EQ(rig.Form.Controls.Find(name).Which->Visible(), tab == shown) << name << " on tab " << shown;
      }
    }
  };
  expectOnShow(1);
  for (const int tab : {3, 2, 5, 4, 1}) {
    rig.Form.TabStrip1.Select(tab);
    expectOnShow(tab);
  }
  rig.Form.ShowTab(0);
  rig.Form.ShowTab(6);
  expectOnShow(1);
}

TEST(Form1Tabs, PagesAddsTheMainSitesAtEachVisitAndPostFillsAnew) {
  Form1Rig rig;
  rig.Form.Start();
  rig.AddSites("a.example", {});
  rig.AddSites("b.example", {});
  rig.Form.cmbSites.UserSets("Select");
  for (int visit = 0; visit < 3; ++visit) {
    rig.Form.TabStrip1.Select(3);
    rig.Form.TabStrip1.Select(5);
  }
  EXPECT_EQ(rig.Form.Combo3.Items().size(), 6U);
  EXPECT_EQ(rig.Form.Combo3.Text(), "Select");
  EXPECT_EQ(rig.Form.cmbSites.Items(), (std::vector<std::string>{"a.example", "b.example"}));
}

TEST(Form1Lists, OnlyLinkingSitesAreGuardedAgainstASortDuringAScan) {
  Form1Rig rig;
  rig.Form.Start();
  rig.AddSites("main.example", {"a.example", "b.example"});
  rig.Form.Sites.List3.Add({"m", "1", "", "", ""});
  rig.Form.Sites.List3.Add({"m", "2", "", "", ""});
  rig.Form.State.Scanning = true;
  rig.Form.Sites.List1(1).OnColumnClick(0);
  ASSERT_EQ(rig.Services.Dialogs.Boxes.size(), 1U);
  EXPECT_EQ(rig.Services.Dialogs.Boxes[0].Text, "You cannot sort this column while a search is running.");
  EXPECT_EQ(rig.Form.Sites.List1(1).At(0).WebsiteUrl, "a.example");
  rig.Form.Sites.List3.OnColumnClick(1);
  EXPECT_EQ(rig.Form.Sites.List3.At(0).Linking, "2");
  rig.Form.State.Scanning = false;
  rig.Form.Sites.List1(1).OnColumnClick(0);
  EXPECT_EQ(rig.Form.Sites.List1(1).At(0).WebsiteUrl, "b.example");
}

/// The names of the controls that a header of the main window declares as members, "Label1(2)" for Label1_2.
std::vector<std::string> DeclaredControls(const std::string& header) {
  constexpr const char* kKinds[] = {"Placed<",      "Frame ",    "Button ",     "TextBox ",
                                    "Label ",       "CheckBox ", "ComboBox ",   "TabStrip ",
                                    "OptionGroup ", "Menu ",     "BrowserView "};
  std::vector<std::string> names;
  std::istringstream lines(ReadFile(header));
  for (std::string line; std::getline(lines, line);) {
    const auto begins = [&](const char* kind) { return line.rfind(std::string("  ") + kind, 0) == 0; };
    const std::size_t end = line.find('{');
    if (end == std::string::npos || std::none_of(std::begin(kKinds), std::end(kKinds), begins)) continue;
    const std::size_t start = line.rfind(' ', end) + 1;
    std::string name = line.substr(start, end - start);
    if (const std::size_t at = name.find('_'); at != std::string::npos) name = name.replace(at, 1, "(") + ")";
    names.push_back(name);
  }
  return names;
}

TEST(ControlIndex, KnowsEveryControlThatThePlacesDeclare) {
  Form1Rig rig;
  int count = 0;
  for (const auto& file : std::filesystem::directory_iterator(REQUITE_MAIN_WINDOW_FOLDER)) {
    if (file.path().extension() != ".h") continue;
    for (const std::string& name : DeclaredControls(file.path().string())) {
      const NamedControl found = rig.Form.Controls.Find(name);
      EXPECT_TRUE(found && found.Which->Name() == name) << name << " in " << file.path();
      ++count;
    }
  }
  EXPECT_GT(count, 80) << "the declarations are written in another way";
}

TEST(ControlIndex, EveryControlHasARowInThePageOfNames) {
  Form1Rig rig;
  const std::string page = ReadFile(REQUITE_NAMES_PAGE);
  const auto expectRows = [&](const ControlIndex& controls) {
    controls.ForEach([&](const Control& control) {
      EXPECT_NE(page.find("\n| `" + control.Name() + "` |"), std::string::npos) << control.Name();
    });
  };
  expectRows(rig.Form.Controls);
  for (const char* window :
       {"Form4", "Form4a", "Form5", "frmAbout", "frmOptions", "frmExport", "frmChanges"}) {
    rig.Form.Windows.Show(window);
    expectRows(rig.Form.Windows.Find(window)->Controls);
  }
}

}  // namespace
}  // namespace requite
