// SPDX-License-Identifier: MIT
// The page limit and the options that end a site.
#include "scan/page_decision.h"

#include "model/page_limits.h"

namespace requite {

PageDecision DecidePage(ScanContext& scan) {
  ScanState& state = scan.State;
  if (!state.Scanning) return PageDecision::Return;
  state.PageLimit = PageLimitAt(scan.Settings.Number(setting::cmbAdvance), state.PageLimit);
  ++state.PagesDone;
  const bool limited = scan.Settings.IsOne(setting::chkAuto) && state.PagesDone > state.PageLimit;
  if (limited || scan.Lists.List2.Empty()) {
    state.PagesDone = 0;
    return PageDecision::CloseSite;
  }
  if (scan.Settings.IsOne(setting::chkAuto2) && state.LinksCounted >= state.LinksExpected) {
    state.PagesDone = 0;
    return PageDecision::CloseSiteAndGoOn;
  }
  return PageDecision::TakePage;
}

}  // namespace requite
