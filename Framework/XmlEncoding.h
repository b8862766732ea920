#pragma once

#include <string_view>

namespace VantrelXml
{

/// True if the parser reads the bytes in the encoding that they are in: UTF-8, UTF-16, UTF-32
/// or Latin 1.
bool IsReadable(std::string_view bytes);

} // namespace VantrelXml
