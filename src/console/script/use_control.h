// SPDX-License-Identifier: MIT
// Finds the control that a script command names and uses it by its kind.
#pragma once

#include <string_view>
#include <type_traits>

#include "console/script/script_commands.h"

namespace requite {

/// Runs `use` if the control is of the kind that it takes. Returns whether it is.
template <class Use, class Result, class Kind>
bool UseIfOfKind(const NamedControl& control, const Use& use, Result (Use::*)(Kind&) const, Complaint& why) {
  Kind* const which = control.As<Kind>();
  if (which == nullptr) return false;
  if constexpr (std::is_void_v<Result>) {
    use(*which);
  } else {
    why = use(*which);
  }
  return true;
}

/// For a use of any kind of control that needs the index too.
template <class Use>
bool UseIfOfKind(const NamedControl& control, const Use& use, Complaint (Use::*)(const NamedControl&) const,
                 Complaint& why) {
  why = use(control);
  return true;
}

/// Passes a control to the first of `uses` that takes its kind. A use is a lambda that takes one kind of
/// control (ListView&, ...) or any (Control&, or const NamedControl& for one that needs the index) and
/// returns nothing or a Complaint. Complains about a control that does not exist or that no use takes.
template <class... Uses>
[[nodiscard]] Complaint UseControl(const NamedControl& control, std::string_view name, const Uses&... uses) {
  if (!control) return NoControl(name);
  Complaint why;
  const bool used = (UseIfOfKind(control, uses, &Uses::operator(), why) || ...);
  return used ? why : NoUse(name);
}

template <class... Uses>
[[nodiscard]] Complaint UseControl(const ScriptSession& session, std::string_view name, const Uses&... uses) {
  return UseControl(session.Find(name), name, uses...);
}

/// The same for boxes that the user can type in: labels and lists to pick from have no use.
template <class... Uses>
[[nodiscard]] Complaint UseTypedBox(const ScriptSession& session, std::string_view name,
                                    const Uses&... uses) {
  const NamedControl control = session.Find(name);
  return control.ReadOnly ? NoUse(name) : UseControl(control, name, uses...);
}

}  // namespace requite
