// SPDX-License-Identifier: MIT
// The commands of a script, each by what it prints or does, over a program with no network.
#include <gtest/gtest.h>

#include "console/console_rig.h"
#include "console/progress.h"

namespace requite {
namespace {

using test::ConsoleRig;

struct Case {
  std::string Script;
  const char* Printed;
};

/// Each script runs in a program of its own.
template <std::size_t Count>
void ExpectPrinted(const Case (&cases)[Count]) {
  for (const Case& each : cases) {
    ConsoleRig rig;
    EXPECT_EQ(rig.Run(each.Script), ExitStatus::Done) << each.Script << "\n" << rig.Err.str();
    EXPECT_EQ(rig.Out.str(), each.Printed) << each.Script;
  }
}

constexpr const char* kTwoSites =
    "set txtDomain main.example\nclick cmdAdd2\n"
    "set Text1 a.example\nclick cmdAdd\nset Text1 b.example\nenter Text1\n";

TEST(Script, ControlsArePrintedByKind) {
  const Case cases[] = {
      {"print Command1", "Start Scan\n"},
      {"print mnuFile(0)\nprint mnuPopup1Item(0)\nprint mnuSkipItem(1)",
       "New Project\nDelete Site\nThe current main site\n"},
      {"print lblErr\nprint lblStats(3)", "Errors/Warnings:\n0\n"},
      {"print chkNewWin\nprint optAll(1)\nchecked optAll(0)\nchecked mnuScanItem(0)", "1\n0\n1\n1\n"},
      {"print StatusBar1\nprint pb1\nprint Combo1", "\n0\nWhich Search Type?\n"},
      {"run 1\nprint WebBrowser2", "\n"},
      {"state cmdStop\nstate Text1\nstate Command8\nstate Combo3",
       "disabled visible\ndisabled hidden\nenabled hidden\ndisabled hidden\n"},
      {"tip cmdStop\ntitle Form1\nwindows",
       "Stop scanning for links\nRequite by The Requite Project\nForm1\n"},
      {"print Form1.cmdStop", "Stop\n"},
      {"rows Combo1\nchoose Combo1 1\nindex Combo1\nprint Combo1\nget combo1",
       "Google Search\nYahoo Search\n1\nYahoo Search\n1\n"},
      {"panels", "\n\n\n\n"},
      {"click Command9\nprint frmOptions.Label5(1)\nstate frmOptions.txtAutoSave\nclose frmOptions\nwindows",
       "Webpage File Types:\nenabled hidden\nForm1\n"},
  };
  ExpectPrinted(cases);
}

TEST(Script, TheHandActsOnListsAndBoxes) {
  const std::string sites = kTwoSites;
  const Case cases[] = {
      {sites + "rows List4\nrows List1\nrows List1(1)",
       "main.example\na.example\t1\t\t\t\nb.example\t1\t\t\t\na.example\t1\t\t\t\nb.example\t1\t\t\t\n"},
      {sites + "select List1 2\nindex List1\nclick mnuPopup1Item(0)\nrows List1\nindex List1",
       "2\na.example\t1\t\t\t\n0\n"},
      {sites + "rightclick List1\nindex List1\nrightclick List1 2\nindex List1\nclick cmbDel\nrows List1",
       "0\n2\na.example\t1\t\t\t\n"},
      {sites + "sort List1 1\nrows List1", "b.example\t1\t\t\t\na.example\t1\t\t\t\n"},
      {sites + "select List4\nindex List4\nvar CurrentMainSite", "0\n0\n"},
      {"type txtURL ab\ntrace txtURL\ntype txtURL cd\nset txtURL x\nset txtURL",
       "txtURL: abc\ntxtURL: abcd\ntxtURL: x\ntxtURL: \n"},
      {"click mnuScanItem(2)\nget ScanType\nchecked mnuScanItem(0)\nchecked mnuScanItem(2)", "2\n0\n1\n"},
      {"click cmdBack\nclick cmdForward\nclick cmdWebStop\nclick cmdRefresh\nset txtURL a.example\nenter "
       "txtURL\n"
       "run 1\nprint WebBrowser1\nprint txtURL",
       "a.example\na.example\n"},
      {"click chkBullet\nget chkBullet\nclick chkBullet\nprint chkBullet", "1\n0\n"},
      {"tab 5\nstate framePost\nstate List3\ntab Form1 1\nstate List3",
       "enabled visible\nenabled hidden\nenabled visible\n"},
  };
  ExpectPrinted(cases);
}

TEST(Script, AnswersWaitInOrderAndMessagesAreForgottenOncePrinted) {
  ConsoleRig rig;
  const std::string path = rig.Folder.File("chosen.prj");
  EXPECT_EQ(
      rig.Run(
          "set Text1 http://\nenter Text1\nanswer file " + path +
          "\nclick cmdSave\nclick cmdOpen\nset txtDomain x\nanswer no\nmessages\nclose Form1\nmessages\n"),
      ExitStatus::Done);
  EXPECT_EQ(Replace(rig.Out.str(), path, "@", Compare::Binary),
            "message\tRequite\tPlease enter the Website URL first.\tok\n"
            "save\t\tUnnamed.prj\tfile @\nopen\t\t\tcancel\n"
            "question\tSave Project?\tThe current project has been edited but has not been saved.\\r\\n"
            "Would you like to save now?\tno\n");
  EXPECT_TRUE(FileExists(path));
}

TEST(Script, AfterCloseOnlyTheRecordsAreLeft) {
  const Case cases[] = {{"click mnuFile(4)\nput k v\nget K\necho done\nsounds", "v\ndone\n"}};
  ExpectPrinted(cases);
  ConsoleRig rig;
  EXPECT_EQ(rig.Run("close Form1\nwindows"), ExitStatus::Refused);
  EXPECT_EQ(rig.Err.str(), "requite-console: line 2: the program is closed\n");
}

/// Lines that end a script with the same complaint, in which "@" is the first argument and "#" the second.
struct Mistakes {
  const char* Complaint;
  const char* Lines;
};

TEST(Script, WhatCannotBeDoneEndsItWithItsLineAndTheReason) {
  constexpr Mistakes kMistakes[] = {
      {"there is no command \"press\"", "press cmdStop"},
      {"there is no control \"@\"",
       "click cmdGone|click mnuFile(5)|tip Gone|state List1|trace StatusBar1(5)|print Form2.Text1|print "
       "List1(1)"},
      {"there is no tab @", "tab 6"},
      {"there is no window \"@\"", "load Form9"},
      {"there is no variable \"@\"", "var Nothing"},
      {"there is no operation \"@\"", "call Nothing x"},
      {"no open window \"@\"", "tab Form2 1|close Form2|title Form4"},
      {"\"@\" is disabled", "click cmdStop"},
      {"\"@\" has no use for this command",
       "click txtDomain|click mnuFile|type lblErr x|set lblStats(0) 1|set cmdStop x|enter cmdStop|choose "
       "txtURL 0|"
       "select txtURL|rows cmdStop|style Combo1|print List3|index txtURL|checked cmdStop|checked mnuScan|"
       "trace List3"},
      {"\"@\" has no row #",
       "choose Combo1 2|choose Combo1 -1|select List4 1|rightclick List3 1|doubleclick List3 0|editlabel "
       "lstErr 1"},
      {"\"@\" has no column #", "sort List3 6"},
      {"\"@\" is no number that can be used here", "run -1"},
      {"\"#\" is no number that can be used here", "sort List3 x"},
      {"\"@\" is no answer", "answer maybe"},
      {"only \"answer file\" takes a path", "answer yes x"},
      {"only \"wait idle\" is known", "wait busy 1"},
      {"\"#\" is no command", "after 5 press"},
      {"\"click\" has the form: click NAME", "click"},
      {"\"run\" has the form: run MS", "run"},
      {"\"wait\" has the form: wait idle SECONDS", "wait idle"},
      {"\"panels\" has the form: panels", "panels 1"},
      {"a backslash stands before something that is no escape", "echo \\x"},
  };
  for (const Mistakes& each : kMistakes) {
    for (const std::string& line : Split(each.Lines, "|")) {
      const std::vector<std::string> words = Split(line + "  ", " ");
      std::string complaint = Replace(each.Complaint, "@", words[1], Compare::Binary);
      complaint = Replace(complaint, "#", words[2], Compare::Binary);
      ConsoleRig rig;
      EXPECT_EQ(rig.Run("# first\n\n" + line + "\necho not reached\n"), ExitStatus::Refused) << line;
      EXPECT_EQ(rig.Out.str(), "") << line;
      EXPECT_EQ(rig.Err.str(), "requite-console: line 3: " + complaint + "\n") << line;
    }
  }
}

TEST(Script, ACommandMayRunLaterAndItsFaultEndsTheScript) {
  const Case cases[] = {
      {"after 50 echo a\\tb\nafter 10 echo first\nrun 20\necho then\nrun 100\necho end",
       "first\nthen\na\\tb\nend\n"},
      {"after 50 echo never\nrun 20", ""},
  };
  ExpectPrinted(cases);
  ConsoleRig rig;
  EXPECT_EQ(rig.Run("after 5 click cmdStop\necho go\nrun 10\necho not reached"), ExitStatus::Refused);
  EXPECT_EQ(rig.Out.str(), "go\n");
  EXPECT_EQ(rig.Err.str().rfind("requite-console: line 1: ", 0), 0U) << rig.Err.str();
}

TEST(Script, StateAndOperationsAreAtHand) {
  const std::string started = std::string(kTwoSites) + "click Command1\n";
  const Case cases[] = {
      {"call BareHost http://www.site.example/x\ncall ParentDir site.example/x/y/\ncall GenerateLinkReport",
       "site.example\tsite.example\nsite.example/x/\tsite.example/x/y/\n\t\n"},
      {started +
           "var Scanning\nvar LinksExpected\nvar PageHost\nvar FileTypes\nvar PageLimit\nvar ProjectSaved",
       "True\n1\na.example\n.zip\n500\nFalse\n"},
      {started + "call ResolveLink x.html\ncall IsLinkToMainSite http://MAIN.example/y\n"
                 "call IsOnLinkingSite sub.a.example/z\ncall IsSameDomain http://www.main.example/q\n"
                 "call IsSeenUrl http://b.example\ncall PassesRules any.example",
       "a.example/x.html\ta.example/x.html\nTrue\thttp://MAIN.example/y\n"
       "True\tsub.a.example/z\nTrue\twww.main.example\nTrue\tb.example\nTrue\tany.example\n"},
  };
  ExpectPrinted(cases);
}

TEST(Script, HarvestsHaveVariablesAndCalls) {
  ConsoleRig rig;
  std::filesystem::copy_file(REQUITE_EMPTY_DATABASE, rig.Folder.File("spider.mdb"));
  WriteFile(rig.Folder.File("html20.txt"), std::string(60, ' ') + "mailto:joe@site.example> \r\n");
  EXPECT_EQ(rig.Run("call ExtractEmails 0\nvar Scanning\ncall EmailExists JOE@site.example.\n"
                    "call DeleteAllEmails\ncall EmailExists joe@site.example\nload Form3\nvar SearchTerm\n"
                    "var Engine\nvar UniqueResults\nvar Finished"),
            ExitStatus::Done)
      << rig.Err.str();
  EXPECT_EQ(rig.Out.str(),
            "\t0\nFalse\nTrue\tJOE@site.example\nTrue\t\nFalse\tjoe@site.example\nGoogle+Search\nGoogle\n0\n"
            "False\n");
}

TEST(Script, WaitingEndsWithTheScanOrWithItsTime) {
  const std::string started = std::string(kTwoSites) + "click Command1\n";
  ConsoleRig slow;
  EXPECT_EQ(slow.Run(started + "wait idle 2\necho not reached"), ExitStatus::NotIdleInTime);
  EXPECT_EQ(slow.Out.str(), "");
  ConsoleRig stopped;
  EXPECT_EQ(
      stopped.Run(started + "trace StatusBar1(1)\nafter 1500 click cmdStop\nwait idle 2\nprint StatusBar1"),
      ExitStatus::Done);
  EXPECT_EQ(stopped.Out.str(), "StatusBar1(1): Stopped\nStopped\n");
}

TEST(Script, SoundsClipboardAndNavigationsAreRecorded) {
  ConsoleRig rig;
  std::filesystem::create_directories(rig.Folder.File("sounds"));
  WriteFile(rig.Folder.File("sounds/nextsearch.wav"), "RIFF");
  EXPECT_EQ(
      rig.Run(
          std::string(kTwoSites) +
          "click Command1\nclick cmdSkip\nclick cmdStop\nsounds\nsounds\nnavigations\nrows List3\nstyle "
          "List3\n"
          "select List3 1\nclick mnuPopup2Item(4)\nclipboard\nclick mnuPopup2Item(1)\nrun 1\nprint txtURL\n"
          "navigations"),
      ExitStatus::Done)
      << rig.Err.str();
  EXPECT_EQ(Replace(rig.Out.str(), rig.Folder.Folder.Path, "@", Compare::Binary),
            "nextsearch.wav\nnextsearch.wav\n"  // the finished sound has no file
            "WebBrowser1\t@/welcome.html\nWebBrowser2\t@/tempreport.html\n"
            "main.example\ta.example\tNone Found (Skipped)\t000\ta.example\n1\t255\n"
            "a.example\nhttp://a.example\nWebBrowser1\thttp://a.example\n");
}

TEST(ScanProgress, OnATerminalOneLineIsDrawnOverAndTakenAway) {
  ConsoleRig rig;
  rig.Form.StartWithoutProject();
  rig.Form.Sites.AddMainSite("main.example");
  for (const char* url : {"a.example", "b.example"}) rig.Form.Sites.List1(1).Add({url, "1", "", "", ""});
  {
    ScanProgress progress(rig.Program, ScanProgress::Output::Terminal);
    rig.Form.Command1.Click();
    EXPECT_EQ(rig.Err.str().rfind("\rLinking Site 1 of 2, page 1 of 1, 0 links found, 0 s", 0), 0U)
        << rig.Err.str();
    EXPECT_TRUE(progress.AllLinkBack());
    rig.Form.cmdSkip.Click();
    EXPECT_FALSE(progress.AllLinkBack());
    EXPECT_EQ(progress.SitesFinished(), 1);
  }
  EXPECT_EQ(rig.Err.str().find('\n'), std::string::npos);
  EXPECT_TRUE(rig.Err.str().ends_with("\r\x1b[K"));
}

TEST(HistoryBrowser, GoesBackAndForwardAndForgetsWhatWasStopped) {
  test::FakeConsoleLoop loop;
  BrowserView view("WebBrowser1");
  HistoryBrowser browser(view, loop);
  const auto events = [&] { loop.RunUntil([] { return false; }, 1); };
  view.Navigate("a");
  view.Navigate("b");
  events();
  EXPECT_EQ(view.LocationUrl(), "b");
  view.GoBack();
  events();
  EXPECT_EQ(view.LocationUrl(), "a");
  EXPECT_THROW(view.GoBack(), RuntimeFailure);
  view.GoForward();
  view.Stop();
  events();
  EXPECT_EQ(view.LocationUrl(), "a");
  EXPECT_THROW(view.GoForward(), RuntimeFailure);
}

}  // namespace
}  // namespace requite
