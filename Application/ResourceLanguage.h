#pragma once

#include "Platform/ResourceLibrary.h"

#include <cstdint>
#include <string>

/// Name of the language with an identifier; "english" for one that no table has.
std::wstring LanguageNameOf(std::uint32_t identifier);

/// Identifier of the language with a name, without regard to case; 1033 for any other name.
std::uint32_t LanguageIdOf(const std::wstring& name);

/// The language that the registry, the CAD host and the user ask for, in this order.
std::wstring GetResourceLanguage();

/// The folder, below `Lang`, of a language. Only five have one of their own; that of both
/// Chinese ones is named by the system's default locale.
std::wstring GetLanguageFolder(const std::wstring& strLanguage);

/// What the application keeps of the language in use.
struct LanguageResources
{
    /// Name of the language to load. Empty asks for the one that `GetResourceLanguage`
    /// gives, and is what it is again once the library is loaded.
    std::wstring strLanguage;
    std::wstring strLanguageFolder;
    std::wstring strLanguageFolderPath;
    std::wstring strExeFolder;
    std::wstring strHelpFilePath;
    std::wstring strResDllPath;
    Platform::ResourceLibrary library;
};

/// Finds and loads the library with the texts of the language, else the English one, and
/// makes it the source of all texts. Without either the program's own texts stay.
/// `programPath` is the full path of the program's file, one level below the root of what
/// is installed.
void InitResourceLibrary(LanguageResources& resources, const std::wstring& programPath);
