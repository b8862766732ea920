#pragma once

#include <functional>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>

/// Tells whether texts are wider than what there is room for, and measures as few of them as
/// it takes: measuring a text costs more than all else that is done to show it.
class TextWidths
{
public:
    /// The width of a text in pixels.
    using Measure = std::function<int(const std::wstring&)>;

    explicit TextWidths(Measure measure) : m_measure(std::move(measure)) {}

    /// The width of the text if it is wider than `room`, else nothing above `room`.
    int WidthIfAbove(const std::wstring& text, double room);

    /// Forgets what was measured, as the font may have changed since.
    void Forget();

private:
    double AtMost(const std::wstring& text);
    bool AreDigitsEqual();

    Measure m_measure;
    std::optional<bool> m_digitsEqual; // nothing until it was looked at
    std::unordered_map<wchar_t, double> m_letters;
    std::unordered_map<std::wstring, int> m_texts;
};
