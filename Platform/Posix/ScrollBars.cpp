#include "Platform/ScrollBars.h"

#include <glib-object.h>

namespace Platform
{
namespace
{

// Of the toolkit's enumeration of policies. `Never` is none of them: it would make the field
// as large as its text.
constexpr gint Always = 0;
constexpr gint External = 3;

gint PolicyOf(bool shown)
{
    return shown ? Always : External;
}

} // namespace

void ShowScrollBars(void* field, const ScrollBars& bars)
{
    if (field != nullptr)
    {
        g_object_set(field, "hscrollbar-policy", PolicyOf(bars.horizontal), "vscrollbar-policy",
                     PolicyOf(bars.vertical), nullptr);
    }
}

ScrollBars ShownScrollBars(void* field)
{
    gint horizontal = External;
    gint vertical = External;
    if (field != nullptr)
    {
        g_object_get(field, "hscrollbar-policy", &horizontal, "vscrollbar-policy", &vertical, nullptr);
    }
    return { horizontal == Always, vertical == Always };
}

} // namespace Platform
