#pragma once

#include "Compound/CompoundDocument.h"

#include <memory>

// What each flavour gives the factory. The factory has tested the path before; every
// document is a CompoundObject too, by which it is closed. Null means that none can be made.

/// A document in a zip archive. Mode 10 writes, any other reads.
std::unique_ptr<ICompoundDocument> CreateZipDocument(const wchar_t* path, std::uint32_t mode);

/// A document in a structured storage file.
std::unique_ptr<ICompoundDocument> CreateStructuredDocument(const wchar_t* path, std::uint32_t mode);

/// A document in a structured storage image in memory, which isn't owned.
std::unique_ptr<ICompoundDocument> CreateStructuredDocumentOnMemory(IMemoryFile* memory, std::uint32_t mode);
