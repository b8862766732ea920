#pragma once

/// The scroll bars of the system's own text fields.
namespace Platform
{

/// Which bars a field shows.
struct ScrollBars
{
    bool horizontal = false;
    bool vertical = false;
};

/// Shows and hides the bars of a text field of several lines. A hidden one leaves the text as
/// scrollable as it was. `field` is the window as the system knows it; null does nothing.
void ShowScrollBars(void* field, const ScrollBars& bars);

/// The bars that `ShowScrollBars` has shown last. Before the first call, and for null, the
/// result is without a meaning.
ScrollBars ShownScrollBars(void* field);

} // namespace Platform
