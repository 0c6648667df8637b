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

/// Whether the server sent a script instead of running it. Searches for "?", which is rare in pages.
bool HoldsUnrunScript(std::string_view body, const Slices& slices) {
  for (std::size_t from = 0;; from += slices.Bytes) {
    const std::string_view window = body.substr(0, from + slices.Bytes);
    for (std::size_t at = window.find('?', from); at != std::string_view::npos;
         at = window.find('?', at + 1)) {
      if (at > 0 && body[at - 1] == '<' && StartsWith(body.substr(at), "?php", Compare::Text)) return true;
    }
    if (window.size() == body.size() || !slices.GoOn()) return false;
  }
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

void Triage::ProcessPage(std::string body) {
  // This lets events run in a large page, so it comes first: a Skip during it acts like one just before the
  // page, and what the page shows is noted for one site only.
  const Signs signs = LookThrough(body);
  PassOver([&] { scan_.Platform.Connection.Close(); });
  if (!scan_.State.Scanning) return;
  NoteReasons(signs);
  scan_.Window.StatusBar1.SetPanel(StatusPanel::Page, "Saving to HTML");
  scan_.Platform.EventLoop.LetPendingEventsRun();
  PrepareText(std::move(body));
  PassOver([&] { next_.AnalysePage(); });
}

Triage::Signs Triage::LookThrough(std::string_view body) {
  if (!scan_.State.Scanning) return {};
  const Slices slices = scan_.PageSlices();
  Signs signs;
  signs.Protected = FindInSlices(protected_, body, 0, slices).value_or(kNowhere) != kNowhere;
  signs.UnrunScript = HoldsUnrunScript(body, slices);
  // The last one: no events may run between this test and the note of its result.
  signs.MainSite = HoldsMainSite(body, slices);
  return signs;
}

bool Triage::HoldsMainSite(std::string_view body, const Slices& slices) {
  const std::string& key = scan_.State.MainSiteKey;
  for (;;) {
    if (mainSite_.Pattern() != key) mainSite_ = TextFinder(key);
    const std::optional<std::size_t> at = FindInSlices(mainSite_, body, 0, slices);
    if (!at) return false;
    // A Skip during the search may have moved on to another Main Site.
    if (mainSite_.Pattern() == key) return *at != kNowhere;
  }
}

void Triage::NoteReasons(const Signs& signs) {
  ScanState& state = scan_.State;
  // The order matters: the last word stays.
  if (signs.MainSite) {
    state.RedirectSuspected = true;
    state.ReasonNote = "Possible Redirected URL";
    state.RedirectPage = state.PageFull;
  }
  if (signs.Protected) state.ReasonNote = "Source Protected";
  if (signs.UnrunScript) state.ReasonNote = "Server Script Error";
}

/// Prepares nothing when the scan is stopped meanwhile: the analyser would not read it.
void Triage::PrepareText(std::string body) {
  scan_.Platform.EventLoop.LetPendingEventsRun();
  std::optional<std::string> text = PutHrefsOnLines(body, scan_.PageSlices());
  if (!text) return;
  body = {};
  text->append(kLineEnd);
  const auto prepared = std::make_shared<const std::string>(*std::move(text));
  WriteWorkFiles(prepared);
  scan_.State.Page.PreparedText = prepared;
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
