#pragma once

class CQoxRule;

/// How the rows of the rule list are ordered: by which of its columns, and which way.
class RuleOrder
{
public:
    /// Keys are the numbers of the columns plus 1.
    static constexpr int KeyTicked = 1; ///< ticked rules first, by display name
    static constexpr int KeyCategory = 2;
    static constexpr int KeyModule = 3;
    static constexpr int KeyCriticality = 4;

    /// Orders by the key, ascending; a key that is chosen again turns the order round.
    /// Other numbers do nothing.
    void Choose(int key);

    /// The key, negative for the reverse order. -1 before the first choice.
    int State() const { return m_state; }

    int Column() const { return (m_state < 0 ? -m_state : m_state) - 1; }
    bool IsAscending() const { return m_state > 0; }

    /// Less than 0 if the first rule stands above the second, 0 if either may.
    int Compare(const CQoxRule& first, const CQoxRule& second) const;

private:
    int m_state = -1;
};
