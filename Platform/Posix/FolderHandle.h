#pragma once

#include <dirent.h>
#include <memory>

namespace Platform::Posix
{

struct FolderCloser
{
    void operator()(DIR* folder) const { ::closedir(folder); }
};

/// A folder that is open for listing. Null if it could not be opened.
using FolderHandle = std::unique_ptr<DIR, FolderCloser>;

} // namespace Platform::Posix
