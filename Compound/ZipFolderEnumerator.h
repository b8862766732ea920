#pragma once

#include "Compound/DefinitionEnumerator.h"
#include "Compound/ZipCompoundObject.h"

/// The listing of a folder of a zip document, by first appearance in the archive. A document
/// being written lists nothing.
class ZipFolderEnumerator : public DefinitionEnumerator
{
public:
    ZipFolderEnumerator(ICompoundFolder& folder, const ZipArchive& archive);
};
