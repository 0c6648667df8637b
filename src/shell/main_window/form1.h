// SPDX-License-Identifier: MIT
// The main window without a toolkit: its controls, what lives as long as it does, and who calls whom.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "editing/auto_save.h"
#include "editing/main_site_delete.h"
#include "editing/project_files.h"
#include "editing/site_editing.h"
#include "harvest/extract_emails.h"
#include "harvest/mod_database.h"
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
#include "shell/main_window/links.h"
#include "shell/main_window/menu_bar.h"
#include "shell/main_window/pages.h"
#include "shell/main_window/post.h"
#include "shell/main_window/progress.h"
#include "shell/main_window/reports.h"
#include "shell/main_window/result_tabs.h"
#include "shell/main_window/results_popup.h"
#include "shell/main_window/sites.h"
#include "shell/main_window/toolbar.h"
#include "shell/main_window/web.h"
#include "shell/main_window/web_tab.h"
#include "shell/windows.h"

namespace requite {

/// What the main window's controls are built over; it comes first so that it outlives them.
struct Form1Records {
  Project Sites;
  ScanLists Lists;
  ScanState State;
  ControlIndex Controls;
};

/// The controls, each struct with those of one place on screen.
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

/// Handlers of controls bear the control's name. The window is made, then started once; it must not
/// be used after Close.
struct Form1 : Form1Controls, ScanHost {
  Form1(Services& services, const ProgramFolder& folder);
  ~Form1() override;
  Form1(const Form1&) = delete;
  Form1& operator=(const Form1&) = delete;

  /// The whole start of the window, in its order: settings, figures, title, last project, help at the
  /// first start, home page. Throws RuntimeFailure for a stored setting that is no number.
  void Start();
  /// The part of Start that a scan from a command line needs: settings and figures, no last project.
  void StartWithoutProject();
  void RestoreSettings();
  /// The user closes the window: asks whether unsaved edits are to be saved, then ends everything.
  /// There is no way to cancel it. Runs once; a second call does nothing.
  void Close();
  [[nodiscard]] bool Closed() const { return closed_; }
  /// Runs in Close when all is asked and ended: the window goes off the screen, whatever still keeps the
  /// program running. What is entered after that would be lost.
  std::function<void()> OnClosed;
  /// Runs at the very end of Close, or when the site's window closes after it: the program is to end.
  std::function<void()> OnEnd;
  /// Shows the user a line that asks for nothing and waits for nobody.
  std::function<void(std::string_view)> OnNotice;
  /// Those that the events of each site are passed on to, in this order.
  std::vector<SiteEvents*> SiteListeners;

  /// The click of the tab strip; a number outside 1 to 5 does nothing.
  void ShowTab(int number);
  /// Opens the help file, if there is one, by the shell. Lets events run.
  void OpenHelp();

  void SelectMainSite(int row) override { Editing.SelectMainSite(row); }
  void UpdateStats(Counted kind) override { Figures.UpdateStats(kind); }
  void ResetPageCounters() override { Figures.ResetPageCounters(); }
  void ResetSiteCounters() override { Figures.ResetSiteCounters(); }
  void GenerateLinkReport() override { Report.GenerateLinkReport(); }
  void TellWorkFilesUnwritten() override;
  void SiteBegins(const ScannedSite& site) override;
  void SiteFinished(const SiteVerdict& verdict) override;

  /// What the posting tabs of all windows work with. Log and list are the main window's.
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
  requite::Scan Scan;
  modDatabase Database;
  EmailHarvester Emails;
  PageBuilder Pages;
  Form5Log PostedLog;
  MainPosting Post;
  bool SimpleViewFlag = false;  ///< read at the start, used nowhere
  requite::Windows Windows;     ///< the last member: its windows refer to the others

 private:
  [[nodiscard]] ScanWindow WindowOfScan();
  void WireControls();
  void RegisterWindows();
  void RegisterHarvestWindows();
  void frmWebsite_Unload();

  bool closed_ = false;
  bool endsWithWebsite_ = false;
};

}  // namespace requite
