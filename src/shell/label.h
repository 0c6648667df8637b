// SPDX-License-Identifier: MIT
// A text that the user cannot change.
#pragma once

#include <string>

#include "platform/controls.h"

namespace requite {

/// A label: a text box that nobody types into and whose changes run no handler.
class Label : public TextBox {
 public:
  explicit Label(std::string name, std::string text = {})
      : TextBox(std::move(name), std::move(text), ProgramChange::Silent) {}
};

}  // namespace requite
