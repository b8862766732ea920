#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CQoxRule;
class QoxXMLDocument;

namespace ModuleChecker
{

class CheckReport;
struct RuleModuleExports;

/// The range of criticalities.
inline constexpr std::int32_t LowestCriticality = 1;
inline constexpr std::int32_t HighestCriticality = 5;

/// A rule that the module made, and where findings about it are.
struct OfferedRule
{
    CQoxRule* rule; ///< The module's; given back through `DeleteRule`.
    std::wstring place;
};

using OfferedRules = std::vector<OfferedRule>;

/// Gives each value of a rule another one that is allowed, as a user would, and the rule
/// another criticality.
void ChangeValues(CQoxRule& rule);

/// Tells the framework and the module of the document that is read or written, and takes it
/// from the framework at the end.
class DocumentInUse
{
public:
    DocumentInUse(const RuleModuleExports& exports, QoxXMLDocument& document, CheckReport& report);
    ~DocumentInUse();
    DocumentInUse(const DocumentInUse&) = delete;
    DocumentInUse& operator=(const DocumentInUse&) = delete;
};

} // namespace ModuleChecker
