// SPDX-License-Identifier: MIT
// Triage and analyser in their plain form: the page goes through nine replacements, is read back
// from disk a line at a time, and each value grows a character at a time.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/visitor.h"
#include "platform/http_get_text.h"
#include "scan/analyser.h"
#include "support/plain_links.h"

namespace requite::test {

class PlainPage {
 public:
  PlainPage(ScanContext& context, Analyser::Next& next) : context_(context), next_(next), seen_(2000) {}

  void ProcessPage(std::string body) {
    ScanState& state = context_.State;
    context_.Platform.Connection.Close();
    if (!state.Scanning) return;
    if (Holds(body, state.MainSiteKey)) {
      state.RedirectSuspected = true;
      state.ReasonNote = "Possible Redirected URL";
      state.RedirectPage = state.PageFull;
    }
    if (Holds(body, "You are seeing this text because")) state.ReasonNote = "Source Protected";
    if (Holds(body, "<?php")) state.ReasonNote = "Server Script Error";
    for (std::size_t blanks = 8; blanks >= 1; --blanks) {
      body = Replace(body, "href=" + std::string(blanks, ' '), "href=", Compare::Text);
    }
    body = Replace(body, "href=", "\r\nhref=", Compare::Text);
    context_.Window.StatusBar1.SetPanel(StatusPanel::Page, "Saving to HTML");
    OverwriteFile(context_.Folder.File("html0.txt"), body + "\r\n");
    for (const std::string_view end : {"\r\n", "\r", "\n"}) body = Replace(body, end, "", Compare::Binary);
    OverwriteFile(context_.Folder.File("html20.txt"), body + "\r\n");
    PassOver([&] { AnalysePage(); });
  }

  void AnalysePage() {
    ScanState& state = context_.State;
    if (!state.Scanning) return;
    context_.Window.StatusBar1.SetPanel(StatusPanel::Page, "Getting Links");
    context_.Platform.EventLoop.LetPendingEventsRun();
    file_ = ReadFile(context_.Folder.File("html0.txt"));
    LineReader lines(file_, LineEnds::CarriageReturn);
    while (!lines.AtEnd()) {
      context_.Platform.EventLoop.LetPendingEventsRun();
      std::string line(*lines.Next());
      if (SaysMoved(line) && !state.RedirectFollowed) return FollowMove(lines, line);
      if (Holds(line, "href=")) AnalyseLine(line);
      if (!state.Scanning || state.LinksExpected <= state.LinksOnSite) break;
    }
    context_.Window.StatusBar1.SetPanel(StatusPanel::Page, "");
    state.RedirectFollowed = false;
    if (!state.Scanning) return;
    if (context_.Settings.IsOne(setting::chkRedirect) && state.RedirectSuspected && !state.LinkFound) {
      next_.NextSite();
    } else {
      next_.ScanNextPage();
    }
  }

 private:
  static bool SaysMoved(const std::string& line) {
    for (const std::string_view mark : {"302 Found", "301 Moved Permanently", "<title>Document Moved</title>",
                                        "<title>Object moved</title>"}) {
      if (Holds(line, mark)) return true;
    }
    return false;
  }

  void FollowMove(LineReader& lines, std::string line) {
    while (!Holds(line, "href=") && !lines.AtEnd()) line = std::string(*lines.Next());
    if (Holds(line, "href=")) {
      for (const char mark : {' ', '<', '>'}) line = std::string(Before(line, mark));
      line = Without(line, {"href=", ">here</a></body", "\"", "'", " "});
    }
    if (line.empty()) line = context_.State.PageFull;
    std::string text =
        HttpGetText(line, VisitorOf(context_.Settings), context_.Gets, context_.Platform.EventLoop);
    context_.State.RedirectFollowed = true;
    next_.ProcessPage(text);
  }

