// SPDX-License-Identifier: MIT
// Events may run between any two lines and change everything but the text of the page. So everything else is
// read from the scan state at the place of its use.
#include "scan/analyser.h"

#include <memory>
#include <optional>
#include <utility>

#include "platform/text.h"
#include "scan/href_value.h"
#include "scan/moved_page.h"
#include "scan/record_link.h"

namespace requite {

Analyser::Analyser(ScanContext& scan, Next& next)
    : scan_(scan),
      next_(next),
      sites_(scan.Project, scan.State),
      rules_(scan.Project, scan.State, scan.Settings, scan.Folder),
      recorded_(scan.Project.List3),
      filter_(scan.Settings, scan.State.FileTypes) {}

void Analyser::AnalysePage() {
  const std::shared_ptr<const std::string> prepared = std::exchange(scan_.State.Page.PreparedText, nullptr);
  const bool mayHaveMoved = std::exchange(scan_.State.Page.MayHaveMoved, true);
  if (!scan_.State.Scanning) return;
  scan_.Window.StatusBar1.SetPanel(StatusPanel::Page, "Getting Links");
  scan_.Platform.EventLoop.LetPendingEventsRun();
  PageLines lines(prepared ? std::string_view(*prepared) : std::string_view(), scan_.PageSlices());
  switch (ReadLines(lines, mayHaveMoved)) {
    case PageEnd::Moved: FollowMove(lines); break;
    case PageEnd::Read: HandBack(); break;
  }
}

Analyser::PageEnd Analyser::ReadLines(PageLines& lines, bool mayHaveMoved) {
  const ScanState& state = scan_.State;
  std::string link;  // reused for all lines, to keep its memory
  while (!lines.AtEnd()) {
    scan_.Platform.EventLoop.LetPendingEventsRun();
    lines.Advance();
    if (mayHaveMoved && !state.RedirectFollowed && lines.SaysMoved()) return PageEnd::Moved;
    if (lines.HasHref()) AnalyseLink(lines.Line(), link);
    // Whatever the options say, only the first line of a page is read once the site has its links.
    if (!state.Scanning || state.LinksExpected <= state.LinksOnSite) break;
  }
  return PageEnd::Read;
}

void Analyser::AnalyseLink(std::string_view line, std::string& link) {
  if (CutHrefValue(line, scan_.State.Scanning, scan_.Platform.EventLoop, link) != Cut::Done) return;
  if (TakeLink(link) == LinkUse::Record) RecordIfOurs(link);
}

Analyser::LinkUse Analyser::TakeLink(std::string& link) {
  const LetterSet letters = LettersOf(link);
  if (filter_.IsScriptOrMail(link, letters) || !GoesOn(link)) return LinkUse::None;
  // A file that is not followed because of its type can still be a link to the Main Site, unresolved.
  const bool isAllowed = filter_.IsAllowedType(link, letters);
  if (!GoesOn(link)) return LinkUse::None;
  if (!isAllowed) return UseOfRefused(link);
  if (filter_.IsLocalOrFragment(link, letters)) return LinkUse::None;
  if (!GoesOn(link)) return LinkUse::None;
  ResolveLink(scan_.State, scan_.Settings, link);
  if (!GoesOn(link)) return LinkUse::None;
  if (!rules_.PassesRules(link)) {
    scan_.State.ReasonNote = "Possible Rule Problem";
    return UseOfRefused(link);
  }
  if (!GoesOn(link)) return LinkUse::None;
  std::string lower;
  const bool isNew = WhereSeen(scan_.Project, scan_.Lists.List2, scan_.State, link, lower) == Seen::Nowhere;
  if (!GoesOn(link)) return LinkUse::None;
  if (isNew && sites_.IsOnLinkingSite(link)) QueuePage(link, lower);
  return GoesOn(link) ? LinkUse::Record : LinkUse::None;
}

/// Each test of a link of megabytes takes milliseconds, so events run between the tests. False after a stop.
bool Analyser::GoesOn(std::string_view link) const {
  constexpr std::size_t kLong = std::size_t{1} << 20;
  if (link.size() < kLong) return true;
  scan_.Platform.EventLoop.LetPendingEventsRun();
  return scan_.State.Scanning;
}

Analyser::LinkUse Analyser::UseOfRefused(std::string_view link) {
  return sites_.IsLinkToMainSite(link) ? LinkUse::Record : LinkUse::None;
}

void Analyser::QueuePage(const std::string& url, std::string_view lowerUrl) {
  ScanState& state = scan_.State;
  ++state.PagesQueued;
  scan_.Host.UpdateStats(Counted::PageFound);
  scan_.Lists.List2.Add({url});
  // When the table is full, this throws with the page already queued, and the site ends here.
  state.SeenPages.Store(state.PagesQueued, HashedText(lowerUrl));
}

void Analyser::RecordIfOurs(std::string& link) {
  if (recorded_.IsPageRecorded(scan_.State.PageFull)) return;
  if (sites_.IsLinkToMainSite(link)) {
    RecordLink(scan_, status::kDirect);
  } else if (sites_.IsSameDomain(link)) {
    RecordLink(scan_, status::kDomain);
  }
}

void Analyser::FollowMove(PageLines& lines) {
  std::optional<std::string> address = MovedAddress(lines, scan_.State.PageFull, scan_.PageSlices());
  if (!address) return;
  if (IsHttpsAddress(*address)) scan_.State.Answers.NoteMove(PageAnswer::SentToHttps);
  next_.GetMovedPage(*std::move(address));
}

void Analyser::TakeMovedPage(std::string text) {
  if (!text.empty()) scan_.State.Answers.NoteMove(PageAnswer::Read);
  scan_.State.RedirectFollowed = true;  // only once: a "moved" in the new page is ignored
  next_.ProcessPage(std::move(text));
}

void Analyser::HandBack() {
  ScanState& state = scan_.State;
  scan_.Window.StatusBar1.SetPanel(StatusPanel::Page, "");
  scan_.Platform.EventLoop.LetPendingEventsRun();
  state.RedirectFollowed = false;
  if (!state.Scanning) return;
  // A page has the text of the Main Site but no link to it: that is the result of this site.
  const bool redirect =
      scan_.Settings.IsOne(setting::chkRedirect) && state.RedirectSuspected && !state.LinkFound;
  if (redirect) {
    next_.NextSite();
  } else {
    next_.ScanNextPage();
  }
}

}  // namespace requite
