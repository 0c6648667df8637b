// SPDX-License-Identifier: MIT
// Columns as wide as their content, until the user gives them other widths.
#pragma once

#include <QObject>
#include <QTableView>
#include <QTimer>
#include <vector>

class QMenu;
class QSettings;

namespace requite {

/// Fits the columns of one list and lets the user change them: drag an edge or a caption, double click an
/// edge, choose columns in the menu of the header or of a row. It measures the rows in sight and a few
/// others, so that it costs the same for any number of rows. While rows are added, columns only grow, and
/// rarely.
class ColumnFit : public QObject {
  Q_OBJECT

 public:
  /// Belongs to the view, which needs its model first. `shares` has a positive number for each column: how
  /// much it gets where they do not all fit; 1 where it is missing. The column with the largest share gets
  /// the width that is spare, and keeps enough for a short address: rather than cut more, the list scrolls
  /// sideways.
  ColumnFit(QTableView& view, std::vector<int> shares);

  /// Drops the widths that the user gave.
  void FitAll();

  /// Adds an entry for each column, which shows or hides it, and one for FitAll.
  void FillMenu(QMenu& menu);

  /// The order of the columns, the hidden ones, and the widths if they are the user's. What was stored for a
  /// list with other columns is ignored.
  void Save(QSettings& store) const;
  void Restore(const QSettings& store);

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  [[nodiscard]] QString Key(const char* what) const;
  [[nodiscard]] int CaptionWidth(int column) const;
  [[nodiscard]] int ContentWidth(int row, int column) const;
  [[nodiscard]] std::vector<int> SampleRows() const;
  void Grow();
  void MeasureAgain();
  void Follow();
  void Fit();
  void FitOne(int column);
  void ShowMenu(const QPoint& at);

  QTableView& view_;
  const QObject* const viewport_ = view_.viewport();  ///< sends events while the view is being destroyed, too
  std::vector<int> shares_;
  std::vector<int> content_;  ///< the widest content seen in each column, in pixels
  QTimer rest_;               ///< between two measurements while rows are added
  bool due_ = false;          ///< rows have changed since the last measurement
  bool fitting_ = false;
  bool pressed_ = false;  ///< the left button is down in the header
  bool own_ = false;      ///< the user gave the widths
};

/// Fits the columns of a view; see ColumnFit.
void FitColumns(QTableView& view, std::vector<int> shares);

/// Ends the menu of a list's rows with what the menu of the header offers, because the keyboard cannot reach
/// the header. For a view with fitted columns; does nothing where no captions are shown.
void AddColumnsMenu(QTableView& view, QMenu& menu);

/// For all lists of a window, under the names of the window and its lists.
void SaveColumns(const QWidget& window, QSettings& store);
void RestoreColumns(const QWidget& window, const QSettings& store);

}  // namespace requite
