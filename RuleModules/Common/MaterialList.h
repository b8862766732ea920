#pragma once

#include <Vantrel/SharedText.h>

#include <list>
#include <memory>
#include <span>
#include <string>
#include <string_view>

/// The materials that a module's rules offer.
struct MaterialList
{
    SharedTextList names;
    bool fromDatabase = false; ///< False for the short list that is built in.
};

/// Gets the material list of one group and keeps it until the database modules change:
/// a rule file with very many rules must not ask the database for each of them.
class MaterialSource
{
public:
    /// Both arguments live as long as the module.
    MaterialSource(std::wstring_view group, std::span<const std::wstring_view> builtIn);

    /// The database modules in the order in which they are tried.
    void SetDatabaseModules(std::list<std::wstring> modules);

    /// The list. Never null. A list that was given out stays as it is.
    std::shared_ptr<const MaterialList> Materials();

private:
    std::wstring_view m_group;
    std::span<const std::wstring_view> m_builtIn;
    std::list<std::wstring> m_databaseModules;
    std::shared_ptr<const MaterialList> m_materials; // null until it is first asked for
};
