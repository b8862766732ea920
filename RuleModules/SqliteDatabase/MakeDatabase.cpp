// Build tool: makes an SQLite file from a script. Arguments: script, file to make.

#include "RuleModules/SqliteDatabase/SqliteHandles.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace
{

int Fail(const char* what, const char* detail)
{
    std::fprintf(stderr, "MakeDatabase: %s: %s\n", what, detail);
    return 1;
}

int MakeDatabase(const char* scriptPath, const std::string& path)
{
    std::ifstream file(scriptPath, std::ios::binary);
    const std::string script((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    if (!file || script.empty())
    {
        return Fail(scriptPath, "can't be read");
    }
    // Made beside its place, so that an error leaves nothing that looks finished.
    const std::string unfinished = path + ".new";
    std::filesystem::remove(unfinished);
    {
        const SqliteDatabase database = OpenSqlite(unfinished.c_str(), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        if (!database)
        {
            return Fail(unfinished.c_str(), "can't be made");
        }
        const std::string transaction = "BEGIN;" + script + "\nCOMMIT;";
        if (sqlite3_exec(database.get(), transaction.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK)
        {
            return Fail(scriptPath, sqlite3_errmsg(database.get()));
        }
    }
    std::filesystem::rename(unfinished, path);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3)
    {
        return Fail("usage", "MakeDatabase <script> <file>");
    }
    try
    {
        return MakeDatabase(argv[1], argv[2]);
    }
    catch (const std::exception& error)
    {
        return Fail(argv[2], error.what());
    }
}
