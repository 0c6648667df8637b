// SPDX-License-Identifier: MIT
// The order of the steps matters: after a failure, those before it stay done.
#include "scan/record_link.h"

#include <limits>

#include "model/url_forms.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

template <class Integer>
void CountUp(Integer& count) {
  if (count == std::numeric_limits<Integer>::max()) throw RuntimeFailure(Failure::Overflow);
  ++count;
}

void AddResult(ScanContext& scan, std::string_view status) {
  ScanState& state = scan.State;
  // BareHost changes CurrentLinkingUrl itself.
  const std::string linking = BareHost(state.CurrentLinkingUrl);
  scan.Project.List3.Add(
      {state.MainSiteKey, linking, std::string(status), ZeroPadded(state.LinkNumber, 3), state.PageFull},
      kIconGood, kBlue);
}

void MarkSite(ScanContext& scan, std::string_view status) {
  LinkingSiteList& sites = scan.Project.List1(scan.Project.CurrentMainSite);
  const auto row = static_cast<std::size_t>(scan.State.SiteRow) - 1;
  sites.SetColour(row, kBlue);
  if (status == status::kDirect && scan.Settings.IsOne(setting::chkUpdate)) {
    sites.Set(row, &LinkingSite::WebsiteUrl, scan.State.PageFull);
  }
}

}  // namespace

void RecordLink(ScanContext& scan, std::string_view status) {
  ScanState& state = scan.State;
  CountUp(state.LinksOnSite);
  CountUp(state.LinksCounted);
  CountUp(state.LinkNumber);
  AddResult(scan, status);
  MarkSite(scan, status);
  state.LinkFound = true;
  if (scan.Settings.IsOne(setting::chkAudioEmail)) {
    scan.Platform.Sounds.PlaySoundFile(scan.Folder.File(sound::kLinkFound));
  }
  scan.Host.UpdateStats(Counted::LinkFound);
  CountUp(state.PagesQueued);  // leaves a gap in SeenPages
  scan.Window.StatusBar1.SetPanel(StatusPanel::Site, "Found " + std::to_string(state.LinksOnSite) + " links");
  scan.Platform.EventLoop.LetPendingEventsRun();
}

}  // namespace requite
