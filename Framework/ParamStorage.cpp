#include <Vantrel/ParamStorage.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace
{

// In the order of ParamKind.
constexpr std::array<std::string_view, 7> KindNames = { "length", "angle",  "number", "integer",
                                                        "yesno",  "choice", "text" };

} // namespace

std::string_view ParamKindName(ParamKind kind)
{
    return KindNames[static_cast<std::size_t>(kind)];
}

bool CQoxParamStorage::IsNumeric() const
{
    return eKind != ParamKind::Choice && eKind != ParamKind::Text;
}

bool CQoxParamStorage::IsValid() const
{
    switch (eKind)
    {
    case ParamKind::Text:
        return true;
    case ParamKind::Choice:
        return std::find(choices.begin(), choices.end(), strValue) != choices.end();
    case ParamKind::YesNo:
        return dValue == 0 || dValue == 1;
    case ParamKind::Integer:
        if (dValue != std::floor(dValue))
        {
            return false;
        }
        break;
    case ParamKind::Length:
    case ParamKind::Angle:
    case ParamKind::Number:
        break;
    }
    return std::isfinite(dValue) && dValue >= dMinimum && dValue <= dMaximum;
}

bool CQoxParamStorage::IsDefault() const
{
    // Compared as shown: a conversion of units and back must not make a value differ.
    return IsNumeric() ? FormatShownNumber(dValue) == FormatShownNumber(dDefault) : strDefault == strValue;
}

void CQoxParamStorage::ConvertUnits(const RuleUnitSystemStructure& from, const RuleUnitSystemStructure& to)
{
    if (eKind != ParamKind::Length && eKind != ParamKind::Angle)
    {
        return;
    }
    for (double* number : { &dValue, &dDefault, &dMinimum, &dMaximum })
    {
        *number = eKind == ParamKind::Length ? ConvertLength(*number, from.linear, to.linear)
                                             : ConvertAngle(*number, from.angular, to.angular);
    }
}
