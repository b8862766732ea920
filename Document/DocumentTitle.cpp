#include "Document/DocumentTitle.h"

std::wstring DocumentTitle::ForName(const std::wstring& name, bool readOnly)
{
    return readOnly ? name + L" [Read-Only] " : name;
}

std::wstring DocumentTitle::ForModified(std::wstring title, bool modified)
{
    const bool marked = !title.empty() && title.back() == L'*';
    if (marked && !modified)
    {
        title.pop_back();
    }
    else if (!marked && modified)
    {
        title += L'*';
    }
    return title;
}
