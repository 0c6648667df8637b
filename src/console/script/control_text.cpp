// SPDX-License-Identifier: MIT
// The texts of controls by kind.
#include "console/script/control_text.h"

namespace requite {
namespace {

std::string Flag(bool on) { return on ? "1" : "0"; }

}  // namespace

std::optional<std::string> ControlText(const NamedControl& control, int panel) {
  if (const auto* box = control.As<TextBox>()) return box->Text();
  if (const auto* combo = control.As<ComboBox>()) return combo->Text();
  if (const auto* button = control.As<Button>()) return button->Caption();
  if (const auto* frame = control.As<Frame>()) return frame->Caption;
  if (const auto* status = control.As<StatusBar>()) return status->Panel(panel);
  if (const auto* progress = control.As<ProgressBar>()) return std::to_string(progress->Value());
  if (const auto* browser = control.As<BrowserView>()) return browser->LocationUrl();
  if (const auto* window = control.As<Window>()) return window->Title();
  if (const auto* menu = control.As<Menu>()) {
    return control.Index < 0 ? menu->Caption : menu->Items[static_cast<std::size_t>(control.Index)];
  }
  if (const std::optional<bool> checked = ControlChecked(control)) return Flag(*checked);
  return std::nullopt;
}

std::optional<bool> ControlChecked(const NamedControl& control) {
  if (const auto* box = control.As<CheckBox>()) return box->Value() == 1;
  if (control.Index < 0) return std::nullopt;
  if (const auto* group = control.As<OptionGroup>()) return group->Chosen() == control.Index;
  if (const auto* menu = control.As<Menu>()) return menu->Checked(control.Index);
  return std::nullopt;
}

std::string ControlState(const Control& control) {
  const std::string enabled = control.EnabledInEffect() ? "enabled" : "disabled";
  return enabled + (control.VisibleInEffect() ? " visible" : " hidden");
}

}  // namespace requite
