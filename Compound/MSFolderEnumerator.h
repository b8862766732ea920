#pragma once

#include "Compound/DefinitionEnumerator.h"
#include "Platform/StructuredStorage.h"

/// Lists what is in a storage, in the order that the platform gives.
class MSFolderEnumerator : public DefinitionEnumerator
{
public:
    /// The list is empty for null, and where the storage can't be listed.
    explicit MSFolderEnumerator(Platform::Storage* storage);
};
