#pragma once

#include <functional>
#include <optional>

/// The answers to a question that comes up for many things in turn.
enum class YesNoAllAnswer
{
    Yes = 1,
    YesToAll = 2,
    No = 3,
    NoToAll = 4,
};

/// Asks for one thing after the other until an answer is for all of them.
class YesNoAllLoop
{
public:
    /// True for yes. `ask` is called only as long as no answer was for all.
    bool Allows(const std::function<YesNoAllAnswer()>& ask);

private:
    std::optional<bool> m_forAll;
};
