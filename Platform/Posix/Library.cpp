#include "Platform/Library.h"

#include "Platform/Files.h"
#include "Platform/Posix/ElfFile.h"
#include "Platform/Posix/LibraryFile.h"
#include "Platform/Posix/PathBytes.h"
#include "Platform/Process.h"
#include "Platform/Text.h"

#include <dlfcn.h>
#include <link.h>
#include <set>
#include <vector>

namespace Platform
{

const wchar_t* const LibrarySuffix = L".so";

namespace
{

constexpr std::wstring_view ConfiguredSuffix = L".dll";
constexpr std::wstring_view SystemSuffix = L".so";
constexpr std::wstring_view ProgramSuffix = L".exe";

bool EndsNoCase(std::wstring_view text, std::wstring_view end)
{
    return text.size() >= end.size() && EqualsNoCase(text.substr(text.size() - end.size()), end);
}

std::wstring WithSystemSuffix(std::wstring path)
{
    if (EndsNoCase(path, ConfiguredSuffix))
    {
        path.replace(path.size() - ConfiguredSuffix.size(), ConfiguredSuffix.size(), SystemSuffix);
    }
    return path;
}

bool IsBareName(std::wstring_view path)
{
    return path.find(PathSeparator) == std::wstring_view::npos;
}

LibraryHandle Load(const std::string& file)
{
    return ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
}

/// The libraries that another one depends on, held until that one is loaded itself.
class Dependencies
{
public:
    Dependencies() = default;

    ~Dependencies()
    {
        for (const LibraryHandle library : m_loaded)
        {
            ReleaseLibrary(library);
        }
    }

    Dependencies(const Dependencies&) = delete;
    Dependencies& operator=(const Dependencies&) = delete;

