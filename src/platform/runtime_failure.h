// SPDX-License-Identifier: MIT
// The one exception of the program, and the two ways to ignore it.
#pragma once

#include <exception>
#include <string>
#include <utility>

namespace requite {

/// The classic failure numbers that the program's own operations raise.
enum class Failure : int {
  InvalidArgument = 5,
  Overflow = 6,
  OutOfMemory = 7,
  Subscript = 9,
  TypeMismatch = 13,
  FileNotFound = 53,
  BadFileMode = 54,
  DiskFull = 61,
  PermissionDenied = 70,
  PathFileAccess = 75,
  PathNotFound = 76,
  InvalidProperty = 380,
};

/// The exit status of a program that ends because nothing handled a failure.
inline constexpr int kRunTimeFailureStatus = 70;

/// A failed operation: its number and message, as the message boxes show them.
class RuntimeFailure : public std::exception {
 public:
  /// A classic failure with its usual message.
  explicit RuntimeFailure(Failure failure);
  RuntimeFailure(int number, std::string description) : Number(number), Description(std::move(description)) {}

  [[nodiscard]] const char* what() const noexcept override { return Description.c_str(); }

  int Number;
  std::string Description;
  /// Where to fix it, added to the report of a failure that nothing handled. Usually empty.
  std::string Remedy = {};
};

/// Runs one statement and ignores its failure, so that the caller continues with the next statement.
/// Returns false when the statement failed.
template <class Statement>
bool PassOver(Statement&& statement) {
  try {
    std::forward<Statement>(statement)();
    return true;
  } catch (const RuntimeFailure&) {
    return false;
  }
}

/// Runs a block of statements; the first failure ends the block silently and undoes nothing.
/// Returns false when the block was cut short.
template <class Block>
bool EndSilently(Block&& block) {
  return PassOver(std::forward<Block>(block));
}

}  // namespace requite
