#include "Document/DamagedFile.h"

#include "Platform/Files.h"
#include "Utilities/QOXUIUtils.h"

#include <optional>

void KeepDamagedFile(const std::wstring& path)
{
    const std::wstring copyPath = path + L".damaged";
    const std::optional<Platform::FileBytes> bytes = Platform::ReadWholeFile(path);
    if (bytes && bytes->Size() > 0 && !Platform::PathExists(copyPath))
    {
        const bool kept = Platform::SaveFileWhole(copyPath, bytes->View());
        LogMessage(kept ? L"A file that can't be read was kept as %s" : L"A file that can't be read was not kept as %s",
                   copyPath);
    }
}
