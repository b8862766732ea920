#pragma once

#include <Vantrel/Export.h>

#include <cstddef>
#include <string>

class QoxXMLDocument;

/// The plain functions of the framework library. The program looks them up by name at
/// run time and does without those that are missing.
extern "C"
{
    /// Initialises the library for a stand-alone program.
    VANTREL_API void OnStartApplication();

    /// Opens the help file at the topic with the number `helpId`, or at its first one if there
    /// is none of that number. The path is matched without regard to case. `*result` is 1 if
    /// help was shown, else 0, as for a file that doesn't exist; null is allowed. Where help
    /// files have no viewer of the system's, the user's browser shows the page of the topic
    /// from the folder `help` beside the file.
    VANTREL_API void ShowQOXHelp(const std::wstring& path, unsigned int helpId, int* result);

    /// Copies the data settings folder, with a separator at its end, into the buffer of
    /// `*size` characters, cut to fit and ended with a zero if there is room, and makes
    /// the folder if it is missing. Result: its length in characters; `*size` takes it too.
    VANTREL_API std::size_t GetDataSettingsFolderPath(wchar_t* buffer, std::size_t* size);

    /// Sets the int to 1 if VSTA rules work on this host, else to 0.
    VANTREL_API void AreVSTARulesSupported(int* supported);

    /// Names the document in which rules make their elements; null for none.
    VANTREL_API void SetXMLDoc(QoxXMLDocument* document);

    /// Same, for script rule packages.
    VANTREL_API void SetXMLDoc2(QoxXMLDocument* document);
}

using OnStartApplicationFunction = decltype(&OnStartApplication);
using ShowQOXHelpFunction = decltype(&ShowQOXHelp);
using GetDataSettingsFolderPathFunction = decltype(&GetDataSettingsFolderPath);
using AreVSTARulesSupportedFunction = decltype(&AreVSTARulesSupported);
using SetXMLDocFunction = decltype(&SetXMLDoc);
