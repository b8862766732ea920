#include "Application/ForwardedFile.h"

#include "Modules/ApplicationGlobals.h"
#include "Platform/Text.h"

std::optional<std::wstring> ForwardedPath(const void* data, std::size_t size)
{
    constexpr std::size_t UnitSize = 2;
    if (data == nullptr || size < UnitSize)
    {
        return std::nullopt;
    }
    const auto* const bytes = static_cast<const unsigned char*>(data);
    std::u16string units;
    for (std::size_t position = 0; position + UnitSize <= size; position += UnitSize)
    {
        const auto unit = static_cast<char16_t>(bytes[position] | (bytes[position + 1] << 8));
        if (unit == 0)
        {
            break;
        }
        units += unit;
    }
    return Platform::Utf16ToWide(units);
}

bool TakeForwardedFile(const void* data, std::size_t size, const std::function<void(const std::wstring&)>& open)
{
    const std::optional<std::wstring> path = ForwardedPath(data, size);
    if (!path)
    {
        return true;
    }
    if (g_bEditInProgress)
    {
        return false;
    }
    if (!path->empty())
    {
        open(*path);
    }
    return true;
}
