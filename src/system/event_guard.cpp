// SPDX-License-Identifier: MIT
// What happens to an exception at the event loop's edge.
#include "system/event_guard.h"

#include <new>

namespace requite {
namespace {

/// The one classic number for failures of the standard library.
constexpr int kInternalError = 51;

}  // namespace

void EventGuard::ReportCurrentFailure() const {
  try {
    throw;
  } catch (const RuntimeFailure& failure) {
    report_(failure);
  } catch (const std::bad_alloc&) {
    report_(RuntimeFailure(Failure::OutOfMemory));
  } catch (const std::exception& error) {
    report_(RuntimeFailure(kInternalError, error.what()));
  }
}

}  // namespace requite
