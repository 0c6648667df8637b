// SPDX-License-Identifier: MIT
// Shows web pages as text: no markup, no links, no further requests.
#pragma once

#include <QPlainTextEdit>
#include <optional>
#include <string>
#include <vector>

#include "platform/services.h"
#include "qt/web/web_view.h"
#include "system/event_guard.h"

namespace requite {

/// Shows the text of local HTML files, and of remote pages with one GET each, where the browser's library
/// is not installed. At most kMostText characters of a page are shown; a last line says when it was cut.
class PlainTextView final : public QPlainTextEdit, public WebView {
  Q_OBJECT

 public:
  static constexpr std::size_t kMostText = 1 << 20;

  /// The events, the service and the guard must outlive the view.
  PlainTextView(WebViewEvents& events, Internet& internet, const EventGuard& guard, QWidget* parent);

  QWidget* Widget() override { return this; }
  void Load(const QUrl& url) override;
  void Stop() override;
  void Reload() override { ShowSoon(); }
  bool Back() override;
  bool Forward() override;
  void Print(QPrinter& printer, std::function<void()> printed) override;

 private:
  void ShowSoon();
  void ShowNow();
  [[nodiscard]] std::optional<std::string> PageOf(const QUrl& url);
  void Show(const std::string& page);

  WebViewEvents& events_;
  Gets gets_;
  const EventGuard& guard_;
  std::vector<QUrl> history_;
  std::size_t at_ = 0;
  int asked_ = 0;
};

}  // namespace requite
