// SPDX-License-Identifier: MIT
// The end of a site: its verdict, its last row, and which site comes next.
#include <string>
#include <utility>

#include "model/url_forms.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"
#include "scan/controller.h"

namespace requite {
namespace {

std::string InParentheses(const std::string& reason) {
  return IsEmptyOrBlank(reason) ? std::string() : " (" + reason + ")";
}

}  // namespace

/// The end of a site, up to the choice of the next one. Returns what is skipped: the Linking Site, unless the
/// user asked for the whole Main Site.
SkipType Controller::CloseSite() {
  ScanState& state = scan_.State;
  scan_.Host.UpdateStats(Counted::LinkingSite);
  const auto chosen = static_cast<SkipType>(scan_.Window.mnuSkip.FirstChecked());
  const bool skipsMainSite = state.SkipRequested && chosen == SkipType::MainSite;
  state.TimeoutSeconds = scan_.Settings.Number(setting::txtTimeout);
  std::string reason = state.ReasonNote;
  state.ReasonNote = InParentheses(reason);
  state.Scanning = true;  // so a skip continues the scan even after a stop
  scan_.Platform.Connection.Close();
  scan_.Gets.Abort();  // or a moved page would delay the next site
  const SiteVerdict verdict = Judge(std::move(reason));
  WriteSiteResult(verdict.End);
  scan_.Host.SiteFinished(verdict);
  ResetForNextSite();
  return skipsMainSite ? SkipType::MainSite : SkipType::LinkingSite;
}

SiteVerdict Controller::Judge(std::string reason) {
  const ScanState& state = scan_.State;
  SiteVerdict verdict;
  verdict.Site = std::exchange(site_, {});
  verdict.Url = state.CurrentLinkingUrl;
  verdict.LinksCounted = state.LinksCounted;
  verdict.LinksExpected = state.LinksExpected;
  verdict.End = DecideEnd();
  verdict.LinksBack = state.LinksCounted >= state.LinksExpected ||
                      (verdict.End == SiteEnd::Redirect && state.LinksExpected == 1);
  verdict.HttpsOnly = !verdict.LinksBack && state.Answers.HttpsOnly();
  const bool givenUp = reason == reason_word::kTimeout || reason == reason_word::kSkipped;
  verdict.Reached = !givenUp || state.PagesDone > 1 || state.LinksCounted > 0;
  verdict.Reason = std::move(reason);
  return verdict;
}

SiteEnd Controller::DecideEnd() const {
  const ScanState& state = scan_.State;
  if (state.LinkFound) {
    return state.LinksCounted < state.LinksExpected ? SiteEnd::Missing : SiteEnd::AllLinks;
  }
  const bool redirect = scan_.Settings.IsOne(setting::chkRedirect) && state.RedirectSuspected;
  return redirect ? SiteEnd::Redirect : SiteEnd::NoneFound;
}

void Controller::WriteSiteResult(SiteEnd end) {
  switch (end) {
    case SiteEnd::AllLinks: return;
    case SiteEnd::Missing: return WriteMissing();
    case SiteEnd::Redirect: return WriteRedirect();
    case SiteEnd::NoneFound: return WriteNoneFound();
  }
}

void Controller::WriteMissing() {
  ScanState& state = scan_.State;
  std::string linking = BareHost(state.CurrentLinkingUrl);
  const std::string shortfall = ZeroPadded(state.LinksExpected - state.LinksCounted, 3);
  scan_.Project.List3.Add({state.MainSiteKey, std::move(linking), std::string(status::kMissing) + shortfall,
                           "000", state.PageFull},
                          kIconBad, kRed);
}

void Controller::WriteRedirect() {
  ScanState& state = scan_.State;
  std::string linking = BareHost(state.CurrentLinkingUrl);
  scan_.Project.List3.Add(
      {state.MainSiteKey, std::move(linking), std::string(status::kRedirect), "001", state.RedirectPage},
      kIconGood, kBlue);
  ColourSiteRow(kGreen);
  scan_.Host.UpdateStats(Counted::LinkFound);
  if (!scan_.Settings.IsOne(setting::chkUpdate)) return;
  PassOver([&] {
    scan_.Project.List1(scan_.Project.CurrentMainSite)
        .Set(static_cast<std::size_t>(state.SiteRow - 1), &LinkingSite::WebsiteUrl, state.RedirectPage);
  });
}

/// The Link URL is the bare host too: BareHost changes CurrentLinkingUrl itself.
void Controller::WriteNoneFound() {
  ScanState& state = scan_.State;
  std::string linking = BareHost(state.CurrentLinkingUrl);
  scan_.Project.List3.Add(
      {state.MainSiteKey, std::move(linking), std::string(status::kNoneFound) + state.ReasonNote, "000",
       state.CurrentLinkingUrl},
      kIconBad, kRed);
  ColourSiteRow(kRed);
}

/// The user can delete sites during a scan, so the row may not exist.
void Controller::ColourSiteRow(std::uint32_t colour) {
  PassOver([&] {
    scan_.Project.List1(scan_.Project.CurrentMainSite)
        .SetColour(static_cast<std::size_t>(scan_.State.SiteRow - 1), colour);
  });
}

void Controller::ResetForNextSite() {
  ScanState& state = scan_.State;
  state.LinksCounted = 0;
  state.LinksExpected = 0;
  state.LinkFound = false;
  state.LinkNumber = 0;
  state.ForgetQueuedPages();
  state.LinksOnSite = 0;
  ++state.SiteRow;
  scan_.Lists.List2.Clear();
  state.ReasonNote.clear();
  state.RedirectPage.clear();
  state.RedirectSuspected = false;
  state.Answers = {};
}

/// A skip of a Linking Site ignores the scan type: even a scan of one site continues as if all were to be
/// scanned. A skip of a Main Site leaves SkipRequested set until a later site ends without such a skip.
Controller::Advance Controller::DecideAdvance(SkipType skip) {
  ScanState& state = scan_.State;
  const auto mainSites = static_cast<std::int64_t>(scan_.Project.List4.RowCount());
  const int current = scan_.Project.CurrentMainSite;
  const bool listDone = state.SiteRow > static_cast<std::int64_t>(scan_.Project.List1(current).RowCount());
  const bool lastMainSite = current >= mainSites;
  const auto amongAll = [&] {
    if (!listDone) return Advance::NextLinkingSite;
    return lastMainSite ? Advance::Stop : Advance::NextMainSite;
  };
  if (state.OnlyRow > 0) {
    state.SkipRequested = false;
    return Advance::Stop;
  }
  if (skip == SkipType::MainSite) return Advance::NextMainSite;
  if (std::exchange(state.SkipRequested, false)) return amongAll();
  switch (state.ScanType) {
    case ScanType::SelectedMainSite: return listDone ? Advance::Stop : Advance::NextLinkingSite;
    case ScanType::SelectedLinkingSite: return Advance::Stop;
    case ScanType::AllMainSites: break;
  }
  return amongAll();
}

/// Takes the next site and puts it in the queue. Returns false when the scan has ended instead.
bool Controller::AdvanceSite(SkipType skip) {
  const Advance advance = DecideAdvance(skip);
  if (advance == Advance::Stop) {
    cmdStop();
    return false;
  }
  if (advance == Advance::NextMainSite) {
    const auto mainSites = static_cast<int>(scan_.Project.List4.RowCount());
    ++scan_.Project.CurrentMainSite;
    scan_.State.SiteRow = 1;
    if (scan_.Project.CurrentMainSite > mainSites) {
      cmdStop();
      return false;
    }
    scan_.Host.SelectMainSite(scan_.Project.CurrentMainSite - 1);
    scan_.Host.UpdateStats(Counted::MainSite);
  }
  TakeLinkingSite();
  TakeMainSiteKey();
  scan_.Lists.List2.Add({scan_.State.CurrentLinkingUrl});
  PlayNextSiteSound();
  return true;
}

/// Takes the site of row SiteRow. Throws when the row does not exist or its expected links are not a number.
void Controller::TakeLinkingSite() {
  const LinkingSite& site = scan_.Project.List1(scan_.Project.CurrentMainSite)
                                .At(static_cast<std::size_t>(scan_.State.SiteRow - 1));
  scan_.State.CurrentLinkingUrl = site.WebsiteUrl;
  scan_.State.LinksExpected = ReadInt16(site.LinksExpected);
}

void Controller::TakeMainSiteKey() {
  scan_.State.MainSiteKey = MainSiteText();
  NormaliseMainSite(scan_.State.MainSiteKey);
}

/// Empty for a Main Site that does not exist.
std::string Controller::MainSiteText() const {
  const RecordList<MainSite>& mainSites = scan_.Project.List4;
  const int row = scan_.Project.CurrentMainSite - 1;
  const bool exists = row >= 0 && row < static_cast<int>(mainSites.RowCount());
  return exists ? mainSites.At(static_cast<std::size_t>(row)).Text : std::string();
}

void Controller::TellSiteBegins() {
  site_ = {MainSiteText(), scan_.State.CurrentLinkingUrl, scan_.Project.CurrentMainSite, scan_.State.SiteRow};
  scan_.Host.SiteBegins(site_);
}

void Controller::PlayNextSiteSound() {
  if (!scan_.Settings.IsOne(setting::chkAudioNext)) return;
  scan_.Platform.Sounds.PlaySoundFile(scan_.Folder.File(sound::kNextSite));
}

}  // namespace requite
