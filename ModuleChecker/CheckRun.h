#pragma once

#include "ModuleChecker/CommandLine.h"

#include <functional>
#include <string>
#include <vector>

namespace ModuleChecker
{

/// How a check ends, in the order of weight.
enum ExitStatus : int
{
    NoErrors = 0,
    Errors = 1,
    NothingToCheck = 2,
};

using PrintLine = std::function<void(const std::wstring& line)>;

/// Checks each module of the request in a process of its own, which the program `worker` is
/// started for, and prints what is found. The status is the heaviest of all modules.
ExitStatus CheckModules(const Request& request, const std::wstring& worker, const PrintLine& print);

/// What the worker does: checks the one module of the request and tells its parent. False in a
/// process that isn't a worker's.
bool RunWorker(const Request& request);

} // namespace ModuleChecker
