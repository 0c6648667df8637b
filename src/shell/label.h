// SPDX-License-Identifier: MIT
// A text that only the program writes.
#pragma once

#include <string>

#include "platform/controls.h"

namespace requite {

/// A label: a text box that nobody types into, whose changes run nothing.
class Label : public TextBox {
 public:
  explicit Label(std::string name, std::string text = {})
      : TextBox(std::move(name), std::move(text), ProgramChange::Silent) {}
};

}  // namespace requite
