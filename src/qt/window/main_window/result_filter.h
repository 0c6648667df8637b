// SPDX-License-Identifier: MIT
// The line above the results: words to find in them, and the sites counted by whether they link back.
#pragma once

#include <QWidget>
#include <optional>

#include "qt/window/lists/filter_box.h"
#include "shell/main_window/result_outcomes.h"

class QButtonGroup;

namespace requite {

/// Hidden while there are no results. Only what is on show changes: the list, its order and its files do not.
class ResultFilter : public QWidget {
  Q_OBJECT

 public:
  /// The form must outlive the line, and the line the last use of the table. It is the only observer of the
  /// table.
  ResultFilter(Form1& form, ListTable& table, QWidget& view, QWidget* parent);

  [[nodiscard]] FilterBox& Box() { return *box_; }
  /// Shows the rows of the sites of one outcome, or of all.
  void ShowOnly(std::optional<SiteOutcome> outcome);
  /// Shows the counts of the sites as they are now.
  void Follow();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void MarkChosen();
  void Choose();

  Form1& form_;
  ListTable& table_;
  ResultOutcomes outcomes_;
  FilterBox* box_;
  QButtonGroup* kinds_;
  std::uint64_t seen_ = 0;  ///< version of the outcomes that the rows on show follow
};

}  // namespace requite
