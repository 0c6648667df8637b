// SPDX-License-Identifier: MIT
// Makes the test of a filter from the words in the box.
#include "qt/window/lists/filter_box.h"

#include <QApplication>
#include <QKeyEvent>
#include <algorithm>
#include <utility>
#include <vector>

#include "platform/text_search.h"
#include "qt/services/code_page.h"

namespace requite {
namespace {

constexpr int kLongestText = 1000;  // characters; more would only slow the search down

/// The words as bytes of the code page. A word with a letter that no list can hold is nowhere.
bool TakeWords(const QString& text, std::vector<TextFinder>& words) {
  for (const QString& word : text.split(' ', Qt::SkipEmptyParts)) {
    const std::string bytes = FromUnicode(word);
    if (ToUnicode(bytes) != word) return false;
    words.emplace_back(bytes);
  }
  return true;
}

bool Holds(const ListView& list, std::size_t row, const TextFinder& word) {
  for (std::size_t column = 0; column < list.ColumnCount(); ++column) {
    if (word.IsIn(list.FieldAt(row, column))) return true;
  }
  return false;
}

}  // namespace

FilterBox::FilterBox(const QString& name, const QString& prompt, ListTable& table, QWidget& view,
                     QWidget* parent)
    : QLineEdit(parent), table_(table), view_(view) {
  setObjectName(name);
  setPlaceholderText(tr("Filter"));
  setAccessibleName(prompt);
  setToolTip(tr("Show only rows with these words (Ctrl+F). Esc shows all rows."));
  setClearButtonEnabled(true);
  setMaxLength(kLongestText);
  connect(this, &QLineEdit::textChanged, this, &FilterBox::FilterRows);
  connect(this, &QLineEdit::returnPressed, &view, [&view] { view.setFocus(Qt::OtherFocusReason); });
}

void FilterBox::SetCondition(RowFilter::Test condition, const QString& about) {
  condition_ = std::move(condition);
  about_ = about;
  FilterRows();
}

void FilterBox::FilterRows() {
  std::vector<TextFinder> words;
  const bool possible = TakeWords(text(), words);
  const QString typed = text().simplified();
  if (words.empty() && possible && !condition_) return table_.SetFilter(nullptr);
  QString noMatch = typed.isEmpty() ? tr("No row") : tr("No row matches \"%1\"").arg(typed);
  if (!about_.isEmpty()) noMatch += tr(" among the %1").arg(about_);
  table_.SetFilter(
      [this, possible, words = std::move(words), condition = condition_](std::size_t row) {
        const ListView* const list = table_.List();
        if (!possible || list == nullptr || (condition && !condition(row))) return false;
        return std::all_of(words.begin(), words.end(),
                           [&](const TextFinder& word) { return Holds(*list, row, word); });
      },
      noMatch + ".");
}

void FilterBox::Take() {
  QWidget* const now = QApplication::focusWidget();
  if (now != this) before_ = now;
  setFocus(Qt::ShortcutFocusReason);
  selectAll();
}

void FilterBox::GiveBack() {
  QWidget* const to =
      before_ != nullptr && before_->isVisible() && before_->isEnabled() ? before_.data() : &view_;
  to->setFocus(Qt::OtherFocusReason);
}

bool FilterBox::event(QEvent* event) {
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel)) {
    if (text().isEmpty()) {
      GiveBack();
    } else {
      event->accept();  // the key comes to the box now, whatever shortcut it is elsewhere
      return true;
    }
  }
  return QLineEdit::event(event);
}

void FilterBox::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Cancel)) {
    clear();
    return GiveBack();
  }
  if (event->key() == Qt::Key_Down) return view_.setFocus(Qt::OtherFocusReason);
  QLineEdit::keyPressEvent(event);
}

}  // namespace requite
