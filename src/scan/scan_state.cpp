// SPDX-License-Identifier: MIT
// Access to the data of one connection.
#include "scan/scan_state.h"

#include "platform/runtime_failure.h"

namespace requite {

PageFetch& ScanState::Page(std::int16_t connection) {
  if (connection < 0 || static_cast<std::size_t>(connection) >= Pages.size()) {
    throw RuntimeFailure(Failure::Subscript);
  }
  return Pages[static_cast<std::size_t>(connection)];
}

}  // namespace requite
