// SPDX-License-Identifier: MIT
// What a scan tells of each Linking Site: that it begins, and how it ended.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace requite {

/// A Linking Site as its records were when its scan began. The user may edit, sort or delete them meanwhile.
struct ScannedSite {
  std::string MainSite;      ///< as typed
  std::string LinkingSite;   ///< the Website URL, as typed
  int MainSiteNumber = 0;    ///< 1-based; 0 for pages that are scanned without the begin of a site
  std::int32_t SiteRow = 0;  ///< 1-based row of List1(MainSiteNumber)
};

/// The reason words of a site that was given up.
namespace reason_word {
inline constexpr std::string_view kTimeout = "Timeout";
inline constexpr std::string_view kSkipped = "Skipped";
}  // namespace reason_word

/// What the results say of a site.
enum class SiteEnd {
  AllLinks,   ///< the rows of its links, and nothing else
  Missing,    ///< links, but fewer than expected
  Redirect,   ///< no link, but the text of the Main Site on one of its pages
  NoneFound,  ///< none of these
};

struct SiteVerdict {
  ScannedSite Site;
  std::string Url;  ///< of the Linking Site: as typed, or its bare host when links were recorded
  std::int16_t LinksCounted = 0;
  std::int16_t LinksExpected = 0;
  SiteEnd End = SiteEnd::NoneFound;
  std::string Reason;      ///< the last reason word, also when it does not show in the results; or empty
  bool LinksBack = false;  ///< as often as expected; a redirect is one link
  /// Sent the visitor to https with every page that it answered, and does not link back.
  bool HttpsOnly = false;
  bool Reached = true;  ///< false when nothing came of the first page: no such name, refused, or silent
};

/// The two events of each site. Both come while the scan runs, and neither lets events run.
class SiteEvents {
 public:
  virtual ~SiteEvents() = default;
  /// The scan state is that of the site, which waits in the queue.
  virtual void SiteBegins(const ScannedSite& site) = 0;
  /// The result of the site is written, and the scan state is still its own.
  virtual void SiteFinished(const SiteVerdict& verdict) = 0;
};

}  // namespace requite
