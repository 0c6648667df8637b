// SPDX-License-Identifier: MIT
// Finds the links on the user's own page.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "model/settings.h"
#include "platform/controls.h"
#include "platform/services.h"
#include "scan/scan_state.h"

namespace requite {

/// What ExtractLinks reports to and what can end it.
struct ExtractNeeds {
  const ScanState& State;
  requite::Settings Settings;
  StatusBar& StatusBar1;
  requite::EventLoop& EventLoop;
  /// The window has been closed: the run ends.
  const std::function<bool()>& Ended;
};

/// The links of a page to other sites, each followed by ",". A comma in a link is not escaped, so the
/// reader gets two links. Links that hold `base` in any letter case are left out, and so are pictures,
/// programs and the like. Shows the count in the first status panel and lets events run at each line and
/// each link. Empty when the run was ended.
[[nodiscard]] std::string ExtractLinks(std::string_view html, std::string_view base,
                                       const ExtractNeeds& needs);

/// Cuts the value out of a line that begins with "href=" and holds only that one: without leading quotes,
/// up to the next quote or ">". A blank does not end it. A value that nothing ends loses its last
/// character or two, or as much as it has of "href=".
[[nodiscard]] std::string_view CutImportValue(std::string_view line);

}  // namespace requite
