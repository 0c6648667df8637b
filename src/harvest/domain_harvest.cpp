// SPDX-License-Identifier: MIT
// Requests the result pages, reads them, and ends the harvest in one of three ways.
#include "harvest/domain_harvest.h"

#include "harvest/result_line.h"
#include "platform/schemes.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::string_view kYahoo = "Yahoo";
constexpr std::string_view kGoogle = "Google";
constexpr std::size_t kShortestLocation = 9;
constexpr std::int32_t kMostForNothing = 20;  ///< so few results start no crawl

std::int32_t TargetAt(int listIndex) {
  switch (listIndex) {
    case 1: return 200;
    case 2: return 500;
    case 3: return 1000;
    case 4: return 5000;
    case 5: return 10000;
    default: return 100;
  }
}

/// The text with a line break before each "http://", in any case. Only lines that begin with it in lower
/// case are read later.
std::string BrokenAtLinks(std::string_view html) {
  std::string broken;
  broken.reserve(html.size());
  std::size_t copied = 0;
  for (std::size_t at = Find(html, kHttp, Compare::Text); at != std::string_view::npos;
       at = Find(html, kHttp, Compare::Text, at + kHttp.size())) {
    broken.append(html.substr(copied, at - copied)).append(kLineEnd);
    copied = at;
  }
  return broken.append(html.substr(copied));
}

}  // namespace

void DomainHarvest::Start() {
  Finished = false;
  UniqueResults = 0;
  SeenDomains.clear();
  SearchTerm = Replace(window_.txtSearch.Text(), " ", "+", Compare::Binary);
  TargetResults = TargetAt(window_.Combo2.ListIndex());
  Engine = window_.Combo1.Text() == "Yahoo Search" ? kYahoo : kGoogle;
  ResultOffset = 1;
  BeginSearch();
}

void DomainHarvest::BeginSearch() {
  window_.Database.DeleteAllWebsites();
  window_.WebBrowser1.Navigate(Request());
}

/// One engine takes the offset as it is, at the end; the other takes it less one, before the term.
std::string DomainHarvest::Request() const {
  if (Engine == kYahoo) {
    return "http://www.yahoo.com/search/dir?h=s&xargs=0&p=" + SearchTerm +
           "&b=" + std::to_string(ResultOffset);
  }
  return "http://www.google.com/search?num=100&hl=en&lr=&ie=UTF-8&oe=UTF-8&safe=off&filter=0&start=" +
         std::to_string(ResultOffset - 1) + "&sa=N&q=" + SearchTerm;
}

void DomainHarvest::OnResultPageComplete(std::string_view html) {
  if (window_.WebBrowser1.LocationUrl().size() < kShortestLocation || Finished) return;
  ExtractResultPage(html);
}

void DomainHarvest::ExtractResultPage(std::string_view html) {
  PageResults = 0;
  const std::string workFile = window_.Folder.File("SearchOutput.txt");
  AppendToFile(workFile, BrokenAtLinks(html) + std::string(kLineEnd));
  // Also reads lines that an earlier harvest left in the file when the program died.
  const std::string text = ReadFile(workFile);
  LineReader lines(text, LineEnds::CarriageReturn);
  ResultLines results;
  while (const std::optional<std::string_view> line = lines.Next()) {
    if (const std::optional<std::string> domain = results.DomainOf(*line, SeenDomains)) Keep(*domain);
    window_.Text1.SetText("Extracted " + std::to_string(UniqueResults) + " unique results.");
    window_.EventLoop.LetPendingEventsRun();
    if (abandoned_) return;
  }
  DeleteFile(workFile);
  ContinueSearch();
}

void DomainHarvest::Keep(const std::string& domain) {
  ++PageResults;
  SeenDomains += domain;
  std::string url = domain;
  window_.Database.AddWebsite(url);
  window_.UpdateStats(Counted::PageFound);
  ++UniqueResults;
}

void DomainHarvest::ContinueSearch() {
  // A page with nothing new ends the harvest, as reaching the target does.
  if (UniqueResults < TargetResults && PageResults >= 1) {
    ResultOffset += Engine == kYahoo ? 20 : 100;
    window_.WebBrowser1.Navigate(Request());
    return;
  }
  Finished = true;
  SeenDomains.clear();
  window_.Text1.SetText("Finished! Extracted " + std::to_string(UniqueResults) + " results.");
  window_.WebBrowser1.Stop();
  window_.Hide();
  if (UniqueResults > kMostForNothing) {
    window_.cmdDoSearch_Click();
    window_.Unload();
  } else {
    TellOfTooFew();
  }
}

void DomainHarvest::TellOfTooFew() {
  StatusBar& status = window_.StatusBar1;
  status.SetPanel(StatusPanel::Activity, "Stopped");
  status.SetPanel(StatusPanel::Page, "Not enough results");
  const bool isAnotherSite = window_.Sites.List1(window_.Sites.CurrentMainSite).RowCount() >= 2;
  status.SetPanel(StatusPanel::Site, isAnotherSite ? "Trying next search" : "Add more search terms");
  window_.EventLoop.LetPendingEventsRun();
  if (isAnotherSite) {
    TrySearchAgain();
  } else {
    window_.Unload();
  }
}

/// Does nothing, although the status bar announces it: the window stays loaded and hidden.
void DomainHarvest::TrySearchAgain() {}

}  // namespace requite
