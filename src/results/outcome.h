// SPDX-License-Identifier: MIT
// A finished scan as other programs read it: in JSON, in CSV, or as the JUnit report of a build server.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "results/site_counts.h"

namespace requite {

/// All texts are UTF-8; `Project` may hold any bytes.
struct ScanOutcome {
  struct Link {
    std::string Status;  ///< a value of `status` that says how the site links back
    int Number = 0;      ///< of the link in its site, from 1
    std::string Url;     ///< of the page that holds it
  };
  struct Site {
    std::string MainSite;     ///< as typed
    std::string LinkingSite;  ///< the Website URL, as typed
    int Expected = 0;
    int Found = 0;  ///< a redirect is one
    bool LinksBack = false;
    bool Reached = true;
    bool Skipped = false;
    std::string Reason;  ///< why it does not link back, if that is known
    std::chrono::milliseconds Took{0};
    std::vector<Link> Links;
  };
  struct Fault {
    std::string Error;
    std::string Url;
  };
  /// A row of the results.
  using Row = std::vector<std::string>;

  std::string Project;   ///< path of the project file
  std::string Finished;  ///< in UTC: "2026-01-02T15:04:05Z"
  bool Complete = true;  ///< false for a scan that ended before its last site
  std::vector<Site> Sites;
  std::vector<Fault> Errors;
  Row Captions;
  std::vector<Row> Rows;
};

[[nodiscard]] SiteCounts CountsOf(const ScanOutcome& outcome);

/// One object, described by docs/scan-results.schema.json.
[[nodiscard]] std::string JsonOfOutcome(const ScanOutcome& outcome);
/// The rows after a line of captions, by RFC 4180.
[[nodiscard]] std::string CsvOfOutcome(const ScanOutcome& outcome);
/// A test suite for each Main Site and in it a test case for each Linking Site: failed when it does not link
/// back, in error when it was not reached. A scan that ended early is one more suite with an error, so that
/// it is not taken for a success.
[[nodiscard]] std::string JUnitOfOutcome(const ScanOutcome& outcome);

}  // namespace requite
