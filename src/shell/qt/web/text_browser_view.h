// SPDX-License-Identifier: MIT
// A plain rich-text view of web pages: no scripts, no pictures, no further requests.
#pragma once

#include <QTextBrowser>
#include <vector>

#include "platform/services.h"
#include "shell/qt/event_guard.h"
#include "shell/qt/web/web_view.h"

namespace requite {

/// Shows local HTML files, and remote pages by one GET each. It stands in where the browser's library is
/// not installed.
class TextBrowserView final : public QTextBrowser, public WebView {
  Q_OBJECT

 public:
  /// The events, the service and the guard must outlive the view.
  TextBrowserView(WebViewEvents& events, Internet& internet, const EventGuard& guard, QWidget* parent);

  QWidget* Widget() override { return this; }
  void Load(const QUrl& url) override;
  void Stop() override;
  void Reload() override { ShowSoon(); }
  bool Back() override;
  bool Forward() override;

 protected:
  QVariant loadResource(int type, const QUrl& name) override;

 private:
  void ShowSoon();
  void ShowNow();
  [[nodiscard]] QString PageOf(const QUrl& url);

  WebViewEvents& events_;
  Gets gets_;
  const EventGuard& guard_;
  std::vector<QUrl> history_;
  std::size_t at_ = 0;
  int asked_ = 0;
};

}  // namespace requite
