// SPDX-License-Identifier: MIT
// Measures a sample of the rows and follows what the user does to the header.
#include "qt/window/lists/column_fit.h"

#include <QEvent>
#include <QHeaderView>
#include <QMenu>
#include <QMouseEvent>
#include <QSettings>
#include <QTableView>
#include <algorithm>
#include <utility>

#include "qt/window/lists/column_widths.h"

namespace requite {
namespace {

constexpr int kRestMilliseconds = 400;
constexpr int kMostInSight = 60;   // rows measured of those in sight
constexpr int kAtEnd = 12;         // rows measured at the end, where a scan adds
constexpr int kSpread = 28;        // rows measured between
constexpr int kLongestText = 120;  // characters; a longer text never fits, so it is not measured
constexpr int kShortText = 10;     // digits; a content that is no wider is never cut
constexpr int kFewestDigits = 3;   // a number may grow while nobody measures it
constexpr int kShortAddress = 18;  // digits; rather than cut more, the list scrolls sideways
constexpr int kNarrowest = 20;

QVariantList Numbers(const QHeaderView& header, int (QHeaderView::*get)(int) const) {
  QVariantList numbers;
  for (int i = 0; i < header.count(); ++i) numbers << (header.*get)(i);
  return numbers;
}

/// The further windows and their lists are children of the main window too.
template <class Act>
void ForEachList(const QWidget& window, Act&& act) {
  for (ColumnFit* const each : window.findChildren<ColumnFit*>()) {
    const auto* const view = qobject_cast<const QWidget*>(each->parent());
    if (view != nullptr && view->window() == &window) act(*each);
  }
}

}  // namespace

ColumnFit::ColumnFit(QTableView& view, std::vector<int> shares)
    : QObject(&view), view_(view), shares_(std::move(shares)) {
  QHeaderView& header = *view.horizontalHeader();
  header.setMinimumSectionSize(kNarrowest);
  header.setSectionsMovable(true);
  header.setContextMenuPolicy(Qt::CustomContextMenu);
  view.installEventFilter(this);
  view.viewport()->installEventFilter(this);
  header.viewport()->installEventFilter(this);
  rest_.setSingleShot(true);
  rest_.setInterval(kRestMilliseconds);
  connect(&rest_, &QTimer::timeout, this, [this] {
    if (due_) Follow();
  });
  connect(&header, &QHeaderView::sectionResized, this, [this] {
    if (pressed_ && !fitting_) own_ = true;
  });
  connect(&header, &QHeaderView::sectionHandleDoubleClicked, this, &ColumnFit::FitOne);
  connect(&header, &QHeaderView::customContextMenuRequested, this, &ColumnFit::ShowMenu);
  connect(&header, &QHeaderView::sortIndicatorChanged, this, &ColumnFit::Fit);
  const QAbstractItemModel* const model = view.model();
  connect(model, &QAbstractItemModel::modelReset, this, &ColumnFit::MeasureAgain);
  connect(model, &QAbstractItemModel::rowsInserted, this, &ColumnFit::Follow);
  connect(model, &QAbstractItemModel::dataChanged, this, &ColumnFit::Follow);
  connect(model, &QAbstractItemModel::rowsRemoved, this, [this] {
    if (view_.model()->rowCount() == 0) MeasureAgain();
  });
  MeasureAgain();
}

bool ColumnFit::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &view_) {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) MeasureAgain();
  } else if (watched == viewport_) {
    if (event->type() == QEvent::Resize) Fit();
  } else if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonRelease) {
    pressed_ = event->type() == QEvent::MouseButtonPress &&
               static_cast<const QMouseEvent*>(event)->button() == Qt::LeftButton;
  }
  return false;
}

