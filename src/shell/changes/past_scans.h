// SPDX-License-Identifier: MIT
// What the last scans found of one site, for a drawing.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "history/record_store.h"
#include "platform/controls.h"

namespace requite {

class PastScans : public Control {
 public:
  using Control::Control;

  [[nodiscard]] const std::string& Site() const { return site_; }
  /// The oldest first; none while no site is selected.
  [[nodiscard]] const std::vector<PastResult>& Results() const { return results_; }
  void Set(std::string site, std::vector<PastResult> results) {
    site_ = std::move(site);
    results_ = std::move(results);
    Changed();
  }

 private:
  std::string site_;
  std::vector<PastResult> results_;
};

}  // namespace requite
