// SPDX-License-Identifier: MIT
// The main window on screen: lays out widgets and binds them to Form1; it decides nothing itself.
#pragma once

#include <QMainWindow>
#include <memory>
#include <optional>

#include "qt/window/controls/answer_line.h"
#include "qt/window/controls/control_views.h"
#include "qt/window/further/further_windows.h"
#include "qt/window/lists/list_table.h"
#include "qt/window/lists/row_menu.h"
#include "qt/window/main_window/add_sites_bar.h"
#include "qt/window/main_window/ahead_line.h"
#include "qt/window/main_window/first_steps.h"
#include "qt/window/main_window/https_only_bar.h"
#include "qt/window/main_window/page_tools.h"
#include "qt/window/main_window/project_notices.h"
#include "qt/window/main_window/queue_fold.h"
#include "qt/window/main_window/report_chart.h"
#include "qt/window/main_window/report_tools.h"
#include "qt/window/main_window/result_bar.h"
#include "qt/window/main_window/result_filter.h"
#include "qt/window/main_window/scan_line.h"
#include "qt/window/main_window/scan_notice.h"
#include "shell/main_window/form1.h"

class QLabel;
class QLayout;
class QSplitter;
class QTableView;
class QVBoxLayout;

namespace requite {

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// All must outlive the window; without a desktop, nobody is told of a scan's progress and end.
  MainWindow(Form1& form, const EventGuard& guard, DesktopBus* desktop = nullptr);
  ~MainWindow() override;

  /// Shows the results of the sites that were reached and do not link back.
  void ShowMissing();

 protected:
  void showEvent(QShowEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  class TitleView;

  void BuildToolBar();
  void BuildMenus();
  void BuildPopups();
  void BuildSitePopup();
  void BuildResultPopup();
  [[nodiscard]] QWidget* BuildWebsites();
  [[nodiscard]] QWidget* BuildMainSites();
  [[nodiscard]] QWidget* BuildLinkingSites();
  [[nodiscard]] QWidget* BuildProgress();
  [[nodiscard]] QLayout* BuildFigures(QWidget* box);
  [[nodiscard]] QWidget* BuildResults();
  [[nodiscard]] QWidget* BuildLinksPage();
  [[nodiscard]] QWidget* BuildWebPage();
  [[nodiscard]] QWidget* BuildPagesPage();
  [[nodiscard]] QWidget* BuildReportsPage();
  [[nodiscard]] QWidget* BuildPostPage();
  void ShowChanges();
  void AddShortcuts();
  void TakeManySites();
  void FindRows();
  void RestoreLayout();
  void SaveLayout() const;
  void ShowCurrentLinkingSites();
  void ShowScan();
  [[nodiscard]] QString ScanTitle() const;
  [[nodiscard]] QString ProjectTitle() const;
  void FollowProject();
  /// Shows an answer in this window and in the one in front, if that one has a line for it.
  void Answer(const QString& answer);

  /// The name of a list, its text while it is empty, and how its columns share its width.
  struct ListLook {
    QString Name;
    QString EmptyText;
    std::vector<int> Shares;
  };
  QTableView* NewTable(ListView& list, ListTable& table, const ListLook& look);
  /// What the menu of a list offers for a row; `address` is the column that holds one.
  [[nodiscard]] RowOffers OffersFor(int address);
  void OpenOutside(const std::string& url);
  /// The Delete key in the list presses the button while it is enabled.
  void PressOnDelete(QTableView& list, Button& control);

  Form1& form_;
  const EventGuard& guard_;
  ViewRefresh refresh_;
  const UserEvents user_{guard_, refresh_};
  ListTable mainSites_{refresh_};
  ListTable linkingSites_{refresh_};
  ListTable queue_{refresh_};
  ListTable results_{refresh_};
  ListTable errors_{refresh_};
  ListTable scriptUrls_{refresh_};
  QSplitter* columns_ = nullptr;
  QSplitter* left_ = nullptr;
  QSplitter* links_ = nullptr;
  HttpsOnlyBar* httpsOnly_ = nullptr;
  AddSitesBar* addSites_ = nullptr;
  ResultFilter* resultFilter_ = nullptr;
  FilterBox* siteFilter_ = nullptr;
  AheadLine* ahead_ = nullptr;
  ScanLine* scanLine_ = nullptr;
  ResultBar* result_ = nullptr;
  QueueFold* queueFold_ = nullptr;
  FirstSteps* firstSteps_ = nullptr;
  PageTools* pageTools_ = nullptr;
  ReportTools* reportTools_ = nullptr;
  ReportChart* reportChart_ = nullptr;
  AnswerLine* answers_ = nullptr;  ///< what the last action did
  QVBoxLayout* bars_ = nullptr;    ///< of the notice bars above the results
  QLabel* notice_ = nullptr;       ///< a message about the scan; hidden while there is no message
  std::unique_ptr<TitleView> title_;
  std::unique_ptr<ProjectNotices> project_;
  std::optional<ScanNotice> desktopNotice_;
  Binder bind_{refresh_, user_};
  FurtherWindows further_{form_.Windows, {guard_, user_, refresh_, form_.Platform, *this, this}};
};

}  // namespace requite
