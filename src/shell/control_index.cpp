// SPDX-License-Identifier: MIT
// The table of a window's control names.
#include "shell/control_index.h"

#include "shell/label.h"

namespace requite {

void ControlIndex::Add(Control& control) {
  byName_[control.Name()] = {&control, -1, dynamic_cast<Label*>(&control) != nullptr};
}

void ControlIndex::AddLabel(TextBox& label) { byName_[label.Name()] = {&label, -1, true}; }

void ControlIndex::AddDropDownList(ComboBox& list) { byName_[list.Name()] = {&list, -1, true}; }

void ControlIndex::Add(OptionGroup& group) {
  Add(static_cast<Control&>(group));
  AddMembers(group, group.Name(), group.Captions.size());
}

void ControlIndex::Add(Menu& menu, std::string_view itemName) {
  Add(static_cast<Control&>(menu));
  AddMembers(menu, itemName, menu.Items.size());
}

void ControlIndex::AddMembers(Control& control, std::string_view name, std::size_t count) {
  for (std::size_t member = 0; member < count; ++member) {
    byName_[std::string(name) + "(" + std::to_string(member) + ")"] = {&control, static_cast<int>(member),
                                                                       false};
  }
}

void ControlIndex::ForEach(const std::function<void(Control&)>& act) const {
  for (const auto& [name, control] : byName_) act(*control.Which);
}

NamedControl ControlIndex::Find(std::string_view name) const {
  const auto found = byName_.find(name);
  if (found != byName_.end()) return found->second;
  return {findDynamic_ ? findDynamic_(name) : nullptr, -1, false};
}

}  // namespace requite
