#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Common.h"
#include "RuleModules/Texts/DieCasting.h"

#include <array>

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = { CategoryWalls,  CategoryFillets,  CategoryDraft,     CategoryRibs,
                                    CategoryBosses, CategoryHoles,    CategoryUndercuts, CategoryPartingLine,
                                    CategoryDie,    CategoryEjection, CategoryDetails,   CategoryMachiningAllowances };

constexpr auto UsualMaterial = L"EN AC-46000";

// The defaults are those that product design guides of die casting associations and of makers of
// aluminium, magnesium and zinc alloys usually have for parts of the size of a hand. Where such
// guides give ordinary and precision values, the default is the ordinary one.

constexpr std::array WallThickness = {
    DefaultByChoice(LengthParam(1, L"MinimumThickness", DieCastWallThicknessMinimumThickness, { 1.2, 0.2, 20 }), 3,
                    L"wall_thickness_min"),
    DefaultByChoice(LengthParam(2, L"MaximumThickness", DieCastWallThicknessMaximumThickness, { 5, 0.5, 30 }), 3,
                    L"wall_thickness_max"),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, DieCastWallThicknessMaterialHelp },
                StandardChoices::DieCastingAlloys, UsualMaterial),
};

constexpr std::array WallVariation = {
    NumberParam(1, L"MaximumThicknessRatio", DieCastWallVariationMaximumThicknessRatio, { 2, 1, 5 }),
    NumberParam(2, L"MinimumTransitionRatio", DieCastWallVariationMinimumTransitionRatio, { 3, 0, 20 }),
};

constexpr std::array CornerRadii = {
    NumberParam(1, L"MinimumInnerRatio", DieCastCornerRadiiMinimumInnerRatio, { 0.5, 0, 2 }),
    LengthParam(2, L"MinimumInnerRadius", DieCastCornerRadiiMinimumInnerRadius, { 1, 0, 20 }),
    LengthParam(3, L"MinimumOuterRadius", DieCastCornerRadiiMinimumOuterRadius, { 0.5, 0, 20 }),
};

constexpr std::array DraftAngles = {
    DefaultByChoice(AngleParam(1, L"MinimumInnerDraft", DieCastDraftMinimumInnerDraft, { 1, 0, 10 }), 4, L"draft_min"),
    NumberParam(2, L"OuterShare", DieCastDraftOuterShare, { 0.5, 0, 1 }),
    LengthParam(3, L"SmallestHeight", DieCastDraftSmallestHeight, { 2, 0, 100 }),
    ChoiceParam(4, L"Material", ParamTextSet{ CommonMaterialLabel, DieCastDraftMaterialHelp },
                StandardChoices::DieCastingAlloys, UsualMaterial),
};

constexpr std::array RibSizes = {
    NumberParam(1, L"MaximumThicknessPercent", DieCastRibsMaximumThicknessPercent, { 75, 30, 150 }),
    NumberParam(2, L"MaximumHeightRatio", DieCastRibsMaximumHeightRatio, { 5, 1, 20 }),
    NumberParam(3, L"MinimumSpacingRatio", DieCastRibsMinimumSpacingRatio, { 1, 0, 10 }),
};

constexpr std::array BossSizes = {
    NumberParam(1, L"MaximumHeightRatio", DieCastBossesMaximumHeightRatio, { 2, 0.5, 10 }),
    LengthParam(2, L"MinimumDistance", DieCastBossesMinimumDistance, { 6.5, 0, 50 }),
    LengthParam(3, L"LargestSolidDiameter", DieCastBossesLargestSolidDiameter, { 5, 0, 50 }),
};

constexpr std::array CorePins = {
    DefaultByChoice(LengthParam(1, L"MinimumDiameter", DieCastCorePinsMinimumDiameter, { 2.5, 0.3, 50 }), 4,
                    L"hole_diameter_min"),
    NumberParam(2, L"MaximumBlindRatio", DieCastCorePinsMaximumBlindRatio, { 3, 0.5, 15 }),
    NumberParam(3, L"MaximumThroughRatio", DieCastCorePinsMaximumThroughRatio, { 6, 0.5, 30 }),
    ChoiceParam(4, L"Material", ParamTextSet{ CommonMaterialLabel, DieCastCorePinsMaterialHelp },
                StandardChoices::DieCastingAlloys, UsualMaterial),
};

