#pragma once

#include <string>

class CQoxRule;

/// What happened to a user-defined rule.
enum class UserRuleChange
{
    Add,
    Delete,
    Edit,
};

/// The file of user-defined rules, `UserDefinedFile.xml` in the script folder. Empty if
/// there is no script folder.
std::wstring UserDefinedRuleFilePath();

/// Rewrites the file of user-defined rules after a change. `name` is the name that the rule
/// had before an Edit. A null rule or a path that can't be told in bytes does nothing.
void ChangeRuleInUserFile(const std::wstring& filePath, CQoxRule* rule, UserRuleChange change,
                          const std::wstring& name);
