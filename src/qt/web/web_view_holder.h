// SPDX-License-Identifier: MIT
// The place of a web view in a window: makes the view when it is first shown and reports on its loads.
#pragma once

#include <QWidget>
#include <functional>

#include "platform/controls.h"
#include "platform/services.h"
#include "qt/web/web_module.h"
#include "system/event_guard.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QStackedLayout;

namespace requite {

/// Shows the pages of one BrowserView control. Nothing of the browser is loaded before the widget is first
/// shown; then it loads the page asked for last. Without the browser's library a view of plain text takes
/// its place and says so.
class WebViewHolder final : public QWidget, public BrowserEngine, private WebViewEvents {
  Q_OBJECT

 public:
  /// The control, the service and the guard must outlive the widget.
  WebViewHolder(BrowserView& control, Internet& internet, const EventGuard& guard, QWidget* parent = nullptr,
                QString modulePath = WebModulePath());
  ~WebViewHolder() override;

  void Navigate(const std::string& url) override;
  void Stop() override;
  void Refresh() override;
  void GoBack() override;
  void GoForward() override;

  /// What is shown, in place of a blank page, while there is nothing to show.
  void SetEmptyNotice(const QString& title, const QString& text);
  /// A page is on show, which can be printed.
  [[nodiscard]] bool ShowsPage() const;
  /// Runs after a page has taken the place of a notice, or the other way round.
  std::function<void()> OnShowsPage;
  /// Asks for a printer or a PDF file, and prints the page on show.
  void Print();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void LoadStarted() override;
  void LoadProgress(int percent) override;
  void LoadStopped() override;
  void PageComplete(const QUrl& location) override;
  void PageFailed(const QUrl& location, const QString& reason) override;
  void RendererEnded() override;
  void Refused(const QString& what) override;
  void LinkChosen(const QString& address) override;

  [[nodiscard]] QWidget* BuildNotice();
  void MakeView();
  void Tell(const QString& line);
  void TellComplete(const QUrl& location);
  void ShowNotice(const QString& title, const QString& text);
  void ShowPage();
  void ShowEmpty();
  void Show(QWidget& page);

  BrowserView& control_;
  Internet& internet_;
  const EventGuard& guard_;
  const QString modulePath_;
  WebView* view_ = nullptr;
  QUrl failed_;
  QString emptyTitle_;
  QString emptyText_;
  QString standing_;  ///< the line that stays for all loads
  QProgressBar* progress_ = nullptr;
  QLabel* line_ = nullptr;
  QLabel* noticeTitle_ = nullptr;
  QLabel* noticeText_ = nullptr;
  QPushButton* again_ = nullptr;
  QStackedLayout* pages_ = nullptr;
  bool printing_ = false;
};

}  // namespace requite
