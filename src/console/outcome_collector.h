// SPDX-License-Identifier: MIT
// Collects what a scan comes to, for the formats that other programs read.
#pragma once

#include <chrono>
#include <cstddef>
#include <string>

#include "console/program.h"
#include "results/outcome.h"

namespace requite {

class OutcomeCollector : private SiteEvents {
 public:
  /// Follows the scan from here on until the end of its life.
  explicit OutcomeCollector(ConsoleProgram& program);
  ~OutcomeCollector() override;
  OutcomeCollector(const OutcomeCollector&) = delete;
  OutcomeCollector& operator=(const OutcomeCollector&) = delete;

  /// The scan is over. `project` is the path of its file.
  [[nodiscard]] ScanOutcome Take(const std::string& project, bool complete);

 private:
  void SiteBegins(const ScannedSite& site) override;
  void SiteFinished(const SiteVerdict& verdict) override;
  [[nodiscard]] std::vector<ScanOutcome::Link> NewLinks();
  [[nodiscard]] std::string Utf8(const std::string& text) const { return program_.Codec.ToUtf8(text); }

  ConsoleProgram& program_;
  ScanOutcome outcome_;
  std::size_t firstRow_ = 0;  ///< of the site in progress, in the results
  std::chrono::steady_clock::time_point began_ = std::chrono::steady_clock::now();
};

}  // namespace requite
