// SPDX-License-Identifier: MIT
// The main window on screen: lays out widgets and binds them to Form1; it decides nothing itself.
#pragma once

#include <QMainWindow>
#include <memory>

#include "shell/form1.h"
#include "shell/qt/window/control_views.h"
#include "shell/qt/window/list_table.h"

class QSplitter;
class QTreeView;

namespace requite {

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// Both must outlive the window.
  MainWindow(Form1& form, const EventGuard& guard);
  ~MainWindow() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  class TitleView;

  void BuildToolBar();
  void BuildMenus();
  [[nodiscard]] QWidget* BuildWebsites();
  [[nodiscard]] QWidget* BuildMainSites();
  [[nodiscard]] QWidget* BuildLinkingSites();
  [[nodiscard]] QWidget* BuildProgress();
  [[nodiscard]] QWidget* BuildResults();
  [[nodiscard]] QWidget* BuildLinksPage();
  [[nodiscard]] QWidget* BuildWebPage();
  [[nodiscard]] QWidget* BuildPagesPage();
  [[nodiscard]] QWidget* BuildReportsPage();
  [[nodiscard]] QWidget* BuildPostPage();
  void AddShortcuts();
  void RestoreLayout();
  void SaveLayout() const;
  void ShowCurrentLinkingSites();

  QTreeView* NewTable(ListView& list, ListTable& table, const QString& emptyText,
                      const QString& accessibleName);

  Form1& form_;
  const EventGuard& guard_;
  ViewRefresh refresh_;
  ListTable mainSites_{refresh_};
  ListTable linkingSites_{refresh_};
  ListTable queue_{refresh_};
  ListTable results_{refresh_};
  ListTable errors_{refresh_};
  ListTable scriptUrls_{refresh_};
  QSplitter* columns_ = nullptr;
  QSplitter* left_ = nullptr;
  QSplitter* links_ = nullptr;
  std::unique_ptr<TitleView> title_;
  Binder bind_{refresh_, guard_};
};

}  // namespace requite
