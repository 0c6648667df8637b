// SPDX-License-Identifier: MIT
// From page to page, the commands of the user, and the time-out.
#include "scan/controller.h"

#include <limits>
#include <string>
#include <utility>

#include "platform/failure_box.h"
#include "scan/page_decision.h"

namespace requite {

void Controller::ScanNextPage() {
  switch (DecidePage(scan_)) {
    case PageDecision::Return: return;
    case PageDecision::CloseSite: NextSite(); return;
    case PageDecision::CloseSiteAndGoOn: NextSite(); break;
    case PageDecision::TakePage: break;
  }
  TakePage();
}

/// After a failure the scan waits until the user presses Stop. No page is loading then. The timer stops
/// before the message box lets events run, or a tick would write a row for a site that never began.
template <class Block>
void Controller::StandStillOnFailure(Block&& block) {
  EndInBox(scan_.Platform.Dialogs, std::forward<Block>(block), [this](const RuntimeFailure& failure) {
    scan_.Platform.timTimeout.Stop();
    return ScanFailureBox(failure);
  });
}

// NextSite begins a search, which takes a page, which may close the next site at once. As calls of one
// another these would make the stack grow with the number of sites, so this is a loop. What each call would
// still do after its inner call is the same: the second half of the page step, once for each site that was
// closed because it already had its links.
void Controller::NextSite() {
  SkipType skip = CloseSite();
  std::size_t unfinishedPageSteps = 0;
  StandStillOnFailure([&] {
    while (AdvanceSite(skip)) {
      BeginSearch();
      TellSiteBegins();
      const PageDecision decision = DecidePage(scan_);
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

/// The second half of the page step. It tests Scanning only at its start: after a stop during the repaint the
/// next page still leaves the queue, and FetchPage does nothing.
void Controller::TakePage() {
  ScanState& state = scan_.State;
  if (!state.Scanning) return;
  StatusBar& bar = scan_.Window.StatusBar1;
  const auto mainSites = static_cast<std::int64_t>(scan_.Project.List4.RowCount());
  bar.SetPanel(StatusPanel::Activity,
               state.SitesDone < mainSites
                   ? "Main Site " + std::to_string(state.SitesDone + 1) + " of " + std::to_string(mainSites)
                   : std::string("Finished All Main Sites"));
  bar.SetPanel(StatusPanel::Page, state.PagesDone >= 1
                                      ? "Page " + std::to_string(state.PagesDone) + " of " +
                                            std::to_string(std::int64_t{state.PagesQueued} + 1)
                                      : std::string("Finished Pages"));
  scan_.Platform.EventLoop.LetPendingEventsRun();
  scan_.Platform.EventLoop.LetPendingEventsRun();
  if (scan_.Lists.List2.Empty()) return;
  state.PageUrl = scan_.Lists.List2.At(0).Url;
  scan_.Lists.List2.Remove(0);
  bar.SetPanel(StatusPanel::Site, "Searching " + state.CurrentLinkingUrl);
  next_.FetchPage();
}

void Controller::cmdSkip() {
  scan_.State.SkipRequested = true;
  scan_.State.ReasonNote = reason_word::kSkipped;
  NextSite();
}

void Controller::cmdNextSearch() { NextSite(); }

void Controller::cmdStop() {
  scan_.Platform.EventLoop.Late().Finish();  // before another scan may take the work folder
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
  scan_.Gets.Abort();  // or a moved page would delay the end of the scan
  window.pb1.SetValue(0);
  window.StatusBar1.SetPanel(StatusPanel::Activity, "Stopped");
  for (const StatusPanel panel : {StatusPanel::Page, StatusPanel::Site, StatusPanel::Wait})
    window.StatusBar1.SetPanel(panel, {});
  scan_.Platform.EventLoop.LetPendingEventsRun();
  scan_.Platform.timTimeout.Stop();
  scan_.Host.UpdateStats(Counted::MainSite);
  scan_.Host.GenerateLinkReport();
  scan_.Work.Release();
  if (scan_.Settings.IsOne(setting::chkAudioFinished)) {
    scan_.Platform.Sounds.PlaySoundFile(scan_.Folder.File(sound::kFinished));
  }
  window.Command10.SetEnabled(true);
  scan_.Host.ScanEnds();
}

// A stop while a fetch is starting leaves the timer running. Without the test of Scanning its ticks would
// start the scan again.
void Controller::TimeoutTick() {
  ScanState& state = scan_.State;
  if (!state.Scanning) return;
  PageFetch& page = state.Page;
  if (page.TimeoutTicks < std::numeric_limits<std::int16_t>::max()) ++page.TimeoutTicks;
  scan_.Window.StatusBar1.SetPanel(StatusPanel::Wait, std::to_string(page.TimeoutTicks) + " of " +
                                                          std::to_string(state.TimeoutSeconds) + " seconds");
  if (page.TimeoutTicks < state.TimeoutSeconds) return;
  scan_.Lists.lstErr.Add({std::string(reason_word::kTimeout), page.PageHost});
  state.ReasonNote = reason_word::kTimeout;
  NextSite();
}

}  // namespace requite
