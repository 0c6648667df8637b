// SPDX-License-Identifier: MIT
// Calls SQLite and words its errors.
#include "history/sqlite_store.h"

#include "platform/database_text.h"
#include "platform/late_sqlite.h"
#include "platform/runtime_failure.h"

namespace requite {
namespace {

constexpr int kBusyMilliseconds = 5000;

std::string WordsOf(int code) {
  switch (code & 0xFF) {  // the rest tells variants of the same error
    case SQLITE_CANTOPEN: return "history.db cannot be opened";
    case SQLITE_READONLY:
    case SQLITE_PERM: return "history.db cannot be written";
    case SQLITE_FULL: return "history.db cannot be written: the disk is full";
    case SQLITE_BUSY:
    case SQLITE_LOCKED: return "another program is using history.db";
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT: return "history.db is damaged. Move it away, and the next scan begins a new one";
    default: return std::string("history.db: ") + sqlite3_errstr(code);
  }
}

[[noreturn]] void Fail(int code) { throw RuntimeFailure(code, WordsOf(code)); }

void Check(int code) {
  if (code != SQLITE_OK) Fail(code);
}

}  // namespace

SqliteStore::SqliteStore(const std::string& path, Open open) {
  const int access = open == Open::ToRead ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
  const int code = sqlite3_open_v2(path.c_str(), &file_, access | SQLITE_OPEN_NOMUTEX, nullptr);
  if (code != SQLITE_OK) {
    sqlite3_close(file_);
    Fail(code);
  }
  sqlite3_busy_timeout(file_, kBusyMilliseconds);
  // The file is like any other from outside: what it defines must not run functions with side effects.
  sqlite3_db_config(file_, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  sqlite3_db_config(file_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
}

SqliteStore::~SqliteStore() { sqlite3_close(file_); }

void SqliteStore::Run(const char* statements) {
  Check(sqlite3_exec(file_, statements, nullptr, nullptr, nullptr));
}

std::int64_t SqliteStore::Changes() const { return sqlite3_changes64(file_); }

SqliteStatement::SqliteStatement(SqliteStore& store, std::string_view text) : store_(store) {
  Check(sqlite3_prepare_v2(store.file_, text.data(), static_cast<int>(text.size()), &statement_, nullptr));
}

SqliteStatement::~SqliteStatement() { sqlite3_finalize(statement_); }

void SqliteStatement::Bind(int place, std::int64_t value) {
  Check(sqlite3_bind_int64(statement_, place, value));
}

void SqliteStatement::BindNull(int place) { Check(sqlite3_bind_null(statement_, place)); }

void SqliteStatement::BindBytes(int place, std::string_view bytes) {
  Check(sqlite3_bind_text64(statement_, place, bytes.data() == nullptr ? "" : bytes.data(), bytes.size(),
                            SQLITE_TRANSIENT, SQLITE_UTF8));
}

void SqliteStatement::Bind(int place, std::string_view text) { BindBytes(place, ToDatabaseText(text)); }

bool SqliteStatement::Next() {
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  sqlite3_reset(statement_);
  if (code != SQLITE_DONE) Fail(sqlite3_extended_errcode(store_.file_));
  return false;
}

void SqliteStatement::Run() {
  while (Next()) {
  }
}

bool SqliteStatement::IsNull(int column) const {
  return sqlite3_column_type(statement_, column) == SQLITE_NULL;
}

std::int64_t SqliteStatement::Number(int column) const { return sqlite3_column_int64(statement_, column); }

std::string SqliteStatement::Bytes(int column) const {
  const auto* const bytes = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  if (bytes == nullptr) return {};
  return {bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column))};
}

std::string SqliteStatement::Text(int column) const { return FromDatabaseText(Bytes(column)); }

SqliteTransaction::SqliteTransaction(SqliteStore& store, SqliteStore::Open use) : store_(store) {
  store.Run(use == SqliteStore::Open::ToWrite ? "BEGIN IMMEDIATE" : "BEGIN");
}

SqliteTransaction::~SqliteTransaction() {
  // Some errors, such as a full disk, have undone everything already; then there is nothing to roll back.
  if (open_) sqlite3_exec(store_.file_, "ROLLBACK", nullptr, nullptr, nullptr);
}

void SqliteTransaction::Commit() {
  store_.Run("COMMIT");
  open_ = false;
}

}  // namespace requite
