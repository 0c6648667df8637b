// SPDX-License-Identifier: MIT
// The menus of lists: which row they act on, and what every list offers for its rows.
#pragma once

#include <QMenu>
#include <functional>
#include <string>

#include "platform/list_view.h"

class QLabel;
class QTableView;
class QWidgetAction;

namespace requite {

class ListTable;
class UserEvents;

/// Names the row that a menu acts on, in a heading above its entries.
class MenuHead {
 public:
  /// Goes before the entries that the menu has now. The menu owns the heading.
  explicit MenuHead(QMenu& menu);
  /// `name` is plain text of any origin.
  void Show(const QString& name);

 private:
  QMenu& menu_;
  QWidgetAction* head_;
  QLabel* words_;
};

/// What a list offers for its rows beside Copy.
struct RowOffers {
  /// The column with an address, or -1; `OpenAddress` opens one in the user's browser.
  int Address = -1;
  std::function<void(const std::string& url)> OpenAddress;
};

/// Gives a list without a menu of its own one that acts on the row under the mouse, or on the selected row
/// when a key asks for it; on all selected rows where several can be selected. For a table wired to the view.
void AddRowMenu(QTableView& view, ListTable& table, const UserEvents& user, const RowOffers& offers);

}  // namespace requite
