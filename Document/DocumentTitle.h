#pragma once

#include <string>

/// The titles of document windows.
namespace DocumentTitle
{

/// Title of a document with the given name: a document that may not be saved says so.
std::wstring ForName(const std::wstring& name, bool readOnly);

/// The title after a change of the modified state: a modified document has a `*` at the end.
std::wstring ForModified(std::wstring title, bool modified);

} // namespace DocumentTitle
