// SPDX-License-Identifier: MIT
// The crawl rules: whether the crawl may use a URL, and the log of what it may not.
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

/// Appends one exclusion to "rules.log" in the program's folder. The log is never emptied.
/// Throws what the file system refuses.
void LogExclusion(const ProgramFolder& folder, std::string_view ruleType, std::string_view ruleValue,
                  std::string_view url);

/// The rules of the project as they apply to the Linking Site in scan. They are picked out anew when
/// a rule, the Main Site's text or the row's Website URL has changed since the last URL.
class Rules {
 public:
  Rules(const Project& project, const ScanState& state, const Settings& settings, const ProgramFolder& folder)
      : project_(project), state_(state), settings_(settings), folder_(folder) {}

  /// Whether the crawl may use a resolved URL. The first rule that fails decides, and is logged when
  /// the setting says so. With any rule in the project it throws Subscript when the row of the Main
  /// Site or of the Linking Site is gone.
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
