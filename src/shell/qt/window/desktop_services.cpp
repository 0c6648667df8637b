// SPDX-License-Identifier: MIT
// The making of the desktop's services, in the order in which they need each other.
#include "shell/qt/window/desktop_services.h"

#include "shell/qt/window/opening_failed.h"

namespace requite {

DesktopServices::DesktopServices(const EventGuard& guard, const ConnectMap& map,
                                 const std::string& settingsPath)
    : store_(settingsPath),
      poller_(guard),
      resolver_(poller_),
      connection_(poller_, resolver_, map),
      timTimeout_(guard),
      timer1_(guard),
      timBrowser_(guard),
      internet_(map) {
  shell_.OnFailed = ShowUnopened;
}

}  // namespace requite
