// SPDX-License-Identifier: MIT
// A place on the main window: its controls are declared there with everything that they begin with.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

#include "platform/controls.h"
#include "shell/control_index.h"

namespace requite {

struct Form1;

/// What a control begins with, beside its name and texts.
struct Begins {
  std::string_view Tip = {};
  const Frame* In = nullptr;  ///< the frame around it; null: that of the place
  bool Enabled = true;
  bool Visible = true;
  bool OnTab = false;             ///< it is shown and hidden together with its place, by the tab strip
  std::string_view Entries = {};  ///< of a menu: the name under which its entries are found
};

/// The base of the structs of controls. Taking a control gives it what it begins with and enters its name
/// in the window's index. The index and the frame must live at least as long as the place.
class Place {
 public:
  /// `isShown` tells whether the controls on a tab are visible at first.
  explicit Place(ControlIndex& index, const Frame* around = nullptr, bool isShown = true)
      : index_(index), around_(around), isShown_(isShown) {}
  Place(const Place&) = delete;
  Place& operator=(const Place&) = delete;

  void Take(Control& control, const Begins& begins);
  void Take(OptionGroup& group, const Begins& begins);
  void Take(Menu& menu, const Begins& begins);
  /// One of a row of labels that are held as plain text boxes.
  void TakeLabel(TextBox& label, const Begins& begins);

  /// Shows or hides the controls that were taken with OnTab.
  void ShowOnTab(bool isShown);

 private:
  void Begin(Control& control, const Begins& begins);

  ControlIndex& index_;
  const Frame* around_;
  bool isShown_;
  std::vector<Control*> onTab_;
};

/// A control that its place takes as it is made, so that no place can forget one of its own.
template <class Kind>
class Placed : public Kind {
 public:
  /// `parts` go to the constructor of the control.
  template <class... Parts>
  Placed(Place& place, const Begins& begins, Parts&&... parts) : Kind(std::forward<Parts>(parts)...) {
    place.Take(static_cast<Kind&>(*this), begins);
  }
};

using Captions = std::vector<std::string>;

}  // namespace requite
