#pragma once

#include <string>

/// Registration of the program's document class and type library with the system.
namespace Platform
{

/// Starts the automation services for the thread. False if they are not to be had.
bool InitializeAutomation();

/// Ends what `InitializeAutomation` started.
void UninitializeAutomation();

/// Registers the document class for the running program's file, as a server that
/// shows `typeName`. False if the registry refused.
bool RegisterDocumentClass(const std::wstring& programId, const std::wstring& typeName);

/// Removes the document class. True if it is gone afterwards.
bool UnregisterDocumentClass(const std::wstring& programId);

/// Registers the type library that the program's file carries. False on refusal.
bool RegisterProgramTypeLibrary();

/// Removes its registration. True if it is gone afterwards.
bool UnregisterProgramTypeLibrary();

/// Registers a file type with its extension (with the dot) and a name for people, to be
/// opened by the running program. False if the registry refused.
bool RegisterFileType(const std::wstring& extension, const std::wstring& programId, const std::wstring& typeName);

/// Removes the file type. True if it is gone afterwards.
bool UnregisterFileType(const std::wstring& extension, const std::wstring& programId);

/// Class identifier of the rule document, in braces.
extern const wchar_t* const DocumentClassId;

/// Identifier of the type library, in braces; its version is 1.0.
extern const wchar_t* const TypeLibraryId;

} // namespace Platform
