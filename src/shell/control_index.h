// SPDX-License-Identifier: MIT
// Finds a window's controls by name.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/controls.h"

namespace requite {

/// A control, or one option of a group or one entry of a menu.
struct NamedControl {
  Control* Which = nullptr;  ///< null: no control has the name
  int Index = -1;            ///< option or menu entry, counted from 0; -1: the control itself
  bool ReadOnly = false;     ///< a label or a list to pick from: nobody types into it

  explicit operator bool() const { return Which != nullptr; }
  /// The control as one of a kind; null when it is of another kind or none.
  template <class Kind>
  [[nodiscard]] Kind* As() const {
    return dynamic_cast<Kind*>(Which);
  }
};

/// The controls of one window by name. Names are exact; members of an array are written "optAll(1)".
/// Holds references: the controls must outlive it.
class ControlIndex {
 public:
  /// Adds the control under its own name, and the members of a group of options as well.
  void Add(Control& control);
  void AddLabel(TextBox& label);
  /// A combo box whose rows can be picked but not typed.
  void AddDropDownList(ComboBox& list);
  void Add(OptionGroup& group);
  /// A menu's entries have a name of their own, such as "mnuScanItem" for "mnuScan".
  void Add(Menu& menu, std::string_view itemName);
  /// `find` is asked for names that are not in the index, for controls that come and go.
  void SetDynamic(std::function<Control*(std::string_view name)> find) { findDynamic_ = std::move(find); }

  [[nodiscard]] NamedControl Find(std::string_view name) const;
  /// Calls `act` for each control that was added, once for each of its names.
  void ForEach(const std::function<void(Control&)>& act) const;

 private:
  void AddMembers(Control& control, std::string_view name, std::size_t count);

  std::map<std::string, NamedControl, std::less<>> byName_;
  std::function<Control*(std::string_view name)> findDynamic_;
};

}  // namespace requite
