#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Common.h"
#include "RuleModules/Texts/SheetMetal.h"

#include <array>

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = { CategoryBends,   CategoryFlanges, CategoryReliefs,
                                    CategoryCutOuts, CategoryHoles,   CategoryHemsAndCurls };

constexpr auto UsualMaterial = L"DC01";

constexpr std::array BendRadii = {
    DefaultByChoice(NumberParam(1, L"MinimumRadiusRatio", SheetBendRadiiMinimumRadiusRatio, { 1, 0, 10 }), 3,
                    L"min_bend_radius_factor"),
    LengthParam(2, L"MinimumRadius", SheetBendRadiiMinimumRadius, { 0.5, 0, 50 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, SheetBendRadiiMaterialHelp },
                StandardChoices::SheetMetals, UsualMaterial),
    YesNoParam(4, L"UseMaterialRatio", SheetBendRadiiUseMaterialRatio, true),
};

constexpr std::array DifferentRadii = {
    IntegerParam(1, L"MaximumDifferentRadii", SheetDifferentRadiiMaximumDifferentRadii, { 1, 1, 10 }),
    LengthParam(2, L"Tolerance", SheetDifferentRadiiTolerance, { 0.05, 0, 1 }),
};

constexpr std::array FlangeLengths = {
    NumberParam(1, L"MinimumLengthRatio", SheetFlangeLengthsMinimumLengthRatio, { 4, 1, 20 }),
    LengthParam(2, L"MinimumLength", SheetFlangeLengthsMinimumLength, { 4, 0, 100 }),
    YesNoParam(3, L"AddBendRadius", SheetFlangeLengthsAddBendRadius, true),
};

constexpr std::array BendReliefs = {
    YesNoParam(1, L"Required", SheetBendReliefsRequired, true),
    NumberParam(2, L"MinimumWidthRatio", SheetBendReliefsMinimumWidthRatio, { 1, 0.1, 5 }),
    LengthParam(3, L"MinimumExtraDepth", SheetBendReliefsMinimumExtraDepth, { 0.5, 0, 20 }),
};

constexpr std::array HolesNearBends = {
    NumberParam(1, L"MinimumDistanceRatio", SheetHolesNearBendsMinimumDistanceRatio, { 2.5, 0, 20 }),
    YesNoParam(2, L"AddBendRadius", SheetHolesNearBendsAddBendRadius, true),
    LengthParam(3, L"SmallestDiameter", SheetHolesNearBendsSmallestDiameter, { 0, 0, 100 }),
};

constexpr std::array SmallHoles = {
    NumberParam(1, L"MinimumDiameterRatio", SheetSmallHolesMinimumDiameterRatio, { 1, 0.2, 5 }),
    LengthParam(2, L"MinimumDiameter", SheetSmallHolesMinimumDiameter, { 1, 0.1, 50 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, SheetSmallHolesMaterialHelp },
                StandardChoices::SheetMetals, UsualMaterial),
};

constexpr std::array HolesNearEdges = {
    NumberParam(1, L"MinimumDistanceRatio", SheetHolesNearEdgesMinimumDistanceRatio, { 2, 0, 20 }),
    LengthParam(2, L"MinimumDistance", SheetHolesNearEdgesMinimumDistance, { 1, 0, 100 }),
};

constexpr std::array HoleSpacing = {
    NumberParam(1, L"MinimumSpacingRatio", SheetHoleSpacingMinimumSpacingRatio, { 2, 0, 20 }),
    LengthParam(2, L"MinimumSpacing", SheetHoleSpacingMinimumSpacing, { 1, 0, 100 }),
};

constexpr std::array Countersinks = {
    NumberParam(1, L"MaximumDepthRatio", SheetCountersinksMaximumDepthRatio, { 0.6, 0.1, 1 }),
    AngleParam(2, L"Angle", SheetCountersinksAngle, { 90, 60, 120 }),
    AngleParam(3, L"AngleTolerance", SheetCountersinksAngleTolerance, { 1, 0, 10 }),
};

constexpr std::array NarrowCutouts = {
    NumberParam(1, L"MinimumWidthRatio", SheetNarrowCutoutsMinimumWidthRatio, { 1.5, 0.2, 10 }),
    NumberParam(2, L"MaximumLengthRatio", SheetNarrowCutoutsMaximumLengthRatio, { 5, 1, 50 }),
    LengthParam(3, L"MinimumWidth", SheetNarrowCutoutsMinimumWidth, { 1, 0.1, 50 }),
};

constexpr std::array Hems = {
    NumberParam(1, L"MinimumReturnRatio", SheetHemsMinimumReturnRatio, { 4, 1, 20 }),
    YesNoParam(2, L"AllowClosedHems", SheetHemsAllowClosedHems, true),
    NumberParam(3, L"MinimumGapRatio", SheetHemsMinimumGapRatio, { 0.5, 0, 5 }),
};

constexpr std::array Curls = {
    NumberParam(1, L"MinimumRadiusRatio", SheetCurlsMinimumRadiusRatio, { 2, 1, 20 }),
    AngleParam(2, L"MaximumAngle", SheetCurlsMaximumAngle, { 360, 90, 720 }),
    LengthParam(3, L"MinimumHoleDistance", SheetCurlsMinimumHoleDistance, { 3, 0, 100 }),
};

constexpr std::array Rules = {
    RuleDefinition{ L"SheetBendRadii", SheetBendRadii, CategoryBends, 5, L"sheet_bend_radii.htm", BendRadii },
    RuleDefinition{ L"SheetDifferentRadii", SheetDifferentRadii, CategoryBends, 2, L"sheet_different_radii.htm",
                    DifferentRadii },
    RuleDefinition{ L"SheetFlangeLengths", SheetFlangeLengths, CategoryFlanges, 4, L"sheet_flange_lengths.htm",
                    FlangeLengths },
    RuleDefinition{ L"SheetBendReliefs", SheetBendReliefs, CategoryReliefs, 4, L"sheet_bend_reliefs.htm", BendReliefs },
    RuleDefinition{ L"SheetHolesNearBends", SheetHolesNearBends, CategoryHoles, 4, L"sheet_holes_near_bends.htm",
                    HolesNearBends },
    RuleDefinition{ L"SheetSmallHoles", SheetSmallHoles, CategoryHoles, 3, L"sheet_small_holes.htm", SmallHoles },
    RuleDefinition{ L"SheetHolesNearEdges", SheetHolesNearEdges, CategoryHoles, 3, L"sheet_holes_near_edges.htm",
                    HolesNearEdges },
    RuleDefinition{ L"SheetHoleSpacing", SheetHoleSpacing, CategoryHoles, 3, L"sheet_hole_spacing.htm", HoleSpacing },
    RuleDefinition{ L"SheetCountersinks", SheetCountersinks, CategoryHoles, 2, L"sheet_countersinks.htm",
                    Countersinks },
    RuleDefinition{ L"SheetNarrowCutouts", SheetNarrowCutouts, CategoryCutOuts, 3, L"sheet_narrow_cutouts.htm",
                    NarrowCutouts },
    RuleDefinition{ L"SheetHems", SheetHems, CategoryHemsAndCurls, 2, L"sheet_hems.htm", Hems },
    RuleDefinition{ L"SheetCurls", SheetCurls, CategoryHemsAndCurls, 2, L"sheet_curls.htm", Curls },
};

constexpr ModuleDefinition Module = {
    L"Sheet Metal Rules", SheetModuleSummary, L"QoxSMRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
