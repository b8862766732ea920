#include "Platform/ScreenReader.h"

#include "Platform/Text.h"

#include <dlfcn.h>

namespace Platform
{
namespace
{

// The window library is in every process that has a native window to name. It is asked for by
// name, because nothing else of the platform's services needs it or its headers.
template <typename Function>
Function Find(const char* name)
{
    return reinterpret_cast<Function>(::dlsym(RTLD_DEFAULT, name));
}

/// What the window library tells assistive programs of a window; null if it isn't there.
void* AccessibleOf(void* window)
{
    const auto accessibleOf = Find<void* (*)(void*)>("gtk_widget_get_accessible");
    return accessibleOf != nullptr ? accessibleOf(window) : nullptr;
}

/// The window within one that scrolls; null if it is no such window.
void* WindowWithin(void* window)
{
    const auto typeOf = Find<std::size_t (*)()>("gtk_scrolled_window_get_type");
    const auto isOf = Find<int (*)(void*, std::size_t)>("g_type_check_instance_is_a");
    const auto child = Find<void* (*)(void*)>("gtk_bin_get_child");
    if (typeOf == nullptr || isOf == nullptr || child == nullptr || isOf(window, typeOf()) == 0)
    {
        return nullptr;
    }
    return child(window);
}

} // namespace

void NameForScreenReaders(void* nativeWindow, const std::wstring& name, ScreenReaderRole role)
{
    const auto setName = Find<void (*)(void*, const char*)>("atk_object_set_name");
    const auto setRole = Find<void (*)(void*, int)>("atk_object_set_role");
    const auto roleNamed = Find<int (*)(const char*)>("atk_role_for_name");
    if (setName == nullptr || setRole == nullptr || roleNamed == nullptr)
    {
        return;
    }
    for (void* window = nativeWindow; window != nullptr; window = WindowWithin(window))
    {
        if (void* const accessible = AccessibleOf(window))
        {
            setName(accessible, WideToUtf8(name).c_str());
            if (role == ScreenReaderRole::List)
            {
                setRole(accessible, roleNamed("list"));
            }
        }
    }
}

void NameTabForScreenReaders(void* nativeTabs, int tab, const std::wstring& name)
{
    const auto setName = Find<void (*)(void*, const char*)>("atk_object_set_name");
    const auto child = Find<void* (*)(void*, int)>("atk_object_ref_accessible_child");
    const auto release = Find<void (*)(void*)>("g_object_unref");
    void* const tabs = AccessibleOf(nativeTabs);
    if (setName == nullptr || child == nullptr || release == nullptr || tabs == nullptr)
    {
        return;
    }
    if (void* const accessible = child(tabs, tab))
    {
        setName(accessible, WideToUtf8(name).c_str());
        release(accessible);
    }
}

} // namespace Platform
