// SPDX-License-Identifier: MIT
// Walks through the widgets of a window, but not into the windows that belong to it.
#include "gui/window_checks.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QProgressBar>
#include <QScreen>
#include <QStyle>
#include <QTabBar>
#include <QTableView>
#include <algorithm>
#include <cmath>

namespace requite::test {
namespace {

constexpr double kLeastContrast = 4.5;
constexpr int kTitleHeight = 28;

QString NameOf(const QWidget& widget) {
  return widget.window()->objectName() + '/' +
         (widget.objectName().isEmpty() ? QString(widget.metaObject()->className()) : widget.objectName());
}

/// The widgets of the window that are in sight, parts of other controls left out.
QList<QWidget*> PartsOf(const QWidget& window) {
  QList<QWidget*> parts;
  for (QWidget* const each : window.findChildren<QWidget*>()) {
    const bool part = each->objectName().startsWith("qt_") || each->parent()->inherits("QComboBox");
    if (each->window() == &window && each->isVisible() && !part) parts << each;
  }
  return parts;
}

/// The colour that most of a picture has.
QColor MainColour(const QImage& picture, int leastAlpha) {
  QHash<QRgb, int> counts;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      const QRgb pixel = picture.pixel(x, y);
      if (qAlpha(pixel) >= leastAlpha) ++counts[pixel];
    }
  }
  const auto most = std::max_element(counts.begin(), counts.end());
  return most == counts.end() ? QColor() : QColor(most.key());
}

QString TextOf(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return button->text();
  return {};
}

bool IsCut(const QWidget& part) {
  if (const auto* label = qobject_cast<const QLabel*>(&part)) {
    // Some labels show texts of any length, and their tool tips tell the rest.
    if (label->text().isEmpty() || label->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored)
      return false;
    if (label->wordWrap()) return label->height() < label->heightForWidth(label->width());
    return label->width() < label->sizeHint().width() || label->height() < label->sizeHint().height();
  }
  if (qobject_cast<const QAbstractButton*>(&part) != nullptr ||
      qobject_cast<const QComboBox*>(&part) != nullptr) {
    const QSize needed = part.minimumSizeHint();
    return part.width() < needed.width() || part.height() < needed.height();
  }
  if (const auto* group = qobject_cast<const QGroupBox*>(&part)) {
    return group->width() < group->fontMetrics().horizontalAdvance(group->title());
  }
  if (const auto* tabs = qobject_cast<const QTabBar*>(&part)) {
    return tabs->count() > 0 && tabs->tabRect(tabs->count() - 1).right() >= tabs->width();
  }
  if (const auto* line = qobject_cast<const QLineEdit*>(&part)) {
    return line->width() < line->fontMetrics().horizontalAdvance(line->placeholderText()) + 8;
  }
  if (const auto* menus = qobject_cast<const QMenuBar*>(&part)) {
    const QList<QAction*> actions = menus->actions();
    return std::any_of(actions.begin(), actions.end(), [menus](QAction* action) {
      return !menus->rect().contains(menus->actionGeometry(action).adjusted(0, 1, 0, -1));
    });
  }
  return false;
}

QStringList CutCells(const QTableView& view) {
  QStringList faults;
  const QHeaderView& header = *view.horizontalHeader();
  const QAbstractItemModel& model = *view.model();
  const int margin = 2 * header.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
  const int mark = header.style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, &header);
  for (int column = 0; column < model.columnCount(); ++column) {
    if (view.isColumnHidden(column)) continue;
    const QString caption = model.headerData(column, Qt::Horizontal).toString();
    const bool sorted = header.isSortIndicatorShown() && header.sortIndicatorSection() == column;
    const int needed = header.fontMetrics().horizontalAdvance(caption) + margin + (sorted ? mark : 0);
    if (!header.isHidden() && view.columnWidth(column) < needed) faults << NameOf(view) + ": " + caption;
    for (int row = std::max(0, view.rowAt(0)); row < model.rowCount(); ++row) {
      const QModelIndex cell = model.index(row, column);
      if (view.visualRect(cell).top() > view.viewport()->height()) break;
      bool number = false;
      cell.data().toString().toLongLong(&number);
      if (number && view.columnWidth(column) < view.sizeHintForIndex(cell).width()) {
        faults << NameOf(view) + ": " + cell.data().toString();
      }
    }
  }
  return faults;
}

bool TakesTab(const QWidget& widget, const QWidget& window) {
  return widget.window() == &window && widget.isVisible() && widget.isEnabled() &&
         (widget.focusPolicy() & Qt::TabFocus) != 0 && widget.focusProxy() == nullptr;
}

/// Compares where the two are within the innermost widget that holds both.
bool LeapsBack(const QWidget& from, const QWidget& to) {
  const QWidget* around = from.parentWidget();
  while (around != nullptr && !around->isAncestorOf(&to)) around = around->parentWidget();
  if (around == nullptr || from.isAncestorOf(&to) || to.isAncestorOf(&from)) return false;
  const auto placeOf = [around](const QWidget& widget) {
    const QWidget* branch = &widget;
    while (branch->parentWidget() != around) branch = branch->parentWidget();
    return branch->geometry();
  };
  const QRect a = placeOf(from);
  const QRect b = placeOf(to);
  const bool up = b.bottom() <= a.top() && b.left() < a.right();
  const bool back = b.right() <= a.left() && b.top() < a.bottom();
  return up || back;
}

/// What is drawn around a widget's text.
QColor BehindText(QWidget& widget) {
  const QRect place(widget.mapTo(widget.window(), QPoint()), widget.size());
  return MainColour(widget.window()->grab(place).toImage(), 255);
}

