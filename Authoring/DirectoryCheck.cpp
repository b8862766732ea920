#include "Authoring/DirectoryCheck.h"

#include "Platform/Files.h"
#include "Utilities/FolderFunctions.h"
#include "Utilities/Texts.h"
#include "Utilities/UserPrompt.h"

static_assert(static_cast<std::uint32_t>(DirectoryOk) == static_cast<std::uint32_t>(FolderUsable));
static_assert(static_cast<std::uint32_t>(DirectoryMissing) == static_cast<std::uint32_t>(FolderMissing));
static_assert(static_cast<std::uint32_t>(DirectoryNotWritable) == static_cast<std::uint32_t>(FolderNotWritable));
static_assert(static_cast<std::uint32_t>(DirectoryInvalid) == static_cast<std::uint32_t>(FolderPathInvalid));

namespace
{

void Show(IUserPrompt& prompt, BoxKind kind, TextId text, const std::wstring& folder)
{
    prompt.ShowBox(kind, FormatText(text, { folder }), LoadText(TextId::ApplicationTitle));
}

/// Has a missing folder made if the user wants it.
DirectoryState OfferToMake(const std::wstring& folder, const std::wstring& named, IUserPrompt& prompt)
{
    if (!prompt.AskYesNo(BoxKind::Warning, FormatText(TextId::FolderMissingQuestion, { named }),
                         LoadText(TextId::ApplicationTitle)))
    {
        return DirectoryMissing;
    }
    if (!Platform::MakeFolder(folder))
    {
        Show(prompt, BoxKind::Error, TextId::FolderNotMade, folder);
        return DirectoryMissing;
    }
    return DirectoryOk;
}

/// `named` is how the question and the message about writing name the folder.
DirectoryState Confirm(const std::wstring& folder, const std::wstring& named, BoxKind notWritable, IUserPrompt& prompt)
{
    const DirectoryState state = CheckDirectoryPath(folder);
    switch (state)
    {
    case DirectoryOk:
        break;
    case DirectoryMissing:
        return OfferToMake(folder, named, prompt);
    case DirectoryNotWritable:
        Show(prompt, notWritable, TextId::FolderNotWritable, named);
        break;
    case DirectoryInvalid:
        Show(prompt, BoxKind::Error, TextId::FolderPathInvalid, folder);
        break;
    }
    return state;
}

} // namespace

DirectoryState CheckDirectoryPath(const std::wstring& path)
{
    return static_cast<DirectoryState>(CheckFolderPath(path));
}

DirectoryState ConfirmScriptLocation(const std::wstring& folder, IUserPrompt& prompt)
{
    return Confirm(folder, FormatText(TextId::ScriptFolderNamed, { folder }), BoxKind::Error, prompt);
}

DirectoryState ValidateDirectory(const std::wstring& path, IUserPrompt& prompt)
{
    return Confirm(path, path, BoxKind::Warning, prompt);
}
