#pragma once

#include "Explorer/ListCtrlEx.h"
#include "tests/Support/WindowTest.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/uiaction.h>

#include <memory>
#include <string>
#include <vector>

/// A rule list in a window of its own, with a user at mouse and keyboard.
class ListCtrlExTest : public WindowTest
{
protected:
    ListCtrlExTest()
    {
        frame = new wxFrame(nullptr, wxID_ANY, "test", { 0, 0 }, { 600, 500 }); // destroyed with the test
        list = new CQOXRMListCtrlEx(frame);                                     // owned by the frame
        list->AppendColumn("Rule", wxLIST_FORMAT_LEFT, 200);
        list->AppendColumn("Category", wxLIST_FORMAT_LEFT, 200);
        list->SetRowsChangedHandler(
            [this](const std::vector<int>& changed)
            {
                ++reports;
                list->SetAnchor(changed.back());
                for (const int row : changed)
                {
                    reported.push_back(row);
                }
            });
        frame->Show();
        frame->Raise();
    }
    ~ListCtrlExTest() override
    {
        frame->Destroy();
        wxTheApp->ProcessIdle(); // deletes what is to be destroyed
    }

    void Add(const std::wstring& name, bool ticked)
    {
        auto& rule = *rules.emplace_back(std::make_unique<ConcreteQOXRule>());
        rule.m_strDisplayName = name;
        rule.m_strCategory = name;
        list->SetFilling(true);
        const int row = list->InsertRow(&rule, name);
        list->SetTicked(row, ticked);
        list->SetFilling(false);
    }

    /// Rows "0", "1", ... without ticks, in a list that is ready for the user.
    void AddRows(int count)
    {
        for (int row = 0; row < count; ++row)
        {
            Add(std::to_wstring(row), false);
        }
        list->SetFocus();
        WaitFor([this] { return frame->IsActive(); });
        Settle();
    }

    /// Handles what is to be handled. Events of the user go through the display and back, so
    /// one of our own goes after them.
    void Settle()
    {
        bool seen = false;
        const auto notice = [&seen](wxKeyEvent& event)
        {
            if (event.GetKeyCode() == WXK_F12)
            {
                seen = true;
            }
            event.Skip();
        };
        list->Bind(wxEVT_CHAR_HOOK, notice);
        user.Char(WXK_F12);
        EXPECT_TRUE(WaitFor([&seen] { return seen; })) << "the window doesn't get the keys";
        list->Unbind(wxEVT_CHAR_HOOK, notice);
        wxYield();
        wxTheApp->ProcessIdle();
    }

    void Press(int key, int modifiers = wxMOD_NONE)
    {
        user.Char(key, modifiers);
        Settle();
    }

    /// Beside the box unless `onBox`.
    wxPoint PlaceOf(int row, bool onBox = false)
    {
        wxRect rect;
        list->GetItemRect(row, rect);
        return list->ClientToScreen({ rect.GetLeft() + (onBox ? 12 : 100), rect.GetTop() + rect.GetHeight() / 2 });
    }

    void Click(int row, int modifiers = wxMOD_NONE, bool onBox = false)
    {
        user.MouseMove(PlaceOf(row, onBox));
        for (const auto& [modifier, key] : Keys)
        {
            if ((modifiers & modifier) != 0)
            {
                user.KeyDown(key);
            }
        }
        user.MouseClick();
        for (const auto& [modifier, key] : Keys)
        {
            if ((modifiers & modifier) != 0)
            {
                user.KeyUp(key);
            }
        }
        Settle();
    }

    void DoubleClick(int row, bool onBox = false)
    {
        user.MouseMove(PlaceOf(row, onBox));
        user.MouseDblClick();
        Settle();
    }

    std::wstring Shown() const
    {
        std::wstring names;
        for (int row = 0; row < list->RowCount(); ++row)
        {
            EXPECT_EQ(list->GetItemText(row).ToStdWstring(), list->RuleOfRow(row)->m_strDisplayName);
            names += list->RuleOfRow(row)->m_strDisplayName;
            names += list->IsTicked(row) ? L"+ " : L" ";
        }
        return names;
    }

    std::vector<int> Selected() const
    {
        return RowsThat([this](int row) { return list->IsSelected(row); });
    }

    std::vector<int> Ticked() const
    {
        return RowsThat([this](int row) { return list->IsTicked(row); });
    }

    template <typename Condition>
    std::vector<int> RowsThat(Condition&& condition) const
    {
        std::vector<int> rows;
        for (int row = 0; row < list->RowCount(); ++row)
        {
            if (condition(row))
            {
                rows.push_back(row);
            }
        }
        return rows;
    }

    std::vector<std::unique_ptr<ConcreteQOXRule>> rules;
    wxFrame* frame = nullptr;
    CQOXRMListCtrlEx* list = nullptr;
    wxUIActionSimulator user;
    std::vector<int> reported;
    int reports = 0;

private:
    struct Key
    {
        int modifier;
        int code;
    };
    static constexpr Key Keys[] = { { wxMOD_SHIFT, WXK_SHIFT }, { wxMOD_CONTROL, WXK_CONTROL } };
};

using RowNumbers = std::vector<int>;
