// SPDX-License-Identifier: MIT
// Follows the size of a list and the user's changes of its header.
#include "qt/window/lists/column_fit.h"

#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QTableView>
#include <algorithm>
#include <numeric>

namespace requite {
namespace {

constexpr int kNarrowest = 40;
constexpr int kNarrowestNumbers = 30;

class ColumnFit : public QObject {
 public:
  ColumnFit(QTableView& view, std::vector<int> shares)
      : QObject(&view), view_(view), shares_(std::move(shares)) {
    view.viewport()->installEventFilter(this);
    connect(view.horizontalHeader(), &QHeaderView::sectionResized, this, [this] {
      if (!fitting_ && QGuiApplication::mouseButtons() != Qt::NoButton) theUsers_ = true;
    });
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Resize && !theUsers_) Fit();
    return false;
  }

 private:
  void Fit() {
    QHeaderView& header = *view_.horizontalHeader();
    const int columns = std::min(header.count(), static_cast<int>(shares_.size()));
    if (columns == 0) return;
    fitting_ = true;
    int left = view_.viewport()->width();
    for (int column = 0; column < columns; ++column) {
      if (shares_[static_cast<std::size_t>(column)] != 0) continue;
      const int width = std::max(kNarrowestNumbers, header.sectionSizeHint(column));
      header.resizeSection(column, width);
      left -= width;
    }
    const int whole = std::max(1, std::accumulate(shares_.begin(), shares_.end(), 0));
    for (int column = 0; column < columns; ++column) {
      const int share = shares_[static_cast<std::size_t>(column)];
      if (share != 0) header.resizeSection(column, std::max(kNarrowest, left * share / whole));
    }
    fitting_ = false;
  }

  QTableView& view_;
  std::vector<int> shares_;
  bool fitting_ = false;
  bool theUsers_ = false;
};

}  // namespace

void FitColumns(QTableView& view, std::vector<int> shares) { new ColumnFit(view, std::move(shares)); }

}  // namespace requite
