// SPDX-License-Identifier: MIT
// An SQLite file, opened for one operation.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;

namespace requite {

/// Texts are code page bytes here and UTF-8 in the file. Comparisons with "nocase" ignore case over the
/// whole code page.
class SqlFile {
 public:
  /// Opens an existing file. Throws RuntimeFailure when it is missing; a damaged or locked file fails at
  /// the first statement only.
  explicit SqlFile(const std::string& path);
  ~SqlFile();
  SqlFile(const SqlFile&) = delete;
  SqlFile& operator=(const SqlFile&) = delete;

  /// Runs one statement; text after a ";" is never run. `values` replace its "?". Throws RuntimeFailure
  /// with the words of SQLite.
  void Run(std::string_view statement, std::initializer_list<std::string_view> values = {});
  /// Passes the named column of each row to `take` (an empty text for null) until `take` returns false.
  void ForEach(std::string_view statement, std::string_view column,
               const std::function<bool(std::string_view value)>& take);

 private:
  class Statement;

  sqlite3* file_ = nullptr;
};

}  // namespace requite
