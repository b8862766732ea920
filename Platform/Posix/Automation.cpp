#include "Platform/Automation.h"

#include "Platform/Files.h"
#include "Platform/Process.h"
#include "Platform/Registry.h"

#include <algorithm>
#include <string_view>
#include <vector>

/// There is no automation on this system that others could reach the program by. The same
/// keys are written as elsewhere, so that what reads them, the list of registered type
/// libraries for one, works the same everywhere.
namespace Platform
{

const wchar_t* const DocumentClassId = L"{74FAF44C-B6AF-493B-A9D9-AED17BA7FED5}";
const wchar_t* const TypeLibraryId = L"{092D31A2-F72E-457D-997F-0FE3E4D26334}";

namespace
{

struct DefaultValue
{
    std::wstring key;
    std::wstring text;
};

/// Writes the default values of keys in the class root. Stops at the first refusal.
bool WriteDefaults(const std::vector<DefaultValue>& values)
{
    return std::all_of(values.begin(), values.end(),
                       [](const DefaultValue& value)
                       { return WriteRegistryText(RegistryRoot::ClassesRoot, value.key, L"", value.text); });
}

bool DeleteClassKey(const std::wstring& key)
{
    return DeleteRegistryKey(RegistryRoot::ClassesRoot, key);
}

/// Removes a program identifier that has neither a class nor a file type any more.
bool DeleteUnusedProgramId(const std::wstring& programId)
{
    return !RegistrySubkeys(RegistryRoot::ClassesRoot, programId).empty() || DeleteClassKey(programId);
}

std::wstring ClassKey()
{
    return std::wstring(L"CLSID\\") + DocumentClassId;
}

std::wstring TypeLibraryVersionKey()
{
    return std::wstring(L"TypeLib\\") + TypeLibraryId + L"\\1.0";
}

/// Keys with an empty name would be the class root itself.
bool IsName(const std::wstring& name)
{
    return name.find_first_not_of(L'\\') != std::wstring::npos;
}

} // namespace

bool InitializeAutomation()
{
    return true;
}

void UninitializeAutomation() {}

bool RegisterDocumentClass(const std::wstring& programId, const std::wstring& typeName)
{
    return IsName(programId) && WriteDefaults({
                                    { programId, typeName },
                                    { programId + L"\\CLSID", DocumentClassId },
                                    { ClassKey(), typeName },
                                    { ClassKey() + L"\\ProgId", programId },
                                    { ClassKey() + L"\\LocalServer32", ProgramPath() },
                                });
}

bool UnregisterDocumentClass(const std::wstring& programId)
{
    const bool classGone = DeleteClassKey(ClassKey());
    return IsName(programId) && DeleteClassKey(programId + L"\\CLSID") && DeleteUnusedProgramId(programId) && classGone;
}

bool RegisterProgramTypeLibrary()
{
    const std::wstring version = TypeLibraryVersionKey();
    return WriteDefaults({
        { version, L"Vantrel Rule Manager 1.0 Type Library" },
        { version + L"\\0\\win64", ProgramPath() },
        { version + L"\\FLAGS", L"0" },
        { version + L"\\HELPDIR", ProgramFolder() },
    });
}

bool UnregisterProgramTypeLibrary()
{
    const std::wstring library = std::wstring(L"TypeLib\\") + TypeLibraryId;
    if (!DeleteClassKey(TypeLibraryVersionKey()))
    {
        return false;
    }
    // Another version of the library stays registered.
    return !RegistrySubkeys(RegistryRoot::ClassesRoot, library).empty() || DeleteClassKey(library);
}

bool RegisterFileType(const std::wstring& extension, const std::wstring& programId, const std::wstring& typeName)
{
    const std::wstring program = ProgramPath();
    return IsName(extension) && IsName(programId) &&
           WriteDefaults({
               { extension, programId },
               { programId, typeName },
               { programId + L"\\DefaultIcon", program + L",0" },
               { programId + L"\\shell\\open\\command", L"\"" + program + L"\" \"%1\"" },
           });
}

bool UnregisterFileType(const std::wstring& extension, const std::wstring& programId)
{
    if (!IsName(extension) || !IsName(programId))
    {
        return false;
    }
    // The extension may have gone over to another program since.
    const bool ours = ReadRegistryText(RegistryRoot::ClassesRoot, extension, L"") == programId;
    const bool extensionGone = !ours || DeleteClassKey(extension);
    return DeleteClassKey(programId + L"\\shell") && DeleteClassKey(programId + L"\\DefaultIcon") &&
           DeleteUnusedProgramId(programId) && extensionGone;
}

} // namespace Platform