    /// Loads those that lie in `folder`, each after its own. The loader then finds them
    /// loaded, by name, and doesn't look elsewhere.
    void Load(const std::vector<std::string>& needed, const std::string& folder)
    {
        for (const std::string& name : needed)
        {
            if (name.empty() || name.find('/') != std::string::npos || !m_seen.insert(name).second)
            {
                continue;
            }
            if (const LibraryHandle already = ::dlopen(name.c_str(), RTLD_LAZY | RTLD_NOLOAD))
            {
                m_loaded.push_back(already);
                continue;
            }
            const std::string file = folder + '/' + name;
            if (const auto library = Posix::ReadElfLibrary(file))
            {
                Load(library->needed, folder);
                m_loaded.push_back(Platform::Load(file));
            }
        }
    }

private:
    std::set<std::string> m_seen;
    std::vector<LibraryHandle> m_loaded;
};

/// The loader's record of the running program, the first of the list of all that is loaded.
link_map* ProgramRecord()
{
    link_map* record = nullptr;
    if (const LibraryHandle program = ::dlopen(nullptr, RTLD_LAZY))
    {
        if (::dlinfo(program, RTLD_DI_LINKMAP, &record) != 0)
        {
            record = nullptr;
        }
        ::dlclose(program);
    }
    while (record != nullptr && record->l_prev != nullptr)
    {
        record = record->l_prev;
    }
    return record;
}

/// The handle of what is loaded. It is the record, but the loader has to be asked for it:
/// what was loaded with the program is only then made fit for looking up symbols.
LibraryHandle HandleOf(const link_map& record)
{
    const bool isProgram = record.l_prev == nullptr;
    const LibraryHandle handle = ::dlopen(isProgram ? nullptr : record.l_name, RTLD_LAZY | RTLD_NOLOAD);
    ReleaseLibrary(handle);
    return handle;
}

/// A loaded library whose file is named exactly so. Rules are given back to their modules
/// one by one through this, so it takes no memory.
const link_map* RecordWithFile(const std::string& file)
{
    const link_map* record = ProgramRecord();
    while (record != nullptr && (record->l_name == nullptr || file != record->l_name))
    {
        record = record->l_next;
    }
    return record;
}

std::wstring PathOfRecord(const link_map& record)
{
    // The program is the first and has no name in its record.
    return record.l_prev == nullptr ? ProgramPath() : AbsolutePath(Posix::PathText(record.l_name));
}

bool NamesRecord(const link_map& record, std::wstring_view name, bool bare)
{
    const bool isProgram = record.l_prev == nullptr;
    if (!isProgram && (record.l_name == nullptr || *record.l_name == '\0'))
    {
        return false;
    }
    const std::wstring path = ConfiguredLibraryName(PathOfRecord(record));
    const std::wstring known = bare ? FileNamePart(path) : path;
    if (EqualsNoCase(known, name))
    {
        return true;
    }
    return isProgram && EndsNoCase(name, ProgramSuffix) &&
           EqualsNoCase(known, name.substr(0, name.size() - ProgramSuffix.size()));
}

} // namespace

bool LibraryFileExists(const std::wstring& path)
{
    return !path.empty() && (Posix::FindLibraryFile(path) || Posix::FindLibraryFile(WithSystemSuffix(path)));
}

LibraryHandle OpenLibraryFile(const std::wstring& path)
{
    if (path.empty())
    {
        return nullptr;
    }
    const std::wstring wanted = WithSystemSuffix(path);
    const bool bare = IsBareName(wanted);
    const auto file = Posix::FindLibraryFile(bare ? ProgramFolder() + PathSeparator + wanted : wanted);
    if (file && Posix::ReadElfLibrary(*file))
    {
        return Load(*file);
    }
    const std::string name = Posix::PathBytes(wanted);
    return bare && !name.empty() ? Load(name) : nullptr;
}

LibraryHandle OpenLibraryFileWithItsFolder(const std::wstring& path)
{
    if (IsBareName(path))
    {
        return OpenLibraryFile(path);
    }
    const auto file = Posix::FindLibraryFile(WithSystemSuffix(path));
    const auto library = file ? Posix::ReadElfLibrary(*file) : std::nullopt;
    if (!library)
    {
        return nullptr;
    }
    Dependencies dependencies;
    dependencies.Load(library->needed, file->substr(0, file->rfind('/')));
    return Load(*file);
}

LibraryHandle FindLoadedLibrary(const std::wstring& name)
{
    if (name.empty())
    {
        return nullptr;
    }
    const bool bare = IsBareName(name);
    std::wstring wanted = ConfiguredLibraryName(bare ? name : AbsolutePath(name));
    if (bare && wanted.find(L'.') == std::wstring::npos)
    {
        wanted += ConfiguredSuffix;
    }
    if (const std::string file = bare ? std::string() : Posix::PathBytes(WithSystemSuffix(wanted)); !file.empty())
    {
        if (const link_map* const record = RecordWithFile(file))
        {
            return HandleOf(*record);
        }
    }
    for (const link_map* record = ProgramRecord(); record != nullptr; record = record->l_next)
    {
        if (NamesRecord(*record, wanted, bare))
        {
            return HandleOf(*record);
        }
    }
    if (bare)
    {
        return nullptr;
    }
    // The same file may have been loaded by another path, through a link for instance.
    const auto file = Posix::FindLibraryFile(WithSystemSuffix(wanted));
    const LibraryHandle loaded = file ? ::dlopen(file->c_str(), RTLD_LAZY | RTLD_NOLOAD) : nullptr;
    ReleaseLibrary(loaded);
    return loaded;
}

void ReleaseLibrary(LibraryHandle library)
{
    if (library != nullptr)
    {
        ::dlclose(library);
    }
}

LibrarySymbol FindLibrarySymbol(LibraryHandle library, const char* name)
{
    // A null handle would mean everything that is loaded.
    void* const address = library != nullptr && name != nullptr ? ::dlsym(library, name) : nullptr;
    const auto symbol = reinterpret_cast<LibrarySymbol>(address);
    // The search goes on into the libraries that this one depends on. A module without an
    // export would otherwise seem to have the one of the framework library.
    return symbol != nullptr && LibraryOfFunction(symbol) == library ? symbol : nullptr;
}

std::wstring LibraryPath(LibraryHandle library)
{
    link_map* record = nullptr;
    if (library == nullptr || ::dlinfo(library, RTLD_DI_LINKMAP, &record) != 0 || record == nullptr)
    {
        return {};
    }
    return ConfiguredLibraryName(PathOfRecord(*record));
}

LibraryHandle LibraryOfFunction(LibrarySymbol function)
{
    Dl_info info = {};
    void* record = nullptr;
    const bool found = ::dladdr1(reinterpret_cast<void*>(function), &info, &record, RTLD_DL_LINKMAP) != 0;
    return found ? record : nullptr;
}

std::wstring ConfiguredLibraryName(std::wstring path)
{
    if (EndsNoCase(path, SystemSuffix))
    {
        path.replace(path.size() - SystemSuffix.size(), SystemSuffix.size(), ConfiguredSuffix);
    }
    return path;
}

} // namespace Platform
