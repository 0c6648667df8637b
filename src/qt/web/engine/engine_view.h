// SPDX-License-Identifier: MIT
// The browser's view, inside the library that is loaded on first use.
#pragma once

#include <QWebEngineView>
#include <memory>

#include "engine_page.h"

class QWebEngineLoadingInfo;

namespace requite {

class EngineView final : public QWebEngineView, public WebView {
  Q_OBJECT

 public:
  EngineView(WebViewEvents& events, QWidget* parent);
  ~EngineView() override;

  QWidget* Widget() override { return this; }
  void Load(const QUrl& url) override { page_->Ask(url); }
  void Stop() override { page_->triggerAction(QWebEnginePage::Stop); }
  void Reload() override;
  bool Back() override;
  bool Forward() override;
  void Print(QPrinter& printer, std::function<void()> printed) override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void AddMenu();
  void LoadingChanged(const QWebEngineLoadingInfo& info);

  WebViewEvents& events_;
  EngineProfile& profile_;
  bool failedOutside_ = false;  ///< the page that failed is not in the history
  std::unique_ptr<EnginePage> page_;
};

}  // namespace requite
