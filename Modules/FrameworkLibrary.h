#pragma once

#include "Platform/Library.h"

/// The framework library: the one that is loaded, else the one beside the program, else
/// one by bare name. Null if none is to be had. It stays loaded to the end of the process.
Platform::LibraryHandle LoadFrameworkLibrary();

/// A plain function of the framework library, or null if this version lacks it.
template <typename Function>
Function FindFrameworkFunction(Platform::LibraryHandle framework, const char* name)
{
    return reinterpret_cast<Function>(Platform::FindLibrarySymbol(framework, name));
}
