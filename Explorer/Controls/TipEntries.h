#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// The entries of a drop-down list with a tip for each.
class TipEntries
{
public:
    static constexpr int None = -1;

    /// A tip is cut behind so many characters.
    static constexpr std::size_t LongestTip = 80;

    /// Adds an entry at the end. Without a tip of its own, its text serves as one.
    void Append(std::wstring text, std::optional<std::wstring> tip = std::nullopt);

    /// Takes an entry out. The current one stays current; if it goes itself, none is.
    void Delete(int index);
    void Clear();

    int Count() const;

    /// Empty for an index without an entry, as the tip is.
    std::wstring Text(int index) const;
    std::wstring Tip(int index) const;

    /// The index of the first entry with this text; `None` if there is none.
    int Find(const std::wstring& text) const;

    int Current() const { return m_current; }
    /// `None`, or an index without an entry, leaves no entry current.
    void SetCurrent(int index);

private:
    struct Entry
    {
        std::wstring text;
        std::optional<std::wstring> tip;
    };

    bool Has(int index) const { return index >= 0 && index < Count(); }

    std::vector<Entry> m_entries;
    int m_current = None;
};

/// The number by which a row of the list has its tip; 0 is no row.
int TipToolOfRow(int row);

/// What is below the field when the list is dropped, in pixels.
struct DropDownSize
{
    int rows;        ///< That are seen at once.
    int height;      ///< With the borders.
    int columnWidth; ///< Of the list's one column.
};

/// A list as high as its rows, if they fit below `room`; else of as many whole rows as do, but
/// at least one, and with a column that leaves place for the scroll bar.
DropDownSize SizeOfDropDown(int rows, int rowHeight, int room, int width, int scrollBarWidth);
