#include "tests/Modules/ModuleSetFixture.h"

#include "Platform/Files.h"
#include "Platform/Text.h"
#include "tests/Support/TestFiles.h"

ModuleSetFixture::~ModuleSetFixture()
{
    Configure({});
    ConfigureDatabases({});
    ModuleSet::FreeModules(m_toFree);
}

void ModuleSetFixture::Configure(const Names& names)
{
    m_modules.ConfigModulePaths().clear();
    for (const std::wstring& name : names)
    {
        m_modules.ConfigModulePaths().push_back(Platform::ToLower(TestModulePath(name)));
    }
    m_modules.LoadConfigModules(m_toFree);
}

void ModuleSetFixture::ConfigureDatabases(const Names& names)
{
    m_modules.DBModulePaths().clear();
    for (const std::wstring& name : names)
    {
        m_modules.DBModulePaths().push_back(Platform::ToLower(TestModulePath(name)));
    }
    m_modules.LoadDBModules(m_toFree);
}

ModuleSetFixture::Names ModuleSetFixture::NamesOf(const ModuleSet::Handles& handles)
{
    Names names;
    for (const Platform::LibraryHandle handle : handles)
    {
        const std::wstring file = Platform::FileNamePart(Platform::LibraryPath(handle));
        names.push_back(file.substr(0, file.rfind(L'.')));
    }
    return names;
}

Platform::LibraryHandle ModuleSetFixture::HandleOf(const std::wstring& name)
{
    return Platform::FindLoadedLibrary(TestModulePath(name));
}

std::string ModuleSetFixture::Journal() const
{
    const std::wstring path = m_folder.File(L"journal");
    return Platform::PathExists(path) ? ReadBytes(path) : std::string();
}

void ModuleSetFixture::ForgetJournal() const
{
    WriteBytes(m_folder.File(L"journal"), "");
}
