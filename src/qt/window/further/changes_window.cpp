// SPDX-License-Identifier: MIT
// Lays out the changes: what is said of them, the list, the drawing of the selected site, the commands.
#include "qt/window/further/changes_window.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QTableView>
#include <QVBoxLayout>

#include "qt/window/controls/answer_line.h"
#include "qt/window/further/past_scans_view.h"
#include "qt/window/look/form_parts.h"

namespace requite {
ChangesView::ChangesView(frmChanges& changes, const WindowSurroundings& surroundings)
    : FurtherWindow(changes, surroundings), changes_(changes) {
  auto* const layout = new QVBoxLayout(this);
  auto* const head = new QHBoxLayout;
  QLabel* const state = NewLabel(changes_.lblState);
  state->setWordWrap(true);
  head->addWidget(state, 1);
  head->addWidget(NewButton(changes_.cmdOptions, "O&ptions"));
  layout->addLayout(head);
  layout->addLayout(BuildFilter());
  QTableView* const list = BuildList();
  layout->addWidget(list, 1);
  layout->addWidget(new PastScansView(changes_.picPast, surroundings.Refresh, this));
  layout->addLayout(BuildCommands());
  auto* const status = new QStatusBar(this);
  status->setSizeGripEnabled(false);
  new AnswerLine(*status);  // owned by the bar
  layout->addWidget(status);
  connect(new QShortcut(Qt::Key_F5, this), &QShortcut::activated, this,
          [this] { Around().User.Run([this] { changes_.cmdRefresh.Click(); }); });
  RestoreSize({980, 540});
  list->setFocus();
}

QLayout* ChangesView::BuildFilter() {
  auto* const row = new QHBoxLayout;
  auto* const filter = new QComboBox(this);
  filter->setMinimumContentsLength(22);
  bind_.BindDropDownList(changes_.cmbFilter, *filter);
  row->addWidget(NewBoxLabel(changes_.lblFilter, 'h', *filter, this));
  row->addWidget(filter);
  row->addStretch();
  row->addWidget(NewButton(changes_.cmdRefresh, "&Refresh"));
  return row;
}

QTableView* ChangesView::BuildList() {
  QTableView* const list =
      NewTable(changes_.lstChanges, tr("No changes to show."), tr("Changes"), {2, 2, 4, 3, 3, 3});
  list->setSelectionMode(QAbstractItemView::ExtendedSelection);
  list->setMinimumHeight(120);
  auto* const copy = new QShortcut(QKeySequence::Copy, list);
  copy->setContext(Qt::WidgetShortcut);
  connect(copy, &QShortcut::activated, this,
          [this] { Around().User.Run([this] { changes_.cmdCopy.Click(); }); });
  return list;
}

QLayout* ChangesView::BuildCommands() {
  auto* const row = new QHBoxLayout;
  row->addWidget(NewButton(changes_.cmdOpenPage, "&Open Page"));
  row->addWidget(NewButton(changes_.cmdCopy, "&Copy"));
  row->addWidget(NewButton(changes_.cmdSaveCsv, "&Save as CSV..."));
  row->addSpacing(24);
  auto* const why = new QLineEdit(this);
  bind_.Bind(changes_.txtWhy, *why);
  row->addWidget(NewBoxLabel(changes_.lblWhy, 'W', *why, this));
  row->addWidget(why, 1);
  row->addWidget(NewButton(changes_.cmdKnown, "Mark as &Known"));
  row->addWidget(NewButton(changes_.cmdTakeBack, "&Take Back"));
  return row;
}

}  // namespace requite
