#pragma once

#include <Vantrel/Export.h>

#include <string>
#include <vector>

class VANTREL_API CQOXFrameWrkUtils
{
public:
    /// Fills the list with the rule categories that are offered for user-defined rules.
    static void GetRuleCategoryStringList(std::vector<std::wstring>& categories);
};
