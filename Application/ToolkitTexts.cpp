#include "Application/ToolkitTexts.h"

#include "Utilities/Texts.h"

#include <wx/arrstr.h>
#include <wx/buffer.h>
#include <wx/string.h>
#include <wx/translation.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace
{

/// What the toolkit calls its catalogue and language here; both are found only by us.
constexpr const char* Domain = "vantrel";
constexpr const char* Language = "en_VR";

struct ToolkitText
{
    const wchar_t* original; ///< As the toolkit's sources have it.
    TextId id;
};

/// Labels of standard buttons are not among them: the toolkit would take a translated one
/// for its own, and some systems put that into the system's language.
constexpr std::array ToolkitTexts = {
    ToolkitText{ L"unnamed", TextId::ToolkitUnnamed },
    ToolkitText{ L"unnamed%d", TextId::ToolkitUnnamedNumber },
    ToolkitText{ L"&Window", TextId::ToolkitMenuWindow },
    ToolkitText{ L"&Next", TextId::ToolkitWindowNext },
    ToolkitText{ L"&Previous", TextId::ToolkitWindowPrevious },
    ToolkitText{ L"&Cascade", TextId::ToolkitWindowCascade },
    ToolkitText{ L"Tile &Horizontally", TextId::ToolkitWindowTileHorizontally },
    ToolkitText{ L"Tile &Vertically", TextId::ToolkitWindowTileVertically },
    ToolkitText{ L"&Arrange Icons", TextId::ToolkitWindowArrangeIcons },
    ToolkitText{ L"Save As", TextId::ToolkitSaveAs },
    ToolkitText{ L"Open File", TextId::ToolkitOpenFile },
    ToolkitText{ L"Error", TextId::ToolkitError },
};

void AppendNumber(std::string& bytes, std::size_t number)
{
    for (int shift = 0; shift < 32; shift += 8)
    {
        bytes += static_cast<char>((number >> shift) & 0xFF);
    }
}

/// The pairs as a message catalogue, the only form in which the toolkit takes texts: a
/// header, two tables of lengths and places, and the texts, each with a zero behind it.
std::string MessageCatalogue(std::vector<std::pair<std::string, std::string>> pairs)
{
    constexpr std::size_t HeaderSize = 28;
    constexpr std::size_t TableEntrySize = 8;
    constexpr std::size_t Magic = 0x950412DE;
    std::sort(pairs.begin(), pairs.end());
    const std::size_t originals = HeaderSize;
    const std::size_t translations = originals + pairs.size() * TableEntrySize;

    std::string result;
    for (const std::size_t number :
         { Magic, std::size_t{ 0 }, pairs.size(), originals, translations, std::size_t{ 0 }, std::size_t{ 0 } })
    {
        AppendNumber(result, number);
    }
    std::string texts;
    const std::size_t start = translations + pairs.size() * TableEntrySize;
    const auto append = [&result, &texts, start](const std::string& text)
    {
        AppendNumber(result, text.size());
        AppendNumber(result, start + texts.size());
        texts += text;
        texts += '\0';
    };
    for (const auto& pair : pairs)
    {
        append(pair.first);
    }
    for (const auto& pair : pairs)
    {
        append(pair.second);
    }
    return result + texts;
}

class ToolkitTextLoader : public wxTranslationsLoader
{
public:
    wxMsgCatalog* LoadCatalog(const wxString& domain, const wxString& /*language*/) override
    {
        std::vector<std::pair<std::string, std::string>> pairs = { { "",
                                                                     "Content-Type: text/plain; charset=UTF-8\n" } };
        for (const ToolkitText& text : ToolkitTexts)
        {
            pairs.emplace_back(wxString(text.original).utf8_string(), wxString(LoadText(text.id)).utf8_string());
        }
        const std::string catalogue = MessageCatalogue(std::move(pairs));
        wxCharBuffer buffer(catalogue.size());
        std::memcpy(buffer.data(), catalogue.data(), catalogue.size());
        return wxMsgCatalog::CreateFromData(buffer, domain); // owned by the translations
    }

    wxArrayString GetAvailableTranslations(const wxString& /*domain*/) const override
    {
        wxArrayString languages;
        languages.Add(Language);
        return languages;
    }
};

} // namespace

void TranslateToolkit()
{
    const bool sameTexts = std::all_of(ToolkitTexts.begin(), ToolkitTexts.end(),
                                       [](const ToolkitText& text) { return LoadText(text.id) == text.original; });
    if (sameTexts)
    {
        return; // in English; a catalogue makes the toolkit's table of languages
    }
    auto translations = std::make_unique<wxTranslations>();
    translations->SetLoader(new ToolkitTextLoader); // owned by the translations
    translations->SetLanguage(Language);
    translations->AddCatalog(Domain, wxLANGUAGE_ENGLISH_US);
    wxTranslations::Set(translations.release()); // owned by the toolkit
}
