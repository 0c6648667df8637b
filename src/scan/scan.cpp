// SPDX-License-Identifier: MIT
// Wires the steps of a scan together and to the platform's events.
#include "scan/scan.h"

namespace requite {

Scan::Scan(Project& project, ScanLists& lists, ScanState& state, ScanWindow window, ScanHost& host,
           Services& services, const ProgramFolder& folder, WorkFolder& work)
    : context_{project, lists, state, window, host, *this, services, Settings(services.Store), folder, work},
      controller_(context_),
      fetcher_(context_),
      triage_(context_),
      analyser_(context_) {
  services.Connection.Events = &fetcher_;
  services.timTimeout.OnTick = [this] { controller_.TimeoutTick(0); };
}

Scan::~Scan() {
  context_.Platform.Connection.Close();
  context_.Platform.timTimeout.Stop();
  context_.Platform.Connection.Events = nullptr;
  context_.Platform.timTimeout.OnTick = nullptr;
}

}  // namespace requite
