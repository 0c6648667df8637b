// SPDX-License-Identifier: MIT
// The times after which a scan without a user presses Skip and Stop by itself.
#pragma once

#include <cstdint>

#include "console/options.h"
#include "console/program.h"

namespace requite {

/// A server that sends one byte a second is never silent, so no time-out ends its site: a job that must
/// end sets limits. To be made before the scan starts; must outlive the scan's last event.
class ScanLimits : private SiteEvents {
 public:
  ScanLimits(ConsoleProgram& program, const ScanOptions& options);
  ~ScanLimits() override;
  ScanLimits(const ScanLimits&) = delete;
  ScanLimits& operator=(const ScanLimits&) = delete;

  /// Whether Stop was pressed here.
  [[nodiscard]] bool Stopped() const { return stopped_; }

 private:
  /// The time of the site begins; the first one begins the time of the scan too.
  void SiteBegins(const ScannedSite& site) override;
  void SiteFinished(const SiteVerdict&) override {}
  void SkipLater();
  void StopLater();

  ConsoleProgram& program_;
  const ScanOptions& options_;
  std::int32_t site_ = 0;
  bool stopped_ = false;
};

}  // namespace requite
