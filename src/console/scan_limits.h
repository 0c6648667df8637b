// SPDX-License-Identifier: MIT
// The times after which a scan without a user presses Skip and Stop by itself.
#pragma once

#include <cstdint>

#include "console/options.h"
#include "console/program.h"

namespace requite {

/// A server that sends one byte a second is never silent, so no time-out ends its site: a job that must
/// end sets limits. To be made before the scan starts; must outlive the scan's last event.
class ScanLimits {
 public:
  ScanLimits(ConsoleProgram& program, const ScanOptions& options);

  /// Another site begins, and its time with it.
  void SiteBegins();
  /// Whether Stop was pressed here.
  [[nodiscard]] bool Stopped() const { return stopped_; }

 private:
  ConsoleProgram& program_;
  const ScanOptions& options_;
  std::int32_t site_ = 0;
  bool stopped_ = false;
};

}  // namespace requite
