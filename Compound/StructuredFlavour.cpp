#include "Compound/CompoundFlavours.h"
#include "Compound/MSCompoundDocument.h"
#include "Compound/MSMemoryFile.h"

std::unique_ptr<ICompoundDocument> CreateStructuredDocument(const wchar_t* path, std::uint32_t mode)
{
    return std::make_unique<MSCompoundDocument>(path, mode);
}

std::unique_ptr<ICompoundDocument> CreateStructuredDocumentOnMemory(IMemoryFile* memory, std::uint32_t mode)
{
    return std::make_unique<MSCompoundDocument>(dynamic_cast<MSMemoryFile*>(memory), mode);
}
