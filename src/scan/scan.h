// SPDX-License-Identifier: MIT
// The whole scan: makes its steps, hands them the shared context and leads each step to the next.
#pragma once

#include <cstdint>
#include <string>

#include "scan/analyser.h"
#include "scan/controller.h"
#include "scan/fetcher.h"
#include "scan/scan_context.h"
#include "scan/triage.h"

namespace requite {

/// Owned by the main window, which owns what it is built over. Takes the events of the connection and
/// the ticks of timTimeout as long as it lives.
class Scan : public ScanSteps {
 public:
  Scan(Project& project, ScanLists& lists, ScanState& state, ScanWindow window, ScanHost& host,
       Services& services, const ProgramFolder& folder, WorkFolder& work);
  ~Scan() override;
  Scan(const Scan&) = delete;
  Scan& operator=(const Scan&) = delete;

  /// The commands of the user, each with the name of its button.
  void StartScan() { controller_.StartScan(); }  ///< Command1
  void cmdDoSearch_Click() { controller_.cmdDoSearch_Click(); }
  void cmdSkip() { controller_.cmdSkip(); }
  void cmdNextSearch() { controller_.cmdNextSearch(); }
  void cmdStop() { controller_.cmdStop(); }

  void ScanNextPage(std::int16_t connection) override { controller_.ScanNextPage(connection); }
  void NextSite() override { controller_.NextSite(); }
  void FetchPage(std::int16_t connection) override { fetcher_.FetchPage(connection); }
  void CheckHttpStatus(const std::string& header, const std::string& url) override {
    triage_.CheckHttpStatus(header, url);
  }
  void ProcessPage(std::string body, std::int16_t connection) override {
    triage_.ProcessPage(std::move(body), connection);
  }
  void AnalysePage(std::int16_t connection) override { analyser_.AnalysePage(connection); }

  /// What every step works on.
  [[nodiscard]] ScanContext& Context() { return context_; }

 private:
  ScanContext context_;
  Controller controller_;
  Fetcher fetcher_;
  Triage triage_;
  Analyser analyser_;
};

}  // namespace requite
