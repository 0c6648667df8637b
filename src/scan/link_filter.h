// SPDX-License-Identifier: MIT
// Which href values can be pages: tests of scheme, file type and fragment.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "model/settings.h"
#include "platform/needle_set.h"

namespace requite {

/// Each test takes the value and the set of its letters.
class LinkFilter {
 public:
  /// `fileTypes` is the list of the current scan; it must outlive the filter.
  LinkFilter(const Settings& settings, const std::vector<std::string>& fileTypes)
      : settings_(settings), fileTypes_(fileTypes) {}

  /// Whether the value names a script or a mail address.
  [[nodiscard]] bool IsScriptOrMail(std::string_view value, LetterSet letters) const;
  /// Whether the list of file types allows the value, or is not in use.
  [[nodiscard]] bool IsAllowedType(std::string_view value, LetterSet letters);
  /// Whether the value is a local file or has a fragment. Links with a fragment do not count, not even those
  /// to the Main Site.
  [[nodiscard]] bool IsLocalOrFragment(std::string_view value, LetterSet letters) const;

 private:
  [[nodiscard]] bool HoldsFileType(std::string_view value, LetterSet letters);

  Settings settings_;
  const std::vector<std::string>& fileTypes_;
  std::vector<Needle> needles_;  // of fileTypes_, each made when it is first needed
  Needle javascript_{"javascript"};
  Needle mailto_{"mailto"};
  Needle file_{"file://"};
  Needle unsaved_{"unsaved:"};
};

}  // namespace requite
