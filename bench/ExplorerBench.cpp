// The rule list with 10,000 rows, against a bare list control with boxes that holds the same
// texts. Needs a display. Each round does the same with the one and then with the other; the
// ratio is the median over the rounds.

#include "bench/BenchTiming.h"
#include "Document/RuleDocument.h"
#include "Explorer/ListCtrlEx.h"
#include "Explorer/RuleExplorer.h"
#include "Explorer/RuleText.h"
#include "Modules/ModuleSet.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <benchmark/benchmark.h>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/init.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <vector>

namespace
{

constexpr int Rows = 10'000;
constexpr int Rounds = 5;

/// The toolkit and one window, for as long as the program runs.
class Toolkit
{
public:
    Toolkit()
    {
        wxApp::SetInstance(new wxApp); // owned by the toolkit
        m_toolkit = std::make_unique<wxInitializer>();
        frame = new wxFrame(nullptr, wxID_ANY, "bench", { 0, 0 }, { 1000, 700 });
        frame->Show();
    }

    static Toolkit& Get()
    {
        static auto* const toolkit = new Toolkit; // the toolkit ends with the process
        return *toolkit;
    }

    wxFrame* frame = nullptr; // owned by the window system

private:
    std::unique_ptr<wxInitializer> m_toolkit;
};

/// Shows nothing: the costs of the list are what is measured.
class NoWindow : public IExplorerWindow
{
public:
    void SetDocumentModified(bool /*modified*/) override {}
    void SetSingleSelection(bool /*single*/) override {}
    void ClearSummary() override {}
    void ShowSummary(const std::wstring& /*text*/) override {}
    void SetStatus(const std::wstring& /*text*/) override {}
    void TellNoDatabaseModule() override {}
    void TellRuleEdited() override {}
    void TellEditorFailed(const std::wstring& /*ruleName*/) override {}
};

/// What the names of rules differ in.
enum class Names : int
{
    InNumbers,
    InLetters,
};

/// A document of user-defined rules, a third of them in the file.
void FillDocument(RuleDocument& document, Names names)
{
    constexpr std::array Categories = { L"Holes", L"Walls", L"Pockets", L"Bends", L"Tolerances" };
    for (int number = 0; number < Rows; ++number)
    {
        ConcreteQOXRule rule;
        // Names in no order, as long as those of real rules.
        std::wstring place = std::to_wstring((number * 7'919LL) % Rows);
        if (names == Names::InLetters)
        {
            std::transform(place.begin(), place.end(), place.begin(),
                           [](wchar_t digit) { return static_cast<wchar_t>(digit - L'0' + L'a'); });
        }
        rule.m_strRuleName = L"Minimum distance between features " + place;
        rule.m_strDisplayName = rule.m_strRuleName;
        rule.m_strSummary = L"Finds features that are too near to each other.";
        rule.m_strCategory = Categories[static_cast<std::size_t>(number % 5)];
        rule.m_strRuleModule = InteractiveRuleMark;
        rule.m_nCriticality = number % 5 + 1;
        rule.m_nRuleState = number % 3 == 0 ? 1 : 0;
        document.AddUserRule(&rule);
    }
}

template <typename List>
void AddColumns(List& list)
{
    for (int column = 0; column < RuleColumnCount; ++column)
    {
        list.AppendColumn("Column", wxLIST_FORMAT_LEFT, 100);
    }
}

/// The rule list with its logic, over a document of its own.
class RuleListUnderTest
{
public:
    explicit RuleListUnderTest(Names names = Names::InNumbers)
        : list(new CQOXRMListCtrlEx(Toolkit::Get().frame)) // owned until it is destroyed here
    {
        FillDocument(document, names);
        AddColumns(*list);
        m_explorer = std::make_unique<RuleExplorer>(document, m_modules, *list, m_window, [] { return true; });
        list->SetRowsChangedHandler([this](const std::vector<int>& rows) { m_explorer->OnRowsChanged(rows); });
    }
    ~RuleListUnderTest()
    {
        document.ReleaseRules(m_explorer->TakeRulesToGiveBack());
        list->Destroy();
    }
    RuleListUnderTest(const RuleListUnderTest&) = delete;
    RuleListUnderTest& operator=(const RuleListUnderTest&) = delete;

    void Fill()
    {
        list->SetFilling(true);
        list->Freeze();
        m_explorer->UpdateRuleList(true);
        list->Thaw();
        list->SetFilling(false);
        Require(list->RowCount() == Rows, "rows are missing");
    }

    void Press(int key, bool ctrl)
    {
        wxKeyEvent event(wxEVT_CHAR_HOOK);
        event.m_keyCode = key;
        event.SetControlDown(ctrl);
        list->ProcessWindowEvent(event);
    }

    RuleDocument document;
    CQOXRMListCtrlEx* list;

private:
    ModuleSet m_modules;
    NoWindow m_window;
    std::unique_ptr<RuleExplorer> m_explorer;
};

/// A control with the same rows and nothing beside.
class BareList
{
public:
    BareList() : list(new wxListCtrl(Toolkit::Get().frame, wxID_ANY, {}, {}, wxLC_REPORT | wxBORDER_THEME))
    {
        list->EnableCheckBoxes();
        AddColumns(*list);
    }
    ~BareList() { list->Destroy(); }
    BareList(const BareList&) = delete;
    BareList& operator=(const BareList&) = delete;

    void Fill(const PointerArray& rules)
    {
        list->Freeze();
        for (const CQoxRule* const rule : rules)
        {
            const long row = list->InsertItem(list->GetItemCount(), RuleColumnText(*rule, RuleColumn::Name));
            for (const RuleColumn column : { RuleColumn::Category, RuleColumn::Module, RuleColumn::Criticality })
            {
                list->SetItem(row, static_cast<int>(column), RuleColumnText(*rule, column));
            }
            list->SetItemPtrData(row, reinterpret_cast<wxUIntPtr>(rule));
            if (rule->m_nRuleState == 1)
            {
                list->CheckItem(row, true);
            }
        }
        list->Thaw();
    }

    wxListCtrl* list;
};

/// Compares by the text of the column alone, as a plain program would.
int wxCALLBACK CompareTexts(wxIntPtr first, wxIntPtr second, wxIntPtr key)
{
    const auto& one = *reinterpret_cast<const CQoxRule*>(first);
    const auto& other = *reinterpret_cast<const CQoxRule*>(second);
    switch (key)
    {
    case RuleOrder::KeyTicked:
        return one.m_strDisplayName.compare(other.m_strDisplayName);
    case RuleOrder::KeyCategory:
        return one.m_strCategory.compare(other.m_strCategory);
    case RuleOrder::KeyModule:
        return one.m_strRuleModule.compare(other.m_strRuleModule);
    default:
        return one.m_nCriticality - other.m_nCriticality;
    }
}

/// Reports the median of the ratios, and of both times in milliseconds.
class Pairs
{
public:
    void Add(double ours, double bare)
    {
        m_ours.push_back(ours * 1000);
        m_bare.push_back(bare * 1000);
        m_ratios.push_back(ours / bare);
    }

    void Report(benchmark::State& state) const
    {
        state.counters["ratio"] = Median(m_ratios);
        state.counters["ours_ms"] = Median(m_ours);
        state.counters["bare_ms"] = Median(m_bare);
    }

private:
    std::vector<double> m_ours;
    std::vector<double> m_bare;
    std::vector<double> m_ratios;
};

void FillRows(benchmark::State& state)
{
    Pairs pairs;
    for ([[maybe_unused]] auto _ : state)
    {
        RuleListUnderTest ours(static_cast<Names>(state.range(0)));
        BareList bare;
        // As when a file is opened, after which the columns are laid out; or as when modules come.
        ours.list->SetKeepsWidths(state.range(1) == 0);
        const double oursTime = SecondsOf([&] { ours.Fill(); });
        pairs.Add(oursTime, SecondsOf([&] { bare.Fill(ours.document.UserRules()); }));
        state.SetIterationTime(oursTime);
    }
    pairs.Report(state);
}

void SortRows(benchmark::State& state)
{
    const int key = static_cast<int>(state.range(0));
    // Both start from the order of another column.
    const int before = key == RuleOrder::KeyCriticality ? RuleOrder::KeyCategory : RuleOrder::KeyCriticality;
    Pairs pairs;
    RuleListUnderTest ours;
    BareList bare;
    ours.Fill();
    bare.Fill(ours.document.UserRules());
    for ([[maybe_unused]] auto _ : state)
    {
        ours.list->Sort(before);
        bare.list->SortItems(&CompareTexts, before);
        const double oursTime = SecondsOf([&] { ours.list->Sort(key); });
        pairs.Add(oursTime, SecondsOf([&] { bare.list->SortItems(&CompareTexts, key); }));
        state.SetIterationTime(oursTime);
    }
    pairs.Report(state);
}

/// Ctrl+A with a row that has the focus.
void SelectAllRows(benchmark::State& state)
{
    Pairs pairs;
    RuleListUnderTest ours;
    BareList bare;
    ours.Fill();
    bare.Fill(ours.document.UserRules());
    for ([[maybe_unused]] auto _ : state)
    {
        ours.list->SetFilling(true);
        ours.list->DeselectAll();
        ours.list->SetFilling(false);
        bare.list->SetItemState(-1, 0, wxLIST_STATE_SELECTED);
        ours.list->SetItemState(0, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED);
        const double oursTime = SecondsOf([&] { ours.Press('A', true); });
        Require(ours.list->SelectedCount() == Rows, "rows are not selected");
        pairs.Add(oursTime, SecondsOf(
                                [&]
                                {
                                    for (int row = 0; row < Rows; ++row)
                                    {
                                        bare.list->SetItemState(row, wxLIST_STATE_SELECTED, wxLIST_STATE_SELECTED);
                                    }
                                }));
        state.SetIterationTime(oursTime);
    }
    pairs.Report(state);
}

/// Space on all rows, which takes all rules into the document.
void TickAllRows(benchmark::State& state)
{
    Pairs pairs;
    RuleListUnderTest ours;
    BareList bare;
    ours.Fill();
    bare.Fill(ours.document.UserRules());
    ours.list->SetItemState(1, wxLIST_STATE_FOCUSED, wxLIST_STATE_FOCUSED); // isn't ticked
    ours.Press('A', true);
    for ([[maybe_unused]] auto _ : state)
    {
        if (ours.list->IsTicked(1))
        {
            ours.Press(WXK_SPACE, false); // clears all
        }
        const double oursTime = SecondsOf([&] { ours.Press(WXK_SPACE, false); });
        Require(ours.document.Rules().Size() == Rows, "rules are not in the document");
        pairs.Add(oursTime, SecondsOf(
                                [&]
                                {
                                    for (int row = 0; row < Rows; ++row)
                                    {
                                        bare.list->CheckItem(row, true);
                                    }
                                }));
        state.SetIterationTime(oursTime);
    }
    pairs.Report(state);
}

/// A letter that no name has, which looks at all of all names.
void FindNothing(benchmark::State& state)
{
    RuleListUnderTest ours;
    ours.Fill();
    bool found = true;
    ours.list->SetSearchHandler([&found](const std::wstring& text, bool has) { found = text.empty() || has; });
    std::vector<double> times;
    for ([[maybe_unused]] auto _ : state)
    {
        wxKeyEvent letter(wxEVT_CHAR);
        letter.m_uniChar = L'z';
        const double time = SecondsOf([&] { ours.list->ProcessWindowEvent(letter); });
        Require(!found, "a name has the letter");
        ours.list->EndSearch();
        times.push_back(time * 1000);
        state.SetIterationTime(time);
    }
    state.counters["ours_ms"] = Median(times);
}

BENCHMARK(FillRows)
    ->ArgsProduct({ { 0, 1 }, { 0, 1 } })
    ->ArgNames({ "names", "widening" })
    ->Iterations(Rounds)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(SortRows)->DenseRange(1, 4)->Iterations(Rounds)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(SelectAllRows)->Iterations(Rounds)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FindNothing)->Iterations(Rounds)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(TickAllRows)->Iterations(Rounds)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace
