// SPDX-License-Identifier: MIT
// The whole scan: makes the steps and connects each one to the next.
#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include "scan/analyser.h"
#include "scan/controller.h"
#include "scan/fetcher.h"
#include "scan/scan_context.h"
#include "scan/triage.h"

namespace requite {

/// Owned by the main window, like everything that its constructor takes. While it lives, it handles the
/// events of the connection and the ticks of timTimeout.
class Scan : private Controller::Next, private Fetcher::Next, private Triage::Next, private Analyser::Next {
 public:
  Scan(Project& project, ScanLists& lists, ScanState& state, ScanWindow window, ScanHost& host,
       Services& services, const ProgramFolder& folder, WorkFolder& work);
  ~Scan() override;
  Scan(const Scan&) = delete;
  Scan& operator=(const Scan&) = delete;

  /// The user's commands, named like their buttons.
  void StartScan(std::int32_t onlyRow = 0) { controller_.StartScan(onlyRow); }  ///< Command1
  void cmdDoSearch_Click() { controller_.cmdDoSearch_Click(); }
  void cmdSkip() { controller_.cmdSkip(); }
  void cmdNextSearch() { controller_.cmdNextSearch(); }
  void cmdStop() { controller_.cmdStop(); }

  /// Takes the next page of the current site, or closes the site.
  void ScanNextPage() override { controller_.ScanNextPage(); }

  /// What the steps work on.
  [[nodiscard]] ScanContext& Context() { return scan_; }

 private:
  void FetchPage() override { fetcher_.FetchPage(); }
  void CheckHttpStatus(const std::string& header, const std::string& url) override {
    triage_.CheckHttpStatus(header, url);
  }
  void ProcessPage(PageBody body) override { triage_.ProcessPage(std::move(body)); }
  void AnalysePage() override { analyser_.AnalysePage(); }
  void NextSite() override { controller_.NextSite(); }
  void GetMovedPage(std::string address) override;

  ScanContext scan_;
  Controller controller_;
  Fetcher fetcher_;
  Triage triage_;
  Analyser analyser_;
};

}  // namespace requite
