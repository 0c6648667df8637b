// SPDX-License-Identifier: MIT
// What a scan shows of itself while it runs, and how many of its sites link back.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>

#include "console/program.h"

namespace requite {

/// On a terminal one line is redrawn in place, elsewhere there is one line a finished site. At the end
/// comes one line that counts.
class ScanProgress : private SiteEvents, private ControlView {
 public:
  enum class Output { Terminal, Lines, None };

  /// Follows the scan from here on until the end of its life.
  ScanProgress(ConsoleProgram& program, Output output);
  ~ScanProgress() override;
  ScanProgress(const ScanProgress&) = delete;
  ScanProgress& operator=(const ScanProgress&) = delete;

  /// Takes the redrawn line away, so that another line can be written. It comes back with the next change.
  void Clear();
  /// The scan has come to its end: tells how the sites did.
  void Summarise();
  /// Whether every site finished so far links back as often as expected.
  [[nodiscard]] bool AllLinkBack() const { return Counts().LinkBack == Counts().Sites; }
  [[nodiscard]] std::int32_t SitesFinished() const { return Counts().Sites; }

 private:
  void SiteBegins(const ScannedSite&) override {}
  void SiteFinished(const SiteVerdict& verdict) override;
  /// A panel of the status bar has changed.
  void Refresh(const Control&) override { Redraw(); }
  void Redraw();
  void Draw(const std::string& text);
  [[nodiscard]] const SiteCounts& Counts() const { return program_.Form1.Tally.Counts(); }
  [[nodiscard]] std::int32_t AllSites() const;
  [[nodiscard]] std::string Position(std::int32_t number) const;

  ConsoleProgram& program_;
  Output output_;
  std::chrono::steady_clock::time_point start_;
  std::chrono::steady_clock::time_point drawn_;
  bool lineOnShow_ = false;
};

}  // namespace requite
