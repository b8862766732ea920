// What a parent starts in tests: it tells the words behind the first one, and then does what that says.

#include "Platform/ChildProcess.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string_view>

int main(int count, char** arguments)
{
    if (count < 2 || !Platform::BeginAsChild())
    {
        return 99;
    }
    std::puts("this is not for the parent");
    std::fflush(stdout);
    for (int index = 2; index < count; ++index)
    {
        Platform::TellParent(arguments[index]);
    }
    const std::string_view end = arguments[1];
    if (end == "abort")
    {
        std::abort();
    }
    if (end == "segv")
    {
        std::raise(SIGSEGV);
    }
    for (volatile bool forever = end == "hang"; forever;)
    {
    }
    return std::atoi(arguments[1]);
}
