#include "Framework/XmlEncoding.h"

#include "Platform/Text.h"

#include <algorithm>
#include <cstddef>
#include <string>

namespace VantrelXml
{

namespace
{

/// No declaration is longer; what follows `<?xml` without an end needn't be looked through.
constexpr std::size_t MostOfDeclaration = 256;

/// The wider encodings have a mark or, in the first character of markup, a zero byte.
bool HasWideCharacters(std::string_view bytes)
{
    return bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xFF\xFE") ||
           bytes.substr(0, sizeof(char32_t)).find('\0') != std::string_view::npos;
}

bool DeclaresLatin1(std::string_view bytes)
{
    if (!bytes.starts_with("<?xml"))
    {
        return false;
    }
    const std::wstring declaration =
        Platform::ToLower(Platform::Utf8ToWide(bytes.substr(0, std::min(bytes.find("?>"), MostOfDeclaration))));
    return declaration.find(L"iso-8859-1") != std::wstring::npos || declaration.find(L"latin1") != std::wstring::npos;
}

} // namespace

bool IsReadable(std::string_view bytes)
{
    return HasWideCharacters(bytes) || DeclaresLatin1(bytes) || Platform::IsUtf8(bytes);
}

} // namespace VantrelXml
