// SPDX-License-Identifier: MIT
// What triage reads out of the text of a page, all in one pass.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/mark_finder.h"
#include "scan/slices.h"

namespace requite {

/// A page with each "href=", in any letter case, in lower case on a line of its own, and without the blanks
/// after it. Of more than 36 blanks the rest stays.
struct PreparedPage {
  std::string Text;
  std::optional<std::size_t> MainSiteFrom;  ///< the Main Site's text is nowhere before this place of the body
  bool HasMainSite = false;                 ///< set by triage, which knows whether the Main Site has changed
  bool Protected = false;
  bool UnrunScript = false;
  bool MayHaveMoved = false;  ///< only then can a line say so
};

/// The texts that a page is searched for.
class PageMarks {
 public:
  /// Finds an empty main site nowhere.
  explicit PageMarks(const std::string& mainSite);

  [[nodiscard]] const std::string& MainSite() const { return mainSite_; }
  /// Nothing after a stop.
  [[nodiscard]] std::optional<PreparedPage> Prepare(std::string_view body, const Slices& slices) const;

 private:
  std::string mainSite_;
  MarkFinder finder_;
};

}  // namespace requite
