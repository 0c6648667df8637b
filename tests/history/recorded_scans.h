// SPDX-License-Identifier: MIT
// The main window over a small web, with the history switched on.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "history/acknowledge.h"
#include "history/change_list.h"
#include "history/record_store.h"
#include "shell/main_window/form1_rig.h"

namespace requite::test {

struct RecordedScans : Form1Rig {
  explicit RecordedScans(const char* history = "1") {
    WriteFile(Folder.File("filetypes.txt"), ".htm\r\n");
    Services.Store.Set("chkHistory", history);
    Form.Start();
    Form.OnNotice = [this](std::string_view text) { Notices.emplace_back(text); };
  }

  void Save() { Form.Files.SaveProject(Path); }
  /// Reads the project again: what the last scan changed in it is gone.
  void Reload() { Form.Files.LoadProject(Path); }
  void SetMinute(int minute) { Services.Clock.Utc = "2026-01-02T15:" + ZeroPadded(minute, 2) + ":00Z"; }

  /// One scan, a minute after the last one. `atPage` runs before page number n, counted from 1, is answered.
  void Scan(ScanType type = ScanType::AllMainSites, const std::function<void(int page)>& atPage = {}) {
    SetMinute(++minute_);
    Form.mnuScan.Click(static_cast<int>(type));
    Form.Command1.Click();
    for (int page = 1; Form.State.Scanning; ++page) {
      if (atPage) atPage(page);
      if (Form.State.Scanning) Answer();
    }
  }
  /// Presses Stop (or Skip) before the page is answered.
  void ScanAndPress(Button& button, int atPage) {
    Scan(ScanType::AllMainSites, [&](int page) {
      if (page == atPage) button.Click();
    });
  }

  [[nodiscard]] ChangeList Read(const ChangesWanted& wanted = {}) {
    HistoryFile history(Folder.Folder, SqliteStore::Open::ToRead);
    return ReadChanges(history, Path, SitesOf(Form.Sites), wanted);
  }
  /// Kind and Website URL before the scan of each change, in their order.
  [[nodiscard]] std::string Told(const ChangesWanted& wanted = {}) {
    std::string told;
    for (const SiteChange& change : Read(wanted).Changes) {
      told += (told.empty() ? "" : "; ") + std::string(WordsOf(change.Kind)) + " " + change.Site.UrlBefore;
    }
    return told;
  }

  std::string Path = Folder.File("a.prj");
  std::set<std::string> Linking;                ///< pages with a link, by host and path; others have none
  std::map<std::string, std::string> Pages;     ///< other pages
  std::set<std::string> Silent;                 ///< hosts that do not answer
  std::map<std::string, std::string> StatusOf;  ///< status lines of hosts, such as "404 Not Found"
  std::vector<std::string> Notices;

 private:
  void Answer() {
    const std::string host = Lower(Services.Connection.Host);
    if (Silent.contains(host)) {
      for (int second = 0; second < 60; ++second) Services.timTimeout.Tick();
      return;
    }
    const std::string page = host + Form.State.Page.PagePath;
    const auto status = StatusOf.find(host);
    const auto other = Pages.find(page);
    std::string body = other == Pages.end() ? "nothing here" : other->second;
    if (Linking.contains(page))
      body = "<a href=\"http://main.example/\">m</a><a href=\"http://second.example/\">s</a>";
    Services.Connection.Serve("HTTP/1.1 " + (status == StatusOf.end() ? "200 OK" : status->second) +
                              "\r\n\r\n" + body);
  }

  int minute_ = 0;
};

}  // namespace requite::test
