#include "Utilities/Texts.h"

#include "Lang/TextTable.h"
#include "Platform/ResourceLibrary.h"

#include <optional>
#include <utility>

namespace
{

/// Where texts come from is a property of the running program, as is its language.
const Platform::ResourceLibrary*& CurrentLibrary()
{
    static const Platform::ResourceLibrary* library = nullptr;
    return library;
}

} // namespace

void UseTextLibrary(const Platform::ResourceLibrary* library)
{
    CurrentLibrary() = library;
}

std::wstring LoadText(TextId id)
{
    return LoadText(static_cast<std::uint32_t>(id));
}

std::wstring LoadText(std::uint32_t number)
{
    if (CurrentLibrary() != nullptr)
    {
        if (std::optional<std::wstring> text = CurrentLibrary()->Text(number))
        {
            return *std::move(text);
        }
    }
    const TextTableEntry* const own = FindTextEntry(TextTable(), number);
    return own != nullptr ? own->text : L"";
}

std::wstring FormatText(TextId id, std::initializer_list<std::wstring> arguments)
{
    const std::wstring pattern = LoadText(id);
    std::wstring text;
    for (std::size_t position = 0; position < pattern.size(); ++position)
    {
        const bool isPlaceholder = pattern[position] == L'%' && position + 1 < pattern.size() &&
                                   pattern[position + 1] >= L'1' &&
                                   pattern[position + 1] < L'1' + static_cast<wchar_t>(arguments.size());
        if (!isPlaceholder)
        {
            text += pattern[position];
            continue;
        }
        // What an argument holds is never taken for a placeholder.
        ++position;
        text += arguments.begin()[pattern[position] - L'1'];
    }
    return text;
}
