#include "Application/WindowPlace.h"

#include <wx/display.h>
#include <wx/persist/toplevel.h>
#include <wx/toplevel.h>

#include <algorithm>

namespace
{

constexpr int Furthest = 32000; // pixels, as far as window systems count

constexpr int LeastWidth = 400; // in units of a scale of 100 %
constexpr int LeastHeight = 300;

constexpr int TitleHeight = 24; // pixels; high enough on every screen
constexpr int HeldWidth = 48;   // what the mouse needs of a title
constexpr int HeldHeight = 12;

/// Place and size of a window, whatever the settings file says of them.
class PersistentPlace : public wxPersistentWindow<wxTopLevelWindow>, private wxTopLevelWindow::GeometrySerializer
{
public:
    explicit PersistentPlace(wxTopLevelWindow* window) : wxPersistentWindow<wxTopLevelWindow>(window) {}

    void Save() const override { Get()->SaveGeometry(*this); }
    bool Restore() override { return Get()->RestoreToGeometry(*this); }
    wxString GetKind() const override { return wxPERSIST_TLW_KIND; }

private:
    bool SaveField(const wxString& name, int value) const override { return SaveValue(name, value); }
    bool RestoreField(const wxString& name, int* value) override
    {
        if (!RestoreValue(name, value))
        {
            return false;
        }
        *value = std::clamp(*value, -Furthest, Furthest);
        if (name == "Iconized")
        {
            *value = 0; // who starts a program wants to see it
        }
        return true;
    }
};

/// What all screens take together.
wxRect AllScreens()
{
    wxRect all;
    for (unsigned index = 0; index < wxDisplay::GetCount(); ++index)
    {
        all.Union(wxDisplay(index).GetClientArea());
    }
    return all;
}

} // namespace

bool IsTitleOnAScreen(const wxRect& window)
{
    for (unsigned index = 0; index < wxDisplay::GetCount(); ++index)
    {
        wxRect title(window.GetTopLeft(), wxSize(window.GetWidth(), TitleHeight));
        title.Intersect(wxDisplay(index).GetClientArea());
        if (title.GetWidth() >= HeldWidth && title.GetHeight() >= HeldHeight)
        {
            return true;
        }
    }
    return false;
}

void RestorePlace(wxTopLevelWindow& window, const wxSize& startSize)
{
    wxPersistenceManager& manager = wxPersistenceManager::Get();
    manager.Register(&window, new PersistentPlace(&window)); // which owns it
    const bool restored = manager.Restore(&window);

    wxSize size = window.GetSize();
    const wxSize least = window.FromDIP(wxSize(LeastWidth, LeastHeight));
    const bool useful = restored && size.GetWidth() >= least.GetWidth() && size.GetHeight() >= least.GetHeight();
    if (!useful)
    {
        size = window.FromDIP(startSize);
    }
    size.DecTo(AllScreens().GetSize());
    if (size != window.GetSize())
    {
        window.SetSize(size);
    }
    if (!useful || !IsTitleOnAScreen(window.GetRect()))
    {
        window.Centre();
    }
}
