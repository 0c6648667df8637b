// SPDX-License-Identifier: MIT
// From the value of an href to a URL without scheme, and the three questions whether it is ours.
#pragma once

#include <string>
#include <string_view>

#include "model/project.h"
#include "platform/text_search.h"
#include "scan/scan_state.h"

namespace requite {

/// What a relative link is seen from. Only the import sees it from elsewhere than from the page in hand.
struct LinkOrigin {
  std::string_view Root;       ///< goes before a link that begins with "/"
  std::string_view DotRoot;    ///< goes, with a "/", before one that begins with "./"
  std::string_view Directory;  ///< goes, with a "/", before a name
  /// Makes a link that begins with ".." absolute, in place.
  void (*StepUp)(std::string_view directory, std::string& link);
};

/// Turns the value of an href into a no-scheme URL, in place, seen from `origin`, whose texts do not
/// lie in `link`.
void ResolveLinkFrom(const LinkOrigin& origin, std::string& link);

/// The same, seen from the page in hand
/// (`PageDir` and the host on connection 0). Returns `link` itself.
const std::string& ResolveLink(const ScanState& state, std::string& link);

/// Whether a URL belongs to the Main Site or to the Linking Site in scan. What follows from the
/// scan state alone is kept from call to call and made anew when the text it came from has changed.
class SiteTests {
 public:
  SiteTests(const Project& project, const ScanState& state) : project_(project), state_(state) {}

  /// Whether `url` holds `MainSiteKey` anywhere, in any letter case.
  [[nodiscard]] bool IsLinkToMainSite(std::string_view url);
  /// Whether `url` and the registered domain of the current Linking Site's row hold one another,
  /// in either direction. Throws Subscript when that row or its list is gone.
  [[nodiscard]] bool IsOnLinkingSite(std::string_view url);
  /// Whether the registered domain of `url` is that of the Main Site. Takes scheme and path off `url`,
  /// in place. A Main Site with a path matches no domain.
  [[nodiscard]] bool IsSameDomain(std::string& url);

 private:
  void ReadMainSite();

  const Project& project_;
  const ScanState& state_;
  std::string mainSiteKey_;
  TextFinder mainSite_{""};
  std::string mainDomain_;
  std::string websiteUrl_;
  std::string linkingDomain_;
  TextFinder linkingSite_{""};
};

}  // namespace requite
