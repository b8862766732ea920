#pragma once

#include "Explorer/RuleText.h"

#include <array>
#include <optional>
#include <string>

/// How the columns of the rule list divide its width: by shares of the list's own until the user
/// sizes a column, then in the proportions that the user gave them, however wide the window is.
class ColumnShares
{
public:
    using Widths = std::array<int, RuleColumnCount>;

    /// Widths of the columns in a list of this width, in pixels.
    Widths In(int listWidth) const;

    bool AreOfUser() const { return m_ofUser.has_value(); }

    /// The user has given the columns these widths, in a list of this width.
    void Take(const Widths& widths, int listWidth);

    /// Goes back to the list's own.
    void Reset() { m_ofUser.reset(); }

    /// The user's shares as a text to keep; empty for the list's own.
    std::wstring ToText() const;

    /// Takes what `ToText` has given. A text that isn't from there stands for the list's own.
    void FromText(const std::wstring& text);

private:
    using Shares = std::array<int, RuleColumnCount>; // of a width of `Whole`

    std::optional<Shares> m_ofUser;
};
