// SPDX-License-Identifier: MIT
// Opens the file, runs statements, and turns SQLite errors into failures.
#include "harvest/sql_file.h"

#include "platform/database_text.h"
#include "platform/late_sqlite.h"
#include "platform/runtime_failure.h"
#include "platform/text.h"

namespace requite {
namespace {

/// How long to wait for another program that holds the file. No events run meanwhile.
constexpr int kBusyMilliseconds = 200;

/// Database failures are numbered from here, after those of the program itself.
enum : int {
  kOther = 3000,
  kNoFile = 3024,
  kReadOnly = 3027,
  kInUse = 3045,
  kTooLong = 3163,
  kDamaged = 3343
};

int NumberOf(int code) {
  switch (code) {
    case SQLITE_CANTOPEN: return kNoFile;
    case SQLITE_READONLY: return kReadOnly;
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return kInUse;
    case SQLITE_CONSTRAINT: return kTooLong;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT: return kDamaged;
    default: return kOther;
  }
}

[[noreturn]] void Fail(sqlite3* file) {
  throw RuntimeFailure(NumberOf(sqlite3_errcode(file)),
                       "Database: " + FromDatabaseText(sqlite3_errmsg(file)));
}

int CompareNoCase(void*, int lengthA, const void* a, int lengthB, const void* b) {
  const auto text = [](const void* bytes, int length) {
    return FromDatabaseText({static_cast<const char*>(bytes), static_cast<std::size_t>(length)});
  };
  return CompareText(text(a, lengthA), text(b, lengthB));
}

}  // namespace

class SqlFile::Statement {
 public:
  Statement(sqlite3* file, std::string_view text) : file_(file) {
    const std::string utf8 = ToDatabaseText(text);
    const int code =
        sqlite3_prepare_v2(file, utf8.data(), static_cast<int>(utf8.size()), &statement_, nullptr);
    if (code != SQLITE_OK || statement_ == nullptr) Fail(file);
  }
  ~Statement() { sqlite3_finalize(statement_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void Bind(int place, std::string_view value) {
    const std::string utf8 = ToDatabaseText(value);
    const int code =
        sqlite3_bind_text(statement_, place, utf8.data(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
    if (code != SQLITE_OK) Fail(file_);
  }
  /// False after the last row.
  bool Step() {
    const int code = sqlite3_step(statement_);
    if (code != SQLITE_ROW && code != SQLITE_DONE) Fail(file_);
    return code == SQLITE_ROW;
  }
  [[nodiscard]] int ColumnOf(std::string_view name) const {
    for (int column = 0; column < sqlite3_column_count(statement_); ++column) {
      if (Equals(sqlite3_column_name(statement_, column), name, Compare::Text)) return column;
    }
    throw RuntimeFailure(kOther, "Database: no column " + std::string(name));
  }
  [[nodiscard]] std::string Text(int column) const {
    const auto* const utf8 = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
    if (utf8 == nullptr) return {};
    return FromDatabaseText({utf8, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))});
  }

 private:
  sqlite3* file_;
  sqlite3_stmt* statement_ = nullptr;
};

SqlFile::SqlFile(const std::string& path) {
  const int code =
      sqlite3_open_v2(path.c_str(), &file_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  if (code != SQLITE_OK) {
    const RuntimeFailure failure(NumberOf(code), std::string("Database: ") + sqlite3_errstr(code));
    sqlite3_close(file_);
    throw failure;
  }
  sqlite3_busy_timeout(file_, kBusyMilliseconds);
  // The built-in "nocase" folds ASCII letters only.
  sqlite3_create_collation(file_, "nocase", SQLITE_UTF8, nullptr, CompareNoCase);
}

SqlFile::~SqlFile() { sqlite3_close(file_); }

void SqlFile::Run(std::string_view statement, std::initializer_list<std::string_view> values) {
  Statement run(file_, statement);
  int place = 0;
  for (const std::string_view value : values) run.Bind(++place, value);
  while (run.Step()) {
  }
}

void SqlFile::ForEach(std::string_view statement, std::string_view column,
                      const std::function<bool(std::string_view value)>& take) {
  Statement rows(file_, statement);
  const int index = rows.ColumnOf(column);
  while (rows.Step()) {
    if (!take(rows.Text(index))) return;
  }
}

}  // namespace requite
