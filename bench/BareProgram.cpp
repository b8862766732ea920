#include <wx/app.h>
#include <wx/docmdi.h>
#include <wx/docview.h>
#include <wx/menu.h>

#include <memory>

namespace
{

class EmptyDocument : public wxDocument
{
    wxDECLARE_DYNAMIC_CLASS(EmptyDocument);
};

class EmptyView : public wxView
{
public:
    bool OnCreate(wxDocument* document, long /*flags*/) override;
    void OnDraw(wxDC* /*dc*/) override {}

private:
    wxDECLARE_DYNAMIC_CLASS(EmptyView);
};

wxIMPLEMENT_DYNAMIC_CLASS(EmptyDocument, wxDocument);
wxIMPLEMENT_DYNAMIC_CLASS(EmptyView, wxView);

bool EmptyView::OnCreate(wxDocument* document, long /*flags*/)
{
    auto* const parent = static_cast<wxDocMDIParentFrame*>(wxTheApp->GetTopWindow());
    auto* const frame = new wxDocMDIChildFrame(document, this, parent, wxID_ANY, "empty"); // owned by the toolkit
    SetFrame(frame);
    frame->Show();
    return true;
}

} // namespace

/// What the toolkit takes to start and show a main window with one empty document in it.
class BareProgram : public wxApp
{
public:
    bool OnInit() override
    {
        m_documents = std::make_unique<wxDocManager>();
        new wxDocTemplate(m_documents.get(), "Files", "*.x", "", "x", "Document", "View", wxCLASSINFO(EmptyDocument),
                          wxCLASSINFO(EmptyView)); // owned by the manager
        auto* const frame = new wxDocMDIParentFrame(m_documents.get(), nullptr, wxID_ANY, "Bare Program",
                                                    wxDefaultPosition, wxSize(1000, 700)); // owned by the toolkit
        auto* const menu = new wxMenu;
        menu->Append(wxID_EXIT);
        auto* const menuBar = new wxMenuBar;
        menuBar->Append(menu, "File");
        frame->SetMenuBar(menuBar);
        frame->CreateStatusBar();
        SetTopWindow(frame);
        if (m_documents->CreateNewDocument() == nullptr)
        {
            return false;
        }
        frame->Show();
        return true;
    }

    int OnExit() override
    {
        m_documents.reset();
        return wxApp::OnExit();
    }

private:
    std::unique_ptr<wxDocManager> m_documents;
};

wxIMPLEMENT_APP(BareProgram);
