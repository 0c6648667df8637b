// SPDX-License-Identifier: MIT
// The messages of the classic failures.
#include "platform/runtime_failure.h"

namespace requite {
namespace {

const char* WordsOf(Failure failure) {
  switch (failure) {
    case Failure::InvalidArgument: return "Invalid procedure call or argument";
    case Failure::Overflow: return "Overflow";
    case Failure::OutOfMemory: return "Out of memory";
    case Failure::Subscript: return "Subscript out of range";
    case Failure::TypeMismatch: return "Type mismatch";
    case Failure::FileNotFound: return "File not found";
    case Failure::BadFileMode: return "Bad file mode";
    case Failure::DiskFull: return "Disk full";
    case Failure::PermissionDenied: return "Permission denied";
    case Failure::PathFileAccess: return "Path/File access error";
    case Failure::PathNotFound: return "Path not found";
    case Failure::InvalidProperty: return "Invalid property value";
  }
  return "Application-defined or object-defined error";
}

}  // namespace

RuntimeFailure::RuntimeFailure(Failure failure)
    : Number(static_cast<int>(failure)), Description(WordsOf(failure)) {}

}  // namespace requite
