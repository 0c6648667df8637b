// SPDX-License-Identifier: MIT
// Opens everything with the desktop's opener.
#include "qt/services/desktop_shell.h"

#include <unistd.h>

#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QUrl>

#include "qt/services/code_page.h"

namespace requite {
namespace {

/// The opener may run as long as the program that it started, so a failure after this time belongs to
/// a program that did open.
constexpr qint64 kOpenedAfter = 30'000;  // ms

/// The type of help files has two names.
constexpr auto kAskForHelpProgram =
    "for type in application/vnd.ms-htmlhelp application/x-chm; do xdg-mime query default $type; done";

using Ended = std::function<void(bool good, const QByteArray& output)>;

/// Starts a program and calls `ended` once, when it ends or cannot be started. It has a
/// session of its own, so it stays alive when this program ends.
void Start(const QString& program, const QStringList& arguments, QObject& context, const Ended& ended) {
  auto* const process = new QProcess;  // without a parent, which would end the opened program with this one
  process->setChildProcessModifier([] { ::setsid(); });
  process->setStandardInputFile(QProcess::nullDevice());
  process->setStandardErrorFile(QProcess::nullDevice());
  QObject::connect(process, &QProcess::errorOccurred, &context,
                   [process, ended](QProcess::ProcessError error) {
                     if (error != QProcess::FailedToStart) return;
                     process->deleteLater();
                     ended(false, {});
                   });
  QObject::connect(process, &QProcess::finished, &context,
                   [process, ended](int code, QProcess::ExitStatus how) {
                     process->deleteLater();
                     ended(how == QProcess::NormalExit && code == 0, process->readAllStandardOutput());
                   });
  process->start(program, arguments);
}

/// An absolute path cannot be mistaken for an option.
QString AbsolutePath(const std::string& path) {
  return QFileInfo(QFile::decodeName(path.c_str())).absoluteFilePath();
}

}  // namespace

void DesktopShell::OpenDocument(const std::string& path) {
  const QString file = AbsolutePath(path);
  Start("sh", {"-c", kAskForHelpProgram}, context_, [this, file](bool, const QByteArray& programs) {
    if (programs.trimmed().isEmpty()) return Fail(file);
    Open(file);
  });
}

void DesktopShell::OpenFile(const std::string& path) { Open(AbsolutePath(path)); }

void DesktopShell::OpenUrlOutside(const std::string& url) {
  static const QRegularExpression anyScheme("^[a-z][a-z0-9+.-]*://",
                                            QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression webScheme("^https?://", QRegularExpression::CaseInsensitiveOption);
  QString address = ToUnicode(url).trimmed();
  if (!anyScheme.match(address).hasMatch()) address.prepend("http://");
  const QUrl target(address);
  if (!webScheme.match(address).hasMatch() || !target.isValid()) return Fail(address);
  Open(QString::fromLatin1(target.toEncoded()));
}

void DesktopShell::Open(const QString& what) {
  QElapsedTimer since;
  since.start();
  Start("xdg-open", {what}, context_, [this, what, since](bool good, const QByteArray&) {
    if (!good && since.elapsed() < kOpenedAfter) Fail(what);
  });
}

void DesktopShell::Fail(const QString& what) const {
  if (OnFailed) OnFailed(what);
}

}  // namespace requite
