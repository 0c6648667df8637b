// SPDX-License-Identifier: MIT
// Tests of an href value before it is resolved.
#include "scan/link_filter.h"

#include "platform/text.h"

namespace requite {

bool LinkFilter::IsScriptOrMail(std::string_view value, LetterSet letters) const {
  return javascript_.IsIn(value, letters) || mailto_.IsIn(value, letters);
}

bool LinkFilter::IsAllowedType(std::string_view value, LetterSet letters) {
  if (value.ends_with('/')) return true;
  const bool isQuery = value.find('.') == std::string_view::npos && value.find('?') != std::string_view::npos;
  if (isQuery || HoldsFileType(value, letters)) return true;
  // Compared as a text, unlike other settings: anything but "1" switches the list off.
  return settings_.GetSetting(setting::chkFileTypes) != "1";
}

bool LinkFilter::HoldsFileType(std::string_view value, LetterSet letters) {
  for (std::size_t i = 0; i < fileTypes_.size(); ++i) {
    if (i == needles_.size()) needles_.emplace_back(fileTypes_[i]);
    // A new scan may have read another list.
    if (needles_[i].Pattern() != fileTypes_[i]) needles_[i] = Needle(fileTypes_[i]);
    if (needles_[i].IsIn(value, letters)) return true;
  }
  return false;
}

bool LinkFilter::IsLocalOrFragment(std::string_view value, LetterSet letters) const {
  return value.find('#') != std::string_view::npos || file_.IsIn(value, letters) ||
         unsaved_.IsIn(value, letters);
}

}  // namespace requite
