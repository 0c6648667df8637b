// SPDX-License-Identifier: MIT
// Boxes to type in. A refresh that rewrites their text keeps cursor and selection, and a character outside
// the code page becomes "?" as it is typed.
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTextBlock>
#include <QTextCursor>
#include <QValidator>
#include <algorithm>
#include <limits>
#include <optional>

#include "qt/services/code_page.h"
#include "qt/window/controls/control_views.h"
#include "qt/window/controls/text_change.h"

namespace requite {
namespace {

QString Kept(const QString& text) { return ToUnicode(FromUnicode(text)); }

class InCodePage : public QValidator {
 public:
  using QValidator::QValidator;

  State validate(QString& input, int& cursor) const override {
    const QString kept = Kept(input);
    if (kept != input) {
      cursor = static_cast<int>(Kept(input.left(cursor)).size());
      input = kept;
    }
    return Acceptable;
  }
};

/// Remembers the cursor of a box while its text is set.
class LineCursor {
 public:
  explicit LineCursor(QLineEdit& line)
      : line_(line), text_(line.text()), cursor_(line.cursorPosition()), anchor_(cursor_) {
    if (!line.hasSelectedText()) return;
    anchor_ = line.selectionStart() == cursor_ ? line.selectionEnd() : line.selectionStart();
  }

  /// Puts the cursor back, as far as the text is the same.
  void PutBack() const {
    const TextChange change = ChangeBetween(text_, line_.text());
    const auto cursor = static_cast<int>(PlaceAfter(cursor_, change));
    const auto anchor = static_cast<int>(PlaceAfter(anchor_, change));
    if (anchor == cursor) return line_.setCursorPosition(cursor);
    line_.setSelection(anchor, cursor - anchor);
  }

 private:
  QLineEdit& line_;
  QString text_;
  int cursor_;
  int anchor_;
};

/// A box of many lines. Its widget holds the last part of the control's text, from some line on.
class ManyLines {
 public:
  ManyLines(TextBox& control, QPlainTextEdit& widget, std::size_t longest)
      : control_(control), widget_(widget), longest_(longest) {}

  void Show() {
    if (Append()) return;
    shown_ = Lines();
    if (Raw() != shown_) Rewrite(shown_);
    bytes_ = control_.Text().substr(from_);
  }

  /// The control's text with the user's change of the widget's; nothing without a change. Text that was added
  /// to the control and is not shown yet is kept.
  std::optional<std::string> Edited() {
    const QString now = Raw();
    if (now == shown_) return std::nullopt;
    bytes_.clear();  // the next refresh compares the whole
    const std::string_view text = control_.Text();
    from_ = std::min(from_, text.size());
    std::string edited(text.substr(0, from_));
    edited += WithChange(text.substr(from_), ChangeBetween(shown_, now));
    shown_ = now;
    shown_.replace(QChar::LineSeparator, '\n').replace(QChar::ParagraphSeparator, '\n');
    shown_ = Kept(shown_).replace('\n', QChar::ParagraphSeparator);
    if (shown_ != now) Rewrite(shown_);
    return edited;
  }

 private:
  /// Unlike the plain text, this distinguishes no-break spaces from spaces.
  [[nodiscard]] QString Raw() const { return widget_.document()->toRawText(); }

  /// A text that has only grown costs as much as what was added: a log may be long. False when the text has
  /// to be shown as a whole.
  bool Append() {
    const std::string_view text =
        std::string_view(control_.Text()).substr(std::min(from_, control_.Text().size()));
    if (text.size() > longest_ || !text.starts_with(bytes_) || bytes_.empty()) return false;
    const std::string_view added = text.substr(bytes_.size());
    // This CR was shown as the end of a line; with its LF it is one end still.
    if (bytes_.back() == '\r' && added.starts_with('\n')) return false;
    if (added.empty()) return true;
    const QString lines = LinesOf(added);
    const auto end = static_cast<qsizetype>(widget_.document()->characterCount() - 1);
    Write({end, 0, lines});
    shown_ += lines;
    bytes_ += added;
    return true;
  }

  /// What the widget should hold. It moves on by many lines at once, because each time all of it is laid out.
  QString Lines() {
    const std::string_view text = control_.Text();
    if (from_ > text.size()) from_ = 0;
    if (text.size() - from_ > longest_) {
      const std::size_t lineEnd = text.find('\n', text.size() - longest_ / 2);
      from_ = lineEnd == std::string_view::npos ? text.size() - longest_ / 2 : lineEnd + 1;
    }
    return LinesOf(text.substr(from_));
  }

  void Rewrite(const QString& lines) { Write(ChangeBetween(Raw(), lines)); }

