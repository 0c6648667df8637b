// SPDX-License-Identifier: MIT
// The popups of the site list and of the results: their own entries, those of every list, and the row they
// are for.
#include <QClipboard>
#include <QGuiApplication>
#include <QTableView>

#include "qt/services/code_page.h"
#include "qt/window/controls/shown_text.h"
#include "qt/window/lists/column_fit.h"
#include "qt/window/lists/row_text.h"
#include "qt/window/main_window/main_window.h"

namespace requite {
namespace {

/// The row that a popup acts on: the selected one, if the user can see it. Else -1.
int RowOnShow(const ListTable& table) {
  const ListView* const list = table.List();
  const int row = list == nullptr ? -1 : list->SelectedRow();
  return table.ShownRow(row) < 0 ? -1 : row;
}

void CopyRow(const ListTable& table) {
  const ListView* const list = table.List();
  if (list != nullptr) QGuiApplication::clipboard()->setText(RowsAsText(*list, {RowOnShow(table)}));
}

std::string Field(const ListTable& table, std::size_t column) {
  const int row = RowOnShow(table);
  return row < 0 ? std::string() : table.List()->FieldAt(static_cast<std::size_t>(row), column);
}

}  // namespace

void MainWindow::BuildPopups() {
  for (Menu* popup : {&form_.mnuSkipPopup, &form_.Popup1, &form_.Popup2})
    bind_.Bind(*popup, *new QMenu(this));
  BuildSitePopup();
  BuildResultPopup();
}

void MainWindow::OpenOutside(const std::string& url) {
  user_.Run([&] { form_.Platform.Shell.OpenUrlOutside(url); });
}

RowOffers MainWindow::OffersFor(int address) {
  if (address < 0) return {};
  return {address, [this](const std::string& url) { form_.Platform.Shell.OpenUrlOutside(url); }};
}

void MainWindow::BuildSitePopup() {
  QMenu& popup = *findChild<QMenu*>("Popup1");
  popup.addSeparator();
  popup.addAction(tr("&Edit..."), this, [this] { user_.Run([this] { form_.cmdEdit.Click(); }); });
  QAction* const copy = popup.addAction(tr("&Copy"), this, [this] { CopyRow(linkingSites_); });
  copy->setShortcut(QKeySequence::Copy);
  popup.addAction(tr("&Open in Browser"), this, [this] { OpenOutside(Field(linkingSites_, 0)); });
  QAction* const scan = popup.addAction(tr("&Scan Only This"), this, [this] {
    user_.Run([this] { form_.ScanOnly(RowOnShow(linkingSites_) + 1); });
  });
  scan->setObjectName("scanOnlyThis");
  const QList<QAction*> entries = popup.actions();
  AddColumnsMenu(*findChild<QTableView*>("List1"), popup);
  connect(&popup, &QMenu::aboutToShow, this, [this, entries, scan, head = MenuHead(popup)]() mutable {
    const bool onRow = RowOnShow(linkingSites_) >= 0;
    head.Show(onRow ? OneLine(Field(linkingSites_, 0)) : tr("No site is selected"));
    for (QAction* each : entries) each->setEnabled(onRow);
    scan->setEnabled(onRow && !form_.State.Scanning);
  });
}

void MainWindow::BuildResultPopup() {
  QMenu& popup = *findChild<QMenu*>("Popup2");
  popup.addSeparator();
  QAction* const copy = popup.addAction(tr("Copy &Row"), this, [this] { CopyRow(results_); });
  copy->setShortcut(QKeySequence::Copy);
  const QList<QAction*> entries = popup.actions();
  popup.addSeparator();
  connect(popup.addAction(tr("Changes Since Last Scan...")), &QAction::triggered, this,
          [this] { ShowChanges(); });
  AddColumnsMenu(*findChild<QTableView*>("List3"), popup);
  connect(&popup, &QMenu::aboutToShow, this, [this, entries, head = MenuHead(popup)]() mutable {
    const bool onRow = RowOnShow(results_) >= 0;
    head.Show(onRow ? OneLine(Field(results_, 1) + ": " + Field(results_, 2)) : tr("No row is selected"));
    for (QAction* each : entries) each->setEnabled(onRow);
  });
}

}  // namespace requite