/// With room for the arrow where the list is sorted.
int ColumnFit::CaptionWidth(int column) const {
  const QHeaderView& header = *view_.horizontalHeader();
  if (header.isHidden()) return 0;
  const QString caption = view_.model()->headerData(column, Qt::Horizontal).toString();
  const int margin = header.style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, &header);
  int width = header.fontMetrics().horizontalAdvance(caption) + 2 * margin + 2;
  if (header.isSortIndicatorShown() && header.sortIndicatorSection() == column) {
    width += std::max(header.style()->pixelMetric(QStyle::PM_HeaderMarkSize, nullptr, &header),
                      header.sizeHint().height() / 2 + 2 * margin);
  }
  return width;
}

int ColumnFit::ContentWidth(int row, int column) const {
  const QModelIndex cell = view_.model()->index(row, column);
  if (cell.data().toString().size() > kLongestText) {
    return kLongestText * view_.fontMetrics().averageCharWidth();
  }
  return view_.sizeHintForIndex(cell).width();
}

std::vector<int> ColumnFit::SampleRows() const {
  const int rows = view_.model()->rowCount();
  std::vector<int> sample;
  const int first = std::max(0, view_.rowAt(0));
  const int bottom = view_.rowAt(view_.viewport()->height() - 1);
  const int last = std::min({rows - 1, first + kMostInSight, bottom < 0 ? rows - 1 : bottom});
  for (int row = first; row <= last; ++row) sample.push_back(row);
  for (int row = std::max(last + 1, rows - kAtEnd); row < rows; ++row) sample.push_back(row);
  const int step = std::max(1, rows / kSpread);
  for (int row = 0; row < rows; row += step) {
    if (row < first || row > last) sample.push_back(row);
  }
  return sample;
}

void ColumnFit::Grow() {
  const int columns = view_.model()->columnCount();
  content_.resize(static_cast<std::size_t>(columns), 0);
  for (const int row : SampleRows()) {
    for (int column = 0; column < columns; ++column) {
      int& widest = content_[static_cast<std::size_t>(column)];
      widest = std::max(widest, ContentWidth(row, column));
    }
  }
}

void ColumnFit::MeasureAgain() {
  content_.clear();
  Follow();
}

void ColumnFit::Follow() {
  // The first rows are fitted at once; of the many that a scan adds after them, some at a time.
  due_ = rest_.isActive() && !content_.empty();
  if (due_) return;
  Grow();
  Fit();
  rest_.start();
}

void ColumnFit::Fit() {
  const int columns = view_.model()->columnCount();
  if (own_ || pressed_ || columns == 0) return;
  QHeaderView& header = *view_.horizontalHeader();
  content_.resize(static_cast<std::size_t>(columns), 0);
  const int digit = view_.fontMetrics().horizontalAdvance('0');
  const int padding = 2 * (view_.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &view_) + 1);
  std::vector<ColumnNeed> needs;
  std::vector<int> shown;
  for (int column = 0; column < columns; ++column) {
    if (header.isSectionHidden(column)) continue;
    shown.push_back(column);
    const auto at = static_cast<std::size_t>(column);
    const int content = content_[at];
    const int caption = std::max({kNarrowest, CaptionWidth(column), kFewestDigits * digit + padding});
    const int share = at < shares_.size() ? shares_[at] : 1;
    const bool isAddress = share > 1 && share == *std::max_element(shares_.begin(), shares_.end());
    const int uncut = (isAddress ? kShortAddress : kShortText) * digit + padding;
    const int least = std::max(caption, isAddress          ? std::min(content, uncut)
                                        : content <= uncut ? content
                                                           : 0);
    needs.push_back({least, std::max(least, content), share});
  }
  const std::vector<int> widths = ShareWidth(needs, view_.viewport()->width());
  fitting_ = true;
  for (std::size_t i = 0; i < shown.size(); ++i) {
    if (header.sectionSize(shown[i]) != widths[i]) header.resizeSection(shown[i], widths[i]);
  }
  fitting_ = false;
}

void ColumnFit::FitAll() {
  own_ = false;
  MeasureAgain();
}

void ColumnFit::FitOne(int column) {
  Grow();
  own_ = true;
  const int width = std::max(CaptionWidth(column), content_[static_cast<std::size_t>(column)]);
  view_.horizontalHeader()->resizeSection(column, std::min(width, view_.viewport()->width()));
}

