// SPDX-License-Identifier: MIT
// Libraries that are loaded when one of their functions is first called. To load them all costs more time and
// memory than the rest of the program's start, and most runs need none of them.
#pragma once

namespace requite {

/// A library of the system, loaded once and for good. Not for several threads.
class LateLibrary {
 public:
  /// `file` is the name that programs linked with the library have in them; it must stay valid.
  constexpr explicit LateLibrary(const char* file) : file_(file) {}

  /// A function of the library, which is loaded first if need be. Throws RuntimeFailure, with the system's
  /// reason, when library or function are missing.
  [[nodiscard]] void* Find(const char* function);

 private:
  const char* file_;
  void* loaded_ = nullptr;
};

/// Called like the function of that name. Objects named as the functions, in the program's own namespace,
/// take the place of the functions that a library's header declares: the code that calls them need not
/// change.
template <class Function>
class LateFunction {
 public:
  constexpr LateFunction(LateLibrary& library, const char* name) : library_(library), name_(name) {}

  /// Throws RuntimeFailure. Not explicit, so that it can be called and passed on like the function itself.
  operator Function*() const {
    if (found_ == nullptr) found_ = reinterpret_cast<Function*>(library_.Find(name_));
    return found_;
  }

 private:
  LateLibrary& library_;
  const char* name_;
  mutable Function* found_ = nullptr;
};

/// Defines the object for a function; for a list in a header beside the library's own.
// NOLINTBEGIN(bugprone-macro-parentheses): a name that is declared cannot be in parentheses.
#define REQUITE_LATE(library, function) \
  inline constinit const LateFunction<decltype(::function)> function { library, #function }
// NOLINTEND(bugprone-macro-parentheses)

}  // namespace requite
