#pragma once

#include "Explorer/RuleEditModel.h"

#include <Vantrel/ConcreteQOXRule.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

// Places of the parameters that every rule here has.
inline constexpr std::size_t Radius = 0;
inline constexpr std::size_t Angle = 1;
inline constexpr std::size_t Ratio = 2;
inline constexpr std::size_t Directions = 3;
inline constexpr std::size_t Reliefs = 4;
inline constexpr std::size_t Material = 5;
inline constexpr std::size_t Remark = 6;
inline constexpr std::size_t ParameterCount = 7;

/// A rule with a parameter of each kind.
class RuleEditModelFixture : public testing::Test
{
protected:
    RuleEditModelFixture()
    {
        AddNumber(ParamKind::Length, L"Radius", 1.5, 0.1, 100);
        AddNumber(ParamKind::Angle, L"Angle", 45, 0, 90);
        AddNumber(ParamKind::Number, L"Ratio", 0.25, 0, CQoxParamStorage::NoMaximum);
        AddNumber(ParamKind::Integer, L"Directions", 3, 1, 6);
        AddNumber(ParamKind::YesNo, L"Reliefs", 1, 0, 1);
        AddText(ParamKind::Choice, L"Material", L"steel");
        AddText(ParamKind::Text, L"Remark", L"none");
        rule.Parameters()[Material].choices = { L"brass", L"steel" };
    }

    CQoxParamStorage& Add(ParamKind kind, const std::wstring& label)
    {
        CQoxParamStorage& parameter = rule.Parameters().emplace_back();
        parameter.nNumber = static_cast<std::int32_t>(rule.Parameters().size());
        parameter.eKind = kind;
        parameter.strName = label + L"Name";
        parameter.strLabel = label;
        return parameter;
    }
    void AddNumber(ParamKind kind, const std::wstring& label, double value, double minimum, double maximum)
    {
        CQoxParamStorage& parameter = Add(kind, label);
        parameter.dValue = value;
        parameter.dDefault = value;
        parameter.dMinimum = minimum;
        parameter.dMaximum = maximum;
    }
    void AddText(ParamKind kind, const std::wstring& label, const std::wstring& value)
    {
        CQoxParamStorage& parameter = Add(kind, label);
        parameter.strValue = value;
        parameter.strDefault = value;
    }

    /// As a document with these units does it.
    void UseUnits(std::int32_t linear, std::int32_t angular)
    {
        const RuleUnitSystemStructure units{ linear, angular };
        rule.UpdateRule(&rule.m_units, &units);
        rule.m_units = units;
    }

    RuleEditModel Model() const { return RuleEditModel(rule, L'.'); }

    ConcreteQOXRule rule;
};
