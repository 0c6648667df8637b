// SPDX-License-Identifier: MIT
// Looks at what is pasted before the box gets it: the box would keep line ends as signs in its line.
#include "qt/window/controls/entry_line.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QRegularExpression>

namespace requite {
namespace {

constexpr qsizetype kLongestLine = 20'000;  // characters; the box would take seconds for a million

}  // namespace

bool EntryLine::TakesLines(QClipboard::Mode from) {
  static const QRegularExpression lineEnd("[\r\n]");
  const QString text = QGuiApplication::clipboard()->text(from);
  const bool isLong = text.size() > kLongestLine;
  if (!isLong && !text.contains(lineEnd)) return false;
  const QString line = isLong ? QString() : text.trimmed();
  if (isLong || line.contains(lineEnd)) {
    if (OnLines) OnLines(text);
  } else {
    insert(line);
  }
  return true;
}

void EntryLine::paste() {
  if (!TakesLines(QClipboard::Clipboard)) QLineEdit::paste();
}

void EntryLine::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Paste)) return paste();
  QLineEdit::keyPressEvent(event);
}

/// The middle button pastes what is selected elsewhere.
void EntryLine::mouseReleaseEvent(QMouseEvent* event) {
  const bool pastes =
      event->button() == Qt::MiddleButton && QGuiApplication::clipboard()->supportsSelection();
  if (pastes && TakesLines(QClipboard::Selection)) return;
  QLineEdit::mouseReleaseEvent(event);
}

}  // namespace requite
