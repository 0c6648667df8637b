// SPDX-License-Identifier: MIT
// The crawl rules: which URLs a scan may use, and the log of those it may not.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "model/project.h"
#include "model/settings.h"
#include "platform/files.h"
#include "platform/needle_set.h"
#include "scan/scan_state.h"

namespace requite {

/// Appends an entry to "rules.log" in the program's folder. Nothing ever empties this file.
/// Throws when the file system refuses.
void LogExclusion(const ProgramFolder& folder, std::string_view ruleType, std::string_view ruleValue,
                  std::string_view url);

/// The rules of the project that apply to the current Linking Site. They are selected again when a rule, the
/// text of the Main Site or the Website URL of the row has changed since the last call.
class Rules {
 public:
  Rules(const Project& project, const ScanState& state, const Settings& settings, const ProgramFolder& folder)
      : project_(project), state_(state), settings_(settings), folder_(folder) {}

  /// Whether the scan may use a resolved URL. The first rule that fails decides; it is logged when the
  /// setting says so. If the project has any rules, throws Subscript when the row of the Main Site or of the
  /// Linking Site does not exist.
  [[nodiscard]] bool PassesRules(std::string_view url);

 private:
  struct Applicable {
    std::size_t Row;
    bool MustHold;  ///< a Limit rule; else an Exclude rule
    Needle Value;
  };
  void PickApplicable();

  const Project& project_;
  const ScanState& state_;
  Settings settings_;
  const ProgramFolder& folder_;
  std::vector<Applicable> applicable_;
  std::uint64_t version_ = 0;
  std::string mainSite_;
  std::string websiteUrl_;
  bool picked_ = false;
};

}  // namespace requite
