// SPDX-License-Identifier: MIT
// Tells for each row of the results whether its site links back, and counts the sites.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "model/project.h"
#include "results/site_counts.h"
#include "scan/site_verdict.h"

namespace requite {

struct Form1;

/// What a scanned site counts as in SiteCounts.
enum class SiteOutcome : std::uint8_t { LinksBack, Missing, NotReached };

/// A row belongs to a site by its fields Main and Linking. What the scan said at the end of a site decides,
/// as in every summary of a scan. For sites of a loaded project, and for one that is not finished, the rows
/// do: links and no shortfall link back; "None Found" with a time-out or a skip was not reached. A row that
/// the user marked has lost its site and counts alone, by its Status.
class ResultOutcomes : public ListObserver, private SiteEvents {
 public:
  /// Follows the scans of the window from here on. Must be told of the changes of `form.Sites.List3`.
  explicit ResultOutcomes(Form1& form);
  ~ResultOutcomes() override;
  ResultOutcomes(const ResultOutcomes&) = delete;
  ResultOutcomes& operator=(const ResultOutcomes&) = delete;

  /// Linear in the rows after a change of rows that were already there; else constant.
  [[nodiscard]] const SiteCounts& Counts();
  [[nodiscard]] SiteOutcome Of(std::size_t row);
  /// Rises whenever rows that were there before may have got another outcome.
  [[nodiscard]] std::uint64_t Version() const { return version_; }

  void RowAdded(std::size_t row) override;
  void RowRemoved(std::size_t) override { Forget(); }
  void RowChanged(std::size_t) override { Forget(); }
  void ListReset() override;
  void SelectionChanged() override {}

 private:
  /// The rows of one site by what they say, and what the scan said of it. Several Linking Sites of one host
  /// are one such site here, and each of them is in `Told`.
  struct Site {
    int Links = 0;
    int Shortfalls = 0;
    int NoneFound = 0;
    int GivenUp = 0;  ///< "None Found" after a time-out or a skip
    bool Marked = false;
    SiteCounts Told;

    [[nodiscard]] SiteCounts Counts() const;
    [[nodiscard]] SiteCounts OfRows() const;
  };

  void SiteBegins(const ScannedSite&) override {}
  void SiteFinished(const SiteVerdict& verdict) override;
  [[nodiscard]] Site& SiteFor(const LinkResult& row);
  template <class Change>
  void Alter(Site& site, Change&& change);
  void Forget();
  void Recount();

  Form1& form_;
  const RecordList<LinkResult>& list_;
  std::unordered_map<std::string, Site> sites_;
  std::unordered_map<std::string, Site> gone_;  ///< of results that were cleared; freed in small steps
  SiteCounts counts_;
  std::uint64_t version_ = 0;
  std::size_t counted_ = 0;  ///< rows
  bool recount_ = true;
};

}  // namespace requite
