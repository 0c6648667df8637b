// SPDX-License-Identifier: MIT
// What the history and the harvesters call of SQLite.
#pragma once

#include <sqlite3.h>

#include "platform/late_library.h"

namespace requite {

inline constinit LateLibrary kSqliteLibrary("libsqlite3.so.0");

REQUITE_LATE(kSqliteLibrary, sqlite3_bind_int64);
REQUITE_LATE(kSqliteLibrary, sqlite3_bind_null);
REQUITE_LATE(kSqliteLibrary, sqlite3_bind_text);
REQUITE_LATE(kSqliteLibrary, sqlite3_bind_text64);
REQUITE_LATE(kSqliteLibrary, sqlite3_busy_timeout);
REQUITE_LATE(kSqliteLibrary, sqlite3_changes64);
REQUITE_LATE(kSqliteLibrary, sqlite3_close);
REQUITE_LATE(kSqliteLibrary, sqlite3_column_bytes);
REQUITE_LATE(kSqliteLibrary, sqlite3_column_count);
REQUITE_LATE(kSqliteLibrary, sqlite3_column_int64);
REQUITE_LATE(kSqliteLibrary, sqlite3_column_name);
REQUITE_LATE(kSqliteLibrary, sqlite3_column_text);
REQUITE_LATE(kSqliteLibrary, sqlite3_column_type);
REQUITE_LATE(kSqliteLibrary, sqlite3_create_collation);
REQUITE_LATE(kSqliteLibrary, sqlite3_db_config);
REQUITE_LATE(kSqliteLibrary, sqlite3_errcode);
REQUITE_LATE(kSqliteLibrary, sqlite3_errmsg);
REQUITE_LATE(kSqliteLibrary, sqlite3_errstr);
REQUITE_LATE(kSqliteLibrary, sqlite3_exec);
REQUITE_LATE(kSqliteLibrary, sqlite3_extended_errcode);
REQUITE_LATE(kSqliteLibrary, sqlite3_finalize);
REQUITE_LATE(kSqliteLibrary, sqlite3_open_v2);
REQUITE_LATE(kSqliteLibrary, sqlite3_prepare_v2);
REQUITE_LATE(kSqliteLibrary, sqlite3_reset);
REQUITE_LATE(kSqliteLibrary, sqlite3_step);

}  // namespace requite
