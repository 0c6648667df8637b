// SPDX-License-Identifier: MIT
// Files are shown only when the program asks for them; links lead only to the web.
#include "engine_page.h"

#include <QWebEngineCertificateError>
#include <QWebEngineDownloadRequest>
#include <QWebEngineHistory>
#include <QWebEngineNewWindowRequest>

#include "report_scheme.h"

namespace requite {
namespace {

bool IsWeb(const QUrl& url) { return url.scheme() == "http" || url.scheme() == "https"; }

}  // namespace

EnginePage::EnginePage(EngineProfile& profile, WebViewEvents& events)
    : QWebEnginePage(&profile), events_(events) {
  connect(this, &QWebEnginePage::certificateError, this, [this](QWebEngineCertificateError error) {
    certificateFault_ = error.description();
    error.rejectCertificate();
  });
  connect(this, &QWebEnginePage::newWindowRequested, this, [this](QWebEngineNewWindowRequest& request) {
    if (request.isUserInitiated()) OpenHere(request.requestedUrl());
  });
  connect(this, &QWebEnginePage::featurePermissionRequested, this,
          [this](const QUrl& origin, Feature feature) {
            setFeaturePermission(origin, feature, PermissionDeniedByUser);
          });
  connect(this, &QWebEnginePage::loadStarted, this, [this] {
    certificateFault_.clear();
    endedInDownload_ = false;
  });
  connect(this, &QWebEnginePage::loadFinished, this, [this] { userLeaves_ = false; });
  connect(&profile, &QWebEngineProfile::downloadRequested, this, [this](QWebEngineDownloadRequest* download) {
    if (download->page() != this) return;
    endedInDownload_ = true;
    events_.Refused(
        tr("%1 is no page but a file to download. Nothing was downloaded; use your own browser for it.")
            .arg(download->url().toDisplayString()));
  });
}

void EnginePage::Ask(const QUrl& url) {
  if (url.isLocalFile() && !asked_.contains(url)) asked_.append(url);
  load(ReportScheme::ForBrowser(url));
}

QUrl EnginePage::Shown() const {
  return history()->count() == 0 ? QUrl() : ReportScheme::ForProgram(history()->currentItem().url());
}

bool EnginePage::acceptNavigationRequest(const QUrl& target, NavigationType type, bool isMainFrame) {
  const QUrl url = ReportScheme::ForProgram(target);
  const bool blank = url.scheme() == "about";
  if (!isMainFrame) return blank || (IsWeb(url) && IsWeb(this->url()));
  // A server may redirect what the user asked for; a page must not navigate by itself.
  const bool onItsOwn = type == NavigationTypeRedirect || type == NavigationTypeOther;
  if (onItsOwn && !userLeaves_ && Shown().isLocalFile()) return false;
  const bool follow = IsWeb(url) || blank || MayShowFile(url, type);
  userLeaves_ = follow && IsWeb(url);  // a file must not redirect
  return follow;
}

bool EnginePage::MayShowFile(const QUrl& url, NavigationType type) {
  if (!url.isLocalFile()) return false;
  // Only the program causes these: loading the file that it asked for, reloading it, going back to it.
  const bool own =
      type == NavigationTypeTyped || type == NavigationTypeReload || type == NavigationTypeBackForward;
  if (own) return asked_.contains(url.adjusted(QUrl::RemoveFragment));
  if (Shown().matches(url, QUrl::RemoveFragment)) return url.hasFragment();
  if (type == NavigationTypeLinkClicked) OpenHere(url);
  return false;
}

void EnginePage::OpenHere(const QUrl& target) {
  const QUrl url = ReportScheme::ForProgram(target);
  const QString address = IsWeb(url) ? url.toString(QUrl::FullyEncoded) : HostMeantBy(url, Shown());
  if (!address.isEmpty()) events_.LinkChosen(address);
}

}  // namespace requite
