#pragma once

#include "RuleModules/SqliteDatabase/RuleTables.h"

#include <Vantrel/ModuleInterface.h>

#include <memory>

/// What the database module gives the rule modules: tables that were read before.
class RuleTableDatabase final : public IRuleDatabase
{
public:
    /// `tables` is never null.
    explicit RuleTableDatabase(std::shared_ptr<const RuleTables> tables);

    void GetNames(const std::wstring& table, const std::wstring& group, std::list<std::wstring>& names) override;
    bool GetProperty(const std::wstring& table, const std::wstring& name, const std::wstring& property,
                     double& value) override;

private:
    std::shared_ptr<const RuleTables> m_tables;
};
