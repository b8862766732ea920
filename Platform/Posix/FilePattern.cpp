#include "Platform/FilePattern.h"

#include "Platform/CharacterCase.h"
#include "Platform/Posix/UpperCharacter.h"

namespace Platform
{
namespace
{

constexpr wchar_t PatternSeparator = L';';
constexpr wchar_t Escape = L'\\';

/// Length of the choice of characters that a pattern begins with; all of the pattern if the choice
/// isn't closed.
std::size_t LengthOfChoice(std::wstring_view pattern)
{
    std::size_t index = 1;
    if (index < pattern.size() && (pattern[index] == L'!' || pattern[index] == L'^'))
    {
        ++index;
    }
    // A bracket in the first place is one of the characters.
    for (const std::size_t first = index; index < pattern.size(); ++index)
    {
        if (pattern[index] == Escape)
        {
            ++index;
        }
        else if (pattern[index] == L']' && index > first)
        {
            return index + 1;
        }
    }
    return pattern.size();
}

/// A choice of the character's forms; the character itself if it has only one.
std::wstring AnyCase(wchar_t character)
{
    const wchar_t lower = LowerCharacter(character);
    const wchar_t upper = Posix::UpperCharacter(character);
    std::wstring forms(1, lower);
    for (const wchar_t form : { upper, character })
    {
        if (forms.find(form) == std::wstring::npos)
        {
            forms += form;
        }
    }
    return forms.size() == 1 ? forms : L"[" + forms + L"]";
}

/// For one pattern.
void AppendInAnyCase(std::wstring& result, std::wstring_view pattern)
{
    while (!pattern.empty())
    {
        std::size_t length = 1;
        if (pattern.front() == L'[' || pattern.front() == Escape)
        {
            length = pattern.front() == Escape ? 2 : LengthOfChoice(pattern);
            result += pattern.substr(0, length);
        }
        else
        {
            result += AnyCase(pattern.front());
        }
        pattern.remove_prefix(length < pattern.size() ? length : pattern.size());
    }
}

} // namespace

std::wstring FilePattern(std::wstring_view pattern)
{
    std::wstring result;
    for (;;)
    {
        const std::size_t end = pattern.find(PatternSeparator);
        AppendInAnyCase(result, pattern.substr(0, end));
        if (end == std::wstring_view::npos)
        {
            return result;
        }
        result += PatternSeparator;
        pattern.remove_prefix(end + 1);
    }
}

} // namespace Platform