void ColumnFit::FillMenu(QMenu& menu) {
  QHeaderView& header = *view_.horizontalHeader();
  const int shown = header.count() - header.hiddenSectionCount();
  for (int visual = 0; visual < header.count(); ++visual) {
    const int column = header.logicalIndex(visual);
    QAction* const action = menu.addAction(view_.model()->headerData(column, Qt::Horizontal).toString());
    action->setCheckable(true);
    action->setChecked(!header.isSectionHidden(column));
    action->setEnabled(shown > 1 || !action->isChecked());  // the last one could not be brought back
    connect(action, &QAction::toggled, this, [this, &header, column](bool shows) {
      header.setSectionHidden(column, !shows);
      Fit();
    });
  }
  menu.addSeparator();
  connect(menu.addAction(tr("&Fit Columns to Their Content")), &QAction::triggered, this, &ColumnFit::FitAll);
}

void ColumnFit::ShowMenu(const QPoint& at) {
  QMenu menu(&view_);
  FillMenu(menu);
  menu.exec(view_.horizontalHeader()->viewport()->mapToGlobal(at));
}

QString ColumnFit::Key(const char* what) const {
  return view_.window()->objectName() + '/' + view_.objectName() + '/' + what;
}

void ColumnFit::Save(QSettings& store) const {
  const QHeaderView& header = *view_.horizontalHeader();
  QVariantList hidden;
  for (int column = 0; column < header.count(); ++column) hidden << header.isSectionHidden(column);
  store.setValue(Key("order"), Numbers(header, &QHeaderView::logicalIndex));
  store.setValue(Key("hidden"), hidden);
  if (own_) {
    store.setValue(Key("widths"), Numbers(header, &QHeaderView::sectionSize));
  } else {
    store.remove(Key("widths"));
  }
}

void ColumnFit::Restore(const QSettings& store) {
  QHeaderView& header = *view_.horizontalHeader();
  const auto read = [&](const char* what) {
    const QVariantList values = store.value(Key(what)).toList();
    return values.size() == header.count() ? values : QVariantList();
  };
  const QVariantList order = read("order");
  for (int visual = 0; visual < order.size(); ++visual) {
    const int from = header.visualIndex(order[visual].toInt());
    if (from >= 0) header.moveSection(from, visual);
  }
  const QVariantList hidden = read("hidden");
  if (hidden.contains(false)) {
    for (int column = 0; column < hidden.size(); ++column) {
      header.setSectionHidden(column, hidden[column].toBool());
    }
  }
  const QVariantList widths = read("widths");
  own_ = !widths.isEmpty();
  for (int column = 0; column < widths.size(); ++column) {
    if (!header.isSectionHidden(column))
      header.resizeSection(column, std::max(kNarrowest, widths[column].toInt()));
  }
  Fit();
}

void FitColumns(QTableView& view, std::vector<int> shares) { new ColumnFit(view, std::move(shares)); }

void AddColumnsMenu(QTableView& view, QMenu& menu) {
  auto* const fit = view.findChild<ColumnFit*>({}, Qt::FindDirectChildrenOnly);
  if (fit == nullptr || view.horizontalHeader()->isHidden()) return;
  menu.addSeparator();
  QMenu* const columns = menu.addMenu(ColumnFit::tr("Colu&mns"));
  columns->setObjectName("columnsMenu");
  QObject::connect(columns, &QMenu::aboutToShow, fit, [fit, columns] {
    columns->clear();
    fit->FillMenu(*columns);
  });
}

void SaveColumns(const QWidget& window, QSettings& store) {
  ForEachList(window, [&](const ColumnFit& fit) { fit.Save(store); });
}

void RestoreColumns(const QWidget& window, const QSettings& store) {
  ForEachList(window, [&](ColumnFit& fit) { fit.Restore(store); });
}

}  // namespace requite
