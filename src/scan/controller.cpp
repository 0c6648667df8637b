// SPDX-License-Identifier: MIT
// The road from page to page, the commands of the user and the time-out.
#include "scan/controller.h"

#include <limits>
#include <string>

#include "model/page_limits.h"
#include "platform/failure_box.h"

namespace requite {

void Controller::ScanNextPage() {
  switch (DecidePage()) {
    case PageDecision::Return: return;
    case PageDecision::CloseSite: NextSite(); return;
    case PageDecision::CloseSiteAndGoOn: NextSite(); break;
    case PageDecision::TakePage: break;
  }
  TakePage();
}

/// A failure leaves the scan where it is until the user presses Stop. No page is in progress then, so the
/// time-out ends before the box lets events run: its tick would write a row for a site that never began.
template <class Block>
void Controller::StandStillOnFailure(Block&& block) {
  try {
    block();
  } catch (const RuntimeFailure& failure) {
    scan_.Platform.timTimeout.Stop();
    ShowFailure(scan_.Platform.Dialogs, failure);
  }
}

// NextSite begins a search, which takes a page, which may close the next site at once. Written as calls
// of one another these would grow the stack with the number of sites, so they run as a loop. What the
// calls would do on their way back is the same at each level: the rest of the page step, once for each
// site that was closed because it expected no more links.
void Controller::NextSite() {
  SkipType skip = CloseSite();
  std::size_t unfinishedPageSteps = 0;
  StandStillOnFailure([&] {
    while (AdvanceSite(skip)) {
      BeginSearch();
      TellSiteBegins();
      const PageDecision decision = DecidePage();
      if (decision == PageDecision::TakePage) TakePage();
      if (decision == PageDecision::TakePage || decision == PageDecision::Return) return;
      skip = CloseSite();
      if (decision == PageDecision::CloseSiteAndGoOn) ++unfinishedPageSteps;
    }
  });
  for (; unfinishedPageSteps > 0; --unfinishedPageSteps) {
    StandStillOnFailure([this] { TakePage(); });
  }
}

void Controller::cmdDoSearch_Click() {
  BeginSearch();
  ScanNextPage();
}

void Controller::BeginSearch() {
  scan_.Work.Claim();
  scan_.State.Scanning = true;
  scan_.Window.cmdViewDatabase.SetEnabled(false);
  scan_.Window.Command2.SetEnabled(false);
  scan_.Window.Command3.SetEnabled(false);
  scan_.Window.cmdResume.SetEnabled(false);
  scan_.Window.Command1.SetEnabled(false);
  scan_.Window.cmdStop.SetEnabled(true);
  scan_.State.LinksOnSite = 0;
  scan_.State.PagesDone = 0;
}

/// The first half of the page step: counts the page and looks whether the site is done. A site without
/// more pages ends the step; a site with all its links goes on with the rest of it once the next site
/// has begun. The difference is kept: it decides what the panels show.
Controller::PageDecision Controller::DecidePage() {
  ScanState& state = scan_.State;
  if (!state.Scanning) return PageDecision::Return;
  state.PageLimit = PageLimitAt(scan_.Settings.Number(setting::cmbAdvance), state.PageLimit);
  ++state.PagesDone;
  const bool limited = scan_.Settings.IsOne(setting::chkAuto) && state.PagesDone > state.PageLimit;
  if (limited || scan_.Lists.List2.Empty()) {
    state.PagesDone = 0;
    return PageDecision::CloseSite;
  }
  if (scan_.Settings.IsOne(setting::chkAuto2) && state.LinksCounted >= state.LinksExpected) {
    state.PagesDone = 0;
    return PageDecision::CloseSiteAndGoOn;
  }
  return PageDecision::TakePage;
}

/// The second half of the page step. Only its beginning and the fetch look at Scanning: a stop that
/// comes while the window repaints still sees the next page leave the queue.
void Controller::TakePage() {
  ScanState& state = scan_.State;
  if (!state.Scanning) return;
  StatusBar& bar = scan_.Window.StatusBar1;
  const auto mainSites = static_cast<std::int64_t>(scan_.Project.List4.RowCount());
  bar.SetPanel(1, state.SitesDone < mainSites ? "Main Site " + std::to_string(state.SitesDone + 1) + " of " +
                                                    std::to_string(mainSites)
                                              : std::string("Finished All Main Sites"));
  bar.SetPanel(2, state.PagesDone >= 1 ? "Page " + std::to_string(state.PagesDone) + " of " +
                                             std::to_string(std::int64_t{state.PagesQueued} + 1)
                                       : std::string("Finished Pages"));
  scan_.Platform.EventLoop.LetPendingEventsRun();
  scan_.Platform.EventLoop.LetPendingEventsRun();
  if (scan_.Lists.List2.Empty()) return;
  state.PageUrl = scan_.Lists.List2.At(0).Url;
  scan_.Lists.List2.Remove(0);
  bar.SetPanel(3, "Searching " + state.CurrentLinkingUrl);
  next_.FetchPage();
}

void Controller::cmdSkip() {
  scan_.State.SkipRequested = true;
  scan_.State.ReasonNote = reason_word::kSkipped;
  NextSite();
}

void Controller::cmdNextSearch() { NextSite(); }

void Controller::cmdStop() {
  ScanWindow& window = scan_.Window;
  scan_.State.Scanning = false;
  for (Button* button : {&window.cmdStop, &window.cmdSkip, &window.cmdNextSearch}) button->SetEnabled(false);
  for (Button* button : {&window.Command1, &window.cmdViewDatabase, &window.Command2, &window.Command3,
                         &window.cmdNew, &window.cmdOpen, &window.cmdSave, &window.cmdResume}) {
    button->SetEnabled(true);
  }
  window.Frame1.SetEnabled(true);
  scan_.State.SiteRow = 0;
  site_ = {};
  scan_.Platform.Connection.Close();
  scan_.Gets.Abort();  // else a moved page would hold up the end of the scan
  window.pb1.SetValue(0);
  window.StatusBar1.SetPanel(1, "Stopped");
  for (const int panel : {2, 3, 4}) window.StatusBar1.SetPanel(panel, {});
  scan_.Platform.EventLoop.LetPendingEventsRun();
  scan_.Platform.timTimeout.Stop();
  scan_.Host.UpdateStats(Counted::MainSite);
  scan_.Host.GenerateLinkReport();
  scan_.Work.Release();
  if (scan_.Settings.IsOne(setting::chkAudioFinished)) {
    scan_.Platform.Sounds.PlaySoundFile(scan_.Folder.File(sound::kFinished));
  }
  window.Command10.SetEnabled(true);
}

// A stop that came while a fetch was starting leaves the timer running, so a tick looks at Scanning
// like every other step: silence after a stop must not begin the scan anew.
void Controller::TimeoutTick() {
  ScanState& state = scan_.State;
  if (!state.Scanning) return;
  PageFetch& page = state.Page;
  if (page.TimeoutTicks < std::numeric_limits<std::int16_t>::max()) ++page.TimeoutTicks;
  scan_.Window.StatusBar1.SetPanel(
      4, std::to_string(page.TimeoutTicks) + " of " + std::to_string(state.TimeoutSeconds) + " seconds");
  if (page.TimeoutTicks < state.TimeoutSeconds) return;
  scan_.Lists.lstErr.Add({std::string(reason_word::kTimeout), page.PageHost});
  state.ReasonNote = reason_word::kTimeout;
  NextSite();
}

}  // namespace requite
