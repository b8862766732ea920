// Build tool: makes an SQLite file from a script. Arguments: script, file to make.

#include "RuleModules/SqliteDatabase/SqliteHandles.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <string>

namespace
{

int Fail(const char* what, const char* detail)
{
    std::fprintf(stderr, "MakeDatabase: %s: %s\n", what, detail);
    return 1;
}

/// Runs a script; false with a message if it can't be read or holds a mistake.
bool RunScript(sqlite3& database, const char* path)
{
    std::ifstream file(path, std::ios::binary);
    const std::string script((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!file || script.empty())
    {
        Fail(path, "can't be read");
        return false;
    }
    const std::string transaction = "BEGIN;" + script + "\nCOMMIT;";
    if (sqlite3_exec(&database, transaction.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
    {
        Fail(path, sqlite3_errmsg(&database));
        return false;
    }
    return true;
}

int MakeDatabase(const std::string& path, std::span<char* const> scripts)
{
    // Made beside its place, so that an error leaves nothing that looks finished.
    const std::string unfinished = path + ".new";
    std::filesystem::remove(unfinished);
    {
        const SqliteDatabase database = OpenSqlite(unfinished.c_str(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        if (!database)
        {
            return Fail(unfinished.c_str(), "can't be made");
        }
        for (const char* const script : scripts)
        {
            if (!RunScript(*database, script))
            {
                return 1;
            }
        }
    }
    std::filesystem::rename(unfinished, path);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
    {
        return Fail("usage", "MakeDatabase <file> <script> ...");
    }
    try
    {
        return MakeDatabase(argv[1], std::span<char* const>(argv + 2, argv + argc));
    }
    catch (const std::exception& error)
    {
        return Fail(argv[1], error.what());
    }
}
