// SPDX-License-Identifier: MIT
// The button that opens the address of a line in the user's own browser.
#pragma once

#include <QToolButton>

#include "platform/services.h"
#include "system/event_guard.h"

class QLineEdit;

namespace requite {

/// Enabled while the line holds an http or https address, or a host. The line, the service and the guard
/// must outlive the button.
class OpenOutsideButton final : public QToolButton {
  Q_OBJECT

 public:
  OpenOutsideButton(const QLineEdit& line, Shell& shell, const EventGuard& guard, QWidget* parent);
};

}  // namespace requite
