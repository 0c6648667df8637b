// SPDX-License-Identifier: MIT
// What the steps of a scan need of their owner, and how a step calls the next one.
#pragma once

#include <cstdint>
#include <string>

#include "model/project.h"
#include "model/settings.h"
#include "platform/controls.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/work_folder.h"
#include "scan/scan_state.h"
#include "scan/site_verdict.h"

namespace requite {

/// The controls of the main window that a scan shows itself in and switches.
struct ScanWindow {
  Button& Command1;  ///< Start Scan
  Button& cmdStop;
  Button& cmdSkip;
  Button& cmdNextSearch;
  Button& Command10;  ///< scan type menu
  Button& Command11;  ///< skip type menu
  Button& cmdNew;
  Button& cmdOpen;
  Button& cmdSave;
  Button& cmdResume;
  Button& cmdViewDatabase;
  Button& Command2;
  Button& Command3;
  Frame& Frame1;
  Menu& mnuScan;
  Menu& mnuSkip;
  StatusBar& StatusBar1;
  ProgressBar& pb1;
  TextBox& txtDomain;
  TextBox& Text1;
};

/// What the scan calls of parts above it.
class ScanHost : public SiteEvents {
 public:
  /// Selects a row of List4, counted from 0, and runs the steps of a selection by the user.
  virtual void SelectMainSite(int row) = 0;
  /// Raises a counter and shows it.
  virtual void UpdateStats(Counted kind) = 0;
  /// Sets the counters of one scan to 0 without showing them.
  virtual void ResetPageCounters() = 0;  ///< PagesScanned, PagesFound, LinksFound
  virtual void ResetSiteCounters() = 0;  ///< MainSitesScanned, LinkingSitesScanned
  virtual void GenerateLinkReport() = 0;
  /// Tells the user, without waiting for an answer, that the work files of a page could not be written.
  /// Called once a scan at the most; nothing of the scan depends on the files.
  virtual void TellWorkFilesUnwritten() = 0;
};

/// The steps of a scan as they call one another. Each tests ScanState::Scanning first.
class ScanSteps {
 public:
  virtual ~ScanSteps() = default;
  virtual void ScanNextPage(std::int16_t connection) = 0;
  virtual void NextSite() = 0;
  virtual void FetchPage(std::int16_t connection) = 0;
  virtual void CheckHttpStatus(const std::string& header, const std::string& url) = 0;
  virtual void ProcessPage(std::string body, std::int16_t connection) = 0;
  virtual void AnalysePage(std::int16_t connection) = 0;
};

/// Handed by reference to every step. `Steps` is the road itself, so that a step calls the next one
/// without knowing it.
struct ScanContext {
  requite::Project& Project;
  ScanLists& Lists;
  ScanState& State;
  ScanWindow Window;
  ScanHost& Host;
  ScanSteps& Steps;
  Services& Platform;
  requite::Settings Settings;
  const ProgramFolder& Folder;
  WorkFolder& Work;
  requite::Gets Gets{Platform.Internet};  ///< moved pages only: the end of a site ends them
};

/// The sounds of a scan, in the folder "sounds".
namespace sound {
inline constexpr std::string_view kNextSite = "sounds/nextsearch.wav";
inline constexpr std::string_view kLinkFound = "sounds/foundemail.wav";
inline constexpr std::string_view kFinished = "sounds/finished.wav";
}  // namespace sound

}  // namespace requite
