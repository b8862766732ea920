#pragma once

#include <vector>

class CQoxRule;

/// What a document tells its views, by the numbers that views have always been told.
enum class ViewHint : int
{
    Reload = 1,
    UnitsChanged = 3,
    RuleEdited = 4,
    UserRuleAdded = 5,
    UserRuleDeleted = 6,
    UserRuleChanged = 7,
    FileOpened = 8,
};

/// What a document needs of the view that shows it.
class IRuleView
{
public:
    virtual ~IRuleView() = default;

    /// Fills the view for the first time, when the document is new or has been read.
    virtual void OnInitialUpdate() = 0;

    /// The rules that the view holds, for giving them back when it closes. `ClearRows`
    /// follows.
    virtual std::vector<CQoxRule*> TakeRulesToGiveBack() = 0;

    /// Removes all rows; their rules have gone.
    virtual void ClearRows() = 0;
};
