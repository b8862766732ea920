#pragma once

#include <string>

/// What programs that read the screen to their users are told of windows.
namespace Platform
{

/// What a window is said to be.
enum class ScreenReaderRole
{
    OfWindow, ///< What the system takes it for.
    List,
};

/// Gives a window a name in place of the one that the system finds for it, if any. The part of it
/// that has the keyboard gets it too. Does nothing where the system has no such service.
void NameForScreenReaders(void* nativeWindow, const std::wstring& name,
                          ScreenReaderRole role = ScreenReaderRole::OfWindow);

/// Same for a tab, which has no window of its own, by its number in a row of tabs from 0.
void NameTabForScreenReaders(void* nativeTabs, int tab, const std::wstring& name);

} // namespace Platform
