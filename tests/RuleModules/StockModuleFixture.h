#pragma once

#include "Platform/Text.h"
#include "tests/RuleModules/LoadedModule.h"

#include <Vantrel/FrameworkFunctions.h>
#include <Vantrel/ModuleTexts.h>
#include <Vantrel/QoxRule.h>
#include <Vantrel/QoxXml.h>

#include <cstdint>
#include <gtest/gtest.h>
#include <list>
#include <string>

/// The file of a library by the name that it has in the build.
inline std::wstring LibraryFile(const std::string& library)
{
    return Platform::Utf8ToWide(library) + L".dll";
}

/// Another language: each text is its number. A text source of modules.
inline bool NumbersForTexts(std::uint32_t number, std::wstring& text)
{
    text = L"#" + std::to_wstring(number);
    return true;
}

/// One of the modules that come with the program, loaded and with the database.
class StockModuleFixture : public testing::TestWithParam<std::string>
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_module.IsLoaded());
        UseDatabase({ StagedLibrary(L"QoxSqliteDatabaseu.dll") });
        ::SetXMLDoc(&m_document);
        m_module.Export<ModuleSetXMLDocFunction>("SetXMLDoc")(&m_document);
    }

    void TearDown() override
    {
        m_module.Export<ModuleSetXMLDocFunction>("SetXMLDoc")(nullptr);
        ::SetXMLDoc(nullptr);
        SetModuleTextSource(nullptr);
    }

    std::wstring Name()
    {
        std::wstring name;
        m_module.Export<GetModuleNameFunction>("GetModuleName")(name);
        return name;
    }

    void UseDatabase(const std::list<std::wstring>& modules)
    {
        m_module.Export<SetDBModuleListFunction>("SetDBModuleList")(&modules);
    }

    CQoxRule* ReadRule(QoxXMLNode* node)
    {
        CQoxRule* rule = nullptr;
        m_module.Export<GetRuleFunction>("GetRule")(node, rule);
        return rule;
    }

    void Delete(CQoxRule*& rule) { m_module.Export<DeleteRuleFunction>("DeleteRule")(&rule); }

    LoadedModule m_module{ StagedLibrary(LibraryFile(GetParam())) };
    QoxXMLDocument m_document;
};
