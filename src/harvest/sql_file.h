// SPDX-License-Identifier: MIT
// One SQLite file, opened for the length of one operation.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>

struct sqlite3;

namespace requite {

/// Texts are bytes of the code page on this side and UTF-8 in the file. Comparisons under "nocase" ignore
/// case over the whole code page.
class SqlFile {
 public:
  /// Opens a file that exists. Throws RuntimeFailure when there is none; a damaged or locked one is found
  /// out by the first statement only.
  explicit SqlFile(const std::string& path);
  ~SqlFile();
  SqlFile(const SqlFile&) = delete;
  SqlFile& operator=(const SqlFile&) = delete;

  /// Runs one statement; what stands behind a ";" is never run. `values` take the places of its "?".
  /// Throws RuntimeFailure with the engine's words.
  void Run(std::string_view statement, std::initializer_list<std::string_view> values = {});
  /// Hands over the named column of each row, an empty text for null, until `take` returns false.
  void ForEach(std::string_view statement, std::string_view column,
               const std::function<bool(std::string_view value)>& take);

 private:
  class Statement;

  sqlite3* file_ = nullptr;
};

}  // namespace requite
