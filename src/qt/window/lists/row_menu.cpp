// SPDX-License-Identifier: MIT
// Builds the menu when it is asked for, because it is about the rows of that moment.
#include "qt/window/lists/row_menu.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QTableView>
#include <QWidgetAction>

#include "qt/window/controls/shown_text.h"
#include "qt/window/controls/user_events.h"
#include "qt/window/lists/column_fit.h"
#include "qt/window/lists/list_table.h"
#include "qt/window/lists/row_text.h"

namespace requite {
namespace {

QString NameOf(const ListView& list, const std::vector<int>& rows, int address) {
  if (rows.empty()) return QMenu::tr("No row");
  if (rows.size() > 1) return QMenu::tr("%1 rows").arg(rows.size());
  const auto row = static_cast<std::size_t>(rows.front());
  std::string name = list.FieldAt(row, address < 0 ? 0 : static_cast<std::size_t>(address));
  // A rule is told apart by its last fields: its first ones are those of its neighbours.
  if (address < 0 && list.ColumnCount() > 2) name.clear();
  for (std::size_t column = 2; address < 0 && column < list.ColumnCount(); ++column) {
    if (column > 2) name += ' ';
    name += list.FieldAt(row, column);
  }
  return OneLine(name);
}

void PopUp(QTableView& view, ListTable& table, const UserEvents& user, const RowOffers& offers, QPoint at) {
  ListView* const list = table.List();
  if (list == nullptr) return;
  const bool several = view.selectionMode() == QAbstractItemView::ExtendedSelection;
  std::vector<int> rows;
  if (several) {
    rows = SelectedRows(*list);
  } else if (const int row = table.ListRow(view.rowAt(at.y())); row >= 0) {
    rows = {row};
  }
  // The list may change while the menu is open.
  const QString text = RowsAsText(*list, rows);
  const bool opens = rows.size() == 1 && offers.Address >= 0;
  const std::string address =
      opens ? list->FieldAt(static_cast<std::size_t>(rows.front()), static_cast<std::size_t>(offers.Address))
            : std::string();
  auto* const menu = new QMenu(&view);
  menu->setObjectName("rowMenu");
  menu->setAttribute(Qt::WA_DeleteOnClose);
  QAction* const copy =
      menu->addAction(QMenu::tr("&Copy"), menu, [text] { QGuiApplication::clipboard()->setText(text); });
  copy->setShortcut(QKeySequence::Copy);
  copy->setEnabled(!rows.empty());
  if (offers.OpenAddress) {
    QAction* const open = menu->addAction(
        QMenu::tr("&Open in Browser"), menu,
        [&user, address, openIt = offers.OpenAddress] { user.Run([&] { openIt(address); }); });
    open->setEnabled(!address.empty());
  }
  if (several) {
    QAction* const all = menu->addAction(QMenu::tr("Select &All"), &view, &QTableView::selectAll);
    all->setShortcut(QKeySequence::SelectAll);
    all->setEnabled(list->RowCount() > 0);
  }
  AddColumnsMenu(view, *menu);
  MenuHead(*menu).Show(NameOf(*list, rows, offers.Address));
  menu->popup(view.viewport()->mapToGlobal(at));
}

}  // namespace

MenuHead::MenuHead(QMenu& menu) : menu_(menu), head_(new QWidgetAction(&menu)), words_(new QLabel(&menu)) {
  head_->setObjectName("menuHead");
  head_->setEnabled(false);
  words_->setTextFormat(Qt::PlainText);
  words_->setContentsMargins(9, 4, 9, 4);
  head_->setDefaultWidget(words_);
  QAction* const first = menu.actions().value(0);
  menu.insertAction(first, head_);
  menu.insertSeparator(first);
}

/// Unlike an entry that is grey, a heading must be easy to read.
void MenuHead::Show(const QString& name) {
  QFont bold = menu_.font();
  bold.setBold(true);
  words_->setFont(bold);
  QPalette colours = menu_.palette();
  colours.setColor(QPalette::Disabled, QPalette::WindowText,
                   colours.color(QPalette::Active, QPalette::WindowText));
  words_->setPalette(colours);
  words_->setText(ShortName(name));
  head_->setText(ShortName(name).replace('&', "&&"));
}

void AddRowMenu(QTableView& view, ListTable& table, const UserEvents& user, const RowOffers& offers) {
  view.setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(&view, &QWidget::customContextMenuRequested, &view,
                   [&view, &table, &user, offers](QPoint at) { PopUp(view, table, user, offers, at); });
}

}  // namespace requite
