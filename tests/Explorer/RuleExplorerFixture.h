#pragma once

#include "Document/RuleDocument.h"
#include "Explorer/RuleExplorer.h"
#include "Explorer/RuleRows.h"
#include "Explorer/RuleText.h"
#include "tests/Document/TestApplication.h"
#include "tests/Support/TestFiles.h"

#include <Vantrel/QoxRule.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// The rows of a list control, without one.
class FakeRows : public IRuleRows
{
public:
    struct Row
    {
        CQoxRule* rule = nullptr;
        std::array<std::wstring, RuleColumnCount> texts;
        bool ticked = false;
        bool selected = false;
    };

    int RowCount() const override { return static_cast<int>(rows.size()); }
    CQoxRule* RuleOfRow(int row) const override { return At(row).rule; }
    int InsertRow(CQoxRule* rule, const std::wstring& text) override
    {
        rows.push_back({ rule, { text }, false, false });
        return RowCount() - 1;
    }
    void RemoveRow(int row) override { rows.erase(rows.begin() + row); }
    void SetText(int row, int column, const std::wstring& text) override
    {
        At(row).texts[static_cast<std::size_t>(column)] = text;
    }
    bool IsTicked(int row) const override { return At(row).ticked; }
    void SetTicked(int row, bool ticked) override { At(row).ticked = ticked; }
    void SetSelected(int row, bool selected) override { At(row).selected = selected; }
    void DeselectAll() override
    {
        for (Row& row : rows)
        {
            row.selected = false;
        }
    }
    int SelectedCount() const override
    {
        return static_cast<int>(std::count_if(rows.begin(), rows.end(), [](const Row& row) { return row.selected; }));
    }
    int FirstSelected() const override
    {
        const auto found = std::find_if(rows.begin(), rows.end(), [](const Row& row) { return row.selected; });
        return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
    }
    void WidenColumnFor(int column, const std::wstring& text) override { measured[column].push_back(text); }
    void SetAnchor(int row) override { anchor = row; }

    Row& At(int row) { return rows.at(static_cast<std::size_t>(row)); }
    const Row& At(int row) const { return rows.at(static_cast<std::size_t>(row)); }

    int Find(const std::wstring& name) const
    {
        const auto found =
            std::find_if(rows.begin(), rows.end(), [&name](const Row& row) { return row.rule->m_strRuleName == name; });
        return found == rows.end() ? -1 : static_cast<int>(found - rows.begin());
    }

    std::vector<Row> rows;
    std::map<int, std::vector<std::wstring>> measured;
    int anchor = -1;
};

class FakeWindow : public IExplorerWindow
{
public:
    void SetDocumentModified(bool value) override { modified = value; }
    void SetSingleSelection(bool value) override { single = value; }
    void ClearSummary() override { summary = L"(cleared)"; }
    void ShowSummary(const std::wstring& text) override { summary = text; }
    void SetStatus(const std::wstring& text) override
    {
        status = text;
        ++timesStatusSet;
    }
    void TellNoDatabaseModule() override { ++noDatabaseMessages; }
    void TellRuleEdited() override { ++editsTold; }
    void TellEditorFailed(const std::wstring& ruleName) override { failedEditors.push_back(ruleName); }

    bool modified = false;
    bool single = false;
    std::wstring summary;
    std::wstring status;
    int timesStatusSet = 0;
    int noDatabaseMessages = 0;
    int editsTold = 0;
    std::vector<std::wstring> failedEditors;
};

class RuleExplorerTest : public testing::Test
{
protected:
    ~RuleExplorerTest() override { document.ReleaseRules(explorer.TakeRulesToGiveBack()); }

    void LoadModules()
    {
        application.LoadDatabaseModules({ L"TestDatabaseComplete" });
        application.LoadRuleModules({ L"TestModuleComplete", L"TestModuleSecond" });
    }

    void OpenWith(const std::string& rules, const std::string& attributes = "")
    {
        WriteBytes(path, "<Lumeq " + attributes + ">" + rules + "</Lumeq>");
        ASSERT_EQ(document.Open(path), RuleDocument::OpenFailure::None);
        explorer.UpdateRuleList(true);
    }

    void Tick(int row, bool ticked)
    {
        rows.SetTicked(row, ticked);
        explorer.OnRowsChanged({ row });
    }

    std::vector<std::wstring> Names() const
    {
        std::vector<std::wstring> names;
        for (const FakeRows::Row& row : rows.rows)
        {
            names.push_back(row.rule->m_strRuleName);
        }
        return names;
    }

    TestApplication application;
    TemporaryFolder folder;
    std::wstring path = folder.File(L"rules.vrf");
    std::optional<bool> vstaSupport = true;
    RuleDocument document;
    FakeRows rows;
    FakeWindow window;
    RuleExplorer explorer{ document, application.Modules(), rows, window, [this] { return vstaSupport; } };
};
