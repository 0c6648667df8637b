// SPDX-License-Identifier: MIT
// Turns the value of an href into a URL without scheme, and tests which site the URL belongs to.
#pragma once

#include <string>
#include <string_view>

#include "model/project.h"
#include "model/settings.h"
#include "platform/text_search.h"
#include "scan/scan_state.h"

namespace requite {

/// What a relative link is relative to. Only the import uses another origin than the current page.
struct LinkOrigin {
  std::string_view Root;       ///< put before a link that begins with "/"
  std::string_view DotRoot;    ///< put, with a "/", before one that begins with "./"
  std::string_view Directory;  ///< put, with a "/", before a name
  /// Makes a link that begins with ".." absolute, in place.
  void (*StepUp)(std::string_view directory, std::string& link);
};

/// Turns the value of an href into a URL without scheme, in place. The texts of `origin` must not be part of
/// `link`. "https://" counts as a scheme like "http://" only when secure connections are on.
void ResolveLinkFrom(const LinkOrigin& origin, const Settings& settings, std::string& link);

/// The same for a link of the current page. Returns `link` itself.
const std::string& ResolveLink(const ScanState& state, const Settings& settings, std::string& link);

/// Whether a URL belongs to the current Main Site or Linking Site. What depends on these sites only is kept
/// from call to call, and made again when their texts have changed.
class SiteTests {
 public:
  SiteTests(const Project& project, const ScanState& state) : project_(project), state_(state) {}

  /// Whether `url` holds `MainSiteKey` anywhere, in any letter case.
  [[nodiscard]] bool IsLinkToMainSite(std::string_view url);
  /// Whether `url` holds the registered domain of the row of the current Linking Site, or the domain holds
  /// `url`. Throws Subscript when that row or its list does not exist.
  [[nodiscard]] bool IsOnLinkingSite(std::string_view url);
  /// Whether `url` has the registered domain of the Main Site. Removes scheme and path from `url`, in place.
  /// A Main Site with a path matches no domain.
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
