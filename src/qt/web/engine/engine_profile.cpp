// SPDX-License-Identifier: MIT
// Pages are hostile, so each of their requests is checked before it is sent.
#include "engine_profile.h"

#include <QCoreApplication>
#include <QWebEngineDownloadRequest>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInterceptor>

#include "report_scheme.h"

namespace requite {
namespace {

bool IsWeb(const QUrl& url) { return url.scheme() == "http" || url.scheme() == "https"; }

/// Remote pages can request from the web only. Local pages repeat remote text and can request nothing, so
/// that no picture in the report tells a stranger that it was read.
class Interceptor final : public QWebEngineUrlRequestInterceptor {
 public:
  using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;

  void interceptRequest(QWebEngineUrlRequestInfo& info) override {
    // The page has already decided whether this navigation is allowed.
    if (info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame) return;
    const QUrl url = info.requestUrl();
    const bool own = url.scheme() == "data" || url.scheme() == "blob" || url.scheme() == "about";
    info.block(!own && !(IsWeb(url) && IsWeb(info.firstPartyUrl())));
  }
};

void ShutUp(QWebEngineSettings& settings) {
  using S = QWebEngineSettings;
  for (const S::WebAttribute off : {S::JavascriptEnabled,
                                    S::JavascriptCanOpenWindows,
                                    S::JavascriptCanAccessClipboard,
                                    S::JavascriptCanPaste,
                                    S::LocalStorageEnabled,
                                    S::LocalContentCanAccessRemoteUrls,
                                    S::LocalContentCanAccessFileUrls,
                                    S::HyperlinkAuditingEnabled,
                                    S::PluginsEnabled,
                                    S::PdfViewerEnabled,
                                    S::FullScreenSupportEnabled,
                                    S::ScreenCaptureEnabled,
                                    S::WebGLEnabled,
                                    S::Accelerated2dCanvasEnabled,
                                    S::AutoLoadIconsForPage,
                                    S::TouchIconsEnabled,
                                    S::FocusOnNavigationEnabled,
                                    S::AllowRunningInsecureContent,
                                    S::AllowGeolocationOnInsecureOrigins,
                                    S::AllowWindowActivationFromJavaScript,
                                    S::DnsPrefetchEnabled,
                                    S::NavigateOnDropEnabled,
                                    S::ErrorPageEnabled}) {
    settings.setAttribute(off, false);
  }
  settings.setAttribute(S::PlaybackRequiresUserGesture, true);
  settings.setAttribute(S::WebRTCPublicInterfacesOnly, true);
  settings.setUnknownUrlSchemePolicy(S::DisallowUnknownUrlSchemes);
  // The report, and pages that name no encoding, are in the program's code page.
  settings.setDefaultTextEncoding("windows-1252");
}

}  // namespace

// A profile without a name keeps nothing on disk.
EngineProfile::EngineProfile(QObject* parent) : QWebEngineProfile(parent) {
  ShutUp(*settings());
  setUrlRequestInterceptor(new Interceptor(this));
  (new ReportScheme(this))->InstallIn(*this);
  setHttpCacheType(MemoryHttpCache);
  setPersistentCookiesPolicy(NoPersistentCookies);
  connect(this, &QWebEngineProfile::downloadRequested, this,
          [](QWebEngineDownloadRequest* download) { download->cancel(); });
}

EngineProfile& EngineProfile::Acquire() {
  auto* profile = QCoreApplication::instance()->findChild<EngineProfile*>({}, Qt::FindDirectChildrenOnly);
  if (profile == nullptr) {
    ReportScheme::Register();
    profile = new EngineProfile(QCoreApplication::instance());
  }
  ++profile->users_;
  return *profile;
}

void EngineProfile::Release() {
  if (--users_ == 0) delete this;
}

}  // namespace requite
