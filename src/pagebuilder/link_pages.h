// SPDX-License-Identifier: MIT
// What a generated page says about a Linking Site, looked up in the lists as they are at one moment.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "model/project.h"

namespace requite {

/// Uses an index that is built once for each list, at the first question. It points into the project's
/// records: no event may run and nothing may change between the first and the last use.
class LinkPages {
 public:
  explicit LinkPages(const Project& project);

  /// The position, from 0, of the first Main Site whose trimmed text equals the trimmed `text`. The place
  /// after the last one counts as a Main Site without text. 0 if no row matches, so results of a deleted
  /// Main Site take their fields from the first one's list.
  [[nodiscard]] std::int16_t FindMainSiteIndex(std::string_view text) const;

  /// The field of the first row of List1(k) whose Website URL is exactly `linking` and whose field is not
  /// empty; otherwise the bare host of `linking`. A site typed with "www." or a path is therefore not
  /// found, whatever its fields hold. A list that does not exist has no rows.
  [[nodiscard]] std::string GetLinkPageUrl(std::string_view linking, int k);
  [[nodiscard]] std::string GetLinkPageText(std::string_view linking, int k);
  /// The same, without a fallback.
  [[nodiscard]] std::string GetLinkPageDescription(std::string_view linking, int k);

 private:
  struct Fields {
    std::string_view Url;
    std::string_view Text;
    std::string_view Description;
  };
  using List = std::unordered_map<std::string_view, Fields>;

  [[nodiscard]] Fields Find(std::string_view linking, int k);
  [[nodiscard]] List IndexOf(int k) const;

  const Project& project_;
  std::unordered_map<std::string_view, std::int16_t> mainSites_;
  std::unordered_map<int, List> lists_;
};

}  // namespace requite
