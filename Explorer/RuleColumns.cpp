#include "Explorer/RuleColumns.h"

#include "Explorer/ListCtrlEx.h"
#include "Utilities/Texts.h"

#include <wx/menu.h>
#include <wx/persist.h>
#include <wx/weakref.h>

namespace
{

// The headings hand a width that the user chose on when they are idle, after the list is.
constexpr int IdlesToWait = 2;

} // namespace

/// What of the columns is kept for the user.
class RuleColumns::Kept : public wxPersistentObject
{
public:
    explicit Kept(RuleColumns& columns) : wxPersistentObject(&columns), m_columns(columns) {}

    void Save() const override { SaveValue(wxASCII_STR(Name), wxString(m_columns.m_shares.ToText())); }

    bool Restore() override
    {
        wxString text;
        if (!RestoreValue(wxASCII_STR(Name), &text))
        {
            return false;
        }
        m_columns.m_shares.FromText(text.ToStdWstring());
        return true;
    }

    wxString GetKind() const override { return wxASCII_STR("List"); }
    wxString GetName() const override { return wxASCII_STR("Rules"); }

private:
    static constexpr const char* Name = "ColumnShares";

    RuleColumns& m_columns;
};

RuleColumns::RuleColumns(CQOXRMListCtrlEx& list) : m_list(list)
{
    m_list.Bind(wxEVT_LIST_COL_END_DRAG, &RuleColumns::OnSized, this);
    m_list.Bind(wxEVT_IDLE, &RuleColumns::OnIdle, this);
    m_list.SetFittedHandler(
        [self = wxWeakRef<RuleColumns>(this)] // the list may live longer
        {
            if (self)
            {
                self->m_idlesToWait = IdlesToWait;
            }
        });
    m_list.Bind(wxEVT_LIST_COL_RIGHT_CLICK, &RuleColumns::OnRightClick, this);
    wxPersistenceManager::Get().RegisterAndRestore(this, new Kept(*this)); // owned by the manager
}

RuleColumns::~RuleColumns()
{
    // Saved whenever they change: of several lists the last to be sized counts, not the last to go.
    wxPersistenceManager::Get().Unregister(this);
}

void RuleColumns::Layout(int listWidth)
{
    m_listWidth = listWidth;
    const ColumnShares::Widths widths = m_shares.In(listWidth);
    for (int column = RuleColumnCount - 1; column >= 0; --column)
    {
        m_list.SetColumnWidth(column, widths.at(static_cast<std::size_t>(column)));
    }
}

std::unique_ptr<wxMenu> RuleColumns::MakeMenu()
{
    auto menu = std::make_unique<wxMenu>();
    const int reset = menu->Append(wxID_ANY, LoadText(TextId::CommandResetColumnWidths))->GetId();
    menu->Enable(reset, m_shares.AreOfUser());
    menu->Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { Reset(); }, reset);
    return menu;
}

void RuleColumns::OnSized(wxListEvent& event)
{
    event.Skip();
    m_idlesToWait = IdlesToWait;
}

void RuleColumns::OnIdle(wxIdleEvent& event)
{
    event.Skip();
    if (m_idlesToWait == 0)
    {
        return;
    }
    if (--m_idlesToWait == 0)
    {
        TakeWidths();
    }
    else
    {
        event.RequestMore();
    }
}

void RuleColumns::OnRightClick(wxListEvent& /*event*/)
{
    const std::unique_ptr<wxMenu> menu = MakeMenu();
    m_list.PopupMenu(menu.get());
}

void RuleColumns::TakeWidths()
{
    ColumnShares::Widths widths{};
    for (int column = 0; column < RuleColumnCount; ++column)
    {
        widths.at(static_cast<std::size_t>(column)) = m_list.GetColumnWidth(column);
    }
    m_shares.Take(widths, m_listWidth);
    wxPersistenceManager::Get().Save(this);
}

void RuleColumns::Reset()
{
    m_shares.Reset();
    wxPersistenceManager::Get().Save(this);
    Layout(m_listWidth);
}
