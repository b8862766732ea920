// The menus of the main window, in all languages.

#include "Application/MainMenu.h"

#include "Application/Commands.h"
#include "Platform/MenuIcons.h"
#include "tests/Explorer/Controls/ControlFixture.h"
#include "tests/Utilities/LanguageInUse.h"

#include <wx/accel.h>
#include <wx/menu.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cwctype>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace
{

/// The letter behind `&` in upper case; 0 for none.
wchar_t LetterOf(const std::wstring& text)
{
    const std::size_t place = text.find(L'&');
    return place == std::wstring::npos || place + 1 == text.size() ? L'\0' : std::towupper(text[place + 1]);
}

/// What of the texts has a letter that another of them has too, or none.
std::vector<std::wstring> ClashesOf(const std::vector<std::wstring>& texts)
{
    std::vector<std::wstring> clashes;
    std::map<wchar_t, std::wstring> holders;
    for (const std::wstring& text : texts)
    {
        const wchar_t letter = LetterOf(text);
        const auto [holder, isNew] = holders.try_emplace(letter, text);
        if (letter == L'\0' || !isNew)
        {
            clashes.push_back(holder->second + L" / " + text);
        }
    }
    return clashes;
}

using Texts = std::vector<std::wstring>;

class MainMenuTest : public ControlFixture, public testing::WithParamInterface<const wchar_t*>
{
protected:
    MainMenuTest()
    {
        bar = new wxMenuBar; // owned by the frame
        menu = std::make_unique<MainMenu>(*bar);
        frame->SetMenuBar(bar);
    }

    /// What stands between the separators.
    std::vector<const CQOXRMMenuItems*> ItemsOf(std::size_t index) const
    {
        std::vector<const CQOXRMMenuItems*> items;
        for (const auto& item : menu->Items().Children()[index]->Children())
        {
            if ((item->Flags() & MenuFlag::Separator) == 0)
            {
                items.push_back(item.get());
            }
        }
        return items;
    }

    const CQOXRMMenuItems* ItemOf(int id) const
    {
        for (std::size_t index = 0; index < MenuTable.size(); ++index)
        {
            for (const CQOXRMMenuItems* const item : ItemsOf(index))
            {
                if (item->Id() == id)
                {
                    return item;
                }
            }
        }
        return nullptr;
    }

    LanguageInUse language{ GetParam() };
    wxMenuBar* bar = nullptr;
    std::unique_ptr<MainMenu> menu;
};

} // namespace

TEST_P(MainMenuTest, EachCommandWithAMenuStandsInItOnceUnderItsText)
{
    std::size_t shown = 0;
    for (const Command& command : CommandTable)
    {
        if (!command.menu)
        {
            EXPECT_EQ(bar->FindItem(command.id), nullptr);
            continue;
        }
        ++shown;
        wxMenu* holder = nullptr;
        const wxMenuItem* const item = bar->FindItem(command.id, &holder);
        ASSERT_NE(item, nullptr) << command.id;
        EXPECT_EQ(holder, menu->MenuOf(*command.menu));
        EXPECT_EQ(item->GetItemLabel(), LoadText(command.text));
        EXPECT_EQ(item->GetHelp(), LoadText(command.tip));
        EXPECT_EQ(item->IsCheckable(), command.kind == wxITEM_CHECK);
    }
    std::size_t items = 0;
    for (std::size_t index = 0; index < MenuTable.size(); ++index)
    {
        items += ItemsOf(index).size();
        EXPECT_EQ(bar->GetMenuLabel(index), LoadText(MenuTable[index]));
    }
    EXPECT_EQ(items, shown);
}

TEST_P(MainMenuTest, NoLetterChoosesTwoMenus)
{
    Texts titles;
    for (const TextId title : MenuTable)
    {
        titles.push_back(LoadText(title));
    }
    titles.push_back(LoadText(TextId::ToolkitMenuWindow)); // the toolkit's own, between them
    EXPECT_EQ(ClashesOf(titles), Texts{});
}

TEST_P(MainMenuTest, NoLetterChoosesTwoItemsOfAMenuAndEachItemHasOne)
{
    for (std::size_t index = 0; index < MenuTable.size(); ++index)
    {
        Texts texts;
        for (const CQOXRMMenuItems* const item : ItemsOf(index))
        {
            texts.push_back(item->Text());
        }
        EXPECT_EQ(ClashesOf(texts), Texts{});
    }
    EXPECT_EQ(ClashesOf({ LoadText(TextId::CommandEditRuleHere), LoadText(TextId::CommandTickRule),
                          LoadText(TextId::CommandSelectAllRules) }),
              Texts{})
        << "the menu of a right click";
    EXPECT_EQ(ClashesOf({ LoadText(TextId::ToolkitWindowNext), LoadText(TextId::ToolkitWindowPrevious),
                          LoadText(TextId::ToolkitWindowCascade), LoadText(TextId::ToolkitWindowTileHorizontally),
                          LoadText(TextId::ToolkitWindowTileVertically), LoadText(TextId::ToolkitWindowArrangeIcons) }),
              Texts{})
        << "the toolkit's menu of windows";
}

