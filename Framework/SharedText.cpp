#include <Vantrel/SharedText.h>

#include <utility>

SharedText& SharedText::operator=(std::wstring_view text)
{
    m_text = text.empty() ? nullptr : std::make_shared<const std::wstring>(text);
    return *this;
}

const std::wstring& SharedText::Empty()
{
    static const std::wstring empty;
    return empty;
}

SharedTextList& SharedTextList::operator=(std::vector<std::wstring> texts)
{
    m_texts = texts.empty() ? nullptr : std::make_shared<const std::vector<std::wstring>>(std::move(texts));
    return *this;
}

SharedTextList& SharedTextList::operator=(std::initializer_list<std::wstring> texts)
{
    return *this = std::vector<std::wstring>(texts);
}

const std::vector<std::wstring>& SharedTextList::Empty()
{
    static const std::vector<std::wstring> empty;
    return empty;
}
