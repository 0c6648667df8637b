// SPDX-License-Identifier: MIT
// The toolkit's own dialogs, modal to the window in front.
#include "qt/window/desktop/qt_dialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QSettings>

#include "qt/services/code_page.h"
#include "shell/product.h"

namespace requite {
namespace {

QMessageBox::StandardButtons ButtonsOf(Buttons choice) {
  switch (choice) {
    case Buttons::OkCancel: return QMessageBox::Ok | QMessageBox::Cancel;
    case Buttons::YesNo: return QMessageBox::Yes | QMessageBox::No;
    case Buttons::Ok: break;
  }
  return QMessageBox::Ok;
}

QMessageBox::Icon IconOf(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::Information: return QMessageBox::Information;
    case BoxIcon::Question: return QMessageBox::Question;
    case BoxIcon::Critical: return QMessageBox::Critical;
    case BoxIcon::None: break;
  }
  return QMessageBox::NoIcon;
}

/// "Words (*.x, *.y)|*.x,*.y" in the toolkit's form. Both signs between patterns are understood.
QString FilterOf(const std::string& filter) {
  const QStringList parts = ToUnicode(filter).split('|');
  if (parts.size() < 2) return {};
  QString patterns = parts[1];
  patterns.replace(',', ' ').replace(';', ' ');
  return parts[0].section(" (", 0, 0) + " (" + patterns + ")";
}

/// File names are the file system's bytes everywhere in the program.
std::string NameOf(const QString& chosen) { return QFile::encodeName(chosen).toStdString(); }

QString FolderKey(const FileDialog& dialog) {
  return "folder/" + QString::fromStdString(dialog.RememberedAs);
}

/// Where the dialog begins: the folder chosen last, while it exists.
QString FirstFolder(const FileDialog& dialog) {
  if (!dialog.RememberedAs.empty()) {
    QString last = QSettings("requite", "window").value(FolderKey(dialog)).toString();
    if (QFileInfo(last).isDir()) return last;
  }
  return QFile::decodeName(dialog.Folder.c_str());
}

/// Asks in the toolkit's words, which exist in the user's language.
bool MayReplace(QFileDialog& dialog, const QString& path, const SaveHabits& habits) {
  const QFileInfo chosen(path);
  if (!habits.AsksToReplace || !chosen.exists()) return true;
  const QFileInfo unasked(QFile::decodeName(habits.ReplacedUnasked.c_str()));
  if (!habits.ReplacedUnasked.empty() && chosen == unasked) return true;
  const QString question = QFileDialog::tr("%1 already exists.\nDo you want to replace it?");
  return QMessageBox::warning(&dialog, dialog.windowTitle(), question.arg(chosen.fileName()),
                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace

Answer QtDialogs::Show(const MessageBox& box) {
  QMessageBox window(IconOf(box.Icon),
                     // A title bar has one line: line ends in a title become spaces.
                     box.Title.empty() ? QString(product::kName.data()) : ToUnicode(box.Title).simplified(),
                     ToUnicode(box.Text), ButtonsOf(box.Choice), QApplication::activeWindow());
  window.setTextFormat(Qt::PlainText);
  switch (window.exec()) {
    case QMessageBox::Yes: return Answer::Yes;
    case QMessageBox::No: return Answer::No;
    case QMessageBox::Ok: return Answer::Ok;
    default: return box.Choice == Buttons::YesNo ? Answer::No : Answer::Cancel;
  }
}

std::string QtDialogs::AskOpenName(const FileDialog& dialog) {
  const QString chosen = QFileDialog::getOpenFileName(QApplication::activeWindow(), {}, FirstFolder(dialog),
                                                      FilterOf(dialog.Filter));
  if (!chosen.isEmpty() && !dialog.RememberedAs.empty()) {
    QSettings("requite", "window").setValue(FolderKey(dialog), QFileInfo(chosen).absolutePath());
  }
  return NameOf(chosen);
}

std::string QtDialogs::AskSaveName(const FileDialog& dialog) {
  QFileDialog window(QApplication::activeWindow(), {}, QFile::decodeName(dialog.Folder.c_str()),
                     FilterOf(dialog.Filter));
  window.setAcceptMode(QFileDialog::AcceptSave);
  window.setFileMode(QFileDialog::AnyFile);
  window.setDefaultSuffix(ToUnicode(dialog.Habits.DefaultSuffix));
  // The dialog's own question knows no exceptions, and for some files the program asks in its own words.
  window.setOption(QFileDialog::DontConfirmOverwrite);
  window.selectFile(ToUnicode(dialog.DefaultName));
  while (window.exec() == QDialog::Accepted) {
    const QString chosen = window.selectedFiles().value(0);
    if (MayReplace(window, chosen, dialog.Habits)) return NameOf(chosen);
  }
  return {};
}

void QtClipboard::Clear() { QApplication::clipboard()->clear(); }

void QtClipboard::SetText(const std::string& text) { QApplication::clipboard()->setText(ToUnicode(text)); }

}  // namespace requite
