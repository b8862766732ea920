#include "Document/DamagedFile.h"

#include "Platform/Files.h"

#include <optional>

void KeepDamagedFile(const std::wstring& path)
{
    const std::wstring copyPath = path + L".damaged";
    const std::optional<Platform::FileBytes> bytes = Platform::ReadWholeFile(path);
    if (bytes && bytes->Size() > 0 && !Platform::PathExists(copyPath))
    {
        Platform::SaveFileWhole(copyPath, bytes->View());
    }
}
