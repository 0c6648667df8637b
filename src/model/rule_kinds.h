// SPDX-License-Identifier: MIT
// The kinds of crawl rules: the word that a record holds, what the editors call it, how the scan tests it.
#pragma once

#include <array>
#include <string_view>

namespace requite {

struct RuleKind {
  std::string_view Word;  ///< as Rule::RuleType holds it and project files store it, compared with case
  std::string_view Caption;
  bool MustHold;     ///< a URL must hold the value (a Limit rule), else it must not (an Exclude rule)
  bool IsDirectory;  ///< the value is searched between slashes, as a whole directory name
};

/// In the order of the options in the rule editors. String and Root rules test alike, anywhere in the
/// URL: only their words and captions differ.
inline constexpr std::array<RuleKind, 6> kRuleKinds = {
    {{"LimitDirectory", "Limit to directories with this name:", true, true},
     {"ExcludeDirectory", "Exclude Directories with this name:", false, true},
     {"LimitString", "Limit to URLs that contain this string:", true, false},
     {"ExcludeString", "Exclude URLs that contain this string:", false, false},
     {"LimitRoot", "Limit to URLs in this directory root:", true, false},
     {"ExcludeRoot", "Exclude URLs in this directory root:", false, false}}};

}  // namespace requite
