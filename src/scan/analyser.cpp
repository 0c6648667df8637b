// SPDX-License-Identifier: MIT
// Events may run between any two lines and change everything but the text of the page. So everything else is
// read from the scan state at the place of its use.
#include "scan/analyser.h"

#include <memory>
#include <optional>
#include <utility>

#include "platform/runtime_failure.h"
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
      filter_(scan.Settings, scan.State.FileTypes),
      verdicts_(scan) {}

void Analyser::AnalysePage() {
  const std::shared_ptr<const std::string> prepared = std::exchange(scan_.State.Page.PreparedText, nullptr);
  const bool mayHaveMoved = std::exchange(scan_.State.Page.MayHaveMoved, true);
  if (!scan_.State.Scanning) return;
  scan_.Window.StatusBar1.SetPanel(StatusPanel::Page, "Getting Links");
  scan_.Platform.EventLoop.LetPendingEventsRun();
  IndexSites();
  PageLines lines(prepared ? std::string_view(*prepared) : std::string_view(), scan_.PageSlices());
  verdicts_.LookAgain();
  switch (ReadLines(lines, mayHaveMoved)) {
    case PageEnd::Moved: FollowMove(lines); break;
    case PageEnd::Read: HandBack(); break;
  }
}

/// The first test of a link needs an index of all Linking Sites. That of a long list is made in steps.
void Analyser::IndexSites() {
  while (scan_.State.Scanning) {
    bool isMade = true;  // a list that does not exist needs none
    PassOver([&] { isMade = scan_.Project.List1(scan_.Project.CurrentMainSite).IndexSomeRows(); });
    if (isMade) return;
    scan_.Platform.EventLoop.LetPendingEventsRun();
  }
}

Analyser::PageEnd Analyser::ReadLines(PageLines& lines, bool mayHaveMoved) {
  const ScanState& state = scan_.State;
  LinkTexts texts;
  while (!lines.AtEnd()) {
    scan_.Platform.EventLoop.LetPendingEventsRun();
    lines.Advance();
    for (const PageLines::Piece& piece : lines.JustRead()) {
      if (piece.Link) verdicts_.Expect(*piece.Link);
    }
    if (mayHaveMoved && !state.RedirectFollowed && lines.SaysMoved()) return PageEnd::Moved;
    if (lines.HasHref()) AnalyseLine(lines, texts);
    // Whatever the options say, only the first line of a page is read once the site has its links.
    if (!state.Scanning || state.LinksExpected <= state.LinksOnSite) break;
  }
  return PageEnd::Read;
}

void Analyser::AnalyseLine(const PageLines& lines, LinkTexts& texts) {
  if (!scan_.State.Scanning) return;
  if (lines.Link()) return AnalyseValue(*lines.Link(), texts);
  std::string_view value;
  if (CutHrefValue(lines.Line(), scan_.State.Scanning, scan_.Platform.EventLoop, value) != Cut::Done) return;
  if (value.size() > LinkMemory::kLongest) {
    static_cast<void>(AnalyseLink(value, texts));
  } else {
    AnalyseValue(HashedText(value), texts);
  }
}

void Analyser::AnalyseValue(HashedText value, LinkTexts& texts) {
  switch (verdicts_.Recall(value)) {
    case LinkVerdict::Dropped: return;
    case LinkVerdict::NotOurs: static_cast<void>(recorded_.IsPageRecorded(scan_.State.PageFull)); return;
    case LinkVerdict::Unknown: verdicts_.Remember(value, AnalyseLink(value.Text, texts));
  }
}

/// Returns Unknown for a link whose next occurrence may be judged otherwise.
LinkVerdict Analyser::AnalyseLink(std::string_view value, LinkTexts& texts) {
  texts.Link = value;
  switch (TakeLink(texts)) {
    case LinkUse::None: return LinkVerdict::Dropped;
    case LinkUse::Record: return RecordIfOurs(texts.Link);
    case LinkUse::RecordNow: static_cast<void>(RecordIfOurs(texts.Link)); break;
    case LinkUse::NoneNow: break;
  }
  return LinkVerdict::Unknown;
}

Analyser::LinkUse Analyser::TakeLink(LinkTexts& texts) {
  std::string& link = texts.Link;
  const LetterSet letters = LettersOf(link);
  if (filter_.IsScriptOrMail(link, letters)) return LinkUse::None;
  if (!GoesOn(link)) return LinkUse::NoneNow;
  // A file that is not followed because of its type can still be a link to the Main Site, unresolved.
  const bool isAllowed = filter_.IsAllowedType(link, letters);
  if (!GoesOn(link)) return LinkUse::NoneNow;
  if (!isAllowed) return sites_.IsLinkToMainSite(link) ? LinkUse::RecordNow : LinkUse::None;
  if (filter_.IsLocalOrFragment(link, letters)) return LinkUse::None;
  if (!GoesOn(link)) return LinkUse::NoneNow;
  ResolveLink(scan_.State, scan_.Settings, link);
  if (!GoesOn(link)) return LinkUse::NoneNow;
  if (!rules_.PassesRules(link)) {
    scan_.State.ReasonNote = "Possible Rule Problem";
    return sites_.IsLinkToMainSite(link) ? LinkUse::RecordNow : LinkUse::NoneNow;
  }
  return QueueIfNew(texts);
}

Analyser::LinkUse Analyser::QueueIfNew(LinkTexts& texts) {
  const std::string& link = texts.Link;
  if (!GoesOn(link)) return LinkUse::NoneNow;
  const Seen seen = WhereSeen(scan_.Project, scan_.Lists.List2, scan_.State, texts.Link, texts.Lower);
  if (!GoesOn(link)) return LinkUse::NoneNow;
  const bool isNew = seen == Seen::Nowhere && sites_.IsOnLinkingSite(link);
  if (isNew) QueuePage(link, texts.Lower);
  if (!GoesOn(link)) return LinkUse::NoneNow;
  // A page in the queue leaves it later. A new page is tested again, and is seen then.
  return isNew || seen == Seen::Queue ? LinkUse::RecordNow : LinkUse::Record;
}

/// Each test of a link of megabytes takes milliseconds, so events run between the tests. False after a stop.
bool Analyser::GoesOn(std::string_view link) const {
  constexpr std::size_t kLong = std::size_t{1} << 20;
  if (link.size() < kLong) return true;
  scan_.Platform.EventLoop.LetPendingEventsRun();
  return scan_.State.Scanning;
}

void Analyser::QueuePage(const std::string& url, std::string_view lowerUrl) {
  ScanState& state = scan_.State;
  ++state.PagesQueued;
  scan_.Host.UpdateStats(Counted::PageFound);
  scan_.Lists.List2.Add({url});
  // When the table is full, this throws with the page already queued, and the site ends here.
  state.SeenPages.Store(state.PagesQueued, HashedText(lowerUrl));
}

/// Unknown when the link was recorded, or the page counts as recorded.
LinkVerdict Analyser::RecordIfOurs(std::string& link) {
  if (recorded_.IsPageRecorded(scan_.State.PageFull)) return LinkVerdict::Unknown;
  const bool isDirect = sites_.IsLinkToMainSite(link);
  if (!isDirect && !sites_.IsSameDomain(link)) return LinkVerdict::NotOurs;
  RecordLink(scan_, isDirect ? status::kDirect : status::kDomain);
  verdicts_.LookAgain();
  return LinkVerdict::Unknown;
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
