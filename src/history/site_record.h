// SPDX-License-Identifier: MIT
// What the history keeps of a scan and of each of its sites. Texts are in the code page; dates are UTC in the
// form "2026-01-02T15:04:05Z", which sorts.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "model/records.h"
#include "model/scan_kinds.h"
#include "scan/site_verdict.h"

namespace requite {

/// The texts in the database are the words of these, in lower case.
enum class SiteState : std::uint8_t {
  Ok,           ///< as many links as expected
  Fewer,        ///< some links, but fewer
  None,         ///< no link
  Unreachable,  ///< no link, and the server was silent, busy or out of order
  Redirect,     ///< the text of the Main Site on a page that may redirect; counts as one link
};

[[nodiscard]] std::string_view WordOf(SiteState state);
/// None for a word that is not one of them.
[[nodiscard]] SiteState StateOf(std::string_view word);
[[nodiscard]] SiteState StateOf(const SiteVerdict& verdict);

/// A link that was found.
struct LinkRecord {
  std::string Kind;  ///< a status of the results, such as "Direct Link"
  std::string No;
  std::string Page;
};

/// Where a record is: the scan's number and the site's place in the scan, from 1.
struct RecordPlace {
  std::int64_t Scan = 0;
  std::int64_t Position = 0;
};

/// One site as one scan left it.
struct SiteRecord {
  std::int64_t Row = 0;  ///< stays the same over all scans of the site
  RecordPlace Place;
  std::string Main;  ///< the Main Site without scheme and "www.", in lower case
  std::string Host;  ///< of UrlAfter, likewise
  std::string UrlBefore;
  std::string UrlAfter;  ///< differs when the scan changed the Website URL to the page of a link
  std::int64_t Expected = 0;
  std::int64_t Found = 0;
  SiteState State = SiteState::None;
  std::string Reason;
  std::string Since;  ///< since when it links back, links back too little, or does not link back
  std::optional<RecordPlace> Previous;  ///< the record before, which may be pruned
  std::int64_t Known = 0;               ///< links found when the site was last reached
  bool Linked = false;                  ///< links were found in this scan or any before
  std::vector<LinkRecord> Links;
};

/// Fewer links than expected, or none.
[[nodiscard]] bool FallsShort(const SiteRecord& site);

/// Fills in what a record takes over from the record before it, if there is one: row, dates, counts.
/// `finished` is the date of the scan.
void Succeed(SiteRecord& site, const SiteRecord* before, const std::string& finished);

/// One scan.
struct ScanRecord {
  std::int64_t Id = 0;
  std::string Project;  ///< the absolute path, in the file system's bytes
  std::string Started;
  std::string Finished;
  ScanType Type = ScanType::AllMainSites;
  bool Complete = true;  ///< the user did not stop it
  std::int64_t Sites = 0;
  std::int64_t Pages = 0;
  std::int64_t Links = 0;
  std::int64_t Errors = 0;
};

/// A Linking Site of the project as it is now.
struct ProjectSite {
  std::string Main;  ///< as SiteRecord::Main
  std::string Host;  ///< likewise
  std::string Url;
};

[[nodiscard]] ProjectSite SiteOf(std::string_view mainSite, std::string_view url);

}  // namespace requite
