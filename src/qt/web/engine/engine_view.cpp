// SPDX-License-Identifier: MIT
// Tells the window about the progress and failure of loads.
#include "engine_view.h"

#include <QAction>
#include <QEvent>
#include <QPrinter>
#include <QWebEngineHistory>
#include <QWebEngineLoadingInfo>

#include "report_scheme.h"

namespace requite {
namespace {

constexpr int kAborted = -3;  // the browser's number for a load that was interrupted

/// The reason in words where they are known, with the browser's own for further searches.
QString ReasonOf(const QWebEngineLoadingInfo& info) {
  switch (info.errorDomain()) {
    case QWebEngineLoadingInfo::DnsErrorDomain:
      return EngineView::tr("No host of this name is known. (%1)").arg(info.errorString());
    case QWebEngineLoadingInfo::ConnectionErrorDomain:
      return EngineView::tr("The host does not answer. (%1)").arg(info.errorString());
    default: return EngineView::tr("The browser says: %1").arg(info.errorString());
  }
}

}  // namespace

EngineView::EngineView(WebViewEvents& events, QWidget* parent)
    : QWebEngineView(parent),
      events_(events),
      profile_(EngineProfile::Acquire()),
      page_(std::make_unique<EnginePage>(profile_, events)) {
  setPage(page_.get());
  AddMenu();
  connect(page_.get(), &QWebEnginePage::loadProgress, this,
          [this](int percent) { events_.LoadProgress(percent); });
  connect(page_.get(), &QWebEnginePage::loadingChanged, this, &EngineView::LoadingChanged);
  connect(page_.get(), &QWebEnginePage::renderProcessTerminated, this,
          [this](QWebEnginePage::RenderProcessTerminationStatus status, int) {
            if (status != QWebEnginePage::NormalTerminationStatus) events_.RendererEnded();
          });
}

EngineView::~EngineView() {
  page_->disconnect(this);
  setPage(nullptr);
  page_.reset();
  profile_.Release();
}

/// Replaces the browser's own menu, which offers saving pages, viewing sources and opening windows.
void EngineView::AddMenu() {
  setContextMenuPolicy(Qt::ActionsContextMenu);
  for (const auto action : {QWebEnginePage::Back, QWebEnginePage::Forward, QWebEnginePage::Reload,
                            QWebEnginePage::Copy, QWebEnginePage::CopyLinkToClipboard}) {
    addAction(pageAction(action));
  }
}

void EngineView::LoadingChanged(const QWebEngineLoadingInfo& info) {
  const QUrl location = ReportScheme::ForProgram(info.url());
  switch (info.status()) {
    case QWebEngineLoadingInfo::LoadStartedStatus: failedOutside_ = false; return events_.LoadStarted();
    case QWebEngineLoadingInfo::LoadSucceededStatus: return events_.PageComplete(location);
    case QWebEngineLoadingInfo::LoadStoppedStatus:
      if (!page_->isLoading()) events_.LoadStopped();
      return;
    case QWebEngineLoadingInfo::LoadFailedStatus: break;
  }
  // The page that a server sends with an error status is shown.
  if (info.errorDomain() == QWebEngineLoadingInfo::HttpStatusCodeDomain)
    return events_.PageComplete(location);
  const bool aborted = info.errorCode() == kAborted && page_->CertificateFault().isEmpty();
  if (aborted || page_->EndedInDownload()) {
    if (!page_->isLoading()) events_.LoadStopped();
    return;
  }
  failedOutside_ = page_->history()->currentItem().url() != info.url();
  const QString& fault = page_->CertificateFault();
  events_.PageFailed(location,
                     fault.isEmpty() ? ReasonOf(info) : tr("Its certificate was refused: %1").arg(fault));
}

void EngineView::Reload() { page_->triggerAction(QWebEnginePage::Reload); }

bool EngineView::Back() {
  if (failedOutside_ && page_->history()->count() > 0) {  // the page before the failed one is still shown
    failedOutside_ = false;
    events_.PageComplete(page_->Shown());
    return true;
  }
  if (!page_->history()->canGoBack()) return false;
  page_->triggerAction(QWebEnginePage::Back);
  return true;
}

bool EngineView::Forward() {
  if (!page_->history()->canGoForward()) return false;
  page_->triggerAction(QWebEnginePage::Forward);
  return true;
}

void EngineView::Print(QPrinter& printer, std::function<void()> printed) {
  if (!printer.outputFileName().isEmpty()) {
    // The page itself writes text; a printer would get a picture of it, a hundred times as large.
    connect(
        page_.get(), &QWebEnginePage::pdfPrintingFinished, this,
        [printed = std::move(printed)](const QString&, bool) { printed(); }, Qt::SingleShotConnection);
    return page_->printToPdf(printer.outputFileName(), printer.pageLayout());
  }
  connect(
      this, &QWebEngineView::printFinished, this, [printed = std::move(printed)](bool) { printed(); },
      Qt::SingleShotConnection);
  print(&printer);
}

/// A report is drawn in the colours of the desktop.
void EngineView::changeEvent(QEvent* event) {
  QWebEngineView::changeEvent(event);
  if (event->type() == QEvent::PaletteChange && page_ && page_->Shown().isLocalFile()) Reload();
}

}  // namespace requite

extern "C" Q_DECL_EXPORT requite::WebView* RequiteMakeWebView(requite::WebViewEvents& events,
                                                              QWidget* parent) {
  return new requite::EngineView(events, parent);
}
