// SPDX-License-Identifier: MIT
// Fills the menu each time it opens, because other programs change the files too.
#include "qt/window/main_window/open_menu.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QSettings>
#include <QShortcut>
#include <QToolButton>

#include "shell/main_window/form1.h"

namespace requite {
namespace {

constexpr qsizetype kMostRecent = 10;
constexpr std::size_t kMostCopies = 10;
constexpr int kLongestText = 420;   // pixels at the usual density
constexpr int kStemOfUnsaved = 20;  // after "20260102-140405-001 "
const char* const kRecent = "recentProjects";

QList<QByteArray> ReadRecent() {
  QList<QByteArray> paths;
  for (const QVariant& each : QSettings("requite", "window").value(kRecent).toList()) {
    if (!each.toByteArray().isEmpty()) paths << each.toByteArray();
  }
  return paths.mid(0, kMostRecent);
}

/// A name of any origin as the text of an entry: an "&" in it is no mnemonic.
QString EntryText(const QMenu& menu, QString text) {
  text = menu.fontMetrics().elidedText(text.simplified(), Qt::ElideMiddle, kLongestText);
  return text.replace('&', "&&");
}

}  // namespace

OpenMenu::OpenMenu(QToolButton& button, Form1& form, const WorkKeeper& keeper, const UserEvents& user)
    : QMenu(&button), form_(form), keeper_(keeper), user_(user) {
  setObjectName("openMenu");
  setAccessibleName(tr("Recent projects and copies"));
  setToolTipsVisible(true);
  button.setMenu(this);
  button.setPopupMode(QToolButton::MenuButtonPopup);
  button.setAccessibleDescription(tr("Alt+Down: recent projects and copies"));
  connect(this, &QMenu::aboutToShow, this, &OpenMenu::Fill);
  for (const QKeySequence& keys : {QKeySequence(Qt::Key_Down), QKeySequence(Qt::ALT | Qt::Key_Down)}) {
    auto* const shortcut = new QShortcut(keys, &button);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, &button, &QToolButton::showMenu);
  }
}

void OpenMenu::Remember(const std::string& path) {
  const QByteArray newest = QByteArray::fromStdString(path);
  QList<QByteArray> paths = ReadRecent();
  paths.removeAll(newest);
  paths.prepend(newest);
  QVariantList values;
  for (const QByteArray& each : paths.mid(0, kMostRecent)) values << each;
  QSettings("requite", "window").setValue(kRecent, values);
}

void OpenMenu::Fill() {
  clear();
  qDeleteAll(findChildren<QMenu*>(Qt::FindDirectChildrenOnly));  // clear leaves the menus of its entries
  AddRecent();
  addSeparator();
  AddCopies(tr("&Unsaved projects that were kept"), keeper_.Copies().Unsaved(), kStemOfUnsaved);
  AddCopies(tr("Copies of &saved projects"), keeper_.Copies().Saved(), 0);
}

void OpenMenu::AddRecent() {
  int number = 0;
  for (const QByteArray& path : ReadRecent()) {
    const QFileInfo file(QFile::decodeName(path));
    const QString text = file.fileName() + QString::fromUtf8(" \u2014 ") + file.absolutePath();
    ++number;
    QAction* const action = addAction(QString("&%1 %2").arg(number % 10).arg(EntryText(*this, text)));
    action->setToolTip(file.filePath().toHtmlEscaped());
    action->setEnabled(file.exists());
    action->setCheckable(true);
    action->setChecked(path.toStdString() == form_.Files.OpenPath());
    connect(action, &QAction::triggered, this, [this, path] {
      if (form_.cmdOpen.EnabledInEffect()) user_.Run([&] { form_.Files.LoadProject(path.toStdString()); });
    });
  }
  if (number == 0) addAction(tr("No recent projects"))->setEnabled(false);
}

void OpenMenu::AddCopies(const QString& title, const std::vector<std::string>& paths, int stemBegins) {
  QMenu* const copies = addMenu(title);
  copies->setToolTipsVisible(true);
  copies->setEnabled(!paths.empty());
  for (std::size_t i = 0; i < std::min(paths.size(), kMostCopies); ++i) {
    const QFileInfo file(QFile::decodeName(paths[i].c_str()));
    const QString when = QLocale().toString(file.lastModified(), QLocale::ShortFormat);
    QAction* const action = copies->addAction(
        EntryText(*copies, file.fileName().mid(stemBegins) + QString::fromUtf8(" \u2014 ") + when));
    action->setToolTip(file.filePath().toHtmlEscaped());
    connect(action, &QAction::triggered, this, [this, path = paths[i]] {
      if (OnCopy && form_.cmdOpen.EnabledInEffect()) user_.Run([&] { OnCopy(path); });
    });
  }
}

}  // namespace requite
