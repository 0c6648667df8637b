// SPDX-License-Identifier: MIT
// Rows of a list as text for other programs and for headings.
#pragma once

#include <QString>
#include <vector>

#include "platform/list_view.h"

namespace requite {

/// A line for each row, with tabs between its fields and none after the last one that has text. The fields
/// are whole; tabs, line ends and other controls in them become spaces. Numbers that are not rows are left
/// out.
[[nodiscard]] QString RowsAsText(const ListView& list, const std::vector<int>& rows);

/// The rows that are selected, in their order.
[[nodiscard]] std::vector<int> SelectedRows(const ListView& list);

/// The text, shortened in its middle to a width that a menu can have.
[[nodiscard]] QString ShortName(const QString& text);

}  // namespace requite
