#include "Document/RulesDigest.h"

#include "Platform/Text.h"

#include <Vantrel/QoxXml.h>

#include <optional>

void RulesDigest::Add(const QoxXMLNode& element)
{
    std::string bytes;
    for (const char16_t unit : Platform::WideToUtf16(element.GetXML()))
    {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    m_hash.Add(bytes.data(), bytes.size());
    m_empty = false;
}

std::wstring RulesDigest::Finish()
{
    if (m_empty)
    {
        return {};
    }
    const std::optional<std::string> digits = m_hash.Finish();
    return digits ? std::wstring(digits->begin(), digits->end()) : std::wstring();
}
