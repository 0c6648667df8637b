// SPDX-License-Identifier: MIT
// The commands that act like the user's hand. They work on hidden and disabled controls too: only a
// click refuses a disabled one.
#include <iterator>
#include <sstream>

#include "console/script/script_commands.h"
#include "console/script/script_line.h"
#include "console/script/use_control.h"
#include "platform/list_view.h"

namespace requite {
namespace {

Complaint PressFound(const NamedControl& control, const std::string& name) {
  if (auto* button = control.As<Button>()) {
    button->Click();
  } else if (auto* box = control.As<CheckBox>()) {
    box->Click();
  } else if (auto* group = control.As<OptionGroup>(); group != nullptr && control.Index >= 0) {
    group->Choose(control.Index);
  } else if (auto* menu = control.As<Menu>(); menu != nullptr && control.Index >= 0) {
    menu->Click(control.Index);
  } else {
    return NoUse(name);
  }
  return {};
}

Complaint Click(ScriptSession& session, const Words& words) {
  return UseControl(session, words[0], [&](const NamedControl& control) -> Complaint {
    if (!control.Which->EnabledInEffect()) return "\"" + words[0] + "\" is disabled";
    return PressFound(control, words[0]);
  });
}

Complaint Type(ScriptSession& session, const Words& words) {
  return UseTypedBox(session, words[0],
                     [&](TextBox& box) { box.UserTypes(session.Program.Codec.FromUtf8(words[1])); });
}

Complaint Set(ScriptSession& session, const Words& words) {
  const std::string text = words.size() > 1 ? session.Program.Codec.FromUtf8(words[1]) : std::string();
  return UseTypedBox(
      session, words[0], [&](TextBox& box) { box.UserSets(text); },
      [&](ComboBox& combo) { combo.UserSets(text); });
}

Complaint Enter(ScriptSession& session, const Words& words) {
  return UseTypedBox(
      session, words[0], [](TextBox& box) { box.UserPressesEnter(); },
      [](ComboBox& combo) { combo.UserPressesEnter(); });
}

Complaint Choose(ScriptSession& session, const Words& words) {
  return UseControl(session, words[0], [&](ComboBox& combo) -> Complaint {
    const std::optional<int> row = ReadNumber(words[1]);
    if (!row) return NoNumber(words[1]);
    if (*row < 0 || *row >= static_cast<int>(combo.Items().size())) return NoRow(words[0], words[1]);
    combo.SetListIndex(*row);
    return {};
  });
}

/// A list and one of its rows, as a script names them (rows counted from 1).
struct ListRow {
  ListView* List = nullptr;  ///< null: Why says what is wrong
  int Row = -1;
  Complaint Why;
};

ListRow FindList(const ScriptSession& session, const std::string& name) {
  ListRow found;
  found.Why = UseControl(session, name, [&found](ListView& list) { found.List = &list; });
  return found;
}

ListRow FindListRow(const ScriptSession& session, const std::string& name, const std::string& rowText) {
  ListRow found = FindList(session, name);
  if (found.List == nullptr) return found;
  const std::optional<int> number = ReadNumber(rowText);
  if (!number) return {nullptr, -1, NoNumber(rowText)};
  if (*number < 1 || static_cast<std::size_t>(*number) > found.List->RowCount()) {
    return {nullptr, -1, NoRow(name, rowText)};
  }
  found.Row = *number - 1;
  return found;
}

enum class Press { Only, Also };

/// Presses the left button on a row, which selects it, and releases it. The handlers may empty the list.
void ClickRow(ListView& list, int row, Press press) {
  if (list.OnMouseDown) list.OnMouseDown(row);
  if (press == Press::Only || row < 0) {
    list.SelectOnly(row);
  } else {
    list.AlsoSelect(static_cast<std::size_t>(row));
  }
  if (list.OnItemClick) list.OnItemClick(row);
}

Complaint Select(ScriptSession& session, const Words& words) {
  const ListRow list = FindList(session, words[0]);
  if (list.List == nullptr) return list.Why;
  std::istringstream split(words.size() > 1 ? words[1] : std::string());
  const Words rows{std::istream_iterator<std::string>(split), {}};
  for (const std::string& row : rows) {
    if (const ListRow found = FindListRow(session, words[0], row); found.List == nullptr) return found.Why;
  }
  if (rows.empty()) ClickRow(*list.List, -1, Press::Only);
  Press press = Press::Only;
  for (const std::string& row : rows) {
    // Found again each time: a handler may have removed the list or its rows.
    const ListRow found = FindListRow(session, words[0], row);
    if (found.List == nullptr) return found.Why;
    ClickRow(*found.List, found.Row, press);
    press = Press::Also;
  }
  return {};
}

Complaint Sort(ScriptSession& session, const Words& words) {
  const ListRow found = FindList(session, words[0]);
  if (found.List == nullptr) return found.Why;
  const std::optional<int> column = ReadNumber(words[1]);
  if (!column) return NoNumber(words[1]);
  if (*column < 1 || static_cast<std::size_t>(*column) > found.List->ColumnCount()) {
    return "\"" + words[0] + "\" has no column " + words[1];
  }
  if (found.List->OnColumnClick) found.List->OnColumnClick(*column - 1);
  return {};
}

Complaint RightClick(ScriptSession& session, const Words& words) {
  const auto find = [&] {
    return words.size() > 1 ? FindListRow(session, words[0], words[1]) : FindList(session, words[0]);
  };
  ListRow found = find();
  if (found.List == nullptr) return found.Why;
  if (found.List->RightPressSelects && found.Row >= 0) {
    ClickRow(*found.List, found.Row, Press::Only);
  } else if (found.List->OnMouseDown) {
    found.List->OnMouseDown(found.Row);
  }
  // A handler may remove the list or its rows; the button is still pressed and released.
  found = find();
  if (found.List != nullptr && found.List->OnRightButtonDown) found.List->OnRightButtonDown(found.Row);
  found = find();
  if (found.List != nullptr && found.List->OnRightButtonUp) found.List->OnRightButtonUp(found.Row);
  return {};
}

Complaint DoubleClick(ScriptSession& session, const Words& words) {
  ListRow found = FindListRow(session, words[0], words[1]);
  if (found.List == nullptr) return found.Why;
  ClickRow(*found.List, found.Row, Press::Only);
  found = FindListRow(session, words[0], words[1]);
  if (found.List == nullptr) return found.Why;
  if (found.List->OnDoubleClick) found.List->OnDoubleClick(found.Row);
  return {};
}

Complaint EditLabel(ScriptSession& session, const Words& words) {
  ListRow found = FindListRow(session, words[0], words[1]);
  if (found.List == nullptr) return found.Why;
  // Editing begins with a second click on a selected row.
  if (found.List->SelectedRow() != found.Row) ClickRow(*found.List, found.Row, Press::Only);
  found = FindListRow(session, words[0], words[1]);
  if (found.List == nullptr) return found.Why;
  if (found.List->OnLabelEdit) found.List->OnLabelEdit(found.Row);
  return {};
}

Complaint Tab(ScriptSession& session, const Words& words) {
  if (words.size() > 1 && !session.IsOpenWindow(words[0])) return NoOpenWindow(words[0]);
  const std::optional<int> number = ReadNumber(words.back());
  if (!number) return NoNumber(words.back());
  const std::string name = words.size() > 1 ? words[0] + ".TabStrip1" : "TabStrip1";
  auto* const tabs = session.Find(name).As<TabStrip>();
  if (tabs == nullptr || *number < 1 || *number > static_cast<int>(tabs->Tabs.size())) {
    return "there is no tab " + words.back();
  }
  tabs->Select(*number);
  return {};
}

constexpr ScriptCommand kCommands[] = {
    {"click", "click NAME",
     "presses a button, menu entry, option or check box; a disabled one ends the script", 1, 1, Click},
    {"type", "type NAME TEXT", "types TEXT at the end of a text box, one change for each character", 2, 2,
     Type},
    {"set", "set NAME TEXT",
     "makes TEXT the whole text of a text box or combo box, in one change; without TEXT empties it", 1, 2,
     Set},
    {"enter", "enter NAME", "presses Enter in a text box or combo box", 1, 1, Enter},
    {"choose", "choose NAME INDEX", "picks a row of a combo box, counted from 0", 2, 2, Choose},
    {"select", "select NAME ROW...", "clicks on rows of a list, counted from 1; without rows selects none", 1,
     2, Select},
    {"sort", "sort NAME COLUMN", "clicks a column header, counted from 1", 2, 2, Sort},
    {"rightclick", "rightclick NAME [ROW]",
     "presses the right mouse button on a list, at ROW or beside the rows", 1, 2, RightClick},
    {"doubleclick", "doubleclick NAME ROW", "double-clicks a row of a list", 2, 2, DoubleClick},
    {"editlabel", "editlabel NAME ROW", "begins to edit a row's label", 2, 2, EditLabel},
    {"tab", "tab [WINDOW] NUMBER", "picks a tab, counted from 1", 1, 2, Tab},
};

}  // namespace

std::span<const ScriptCommand> HandCommands() { return kCommands; }

}  // namespace requite
