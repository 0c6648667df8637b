// SPDX-License-Identifier: MIT
// Rows, colours and icons of a list as a table model.
#include "qt/window/lists/list_table.h"

#include <QBrush>
#include <QIcon>
#include <array>
#include <utility>

#include "qt/services/code_page.h"
#include "qt/window/controls/shown_text.h"
#include "qt/window/look/glyphs.h"

namespace requite {
namespace {

constexpr std::chrono::milliseconds kFilterStep{8};
constexpr int kIconBad = 1;
constexpr int kIconGood = 2;
constexpr int kIconMoved = 3;
constexpr int kIconAdded = 4;

/// What a row says about its site: by colour, picture and word.
struct Verdict {
  std::uint32_t Colour;
  Tone Shade;
  Glyph Picture;
  const char* Word;
};

constexpr std::array kVerdicts{
    Verdict{kBlue, Tone::Blue, Glyph::Found, QT_TRANSLATE_NOOP("ListTable", "link found")},
    Verdict{kGreen, Tone::Green, Glyph::Redirect, QT_TRANSLATE_NOOP("ListTable", "redirect link")},
    Verdict{kRed, Tone::Red, Glyph::Missing, QT_TRANSLATE_NOOP("ListTable", "link missing")}};

const Verdict* VerdictOf(std::uint32_t colour) {
  for (const Verdict& each : kVerdicts) {
    if (each.Colour == colour) return &each;
  }
  return nullptr;
}

/// Loaded results have an icon and no colour; Linking Sites have a colour and no icon.
QVariant PictureOf(int icon, const Verdict* verdict) {
  if (icon == kIconBad) return GlyphIcon(Glyph::Missing, Tone::Red);
  if (icon == kIconGood) return GlyphIcon(Glyph::Found, Tone::Blue);
  if (icon == kIconMoved) return GlyphIcon(Glyph::Redirect);
  if (icon == kIconAdded) return GlyphIcon(Glyph::New);
  return verdict == nullptr ? QVariant() : GlyphIcon(verdict->Picture, verdict->Shade);
}

}  // namespace

ListTable::ListTable(ViewRefresh& refresh) : RefreshedView(refresh) {
  filterRest_.setSingleShot(true);
  connect(&filterRest_, &QTimer::timeout, this, [this] { Apply(); });
}

ListTable::~ListTable() {
  // The views may be half destroyed, so nobody is told.
  if (list_ != nullptr) list_->SetObserver(nullptr);
}

void ListTable::Show(ListView* list) {
  if (list == list_) return;
  applying_ = true;
  beginResetModel();
  if (list_ != nullptr) list_->SetObserver(nullptr);
  list_ = list;
  if (list_ != nullptr) {
    list_->SetObserver(this);
    captions_.clear();
    for (std::size_t i = 0; i < list_->ColumnCount(); ++i) captions_ << ToUnicode(list_->Caption(i));
  }
  filter_.ListReset();
  WorkOnFilter();
  shown_ = RowsPassed();
  changed_ = false;
  refilled_ = false;
  added_ = -1;
  endResetModel();
  applying_ = false;
  if (OnRefreshed) OnRefreshed();
}

void ListTable::SetFilter(RowFilter::Test test, const QString& noMatch) {
  filter_.Set(std::move(test));
  noMatch_ = noMatch;
  changed_ = true;
  Apply();
}

void ListTable::FilterAgain() {
  filter_.Again();
  Mark();
}

int ListTable::ListRow(int shown) const {
  if (list_ == nullptr || shown < 0) return -1;
  const std::size_t rows = list_->RowCount();
  const auto place = static_cast<std::size_t>(shown);
  if (place >= filter_.Count(rows)) return -1;
  const std::size_t row = filter_.RowAt(place);
  return row < rows ? static_cast<int>(row) : -1;
}

int ListTable::ShownRow(int row) const {
  return row < 0 ? -1 : filter_.PlaceOf(static_cast<std::size_t>(row));
}

std::size_t ListTable::RowsPassed() const { return list_ == nullptr ? 0 : filter_.Count(list_->RowCount()); }

void ListTable::WorkOnFilter() {
  if (list_ == nullptr || !filter_.Active()) return;
  const bool wasSearching = filter_.Searching();
  if (!filter_.Work(list_->RowCount(), kFilterStep)) return filterRest_.start(0);
  if (wasSearching) changed_ = true;
  const int selected = list_->SelectedRow();
  if (selected >= 0 && ShownRow(selected) < 0) list_->SelectOnly(-1);
}

int ListTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(shown_);
}

int ListTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(captions_.size());
}

QVariant ListTable::data(const QModelIndex& index, int role) const {
  const int at = index.isValid() ? ListRow(index.row()) : -1;
  if (at < 0) return {};  // the row may have been removed before the view is told
  const auto row = static_cast<std::size_t>(at);
  const auto text = [&]() -> const std::string& {
    return list_->FieldAt(row, static_cast<std::size_t>(index.column()));
  };
  switch (role) {
    case Qt::DisplayRole: return OneLine(text());
    case Qt::ToolTipRole:
      // A list's own tool tip replaces those of its rows.
      return list_->ToolTip.empty() ? QVariant(ToolTipText(text())) : QVariant();
    case Qt::ForegroundRole:
      if (const Verdict* const verdict = VerdictOf(list_->Colour(row)))
        return QBrush(ShadeOf(verdict->Shade));
      return {};
    case Qt::DecorationRole:
      return index.column() == 0 ? PictureOf(list_->Icon(row), VerdictOf(list_->Colour(row))) : QVariant();
    case Qt::AccessibleDescriptionRole:
      if (const Verdict* const verdict = VerdictOf(list_->Colour(row))) return tr(verdict->Word);
      return {};
    default: return {};
  }
}

QVariant ListTable::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return captions_.value(section);
}

void ListTable::RowAdded(std::size_t row) {
  if (other_ != nullptr) other_->RowAdded(row);
  filter_.RowAdded(row);
  added_ = static_cast<int>(row);
  if (row + 1 != list_->RowCount()) changed_ = true;
  Mark();
}

void ListTable::RowRemoved(std::size_t row) {
  if (other_ != nullptr) other_->RowRemoved(row);
  filter_.RowRemoved(row);
  added_ = -1;
  changed_ = true;
  Mark();
}

void ListTable::RowChanged(std::size_t row) {
  if (other_ != nullptr) other_->RowChanged(row);
  filter_.RowChanged(row);
  changed_ = true;
  Mark();
}

void ListTable::ListReset() {
  if (other_ != nullptr) other_->ListReset();
  filter_.ListReset();
  added_ = -1;
  refilled_ = true;
  changed_ = true;
  Mark();
}

/// The view is only told of rows added or removed at the end. Rows that move count as rows whose fields
/// changed: the view keeps nothing for a row but the selection, which follows the list's. So a refresh
/// costs the same for any number of rows, and the view stays where the user scrolled it.
void ListTable::FollowRowCount(std::size_t rows) {
  if (rows > shown_) {
    beginInsertRows({}, static_cast<int>(shown_), static_cast<int>(rows) - 1);
    shown_ = rows;
    endInsertRows();
  } else if (rows < shown_) {
    beginRemoveRows({}, static_cast<int>(rows), static_cast<int>(shown_) - 1);
    shown_ = rows;
    endRemoveRows();
  }
}

void ListTable::Apply() {
  if (list_ != nullptr && !list_->Redraw()) return;
  applying_ = true;
  const std::size_t before = std::exchange(refilled_, false) ? 0 : shown_;
  WorkOnFilter();
  FollowRowCount(RowsPassed());
  if (std::exchange(changed_, false) && shown_ > 0) {
    emit dataChanged(index(0, 0), index(static_cast<int>(shown_) - 1, columnCount() - 1));
  }
  applying_ = false;
  if (OnRefreshed) OnRefreshed();
  const int added = ShownRow(std::exchange(added_, -1));
  if (before > 0 && added >= 0 && added < rowCount()) emit Added(added);
}

}  // namespace requite
