#pragma once

#include <Vantrel/SharedText.h>

#include <pugixml.hpp>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace VantrelXml
{

/// Takes over UTF-8 as wide text; quick for the ASCII that rule files are full of.
void AssignWide(std::wstring& text, const char* utf8);

/// Fills the attributes of a copied template one after the other.
class AttributeFiller
{
public:
    explicit AttributeFiller(pugi::xml_node element) : m_element(element), m_next(element.first_attribute()) {}

    /// Control characters that no XML file may hold become blanks.
    void Text(std::wstring_view value);
    void Ascii(const char* value) { Take().set_value(value); }
    void Integer(std::int32_t value) { Take().set_value(value); }
    /// A number that isn't finite takes its attribute out.
    void Number(double value);

private:
    pugi::xml_attribute Take();

    pugi::xml_node m_element;
    pugi::xml_attribute m_next;
};

/// The markup of an element that has these attributes without values, for a template.
std::string EmptyElement(const char* name, std::span<const char* const> attributes);

/// Appends the form of one entry of a list of texts, `<name Value="..."/>`.
void AppendListElement(pugi::xml_node parent, pugi::xml_node listTemplate, std::wstring_view value);

/// Takes over UTF-8 as a shared text; one that is the same already is left shared.
void AssignShared(SharedText& text, const char* utf8);

/// Reads the entries of a list one by one. A list that turns out the same is left shared.
class ListReader
{
public:
    /// `list` must outlive the reader, which changes it when it ends.
    explicit ListReader(SharedTextList& list) : m_list(list) {}
    /// What was read takes the place of what the list held, unless nothing was.
    ~ListReader();
    ListReader(const ListReader&) = delete;
    ListReader& operator=(const ListReader&) = delete;

    void Take(pugi::xml_node element);

private:
    void Diverge();

    SharedTextList& m_list;
    std::size_t m_count = 0;
    bool m_diverged = false;
    std::vector<std::wstring> m_texts; // all that was read, once the list turned out to differ
};

/// Collects what an element holds beyond what is known of it. Costs nothing as long as
/// there is nothing of the kind, as in nearly every element.
class UnknownParts
{
public:
    /// Of attributes of one name the first is kept.
    void Keep(const pugi::xml_attribute& attribute);
    void Keep(const pugi::xml_node& child) { Element().append_copy(child); }

    /// The parts as the markup of one element, for `AppendUnknown`. Empty if there are none.
    std::string Markup() const;

private:
    pugi::xml_node Element();

    std::optional<pugi::xml_document> m_document;
    pugi::xml_node m_element;
    std::unordered_set<std::string_view> m_attributeNames; // of the document
};

/// What becomes of the value of an attribute that is known, by its place in the table of names.
using AttributeReader = std::function<void(std::size_t place, const char* value)>;

/// Hands out the attributes of an element that are known, and keeps the others. The parser
/// lets an element have a name twice: the first counts, as for whoever asks for it by name.
/// Takes tables of up to 32 names.
void ReadAttributes(pugi::xml_node element, std::span<const char* const> names, const AttributeReader& reader,
                    UnknownParts& unknown);

/// Appends the attributes and children of markup that was kept unread.
void AppendUnknown(pugi::xml_node element, const std::string& markup);

} // namespace VantrelXml