QString FaintText(QWidget& part) {
  const auto* const label = qobject_cast<QLabel*>(&part);
  const QColor behind = BehindText(part);
  const QColor text = part.palette().color(label != nullptr || part.foregroundRole() != QPalette::NoRole
                                               ? part.foregroundRole()
                                               : QPalette::WindowText);
  const double contrast = Contrast(text, behind);
  if (contrast >= kLeastContrast) return {};
  return QString("%1: %2 on %3").arg(NameOf(part), text.name(), behind.name());
}

QString FaintPicture(const QIcon& icon, const QColor& behind, const QString& owner) {
  const QColor colour = MainColour(icon.pixmap(32, 32).toImage(), 200);
  if (icon.isNull() || !colour.isValid() || Contrast(colour, behind) >= kLeastContrast) return {};
  return QString("%1: picture %2 on %3").arg(owner, colour.name(), behind.name());
}

/// Of the note that a list without rows shows: letters are soft at their edges, so the clearest dots count.
QStringList FaintNote(QWidget& paper, const QString& owner) {
  const QImage drawn = paper.grab().toImage();
  const QColor behind = MainColour(drawn, 255);
  double clearest = 0;
  for (int y = 0; y < drawn.height(); ++y) {
    for (int x = 0; x < drawn.width(); ++x) {
      clearest = std::max(clearest, Contrast(drawn.pixelColor(x, y), behind));
    }
  }
  return clearest >= kLeastContrast ? QStringList() : QStringList(owner + ": the note of an empty list");
}

QStringList FaintCells(const QTableView& view) {
  if (view.model()->rowCount() == 0) return FaintNote(*view.viewport(), NameOf(view));
  QStringList faults;
  const QPalette& palette = view.palette();
  const QAbstractItemModel& model = *view.model();
  for (const QPalette::ColorRole role : {QPalette::Base, QPalette::AlternateBase}) {
    for (int row = 0; row < std::min(model.rowCount(), 30); ++row) {
      for (int column = 0; column < model.columnCount(); ++column) {
        const QModelIndex cell = model.index(row, column);
        const QVariant own = cell.data(Qt::ForegroundRole);
        const QColor text = own.isValid() ? own.value<QBrush>().color() : palette.color(QPalette::Text);
        if (Contrast(text, palette.color(role)) < kLeastContrast) faults << NameOf(view) + ": " + text.name();
        faults << FaintPicture(cell.data(Qt::DecorationRole).value<QIcon>(), palette.color(role),
                               NameOf(view));
      }
    }
  }
  return faults;
}

}  // namespace

QStringList CutTexts(const QWidget& window) {
  QStringList faults;
  for (const QWidget* const part : PartsOf(window)) {
    if (IsCut(*part)) faults << NameOf(*part) + " is cut: " + TextOf(*part);
    if (const auto* const view = qobject_cast<const QTableView*>(part)) faults << CutCells(*view);
  }
  for (const QWidget* const each : window.findChildren<QWidget*>("qt_toolbar_ext_button")) {
    if (each->isVisible()) faults << NameOf(*each) + " hides commands";
  }
  return faults;
}

QStringList BeyondTheScreen(const QWidget& window) {
  const QRect screen = window.screen()->availableGeometry();
  const QSize size = window.size().expandedTo(window.minimumSizeHint());
  if (size.width() <= screen.width() && size.height() <= screen.height() - kTitleHeight && window.y() >= 0 &&
      window.geometry().bottom() <= screen.bottom()) {
    return {};
  }
  return {QString("%1: %2 x %3 at %4")
              .arg(window.objectName())
              .arg(size.width())
              .arg(size.height())
              .arg(window.y())};
}

QStringList TabLeapsBack(const QWidget& window) {
  QStringList faults;
  const QWidget* first = nullptr;
  const QWidget* last = nullptr;
  const QWidget* each = &window;
  do {
    if (TakesTab(*each, window)) {
      if (first == nullptr) first = each;
      if (last != nullptr && LeapsBack(*last, *each)) faults << NameOf(*last) + " -> " + each->objectName();
      last = each;
    }
    each = each->nextInFocusChain();
  } while (each != &window);
  return faults;
}

QStringList Nameless(const QWidget& window) {
  QStringList faults;
  for (QWidget* const part : PartsOf(window)) {
    const bool control = part->focusPolicy() != Qt::NoFocus || qobject_cast<QProgressBar*>(part) != nullptr;
    if (!control || part->focusProxy() != nullptr) continue;
    const QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(part);
    const bool named = seen != nullptr && !seen->text(QAccessible::Name).isEmpty();
    const bool known =
        seen != nullptr && seen->role() != QAccessible::NoRole && seen->role() != QAccessible::Client;
    if (!named) faults << NameOf(*part) + " has no name";
    if (!known) faults << NameOf(*part) + " has no role";
  }
  return faults;
}

QStringList Faint(const QWidget& window) {
  QStringList faults;
  for (QWidget* const part : PartsOf(window)) {
    if (!part->isEnabled()) continue;
    if (!TextOf(*part).isEmpty()) faults << FaintText(*part);
    if (const auto* const button = qobject_cast<QAbstractButton*>(part)) {
      faults << FaintPicture(button->icon(), BehindText(*part), NameOf(*part));
    }
    if (const auto* const view = qobject_cast<QTableView*>(part)) faults << FaintCells(*view);
  }
  faults.removeAll(QString());
  faults.removeDuplicates();
  return faults;
}

double Contrast(const QColor& a, const QColor& b) {
  const auto brightness = [](const QColor& colour) {
    const auto linear = [](double part) {
      return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
  };
  const double one = brightness(a);
  const double other = brightness(b);
  return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

}  // namespace requite::test
