// SPDX-License-Identifier: MIT
// The texts of controls by kind.
#include "console/script/control_text.h"

namespace requite {
namespace {

template <class Kind>
const Kind* As(const NamedControl& control) {
  return dynamic_cast<const Kind*>(control.Which);
}

std::string Flag(bool on) { return on ? "1" : "0"; }

}  // namespace

std::optional<std::string> ControlText(const NamedControl& control, int panel) {
  if (const auto* box = As<TextBox>(control)) return box->Text();
  if (const auto* combo = As<ComboBox>(control)) return combo->Text();
  if (const auto* button = As<Button>(control)) return button->Caption();
  if (const auto* frame = As<Frame>(control)) return frame->Caption;
  if (const auto* status = As<StatusBar>(control)) return status->Panel(panel);
  if (const auto* progress = As<ProgressBar>(control)) return std::to_string(progress->Value());
  if (const auto* browser = As<BrowserView>(control)) return browser->LocationUrl();
  if (const auto* window = As<Window>(control)) return window->Title();
  if (const auto* menu = As<Menu>(control)) {
    return control.Index < 0 ? menu->Caption : menu->Items[static_cast<std::size_t>(control.Index)];
  }
  if (const std::optional<bool> checked = ControlChecked(control)) return Flag(*checked);
  return std::nullopt;
}

std::optional<bool> ControlChecked(const NamedControl& control) {
  if (const auto* box = As<CheckBox>(control)) return box->Value() == 1;
  if (control.Index < 0) return std::nullopt;
  if (const auto* group = As<OptionGroup>(control)) return group->Chosen() == control.Index;
  if (const auto* menu = As<Menu>(control)) return menu->Checked(control.Index);
  return std::nullopt;
}

std::string ControlState(const Control& control) {
  const std::string enabled = control.EnabledInEffect() ? "enabled" : "disabled";
  return enabled + (control.VisibleInEffect() ? " visible" : " hidden");
}

}  // namespace requite
