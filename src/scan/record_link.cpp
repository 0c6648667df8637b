// SPDX-License-Identifier: MIT
// The steps of recording, in their order: a failure leaves done what came before it.
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

void AddResult(ScanContext& context, std::string_view status) {
  ScanState& state = context.State;
  // The reduction to the bare host stays in CurrentLinkingUrl.
  const std::string linking = BareHost(state.CurrentLinkingUrl);
  context.Project.List3.Add(
      {state.MainSiteKey, linking, std::string(status), ZeroPadded(state.LinkNumber, 3), state.PageFull},
      kIconGood, kBlue);
}

void MarkSite(ScanContext& context, std::string_view status) {
  LinkingSiteList& sites = context.Project.List1(context.Project.CurrentMainSite);
  const auto row = static_cast<std::size_t>(context.State.SiteRow) - 1;
  sites.SetColour(row, kBlue);
  if (status == status::kDirect && context.Settings.IsOne(setting::chkUpdate)) {
    sites.Set(row, &LinkingSite::WebsiteUrl, context.State.PageFull);
  }
}

}  // namespace

void RecordLink(ScanContext& context, std::string_view status) {
  ScanState& state = context.State;
  CountUp(state.LinksOnSite);
  CountUp(state.LinksCounted);
  CountUp(state.LinkNumber);
  AddResult(context, status);
  MarkSite(context, status);
  state.LinkFound = true;
  if (context.Settings.IsOne(setting::chkAudioEmail)) {
    context.Platform.Sounds.PlaySoundFile(context.Folder.File(sound::kLinkFound));
  }
  context.Host.UpdateStats(Counted::LinkFound);
  CountUp(state.PagesQueued);  // leaves a gap in SeenPages
  context.Window.StatusBar1.SetPanel(3, "Found " + std::to_string(state.LinksOnSite) + " links");
  context.Platform.EventLoop.LetPendingEventsRun();
}

}  // namespace requite