  void Write(const TextChange& change) {
    const int anchor = widget_.textCursor().anchor();
    const int position = widget_.textCursor().position();
    const int scrolled = widget_.verticalScrollBar()->value();
    const QSignalBlocker quiet(widget_);
    // The user's undo would bring back parts of a text that is gone.
    widget_.document()->setUndoRedoEnabled(false);
    QTextCursor writer(widget_.document());
    writer.setPosition(static_cast<int>(change.At));
    writer.setPosition(static_cast<int>(change.At + change.Removed), QTextCursor::KeepAnchor);
    writer.insertText(change.Added);
    widget_.document()->setUndoRedoEnabled(true);
    QTextCursor after = widget_.textCursor();
    after.setPosition(static_cast<int>(PlaceAfter(anchor, change)));
    after.setPosition(static_cast<int>(PlaceAfter(position, change)), QTextCursor::KeepAnchor);
    widget_.setTextCursor(after);
    widget_.verticalScrollBar()->setValue(scrolled);
  }

  TextBox& control_;
  QPlainTextEdit& widget_;
  std::size_t longest_;
  QString shown_;         // the text given to the widget, with the user's changes since
  std::size_t from_ = 0;  // offset in the control's text at which the widget's begins
  std::string bytes_;     // the control's text from there on, as it was last shown
};

void ShowRows(const ComboBox& control, QComboBox& widget) {
  QStringList items;
  for (const std::string& item : control.Items()) items << ToUnicode(item);
  QStringList shown;
  for (int i = 0; i < widget.count(); ++i) shown << widget.itemText(i);
  if (shown != items) {
    widget.clear();
    widget.addItems(items);
  }
  if (widget.currentIndex() != control.ListIndex()) widget.setCurrentIndex(control.ListIndex());
}

}  // namespace

void Binder::Bind(TextBox& control, QLineEdit& widget) {
  widget.setMaxLength(std::numeric_limits<int>::max());  // a text from a file must not be cut
  widget.setValidator(new InCodePage(&widget));
  Keep(control, widget, [&control, &widget] {
    const QString text = ToUnicode(control.Text());
    if (widget.text() == text) return;
    const LineCursor cursor(widget);
    widget.setText(text);
    cursor.PutBack();
  });
  QObject::connect(&widget, &QLineEdit::textEdited, &widget, [this, &control](const QString& text) {
    user_.Run([&] { control.UserSets(FromUnicode(text)); });
  });
  QObject::connect(&widget, &QLineEdit::returnPressed, &widget,
                   [this, &control] { user_.Run([&control] { control.UserPressesEnter(); }); });
}

void Binder::Bind(TextBox& control, QPlainTextEdit& widget, std::size_t longest) {
  const auto lines = std::make_shared<ManyLines>(control, widget, longest);
  Keep(control, widget, [lines] { lines->Show(); });
  QObject::connect(&widget, &QPlainTextEdit::textChanged, &widget, [this, &control, lines] {
    if (std::optional<std::string> text = lines->Edited()) {
      user_.Run([&] { control.UserSets(std::move(*text)); });
    }
  });
}

void Binder::BindDropDownList(ComboBox& control, QComboBox& widget) {
  Keep(control, widget, [&control, &widget] { ShowRows(control, widget); });
  QObject::connect(&widget, &QComboBox::activated, &widget,
                   [this, &control](int index) { user_.Run([&] { control.SetListIndex(index); }); });
}

void Binder::Bind(ComboBox& control, QComboBox& widget) {
  widget.setEditable(true);
  widget.setInsertPolicy(QComboBox::NoInsert);
  // Typed text stays typed text, even if a row is the same.
  widget.setCompleter(nullptr);
  QObject::disconnect(widget.lineEdit(), &QLineEdit::editingFinished, &widget, nullptr);
  widget.setValidator(new InCodePage(&widget));
  // The names of sites must not decide the width of the window.
  widget.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  widget.setMinimumContentsLength(12);
  Keep(control, widget, [&control, &widget] {
    const LineCursor cursor(*widget.lineEdit());
    ShowRows(control, widget);
    const QString text = ToUnicode(control.Text());
    if (widget.currentText() != text) widget.setEditText(text);
    cursor.PutBack();
  });
  QObject::connect(&widget, &QComboBox::activated, &widget,
                   [this, &control](int index) { user_.Run([&] { control.SetListIndex(index); }); });
  QObject::connect(widget.lineEdit(), &QLineEdit::textEdited, &widget, [this, &control](const QString& text) {
    user_.Run([&] { control.UserSets(FromUnicode(text)); });
  });
  QObject::connect(widget.lineEdit(), &QLineEdit::returnPressed, &widget,
                   [this, &control] { user_.Run([&control] { control.UserPressesEnter(); }); });
}

}  // namespace requite
