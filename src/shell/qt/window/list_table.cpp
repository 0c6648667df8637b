// SPDX-License-Identifier: MIT
// Rows, colours and icons of a list as a table model.
#include "shell/qt/window/list_table.h"

#include <QApplication>
#include <QBrush>
#include <QIcon>
#include <QPalette>
#include <QStyle>

#include "shell/qt/code_page.h"

namespace requite {
namespace {

/// The list's colours say what a row means; these shades of them can be read on the palette in use.
QVariant Shade(std::uint32_t colour) {
  const bool dark = QApplication::palette().color(QPalette::Base).lightness() < 128;
  switch (colour) {
    case kBlue: return QBrush(dark ? QColor(125, 170, 255) : QColor(0, 60, 200));
    case kGreen: return QBrush(dark ? QColor(110, 220, 130) : QColor(0, 110, 30));
    case kRed: return QBrush(dark ? QColor(255, 130, 120) : QColor(190, 0, 0));
    default: return {};
  }
}

QVariant IconOf(int icon) {
  if (icon == 1) return QApplication::style()->standardIcon(QStyle::SP_DialogCancelButton);
  if (icon == 2) return QApplication::style()->standardIcon(QStyle::SP_DialogApplyButton);
  return {};
}

}  // namespace

ListTable::~ListTable() {
  // The views may be half gone: nobody is told any more.
  if (list_ != nullptr) list_->SetObserver(nullptr);
}

void ListTable::Show(ListView* list) {
  if (list == list_) return;
  beginResetModel();
  if (list_ != nullptr) list_->SetObserver(nullptr);
  list_ = list;
  if (list_ != nullptr) list_->SetObserver(this);
  shown_ = list_ == nullptr ? 0 : list_->RowCount();
  onlyAppended_ = true;
  changed_ = false;
  endResetModel();
  if (OnRefreshed) OnRefreshed();
}

int ListTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_);
}

int ListTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() || list_ == nullptr ? 0 : static_cast<int>(list_->ColumnCount());
}

QVariant ListTable::data(const QModelIndex& index, int role) const {
  const auto row = static_cast<std::size_t>(index.row());
  // A row may be gone already, and the view does not know yet.
  if (list_ == nullptr || !index.isValid() || row >= list_->RowCount()) return {};
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole: return ToUnicode(list_->FieldAt(row, static_cast<std::size_t>(index.column())));
    case Qt::ForegroundRole: return Shade(list_->Colour(row));
    case Qt::DecorationRole: return index.column() == 0 ? IconOf(list_->Icon(row)) : QVariant();
    default: return {};
  }
}

QVariant ListTable::headerData(int section, Qt::Orientation orientation, int role) const {
  if (list_ == nullptr || orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return ToUnicode(list_->Caption(static_cast<std::size_t>(section)));
}

void ListTable::RowAdded(std::size_t row) {
  if (row + 1 != list_->RowCount()) onlyAppended_ = false;
  Mark();
}

void ListTable::RowRemoved(std::size_t) {
  onlyAppended_ = false;
  Mark();
}

void ListTable::RowChanged(std::size_t) {
  changed_ = true;
  Mark();
}

void ListTable::ListReset() {
  onlyAppended_ = false;
  Mark();
}

void ListTable::Apply() {
  const std::size_t rows = list_ == nullptr ? 0 : list_->RowCount();
  if (!onlyAppended_ || rows < shown_) {
    beginResetModel();
    shown_ = rows;
    endResetModel();
  } else if (rows > shown_) {
    beginInsertRows({}, static_cast<int>(shown_), static_cast<int>(rows) - 1);
    shown_ = rows;
    endInsertRows();
  }
  if (changed_ && shown_ > 0) {
    emit dataChanged(index(0, 0), index(static_cast<int>(shown_) - 1, columnCount() - 1));
  }
  onlyAppended_ = true;
  changed_ = false;
  if (OnRefreshed) OnRefreshed();
}

}  // namespace requite