TEST_P(MainMenuTest, NoKeyHasTwoCommandsAndTheToolkitUnderstandsEach)
{
    std::map<std::pair<int, int>, std::wstring> holders;
    for (const Command& command : CommandTable)
    {
        const MenuCaption caption = SplitMenuCaption(LoadText(command.text));
        if (caption.keyText.empty() || !command.menu)
        {
            continue;
        }
        wxAcceleratorEntry key;
        ASSERT_TRUE(key.FromString(caption.keyText)) << caption.keyText;
        const auto [holder, isNew] = holders.try_emplace({ key.GetFlags(), key.GetKeyCode() }, caption.text);
        EXPECT_TRUE(isNew) << wxString(caption.keyText + L" " + holder->second + L" / " + caption.text);
    }
    EXPECT_GE(holders.size(), 8U);
}

TEST_P(MainMenuTest, TheLetterOfAnItemExecutesIt)
{
    for (const auto& group : menu->Items().Children())
    {
        std::uint32_t index = 0;
        for (const auto& item : group->Children())
        {
            const wchar_t letter = LetterOf(item->Text());
            if (letter != L'\0')
            {
                EXPECT_EQ(CQOXRMMenuItems::FindMenuChar(letter, MenuFlag::Popup, group.get()),
                          MenuCharExecutes << 16U | index)
                    << wxString(item->Text());
            }
            ++index;
        }
    }
}

TEST_P(MainMenuTest, CommandsOfTheToolBarHaveTheirIconNormalAndDisabled)
{
    for (const int id : { static_cast<int>(wxID_NEW), static_cast<int>(wxID_OPEN), static_cast<int>(wxID_SAVE),
                          static_cast<int>(CommandEditRule), static_cast<int>(CommandRuleModules) })
    {
        const CQOXRMMenuItems* const item = ItemOf(id);
        ASSERT_NE(item, nullptr) << id;
        EXPECT_TRUE(item->NormalBitmap().IsOk()) << id;
        EXPECT_TRUE(item->DisabledBitmap().IsOk()) << id;
        EXPECT_TRUE(item->ShownItem()->GetBitmap().IsOk()) << id;
    }
}

TEST_P(MainMenuTest, MenusShowIcons)
{
    EXPECT_TRUE(Platform::ShowIconsInMenus());
}

TEST_P(MainMenuTest, AnItemKnowsTheNumbersOfItsMenuAndItsButton)
{
    EXPECT_EQ(ItemOf(CommandEditRule)->FirstCommand(), CommandEditRule);
    EXPECT_EQ(ItemOf(CommandEditRule)->SecondCommand(), CommandEditRuleButton);
    EXPECT_EQ(ItemOf(wxID_SAVE)->FirstCommand(), wxID_SAVE);
    EXPECT_EQ(ItemOf(wxID_SAVE)->SecondCommand(), wxID_SAVE);
}

TEST_P(MainMenuTest, AnItemIsAsWideAsTheWidestBesideItAndAsHighAsTheScreenWants)
{
    wxTheApp->SetTopWindow(frame);
    int widest = 100;
    for (const CQOXRMMenuItems* const item : ItemsOf(0))
    {
        const int room = item->KeyText().empty() ? 20 : 50;
        widest = std::max(widest, frame->GetTextExtent(item->Text() + item->KeyText()).GetWidth() + room);
    }
    EXPECT_EQ(menu->SizeOf(*ItemOf(wxID_NEW), { 96, 96 }), wxSize(widest, 20));
    EXPECT_EQ(menu->SizeOf(*ItemOf(wxID_EXIT), { 120, 120 }), wxSize(widest, 22));
    EXPECT_EQ(menu->SizeOf(*ItemOf(wxID_ABOUT), { 144, 144 })->GetHeight(), 33);
    const CQOXRMMenuItems foreign;
    EXPECT_EQ(menu->SizeOf(foreign, { 96, 96 }), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Languages, MainMenuTest,
                         testing::Values(ENGLISH_LIBRARY, FRENCH_LIBRARY, JAPANESE_LIBRARY, KOREAN_LIBRARY,
                                         ZH_CN_LIBRARY, ZH_TW_LIBRARY));
