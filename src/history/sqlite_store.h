// SPDX-License-Identifier: MIT
// An SQLite file and its statements. Failures are told in words that a user can act on.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

struct sqlite3;
struct sqlite3_stmt;

namespace requite {

class SqliteStore {
 public:
  enum class Open { ToRead, ToWrite };

  /// A file that is opened to be written is made when it is missing. Throws RuntimeFailure when it cannot be
  /// opened; a damaged file may fail at the first statement only.
  SqliteStore(const std::string& path, Open open);
  ~SqliteStore();
  SqliteStore(const SqliteStore&) = delete;
  SqliteStore& operator=(const SqliteStore&) = delete;

  /// Runs statements without values, one after the other. Throws RuntimeFailure.
  void Run(const char* statements);
  /// The number of rows that the last statement inserted, changed or deleted.
  [[nodiscard]] std::int64_t Changes() const;

 private:
  friend class SqliteStatement;
  friend class SqliteTransaction;

  sqlite3* file_ = nullptr;
};

/// One prepared statement, to be run any number of times. Values are numbered from 1, columns from 0. All
/// functions throw RuntimeFailure. The store must outlive it.
class SqliteStatement {
 public:
  SqliteStatement(SqliteStore& store, std::string_view text);
  ~SqliteStatement();
  SqliteStatement(const SqliteStatement&) = delete;
  SqliteStatement& operator=(const SqliteStatement&) = delete;

  void Bind(int place, std::int64_t value);
  void BindNull(int place);
  /// The bytes of a path, or a text that is UTF-8 already.
  void BindBytes(int place, std::string_view bytes);
  /// A text of the program, in the code page.
  void Bind(int place, std::string_view text);

  /// The next row; false after the last one. The statement can be run again then.
  bool Next();
  /// Runs a statement that returns no rows.
  void Run();

  [[nodiscard]] bool IsNull(int column) const;
  [[nodiscard]] std::int64_t Number(int column) const;
  [[nodiscard]] std::string Bytes(int column) const;
  /// In the code page; what it does not have becomes "?".
  [[nodiscard]] std::string Text(int column) const;

 private:
  SqliteStore& store_;
  sqlite3_stmt* statement_ = nullptr;
};

/// What is written before it is committed is undone by the destructor. Without writing, all that is read is
/// of one moment. Waits a few seconds for another program that writes; no events run meanwhile.
class SqliteTransaction {
 public:
  SqliteTransaction(SqliteStore& store, SqliteStore::Open use);
  ~SqliteTransaction();
  SqliteTransaction(const SqliteTransaction&) = delete;
  SqliteTransaction& operator=(const SqliteTransaction&) = delete;

  void Commit();

 private:
  SqliteStore& store_;
  bool open_ = true;
};

}  // namespace requite
