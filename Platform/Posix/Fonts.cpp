#include "Platform/Fonts.h"

#include <dlfcn.h>

namespace Platform
{

void PrepareFonts()
{
    // The toolkit's own library is in the process, but nothing of it is known where this is built.
    using FontMapFunction = void* (*)();
    const auto makeFontMap =
        reinterpret_cast<FontMapFunction>(::dlsym(RTLD_DEFAULT, "pango_cairo_font_map_get_default"));
    if (makeFontMap != nullptr)
    {
        makeFontMap(); // is kept by its library, which looks for fonts on a thread of its own
    }
}

} // namespace Platform
