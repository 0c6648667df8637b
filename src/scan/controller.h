// SPDX-License-Identifier: MIT
// Decides which Linking Site and which page comes next, and when a site and the whole scan are finished.
#pragma once

#include <cstdint>
#include <string>

#include "scan/scan_context.h"

namespace requite {

/// Nothing here loops over pages: each step ends by starting a fetch, and the scan continues when the server
/// closes the connection. The context and the next step must outlive the controller.
class Controller {
 public:
  /// The step that follows.
  class Next {
   public:
    virtual ~Next() = default;
    virtual void FetchPage() = 0;
  };

  Controller(ScanContext& scan, Next& next) : scan_(scan), next_(next) {}

  /// The action of Command1. A message box says why a scan cannot start; the results of the last scan are
  /// cleared even then. With `onlyRow`, 1-based, the scan is that of this row of the selected Main Site's
  /// list alone, whatever the scan type and the skip menu say; the row must be selected.
  void StartScan(std::int32_t onlyRow = 0);
  /// Takes the next page from the queue, or closes the site.
  void ScanNextPage();
  /// Writes the result of the current site and begins the next one, or ends the scan after the last.
  void NextSite();
  /// Continues with the pages that are in the queue now.
  void cmdDoSearch_Click();
  /// Skips the Linking Site or the Main Site, as the skip menu says, with the reason word "Skipped".
  void cmdSkip();
  /// Skips the Linking Site without a reason word.
  void cmdNextSearch();
  /// Ends the scan, writes the report and enables the commands again.
  void cmdStop();
  /// Called once a second while a page is loading.
  void TimeoutTick();

 private:
  enum class Advance { Stop, NextMainSite, NextLinkingSite };

  // start_scan.cpp
  [[nodiscard]] bool TakeFileTypes();
  void ResetForStart();
  [[nodiscard]] bool ChooseMainSite();
  [[nodiscard]] bool HasSomethingToScan();
  void SwitchCommandsForStart();
  [[nodiscard]] bool TakeFirstSite();
  void TellIfAuthoritiesAreMissing();

  // controller.cpp
  void TakePage();
  void BeginSearch();
  template <class Block>
  void StandStillOnFailure(Block&& block);

  // next_site.cpp
  [[nodiscard]] SkipType CloseSite();
  [[nodiscard]] SiteVerdict Judge(std::string reason);
  [[nodiscard]] SiteEnd DecideEnd() const;
  void WriteSiteResult(SiteEnd end);
  void WriteMissing();
  void WriteRedirect();
  void WriteNoneFound();
  void ColourSiteRow(std::uint32_t colour);
  void ResetForNextSite();
  [[nodiscard]] Advance DecideAdvance(SkipType skip);
  [[nodiscard]] bool AdvanceSite(SkipType skip);
  void TakeLinkingSite();
  void TakeMainSiteKey();
  [[nodiscard]] std::string MainSiteText() const;
  void TellSiteBegins();
  void PlayNextSiteSound();

  ScanContext& scan_;
  Next& next_;
  ScannedSite site_;  ///< the current one; empty between sites
};

}  // namespace requite
