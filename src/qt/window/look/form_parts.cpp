// SPDX-License-Identifier: MIT
// Makes the labels of forms. Their texts never change, so they are not bound.
#include "qt/window/look/form_parts.h"

#include <QLabel>

#include "platform/controls.h"
#include "qt/services/code_page.h"

namespace requite {

QString WithMnemonic(const QString& text, QChar letter) {
  const auto at = text.indexOf(letter);
  return at < 0 ? text : QString(text).insert(at, '&');
}

QString InLines(QString text, int longest) {
  for (qsizetype begin = 0; text.size() - begin > longest;) {
    const qsizetype blank = text.lastIndexOf(' ', begin + longest);
    if (blank <= begin) break;
    text[blank] = '\n';
    begin = blank + 1;
  }
  return text;
}

QLabel* NewBoxLabel(const TextBox& label, QChar letter, QWidget& box, QWidget* parent) {
  const QString text = ToUnicode(label.Text());
  auto* const shown = new QLabel(WithMnemonic(text, letter), parent);
  shown->setObjectName(QString::fromStdString(label.Name()));
  shown->setBuddy(&box);
  shown->setToolTip(box.toolTip());
  box.setAccessibleName(text.endsWith(':') ? text.chopped(1) : text);
  return shown;
}

QLabel* NewHeading(const TextBox& label, QWidget* parent) {
  auto* const shown = new QLabel(ToUnicode(label.Text()), parent);
  shown->setObjectName(QString::fromStdString(label.Name()));
  QFont bold = shown->font();
  bold.setBold(true);
  shown->setFont(bold);
  return shown;
}

}  // namespace requite
