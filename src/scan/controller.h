// SPDX-License-Identifier: MIT
// Decides which Linking Site and which page comes next, when a site and the whole scan are done.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "scan/scan_context.h"

namespace requite {

/// Nothing here loops over pages: each step ends by starting a fetch, and the close of its connection
/// carries the chain on. The context must outlive the controller.
class Controller {
 public:
  /// The step that follows.
  class Next {
   public:
    virtual ~Next() = default;
    virtual void FetchPage() = 0;
  };

  Controller(ScanContext& scan, Next& next) : scan_(scan), next_(next) {}

  /// Behind Command1. Says in a message box why a scan does not start; the results of the last scan
  /// are gone even then.
  void StartScan();
  /// Takes the next page from the queue, or closes the site.
  void ScanNextPage();
  /// Writes the result of the site in hand and goes on to the next one, or stops after the last.
  void NextSite();
  /// Goes on from the queue as it stands.
  void cmdDoSearch_Click();
  /// Skips with the reason word "Skipped", by the kind of skip that is checked in the skip menu.
  void cmdSkip();
  /// Goes on to the next site, without a reason word.
  void cmdNextSearch();
  /// Ends the scan, writes the report and releases the commands.
  void cmdStop();
  /// One second without data on a connection.
  void TimeoutTick();

 private:
  enum class PageDecision { Return, CloseSite, CloseSiteAndGoOn, TakePage };
  enum class Advance { Stop, NextMainSite, NextLinkingSite };

  // start_scan.cpp
  [[nodiscard]] bool TakeFileTypes();
  void ResetForStart();
  [[nodiscard]] bool ChooseMainSite();
  [[nodiscard]] bool HasSomethingToScan();
  void SwitchCommandsForStart();
  [[nodiscard]] bool TakeFirstSite();

  // controller.cpp
  [[nodiscard]] PageDecision DecidePage();
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
  ScannedSite site_;  ///< the one that began last, until its end
};

}  // namespace requite