constexpr std::array Undercuts = {
    IntegerParam(1, L"MaximumSlides", DieCastUndercutsMaximumSlides, { 0, 0, 12 }),
    YesNoParam(2, L"AllowInnerUndercuts", DieCastUndercutsAllowInnerUndercuts, false),
    LengthParam(3, L"SmallestDepth", DieCastUndercutsSmallestDepth, { 0.1, 0, 10 }),
};

constexpr std::array PartingLine = {
    YesNoParam(1, L"AllowSteps", DieCastPartingLineAllowSteps, true),
    AngleParam(2, L"MinimumStepAngle", DieCastPartingLineMinimumStepAngle, { 5, 0, 45 }),
    YesNoParam(3, L"CheckRoundedEdges", DieCastPartingLineCheckRoundedEdges, true),
};

constexpr std::array DieSteel = {
    LengthParam(1, L"MinimumSteelThickness", DieCastSteelMinimumSteelThickness, { 3, 0.5, 50 }),
    NumberParam(2, L"MaximumHeightRatio", DieCastSteelMaximumHeightRatio, { 3, 0.5, 20 }),
};

constexpr std::array EjectorPads = {
    LengthParam(1, L"MinimumDiameter", DieCastEjectorPadsMinimumDiameter, { 5, 1, 50 }),
    YesNoParam(2, L"KeepVisibleFacesFree", DieCastEjectorPadsKeepVisibleFacesFree, true),
};

constexpr std::array Lettering = {
    YesNoParam(1, L"RequireRaised", DieCastLetteringRequireRaised, true),
    LengthParam(2, L"MinimumStrokeWidth", DieCastLetteringMinimumStrokeWidth, { 0.3, 0.05, 10 }),
    LengthParam(3, L"MaximumRelief", DieCastLetteringMaximumRelief, { 0.5, 0.05, 5 }),
};

constexpr std::array MachiningAllowance = {
    LengthParam(1, L"MinimumAllowance", DieCastMachiningAllowanceMinimumAllowance, { 0.25, 0.05, 5 }),
    LengthParam(2, L"MaximumAllowance", DieCastMachiningAllowanceMaximumAllowance, { 0.8, 0.1, 10 }),
};

constexpr std::array Rules = {
    RuleDefinition{ L"DieCastWallThickness", DieCastWallThickness, CategoryWalls, 5, L"die_cast_wall_thickness.htm",
                    WallThickness },
    RuleDefinition{ L"DieCastWallVariation", DieCastWallVariation, CategoryWalls, 4, L"die_cast_wall_variation.htm",
                    WallVariation },
    RuleDefinition{ L"DieCastCornerRadii", DieCastCornerRadii, CategoryFillets, 4, L"die_cast_corner_radii.htm",
                    CornerRadii },
    RuleDefinition{ L"DieCastDraft", DieCastDraft, CategoryDraft, 5, L"die_cast_draft.htm", DraftAngles },
    RuleDefinition{ L"DieCastRibs", DieCastRibs, CategoryRibs, 3, L"die_cast_ribs.htm", RibSizes },
    RuleDefinition{ L"DieCastBosses", DieCastBosses, CategoryBosses, 3, L"die_cast_bosses.htm", BossSizes },
    RuleDefinition{ L"DieCastCorePins", DieCastCorePins, CategoryHoles, 4, L"die_cast_core_pins.htm", CorePins },
    RuleDefinition{ L"DieCastUndercuts", DieCastUndercuts, CategoryUndercuts, 4, L"die_cast_undercuts.htm", Undercuts },
    RuleDefinition{ L"DieCastPartingLine", DieCastPartingLine, CategoryPartingLine, 2, L"die_cast_parting_line.htm",
                    PartingLine },
    RuleDefinition{ L"DieCastSteel", DieCastSteel, CategoryDie, 4, L"die_cast_steel.htm", DieSteel },
    RuleDefinition{ L"DieCastEjectorPads", DieCastEjectorPads, CategoryEjection, 2, L"die_cast_ejector_pads.htm",
                    EjectorPads },
    RuleDefinition{ L"DieCastLettering", DieCastLettering, CategoryDetails, 1, L"die_cast_lettering.htm", Lettering },
    RuleDefinition{ L"DieCastMachiningAllowance", DieCastMachiningAllowance, CategoryMachiningAllowances, 4,
                    L"die_cast_machining_allowance.htm", MachiningAllowance },
};

constexpr ModuleDefinition Module = {
    L"Die Casting Rules", DieCastModuleSummary, L"QOXDieCastRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
