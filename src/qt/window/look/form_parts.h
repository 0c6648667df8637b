// SPDX-License-Identifier: MIT
// Labels of windows that are forms: mnemonics and headings.
#pragma once

#include <QString>

class QLabel;
class QWidget;

namespace requite {

class TextBox;

/// The text with "&" before the first occurrence of this letter.
[[nodiscard]] QString WithMnemonic(const QString& text, QChar letter);

/// The text in lines of at most `longest` characters, broken at blanks, for buttons, which cannot break
/// lines. A longer word keeps its line.
[[nodiscard]] QString InLines(QString text, int longest);

/// A label that leads to a box by its mnemonic, and gives the box its text as accessible name.
QLabel* NewBoxLabel(const TextBox& label, QChar letter, QWidget& box, QWidget* parent);

/// A label in bold over a group of controls.
QLabel* NewHeading(const TextBox& label, QWidget* parent);

}  // namespace requite
