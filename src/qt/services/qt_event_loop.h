// SPDX-License-Identifier: MIT
// The window program's event loop, on Qt's.
#pragma once

#include "system/sliced_loop.h"

namespace requite {

/// Needs a QCoreApplication (or a derived class) during its whole life.
class QtEventLoop : public SlicedLoop {
 protected:
  void TakeTurn(std::chrono::milliseconds longest) override;
};

}  // namespace requite
