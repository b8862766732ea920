#pragma once

#include "Utilities/QOXUIUtils.h"

#include <string>
#include <utility>

/// Runs a call into a module or one of its rules. A module is someone else's code: what it
/// throws ends the call and goes into the log under the module's path, not through the
/// program. False if it threw.
template <typename Call>
bool GuardModuleCall(const std::wstring& modulePath, Call&& call)
{
    try
    {
        std::forward<Call>(call)();
        return true;
    }
    catch (...)
    {
        LogMessage(L"Rule module %s failed", modulePath);
        return false;
    }
}
