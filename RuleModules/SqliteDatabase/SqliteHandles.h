#pragma once

#include <sqlite3.h>

#include <memory>
#include <utility>

struct SqliteCloser
{
    void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};

/// An open database; closed when it goes.
using SqliteDatabase = std::unique_ptr<sqlite3, SqliteCloser>;

/// A compiled statement.
using SqliteStatement = std::unique_ptr<sqlite3_stmt, SqliteCloser>;

/// Opens a database by path in UTF-8 with the flags of `sqlite3_open_v2`. Null on failure.
inline SqliteDatabase OpenSqlite(const char* path, int flags)
{
    sqlite3* handle = nullptr;
    const int result = sqlite3_open_v2(path, &handle, flags, nullptr);
    SqliteDatabase database(handle); // there may be a handle to close even if it failed
    return result == SQLITE_OK ? std::move(database) : nullptr;
}
