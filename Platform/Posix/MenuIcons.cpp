#include "Platform/MenuIcons.h"

#include <dlfcn.h>
#include <glib-object.h>

namespace Platform
{

bool ShowIconsInMenus()
{
    // The toolkit's own library is in the process, but nothing of it is known where this is built.
    using SettingsFunction = GObject* (*)();
    const auto settingsOf = reinterpret_cast<SettingsFunction>(::dlsym(RTLD_DEFAULT, "gtk_settings_get_default"));
    GObject* const settings = settingsOf != nullptr ? settingsOf() : nullptr; // owned by the toolkit
    if (settings == nullptr)
    {
        return false;
    }
    gboolean shown = FALSE;
    g_object_set(settings, "gtk-menu-images", TRUE, nullptr);
    g_object_get(settings, "gtk-menu-images", &shown, nullptr);
    return shown != FALSE;
}

} // namespace Platform
