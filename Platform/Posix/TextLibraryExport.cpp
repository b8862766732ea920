#include "Lang/TextTable.h"
#include "Platform/Posix/TextLibrary.h"

extern "C" const wchar_t* VantrelResourceText(std::uint32_t number)
{
    const TextTableEntry* const entry = FindTextEntry(TextTable(), number);
    return entry != nullptr ? entry->text : nullptr;
}
