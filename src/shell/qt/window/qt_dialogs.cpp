// SPDX-License-Identifier: MIT
// The toolkit's own dialogs, modal to the window in front.
#include "shell/qt/window/qt_dialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>

#include "shell/product.h"
#include "shell/qt/code_page.h"

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

/// Names of files are bytes of the file system all through the program.
std::string NameOf(const QString& chosen) { return QFile::encodeName(chosen).toStdString(); }

}  // namespace

Answer QtDialogs::Show(const MessageBox& box) {
  QMessageBox window(IconOf(box.Icon),
                     // A title bar has one line: line ends in a title become blanks.
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
  return NameOf(QFileDialog::getOpenFileName(
      QApplication::activeWindow(), {}, QFile::decodeName(dialog.Folder.c_str()), FilterOf(dialog.Filter)));
}

std::string QtDialogs::AskSaveName(const FileDialog& dialog) {
  const std::string start =
      dialog.Folder.empty() ? dialog.DefaultName : dialog.Folder + "/" + dialog.DefaultName;
  // The program asks about overwriting itself where it does, in its own words.
  return NameOf(QFileDialog::getSaveFileName(QApplication::activeWindow(), {},
                                             QFile::decodeName(start.c_str()), FilterOf(dialog.Filter),
                                             nullptr, QFileDialog::DontConfirmOverwrite));
}

void QtClipboard::Clear() { QApplication::clipboard()->clear(); }

void QtClipboard::SetText(const std::string& text) { QApplication::clipboard()->setText(ToUnicode(text)); }

}  // namespace requite
