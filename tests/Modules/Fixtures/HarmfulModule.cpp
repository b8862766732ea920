// Libraries that do harm as they are loaded, in the way that is chosen by a definition.

#include <cstdlib>
#include <stdexcept>

namespace
{

struct HarmfulStart
{
    HarmfulStart()
    {
#if defined(HARM_ABORTS)
        std::abort();
#elif defined(HARM_EXITS)
        std::exit(0);
#elif defined(HARM_LEAVES)
        std::_Exit(0); // nothing that is registered for the end runs
#elif defined(HARM_CRASHES)
        volatile int* const nothing = nullptr;
        *nothing = 1;
#elif defined(HARM_THROWS)
        throw std::runtime_error("a library failed");
#endif
    }
};

const HarmfulStart harmfulStart;

} // namespace
