// SPDX-License-Identifier: MIT
// Connects the steps of a scan with each other and with the platform's events.
#include "scan/scan.h"

#include <utility>

#include "model/visitor.h"
#include "platform/http_get_text.h"

namespace requite {

Scan::Scan(Project& project, ScanLists& lists, ScanState& state, ScanWindow window, ScanHost& host,
           Services& services, const ProgramFolder& folder, WorkFolder& work)
    : scan_{project, lists, state, window, host, services, Settings(services.Store), folder, work},
      controller_(scan_, *this),
      fetcher_(scan_, *this),
      triage_(scan_, *this),
      analyser_(scan_, *this) {
  services.Connection.Events = &fetcher_;
  services.timTimeout.OnTick = [this] { controller_.TimeoutTick(); };
}

Scan::~Scan() {
  scan_.Platform.Connection.Close();
  scan_.Platform.timTimeout.Stop();
  scan_.Platform.Connection.Events = nullptr;
  scan_.Platform.timTimeout.OnTick = nullptr;
}

void Scan::GetMovedPage(std::string address) {
  std::string text = HttpGetText(address, VisitorOf(scan_.Settings), scan_.Gets, scan_.Platform.EventLoop);
  analyser_.TakeMovedPage(std::move(text));
}

}  // namespace requite
