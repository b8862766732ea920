#include "Compound/CompoundDocument.h"

#include "Compound/CompoundFlavours.h"
#include "Compound/CompoundObject.h"
#include "Platform/Files.h"
#include "Platform/StandardFile.h"

#include <cstdio>
#include <tuple>

namespace
{

bool CanBeOpenedForReading(const std::wstring& path)
{
    std::FILE* const file = Platform::OpenStandardFile(path, Platform::StandardFileUse::Read);
    if (file == nullptr)
    {
        return false;
    }
    std::fclose(file);
    return true;
}

/// What the mode wants of the file that is there or not. An error, or 0.
std::uint32_t PreparePath(const std::wstring& path, std::uint32_t mode)
{
    if ((mode & CompoundModeRead) != 0)
    {
        if (!CanBeOpenedForReading(path))
        {
            return CompoundErrorNotFound;
        }
    }
    else if ((mode & CompoundModeWrite) != 0 && CanBeOpenedForReading(path))
    {
        if ((mode & CompoundModeOverwrite) == 0)
        {
            return CompoundErrorExists;
        }
        // A file that can't be deleted may still be written over; the document finds out.
        std::ignore = Platform::DeleteFileAt(path);
    }
    return 0;
}

} // namespace

std::uint32_t CreateCompoundDocument(const wchar_t* path, std::uint32_t mode, std::uint32_t type,
                                     ICompoundDocument** document)
{
    if (type != CompoundTypeStructured && type != CompoundTypeZip)
    {
        return 0;
    }
    *document = nullptr;
    const wchar_t* const givenPath = path != nullptr ? path : L"";
    const auto make = type == CompoundTypeZip ? CreateZipDocument : CreateStructuredDocument;
    std::uint32_t error = 0;
    *document = NullWithoutMemory(
                    [&]
                    {
                        error = PreparePath(givenPath, mode);
                        return error == 0 ? make(givenPath, mode) : nullptr;
                    })
                    .release();
    return error;
}

std::uint32_t CreateCompoundDocumentOnMemory(IMemoryFile* memory, std::uint32_t mode, std::uint32_t type,
                                             ICompoundDocument** document)
{
    if (type != CompoundTypeStructured)
    {
        return CompoundErrorFlavour;
    }
    *document = NullWithoutMemory([&] { return CreateStructuredDocumentOnMemory(memory, mode); }).release();
    return 0;
}

std::uint32_t CloseCompoundDocument(ICompoundDocument** document)
{
    if (document == nullptr || *document == nullptr)
    {
        return 0;
    }
    const std::uint32_t type = (*document)->type;
    if (type != CompoundTypeStructured && type != CompoundTypeZip)
    {
        return CompoundErrorFlavour;
    }
    auto* const object = dynamic_cast<CompoundObject*>(*document);
    if (object == nullptr)
    {
        return CompoundErrorFlavour; // made by someone else, who knows how to end it
    }
    const std::unique_ptr<CompoundObject> owned(object);
    *document = nullptr;
    owned->Close();
    return 0;
}
