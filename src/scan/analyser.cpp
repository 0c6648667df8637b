// SPDX-License-Identifier: MIT
// The road of a page through the analyser. Events may run between any two lines and change everything
// but the page's text, so all else is read from the scan state where it is used.
#include "scan/analyser.h"

#include <optional>
#include <utility>

#include "platform/text.h"
#include "scan/href_value.h"
#include "scan/http_get_text.h"
#include "scan/moved_page.h"
#include "scan/record_link.h"

namespace requite {

void Analyser::AnalysePage(std::int16_t connection) {
  const std::string text = std::exchange(context_.State.Page(connection).PreparedText, {});
  if (!context_.State.Scanning) return;
  context_.Window.StatusBar1.SetPanel(2, "Getting Links");
  context_.Platform.EventLoop.LetPendingEventsRun();
  PageLines lines(text, SlicesOf(context_));
  switch (ReadLines(lines)) {
    case PageEnd::Moved: FollowMove(lines, connection); break;
    case PageEnd::Read: HandBack(connection); break;
  }
}

Analyser::PageEnd Analyser::ReadLines(PageLines& lines) {
  const ScanState& state = context_.State;
  std::string link;  // one for all lines, for its room
  while (!lines.AtEnd()) {
    context_.Platform.EventLoop.LetPendingEventsRun();
    lines.Advance();
    if (!state.RedirectFollowed && lines.SaysMoved()) return PageEnd::Moved;
    if (lines.HasHref()) AnalyseLink(lines.Line(), link);
    // Whatever the options: of a site that has its links, only the first line of a page is read.
    if (!state.Scanning || state.LinksExpected <= state.LinksOnSite) break;
  }
  return PageEnd::Read;
}

void Analyser::AnalyseLink(std::string_view line, std::string& link) {
  if (CutHrefValue(line, context_, link) != Cut::Done) return;
  if (TakeLink(link) == Road::Record) RecordIfOurs(link);
}

Analyser::Road Analyser::TakeLink(std::string& link) {
  const LetterSet letters = LettersOf(link);
  if (filter_.IsScriptOrMail(link, letters) || !GoesOn(link)) return Road::NextLine;
  // A file of a type that is not followed can be a link to the Main Site all the same, as it stands.
  const bool isAllowed = filter_.IsAllowedType(link, letters);
  if (!GoesOn(link)) return Road::NextLine;
  if (!isAllowed) return RoadOfRefused(link);
  if (filter_.IsLocalOrFragment(link, letters)) return Road::NextLine;
  if (!GoesOn(link)) return Road::NextLine;
  ResolveLink(context_, link);
  if (!GoesOn(link)) return Road::NextLine;
  if (!rules_.PassesRules(link)) {
    context_.State.ReasonNote = "Possible Rule Problem";
    return RoadOfRefused(link);
  }
  if (!GoesOn(link)) return Road::NextLine;
  const bool isNew = !IsSeenUrl(context_, link);
  if (!GoesOn(link)) return Road::NextLine;
  if (isNew && sites_.IsOnLinkingSite(link)) QueuePage(link);
  return GoesOn(link) ? Road::Record : Road::NextLine;
}

/// A link of megabytes costs each of its tests some milliseconds, so events run between them. False when
/// the scan was stopped.
bool Analyser::GoesOn(std::string_view link) const {
  constexpr std::size_t kLong = std::size_t{1} << 20;
  if (link.size() < kLong) return true;
  context_.Platform.EventLoop.LetPendingEventsRun();
  return context_.State.Scanning;
}

Analyser::Road Analyser::RoadOfRefused(std::string_view link) {
  return sites_.IsLinkToMainSite(link) ? Road::Record : Road::NextLine;
}

void Analyser::QueuePage(const std::string& url) {
  ScanState& state = context_.State;
  ++state.PagesQueued;
  context_.Host.UpdateStats(Counted::PageFound);
  context_.Lists.List2.Add({url});
  // The full table fails here, with the page already queued, and ends the reading of the site.
  state.SeenPages.Store(state.PagesQueued, url);
}

void Analyser::RecordIfOurs(std::string& link) {
  if (recorded_.IsPageRecorded(context_.State.PageFull)) return;
  if (sites_.IsLinkToMainSite(link)) {
    RecordLink(context_, status::kDirect);
  } else if (sites_.IsSameDomain(link)) {
    RecordLink(context_, status::kDomain);
  }
}

void Analyser::FollowMove(PageLines& lines, std::int16_t connection) {
  std::optional<std::string> address = MovedAddress(lines, context_.State.PageFull, SlicesOf(context_));
  if (!address) return;
  std::string text = HttpGetText(*address, context_.Gets, context_.Platform.EventLoop);
  context_.State.RedirectFollowed = true;  // one move a page: the markers of the new page are ignored
  context_.Steps.ProcessPage(std::move(text), connection);
}

void Analyser::HandBack(std::int16_t connection) {
  ScanState& state = context_.State;
  context_.Window.StatusBar1.SetPanel(2, "");
  context_.Platform.EventLoop.LetPendingEventsRun();
  state.RedirectFollowed = false;
  if (!state.Scanning) return;
  // The Main Site's text was seen, but no link with it: nothing more is to be had of this site.
  const bool redirect =
      context_.Settings.IsOne(setting::chkRedirect) && state.RedirectSuspected && !state.LinkFound;
  if (redirect) {
    context_.Steps.NextSite();
  } else {
    context_.Steps.ScanNextPage(connection);
  }
}

}  // namespace requite
