#pragma once

#include <Vantrel/Export.h>

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// A text that many rules have in common: copies share it, and it is replaced as a whole.
/// A file with very many rules says the same labels and help texts over and over.
class VANTREL_API SharedText
{
public:
    SharedText() = default;
    explicit SharedText(std::wstring_view text) { *this = text; }
    SharedText& operator=(std::wstring_view text);

    const std::wstring& Get() const { return m_text != nullptr ? *m_text : Empty(); }
    operator const std::wstring&() const { return Get(); }
    bool empty() const { return Get().empty(); }
    std::size_t size() const { return Get().size(); }

    friend bool operator==(const SharedText& first, const SharedText& second)
    {
        return first.m_text == second.m_text || first.Get() == second.Get();
    }
    friend bool operator==(const SharedText& first, std::wstring_view second) { return first.Get() == second; }

private:
    static const std::wstring& Empty();

    std::shared_ptr<const std::wstring> m_text; // null if empty
};

/// A list of texts that many rules have in common, shared and replaced like `SharedText`.
class VANTREL_API SharedTextList
{
public:
    using value_type = std::wstring;
    using const_iterator = std::vector<std::wstring>::const_iterator;
    using iterator = const_iterator;

    SharedTextList() = default;
    explicit SharedTextList(std::vector<std::wstring> texts) { *this = std::move(texts); }
    SharedTextList& operator=(std::vector<std::wstring> texts);
    SharedTextList& operator=(std::initializer_list<std::wstring> texts);

    const std::vector<std::wstring>& Get() const { return m_texts != nullptr ? *m_texts : Empty(); }
    operator const std::vector<std::wstring>&() const { return Get(); }
    bool empty() const { return Get().empty(); }
    std::size_t size() const { return Get().size(); }
    const_iterator begin() const { return Get().begin(); }
    const_iterator end() const { return Get().end(); }
    const std::wstring& operator[](std::size_t index) const { return Get()[index]; }
    const std::wstring& front() const { return Get().front(); }
    const std::wstring& back() const { return Get().back(); }

    friend bool operator==(const SharedTextList& first, const SharedTextList& second)
    {
        return first.m_texts == second.m_texts || first.Get() == second.Get();
    }

private:
    static const std::vector<std::wstring>& Empty();

    std::shared_ptr<const std::vector<std::wstring>> m_texts; // null if empty
};
