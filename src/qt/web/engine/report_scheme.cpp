// SPDX-License-Identifier: MIT
// A report's URL has the path of its file, so that links, history and reloads work as with the file.
#include "report_scheme.h"

#include <QBuffer>
#include <QFile>
#include <QGuiApplication>
#include <QPalette>
#include <QWebEngineProfile>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

#include "results/report_for_view.h"

namespace requite {
namespace {

constexpr const char* kScheme = "requite-report";
constexpr qint64 kMostShown = 64 << 20;

std::string_view ViewOf(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// On a dark desktop the report is light on dark, on screen alone: paper stays white. On a light one it has
/// the browser's own look, as in its file.
std::string StyleOfPalette() {
  const QPalette palette = QGuiApplication::palette();
  const auto nameOf = [&palette](QPalette::ColorRole role) {
    return palette.color(role).name().toStdString();
  };
  if (palette.color(QPalette::Base).lightness() > palette.color(QPalette::Text).lightness()) return {};
  return "@media screen{html{color-scheme:dark;background:" + nameOf(QPalette::Base) +
         ";color:" + nameOf(QPalette::Text) + "}a{color:" + nameOf(QPalette::Link) + "}}";
}

}  // namespace

void ReportScheme::Register() {
  if (!QWebEngineUrlScheme::schemeByName(kScheme).name().isEmpty()) return;
  QWebEngineUrlScheme scheme(kScheme);
  scheme.setSyntax(QWebEngineUrlScheme::Syntax::Path);
  QWebEngineUrlScheme::registerScheme(scheme);
}

void ReportScheme::InstallIn(QWebEngineProfile& profile) { profile.installUrlSchemeHandler(kScheme, this); }

QUrl ReportScheme::ForBrowser(const QUrl& url) {
  QFile file(url.toLocalFile());
  if (!url.isLocalFile() || !file.open(QIODevice::ReadOnly)) return url;
  if (!IsReport(ViewOf(file.read(static_cast<qint64>(kReportBegin.size()))))) return url;
  QUrl report;
  report.setScheme(kScheme);
  report.setPath(url.path());
  report.setFragment(url.fragment(QUrl::FullyEncoded));
  return report;
}

QUrl ReportScheme::ForProgram(const QUrl& url) {
  if (url.scheme() != kScheme) return url;
  QUrl file = url;
  file.setScheme("file");
  return file;
}

void ReportScheme::requestStarted(QWebEngineUrlRequestJob* job) {
  QFile file(ForProgram(job->requestUrl()).toLocalFile());
  if (!file.open(QIODevice::ReadOnly)) return job->fail(QWebEngineUrlRequestJob::UrlNotFound);
  const QByteArray bytes = file.read(qMin(file.size(), kMostShown));
  // By now the path may be another page, which must not be shown under this scheme.
  if (!IsReport(ViewOf(bytes))) return job->fail(QWebEngineUrlRequestJob::UrlInvalid);
  std::string page = ReportForView(ViewOf(bytes), StyleOfPalette());
  if (file.size() > kMostShown)
    page += "<hr>" +
            tr("[The rest of this report is not shown here: it is too long.]").toHtmlEscaped().toStdString();
  auto* const answer = new QBuffer(job);
  answer->setData(QByteArray::fromStdString(page));
  answer->open(QIODevice::ReadOnly);
  job->reply("text/html; charset=windows-1252", answer);
}

}  // namespace requite
