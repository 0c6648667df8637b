// SPDX-License-Identifier: MIT
// The main window without a toolkit: its controls and all objects that live as long as it does.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/auto_save.h"
#include "editing/main_site_delete.h"
#include "editing/project_files.h"
#include "editing/site_editing.h"
#include "harvest/extract_emails.h"
#include "harvest/mod_database.h"
#include "history/scan_recorder.h"
#include "model/project.h"
#include "model/settings.h"
#include "pagebuilder/page_builder.h"
#include "platform/files.h"
#include "platform/services.h"
#include "platform/work_folder.h"
#include "posting/posting.h"
#include "results/report.h"
#include "results/saved_files.h"
#include "results/statistics.h"
#include "scan/scan.h"
#include "scan/scan_state.h"
#include "shell/control_index.h"
#include "shell/form5_log.h"
#include "shell/main_window/hidden_commands.h"
#include "shell/main_window/https_only_sites.h"
#include "shell/main_window/links.h"
#include "shell/main_window/menu_bar.h"
#include "shell/main_window/pages.h"
#include "shell/main_window/post.h"
#include "shell/main_window/progress.h"
#include "shell/main_window/reports.h"
#include "shell/main_window/result_tabs.h"
#include "shell/main_window/results_popup.h"
#include "shell/main_window/scan_tally.h"
#include "shell/main_window/sites.h"
#include "shell/main_window/toolbar.h"
#include "shell/main_window/web.h"
#include "shell/main_window/web_tab.h"
#include "shell/windows.h"

namespace requite {

/// The data of the main window. A base class before the controls, which refer to it.
struct Form1Records {
  Project Sites;
  ScanLists Lists;
  ScanState State;
  ControlIndex Controls;
};

/// The controls. Each base class has those of one place on screen.
struct Form1Controls : Form1Records,
                       MenuBarControls,
                       ToolbarControls,
                       SitesControls,
                       ProgressControls,
                       ResultTabsControls,
                       LinksControls,
                       WebControls,
                       PagesControls,
                       ReportsControls,
                       PostControls,
                       HiddenControls {
  Form1Controls();

  Window Main{"Form1"};
};

/// The main window. Call Start (or StartWithoutProject) once before using it, and do not use it after Close.
struct Form1 : Form1Controls, ScanHost {
  Form1(Services& services, const ProgramFolder& folder);
  ~Form1() override;
  Form1(const Form1&) = delete;
  Form1& operator=(const Form1&) = delete;

  /// Restores the settings and figures, sets the title, loads the last project, opens the help if this is
  /// the first start, and opens the home page, in this order. Throws RuntimeFailure for a stored setting
  /// that is not a number.
  void Start();
  /// The part of Start that a scan from a command line needs: settings, figures and title.
  void StartWithoutProject();
  void RestoreSettings();
  /// The user closes the window: asks whether to save unsaved edits, then ends the scan, the posting and
  /// every request. It cannot be cancelled. A second call does nothing.
  void Close();
  [[nodiscard]] bool Closed() const { return closed_; }
  /// Runs in Close after everything has ended. The window must be hidden now even if the program runs on,
  /// because what the user enters from here on would be lost.
  std::function<void()> OnClosed;
  /// Ends the program. Runs at the end of Close, or when frmWebsite is closed if it was still open then.
  std::function<void()> OnEnd;
  /// Shows the user a line of text without waiting for an answer.
  std::function<void(std::string_view)> OnNotice;
  /// Runs at each start of a scan that Start Scan makes, before anything else. It may call MakeScanOver.
  std::function<void()> BeforeScan;
  /// How far sites are read ahead of the scan, in words; null while sites are scanned one at a time.
  std::function<std::string()> AheadWords;
  /// How many sites are read ahead of the scan; null likewise.
  std::function<std::size_t()> SitesAhead;
  /// A scan is started: the results of the last one are gone, even if the start is refused.
  std::function<void()> OnScanBegins;
  /// A scan has ended, and `Tally` has its counts.
  std::function<void()> OnScanEnds;
  /// A scan has ended with sites in `HttpsOnly`.
  std::function<void()> OnHttpsOnly;
  /// Receive the events of each scanned site, in this order.
  std::vector<SiteEvents*> SiteListeners;

  /// The click of the tab strip. Does nothing for a number outside 1 to 5.
  void ShowTab(int number);
  /// Opens the help file, if there is one, in the user's viewer. Lets events run.
  void OpenHelp();

  void SelectMainSite(int row) override { Editing.SelectMainSite(row); }
  void UpdateStats(Counted kind) override { Figures.UpdateStats(kind); }
  void ResetPageCounters() override { Figures.ResetPageCounters(); }
  void ResetSiteCounters() override { Figures.ResetSiteCounters(); }
  void GenerateLinkReport() override { Report.GenerateLinkReport(); }
  void TellWorkFilesUnwritten() override;
  void TellAuthoritiesMissing() override;
  void ScanBegins() override;
  void ScanEnds() override;
  void SiteBegins(const ScannedSite& site) override;
  void SiteFinished(const SiteVerdict& verdict) override;

  /// The commands of the user, which a recorder of the scan has to know of.
  void StopScan();
  void SkipSite();
  void SkipSiteWithoutReason();

  /// A scan runs, or has ended and is not in the history yet.
  [[nodiscard]] bool Recording() const { return recorder_.has_value(); }

  /// Switches secure connections on, also in the options window when it is open, and starts a scan of the
  /// same type as the last one. Does nothing while a scan runs.
  void TurnOnSecureAndScanAgain();

  /// The command of Command1.
  void StartScan() { StartScanOf(0); }
  /// Scans one row of the selected Main Site's list, 1-based, and selects it. Does nothing while a scan runs,
  /// and for a row that does not exist.
  void ScanOnly(std::int32_t row);
  /// Makes the scan again with other services for its pages, which must outlive it. Only while no step of a
  /// scan runs, not even one that lets events run.
  void MakeScanOver(Services& services);

  /// What the posting tabs of all windows use: the list and the log of the main window.
  [[nodiscard]] PostingNeeds NeedsOfPosting();

  requite::Services& Platform;
  const ProgramFolder& Folder;
  WorkFolder Work;
  requite::Settings Settings;
  Statistics Figures;
  SiteEditing Editing;
  ProjectFiles Files;
  LinkReport Report;
  MainSiteDelete Deletion;
  AutoSave Auto;
  WebTab Web;
  ResultsPopup Popup;
  SavedFiles Saved;
  std::optional<requite::Scan> MadeScan;
  requite::Scan& Scan;  ///< stays valid when the scan is made again
  modDatabase Database;
  EmailHarvester Emails;
  PageBuilder Pages;
  Form5Log PostedLog;
  MainPosting Post;
  ScanTally Tally;                      ///< of the scan that runs or ran last
  HttpsOnlySites HttpsOnly;             ///< of the last scan, while secure connections were off
  std::optional<ChangeCounts> Changed;  ///< by the last scan, if it was recorded and is not the first one
  bool SimpleViewFlag = false;          ///< scripts print it; nothing acts on it
  requite::Windows Windows;             ///< the last member, because its windows refer to the others

 private:
  void StartScanOf(std::int32_t onlyRow);
  [[nodiscard]] ScanWindow WindowOfScan();
  void WireControls();
  void RegisterWindows();
  void RegisterHarvestWindows();
  void frmWebsite_Unload();
  void RecordScan();
  void ShowChangesOfScan();

  std::optional<ScanRecorder> recorder_;  ///< while a scan runs and a history is kept
  bool closed_ = false;
  bool endsWithWebsite_ = false;
};

}  // namespace requite
