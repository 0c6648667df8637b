// SPDX-License-Identifier: MIT
// The step between the fetcher and the analyser. The body of an error page is read like that of any other.
#include "scan/triage.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <utility>

#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

constexpr std::size_t kNowhere = std::string_view::npos;

/// Users see these texts in their results and compare them between scans. Wording and case must not change.
constexpr std::array<std::string_view, 22> kStatusTexts = {"400 Bad request",
                                                           "401 Unauthorized",
                                                           "402 PaymentRequired",
                                                           "403 Forbidden",
                                                           "404 Not found",
                                                           "405 Method Not Allowed",
                                                           "406 Not Acceptable",
                                                           "407 Proxy Authentication Required",
                                                           "408 request timeout",
                                                           "409 Conflict",
                                                           "410 Gone",
                                                           "411 Length Required",
                                                           "412 Precondition Failed",
                                                           "413 Request Entity Too Large",
                                                           "414 Request-URI Too Long",
                                                           "415 Unsupported Media Type",
                                                           "500 Internal Error",
                                                           "501 Not implemented",
                                                           "502 Bad Gateway",
                                                           "503 Service Unavailable",
                                                           "504 Gateway timeout",
                                                           "505 HTTP Not Version"};

/// The text between the first two blanks of a header; nothing when there are fewer.
std::optional<std::string_view> StatusCode(std::string_view header) {
  const std::size_t first = header.find(' ');
  if (first == std::string_view::npos) return std::nullopt;
  const std::size_t second = header.find(' ', first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  return header.substr(first + 1, second - first - 1);
}

}  // namespace

void Triage::CheckHttpStatus(const std::string& header, const std::string& url) {
  const std::optional<std::string_view> code = StatusCode(header);
  if (!code || code->empty()) return;
  const auto text = std::find_if(kStatusTexts.begin(), kStatusTexts.end(),
                                 [&](std::string_view each) { return Before(each, ' ') == *code; });
  if (text == kStatusTexts.end()) return;
  scan_.State.ReasonNote = *text;
  scan_.Lists.lstErr.Add({std::string(*text), url});
  // The page was already counted when it connected, so a page with an error status counts twice.
  scan_.Host.UpdateStats(Counted::PageScanned);
}

void Triage::ProcessPage(PageBody body) {
  // This lets events run in a large page, so it comes first: a Skip during it acts like one just before the
  // page, and what the page shows is noted for one site only.
  std::optional<PreparedPage> page = LookThrough(body.View());
  body = {};
  PassOver([&] { scan_.Platform.Connection.Close(); });
  if (!page || !scan_.State.Scanning) return;
  NoteReasons(*page);
  scan_.Window.StatusBar1.SetPanel(StatusPanel::Page, "Saving to HTML");
  scan_.Platform.EventLoop.LetPendingEventsRun();
  HandOn(*std::move(page));
  PassOver([&] { next_.AnalysePage(); });
}

/// Nothing after a stop.
std::optional<PreparedPage> Triage::LookThrough(std::string_view body) {
  if (!scan_.State.Scanning) return std::nullopt;
  if (marks_->MainSite() != scan_.State.MainSiteKey) {
    marks_ = std::make_shared<const PageMarks>(scan_.State.MainSiteKey);
  }
  const std::shared_ptr<const PageMarks> marks = marks_;  // a page that is read in a yield may replace it
  std::optional<PreparedPage> page = marks->Prepare(body, scan_.PageSlices());
  // The last one: no events may run between this test and the note of its result.
  if (page) page->HasMainSite = HoldsMainSite(body, marks->MainSite(), *page);
  return page;
}

/// `sought` is the Main Site that the page was searched for.
bool Triage::HoldsMainSite(std::string_view body, const std::string& sought, const PreparedPage& page) {
  const std::string& key = scan_.State.MainSiteKey;
  std::size_t from = 0;
  if (sought == key && !key.empty()) {
    if (!page.MainSiteFrom) return false;
    if (key.size() <= MarkFinder::kCompared) return true;
    from = *page.MainSiteFrom;
  }
  // A Skip during a search may have moved on to another Main Site.
  for (;; from = 0) {
    const TextFinder mainSite(key);
    const std::optional<std::size_t> at = FindInSlices(mainSite, body, from, scan_.PageSlices());
    if (!at) return false;
    if (mainSite.Pattern() == key) return *at != kNowhere;
  }
}

void Triage::NoteReasons(const PreparedPage& page) {
  ScanState& state = scan_.State;
  // The order matters: the last word stays.
  if (page.HasMainSite) {
    state.RedirectSuspected = true;
    state.ReasonNote = "Possible Redirected URL";
    state.RedirectPage = state.PageFull;
  }
  if (page.Protected) state.ReasonNote = "Source Protected";
  if (page.UnrunScript) state.ReasonNote = "Server Script Error";
}

void Triage::HandOn(PreparedPage page) {
  scan_.Platform.EventLoop.LetPendingEventsRun();
  page.Text.append(kLineEnd);
  const auto prepared = std::make_shared<const std::string>(std::move(page.Text));
  WriteWorkFiles(prepared);
  scan_.State.Page.PreparedText = prepared;
  scan_.State.Page.MayHaveMoved = page.MayHaveMoved;
}

void Triage::WriteWorkFiles(const WorkFileWriter::Text& text) {
  if (!scan_.WritesWorkFiles) return;
  bool written = workFiles_.Put(WorkFileWriter::File::Page, text);
  scan_.Platform.EventLoop.LetPendingEventsRun();
  written = workFiles_.Put(WorkFileWriter::File::FlatPage, text) && written;
  scan_.Platform.EventLoop.LetPendingEventsRun();
  scan_.State.WorkFilesBegun = true;
  if (!written) workFiles_.TellUnwritten();
}

}  // namespace requite
