#pragma once

#include "Platform/Hash.h"

#include <string>

class QoxXMLNode;

/// The hash of a file's rules, by which a reader sees that they were changed by hand: the
/// MD5 of the markup of all rules as 16-bit units, low byte first, with nothing between.
class RulesDigest
{
public:
    /// Takes the next rule's element.
    void Add(const QoxXMLNode& element);

    /// The digest as 32 lower-case hexadecimal digits. Empty without rules or if the
    /// system can't hash. Called once, at the end.
    std::wstring Finish();

private:
    Platform::Md5 m_hash;
    bool m_empty = true;
};
