// SPDX-License-Identifier: MIT
// A plain rich-text view of web pages: no scripts, no pictures, no further requests.
#pragma once

#include <QTextBrowser>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/services.h"
#include "shell/qt/event_guard.h"

namespace requite {

/// Shows local HTML files, and remote pages by one GET each. Nothing is fetched before the view is first
/// shown; what was asked for last is done then.
class TextBrowserView final : public QTextBrowser, public BrowserEngine {
  Q_OBJECT

 public:
  /// The control and the services must outlive the view.
  TextBrowserView(BrowserView& control, Internet& internet, const EventGuard& guard, QWidget* parent);
  ~TextBrowserView() override;

  void Navigate(const std::string& url) override;
  void Stop() override;
  void Refresh() override;
  void GoBack() override;
  void GoForward() override;

 protected:
  void showEvent(QShowEvent* event) override;
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  void ShowPage();
  [[nodiscard]] QString PageOf(const std::string& url);

  BrowserView& control_;
  Internet& internet_;
  const EventGuard& guard_;
  std::vector<std::string> history_;
  std::size_t at_ = 0;
  bool waiting_ = false;
};

}  // namespace requite
