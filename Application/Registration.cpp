#include "Application/Registration.h"

#include "Application/RuleFileType.h"
#include "Platform/Automation.h"
#include "Utilities/QOXUIUtils.h"
#include "Utilities/Texts.h"

namespace
{

constexpr const wchar_t* ProgramId = L"Vantrel.RuleDocument";

/// A refused registration doesn't keep the program from its work; the log tells of it.
void Note(bool worked, const wchar_t* what)
{
    if (!worked)
    {
        LogMessage(L"The registration was refused: %s", what);
    }
}

} // namespace

void Registration::RegisterFileTypes()
{
    Note(Platform::RegisterFileType(std::wstring(L".") + RuleFileExtension, ProgramId,
                                    LoadText(TextId::DocumentTypeName)),
         L"file type");
}

void Registration::RegisterServer()
{
    Note(Platform::RegisterDocumentClass(ProgramId, LoadText(TextId::DocumentTypeName)), L"document class");
    Note(Platform::RegisterProgramTypeLibrary(), L"type library");
}

void Registration::UnregisterAll()
{
    Note(Platform::UnregisterFileType(std::wstring(L".") + RuleFileExtension, ProgramId), L"removing the file type");
    Note(Platform::UnregisterDocumentClass(ProgramId), L"removing the document class");
    Note(Platform::UnregisterProgramTypeLibrary(), L"removing the type library");
}
