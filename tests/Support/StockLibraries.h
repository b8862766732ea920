#pragma once

#include <sstream>
#include <string>
#include <vector>

/// The names of the stock modules, as the build lists them for a test: parted by commas.
inline std::vector<std::string> StockLibraries(const char* listed)
{
    std::vector<std::string> libraries;
    std::istringstream list(listed);
    for (std::string library; std::getline(list, library, ',');)
    {
        libraries.push_back(library);
    }
    return libraries;
}
