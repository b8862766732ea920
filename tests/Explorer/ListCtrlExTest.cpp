// The rule list as a real control.

#include "Explorer/ListCtrlEx.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/init.h>

#include <memory>
#include <vector>

namespace
{

class ListCtrlExTest : public testing::Test
{
protected:
    ListCtrlExTest()
    {
        wxApp::SetInstance(new wxApp); // owned by the toolkit
        toolkit = std::make_unique<wxInitializer>();
        frame = new wxFrame(nullptr, wxID_ANY, "test"); // destroyed with the test
        list = new CQOXRMListCtrlEx(frame);             // owned by the frame
        list->AppendColumn("Rule");
        list->AppendColumn("Category");
        frame->Show();
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
        const int row = list->InsertRow(&rule, name);
        list->SetTicked(row, ticked);
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

    std::unique_ptr<wxInitializer> toolkit;
    std::vector<std::unique_ptr<ConcreteQOXRule>> rules;
    wxFrame* frame = nullptr;
    CQOXRMListCtrlEx* list = nullptr;
};

} // namespace

TEST_F(ListCtrlExTest, SortingTakesBoxesFromTheRowsAndCarriesThemAlong)
{
    Add(L"c", false);
    Add(L"b", true);
    Add(L"d", false);
    Add(L"a", true);
    list->Sort(RuleOrder::KeyTicked);
    EXPECT_EQ(Shown(), L"a+ b+ c d ");
    EXPECT_EQ(rules[1]->m_nRuleState, 1);
    EXPECT_EQ(list->GetSortIndicator(), 0);
    EXPECT_TRUE(list->IsAscendingSortIndicator());
    list->SetTicked(0, false);
    list->Sort(RuleOrder::KeyTicked);
    EXPECT_EQ(Shown(), L"a c d b+ ");
    EXPECT_EQ(rules[3]->m_nRuleState, 0);
    EXPECT_FALSE(list->IsAscendingSortIndicator());
    list->Sort(RuleOrder::KeyCategory);
    EXPECT_EQ(Shown(), L"a b+ c d ");
    EXPECT_EQ(list->GetSortIndicator(), 1);
}

TEST_F(ListCtrlExTest, TheRowWithTheFocusKeepsItWhereverItGoes)
{
    Add(L"b", false);
    Add(L"a", false);
    list->SetItemState(0, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
    list->Sort(RuleOrder::KeyCategory);
    EXPECT_EQ(Shown(), L"a b ");
    EXPECT_EQ(list->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_FOCUSED), 1);
}

TEST_F(ListCtrlExTest, TenThousandRowsAreSorted)
{
    constexpr int Count = 10'000;
    for (int number = 0; number < Count; ++number)
    {
        Add(std::to_wstring(10 * Count + (number * 7919) % Count), number % 3 == 0);
    }
    list->Sort(RuleOrder::KeyCategory);
    for (int row = 1; row < Count; ++row)
    {
        ASSERT_LT(list->RuleOfRow(row - 1)->m_strCategory, list->RuleOfRow(row)->m_strCategory);
    }
}