  std::optional<std::string> CutValue(const std::string& line) {
    std::string v = line.substr(Find(line, "href=", Compare::Text));
    v = Replace(v, "href=\"", "href=", Compare::Text);
    v = Replace(v, "href='", "href=", Compare::Text);
    std::size_t i = 1;
    std::string s = v.substr(0, 1);
    while (s.find_first_of("'\">") == std::string::npos && i < v.size()) {
      s = v.substr(0, i);
      ++i;
    }
    s = std::string(Left(s, i < 2 ? 0 : i - 2));
    if (s.size() < 6) return std::nullopt;
    s = std::string(Trim(Without(s, {"href="})));
    if (s.find(' ') != std::string::npos) s = std::string(Trim(s.substr(0, s.find(' ') + 1)));
    return s;
  }

  bool Allowed(const std::string& s) {
    if (context_.Settings.GetSetting(setting::chkFileTypes) != "1") return true;
    if (Right(s, 1) == "/") return true;
    if (!(s.find('.') != std::string::npos || s.find('?') == std::string::npos)) return true;
    for (const std::string& type : context_.State.FileTypes) {
      if (Holds(s, type)) return true;
    }
    return false;
  }

  void AnalyseLine(const std::string& line) {
    ScanState& state = context_.State;
    std::optional<std::string> value = CutValue(line);
    if (!value) return;
    std::string& s = *value;
    if (Holds(s, "javascript") || Holds(s, "mailto")) return;
    if (!Allowed(s)) {
      if (PlainIsLinkToMainSite(context_, s)) Record(s);
      return;
    }
    if (Holds(s, "file://") || Holds(s, "unsaved:") || Holds(s, "#")) return;
    s = PlainResolveLink(context_, s);
    if (!PlainPassesRules(context_, s)) {
      state.ReasonNote = "Possible Rule Problem";
      if (PlainIsLinkToMainSite(context_, s)) Record(s);
      return;
    }
    if (!PlainIsSeenUrl(context_, seen_, s) && PlainIsOnLinkingSite(context_, s)) {
      ++state.PagesQueued;
      context_.Host.UpdateStats(Counted::PageFound);
      context_.Lists.List2.Add({s});
      seen_.at(static_cast<std::size_t>(state.PagesQueued)) = s;
    }
    Record(s);
  }

  void Record(std::string& s) {
    if (PlainIsPageRecorded(context_, context_.State.PageFull)) return;
    if (PlainIsLinkToMainSite(context_, s)) {
      AddRow("Direct Link");
    } else if (PlainIsSameDomain(context_, s)) {
      AddRow("Domain Link");
    }
  }

  void AddRow(const std::string& status) {
    ScanState& state = context_.State;
    ++state.LinksOnSite;
    ++state.LinksCounted;
    ++state.LinkNumber;
    context_.Project.List3.Add({state.MainSiteKey, BareHost(state.CurrentLinkingUrl), status,
                                ZeroPadded(state.LinkNumber, 3), state.PageFull},
                               2, 16711680);
    LinkingSiteList& sites = context_.Project.List1(context_.Project.CurrentMainSite);
    const auto row = static_cast<std::size_t>(state.SiteRow - 1);
    sites.SetColour(row, 16711680);
    if (status == "Direct Link" && context_.Settings.IsOne(setting::chkUpdate)) {
      sites.Set(row, &LinkingSite::WebsiteUrl, state.PageFull);
    }
    state.LinkFound = true;
    if (context_.Settings.IsOne(setting::chkAudioEmail)) {
      context_.Platform.Sounds.PlaySoundFile(context_.Folder.File("sounds/foundemail.wav"));
    }
    context_.Host.UpdateStats(Counted::LinkFound);
    ++state.PagesQueued;
    context_.Window.StatusBar1.SetPanel(StatusPanel::Site,
                                        "Found " + std::to_string(state.LinksOnSite) + " links");
    context_.Platform.EventLoop.LetPendingEventsRun();
  }

  ScanContext& context_;
  Analyser::Next& next_;
  std::vector<std::string> seen_;
  std::string file_;
};

}  // namespace requite::test
