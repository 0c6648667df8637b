// SPDX-License-Identifier: MIT
// Only between scans is the scan made again.
#include "qt/window/scan_services.h"

namespace requite {

ScanServices::ScanServices(DesktopServices& services, Form1& form) : services_(services), form_(form) {
  form_.BeforeScan = [this] { Follow(); };
}

/// A scan may be started while a step of the last one, which was stopped, lets events run. That step is not
/// to find its scan gone: the next start will do.
void ScanServices::Follow() {
  if (services_.EventsAreNested()) return;
  const bool several = SitesAtATime(form_.Settings) > 1;
  if (several && !ahead_) ReadAhead();
  if (!several && ahead_) ReadOneAtATime();
}

void ScanServices::ReadAhead() {
  ahead_.emplace(services_.Parts(), services_.All);
  RunAhead& ahead = ahead_->Ahead();
  form_.MakeScanOver(ahead.ServicesOfScan());
  ahead.Follow(form_.Scan.Context());
  form_.SiteListeners.push_back(&ahead);
  form_.AheadWords = [&ahead] { return Words(ahead.Figures()); };
  form_.SitesAhead = [&ahead] { return ahead.Figures().SitesRead; };
}

void ScanServices::ReadOneAtATime() {
  form_.AheadWords = nullptr;
  form_.SitesAhead = nullptr;
  std::erase(form_.SiteListeners, &ahead_->Ahead());
  form_.MakeScanOver(services_.All);
  ahead_.reset();
}

}  // namespace requite
