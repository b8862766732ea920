#include "Compound/CompoundFlavours.h"

// This build has no structured storage: its documents can't be made.

std::unique_ptr<ICompoundDocument> CreateStructuredDocument(const wchar_t* /*path*/, std::uint32_t /*mode*/)
{
    return nullptr;
}

std::unique_ptr<ICompoundDocument> CreateStructuredDocumentOnMemory(IMemoryFile* /*memory*/, std::uint32_t /*mode*/)
{
    return nullptr;
}
