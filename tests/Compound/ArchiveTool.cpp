// Writes and reads archives for the tests that hold them against other programs.
//
//   CompoundArchiveTool stamp <archive> <seconds since 1970> <local time> (<entry name> <file>)...
//       Writes an archive at a moment of one's choice; local time as 2020-02-29T13:14:59.
//   CompoundArchiveTool write <archive> (<entry path> <file>)...
//       Writes a document as the program does it.
//   CompoundArchiveTool read <archive> (<entry path> <file>)...
//       Writes what a document holds to files.

#include "Compound/CompoundDocument.h"
#include "Compound/IOMemoryStream.h"
#include "Compound/Zipper.h"
#include "Platform/Text.h"
#include "tests/Compound/TestStreams.h"
#include "tests/Support/TestFiles.h"

#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace
{

using Files = std::vector<std::pair<std::wstring, std::wstring>>;

ArchiveTime MomentOf(const std::string& seconds, const std::string& local)
{
    ArchiveTime time;
    time.secondsSince1970 = std::stoll(seconds);
    if (std::sscanf(local.c_str(), "%d-%d-%dT%d:%d:%d", &time.year, &time.month, &time.day, &time.hour, &time.minute,
                    &time.second) != 6)
    {
        throw std::runtime_error("no time: " + local);
    }
    return time;
}

void Require(bool holds, const char* what)
{
    if (!holds)
    {
        throw std::runtime_error(what);
    }
}

void Stamp(const std::wstring& archive, const ArchiveTime& time, const Files& files)
{
    Zipper zipper(ReplaceArchiveFile(archive), [time] { return time; });
    for (const auto& [name, path] : files)
    {
        TestSource source(ReadBytes(path));
        Require(zipper.AddFile(name.c_str(), &source) == 0, "a file isn't taken");
    }
}

void Write(const std::wstring& archive, const Files& files)
{
    ICompoundDocument* document = nullptr;
    Require(CreateCompoundDocument(archive.c_str(), 10, CompoundTypeZip, &document) == 0, "no document can be made");
    for (const auto& [name, path] : files)
    {
        const std::string contents = ReadBytes(path);
        ICompoundFile* const file = OpenFileByPath(document->GetRootFolder(), name.c_str(), 10);
        Require(file != nullptr, "a file can't be opened");
        file->GetOutputStream()->Write(contents.data(), static_cast<std::uint32_t>(contents.size()));
        CloseFileInParent(file);
    }
    CloseCompoundDocument(&document);
}

void Read(const std::wstring& archive, const Files& files)
{
    ICompoundDocument* document = nullptr;
    Require(CreateCompoundDocument(archive.c_str(), 5, CompoundTypeZip, &document) == 0, "no document can be read");
    for (const auto& [name, path] : files)
    {
        ICompoundFile* const file = OpenFileByPath(document->GetRootFolder(), name.c_str(), 5);
        Require(file != nullptr, "a file can't be opened");
        WriteBytes(path, ReadToEnd(*file->GetInputStream()));
        CloseFileInParent(file);
    }
    CloseCompoundDocument(&document);
}

void Run(const std::vector<std::string>& arguments)
{
    const std::string& command = arguments.at(0);
    const std::wstring archive = Platform::Utf8ToWide(arguments.at(1));
    Files files;
    for (std::size_t index = command == "stamp" ? 4 : 2; index < arguments.size(); index += 2)
    {
        files.emplace_back(Platform::Utf8ToWide(arguments[index]), Platform::Utf8ToWide(arguments.at(index + 1)));
    }
    if (command == "stamp")
    {
        Stamp(archive, MomentOf(arguments.at(2), arguments.at(3)), files);
    }
    else if (command == "write")
    {
        Write(archive, files);
    }
    else if (command == "read")
    {
        Read(archive, files);
    }
    else
    {
        throw std::runtime_error("no command: " + command);
    }
}

} // namespace

int main(int argc, char** argv)
{
    try
    {
        Run({ argv + 1, argv + argc });
        return 0;
    }
    catch (const std::exception& error)
    {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
