#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Common.h"
#include "RuleModules/Texts/SandCasting.h"

#include <array>

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = {
    CategoryWalls,     CategorySections,    CategoryFeeding, CategoryFillets, CategoryDraft,
    CategoryPattern,   CategoryPartingLine, CategoryCores,   CategoryHoles,   CategoryMachiningAllowances,
    CategoryDimensions
};

constexpr auto UsualMaterial = L"EN-GJL-200";

// The defaults are those of design guides of casting associations, foundry handbooks and the
// tables of tolerances and allowances that foundries quote for green sand moulds made by machine.
// What depends on the alloy comes from the database.

constexpr std::array WallThickness = {
    DefaultByChoice(LengthParam(1, L"MinimumThickness", SandWallThicknessMinimumThickness, { 4, 1, 100 }), 4,
                    L"wall_thickness_min"),
    LengthParam(2, L"ReferenceLength", SandWallThicknessReferenceLength, { 250, 20, 2000 }),
    NumberParam(3, L"IncreaseRatio", SandWallThicknessIncreaseRatio, { 0.01, 0, 0.1 }),
    ChoiceParam(4, L"Material", CommonMaterial, StandardChoices::CastingAlloys, UsualMaterial),
};

constexpr std::array SectionChanges = {
    NumberParam(1, L"MaximumThicknessRatio", SandSectionChangesMaximumThicknessRatio, { 2, 1, 5 }),
    NumberParam(2, L"MinimumTaperRatio", SandSectionChangesMinimumTaperRatio, { 4, 0.5, 20 }),
};

constexpr std::array FeedingPaths = {
    NumberParam(1, L"MaximumDistanceRatio", SandFeedingPathsMaximumDistanceRatio, { 4.5, 1, 20 }),
    LengthParam(2, L"SmallestThickness", SandFeedingPathsSmallestThickness, { 12, 0, 200 }),
    YesNoParam(3, L"AllowChills", SandFeedingPathsAllowChills, true),
};

constexpr std::array FilletRadii = {
    NumberParam(1, L"MinimumRadiusRatio", SandFilletsMinimumRadiusRatio, { 0.33, 0, 2 }),
    NumberParam(2, L"MaximumRadiusRatio", SandFilletsMaximumRadiusRatio, { 1, 0.2, 5 }),
    LengthParam(3, L"MinimumRadius", SandFilletsMinimumRadius, { 3, 0, 50 }),
};

constexpr std::array DraftAngles = {
    DefaultByChoice(AngleParam(1, L"MinimumDraft", SandDraftMinimumDraft, { 1, 0, 10 }), 4, L"draft_min"),
    AngleParam(2, L"InnerExtraDraft", SandDraftInnerExtraDraft, { 1, 0, 10 }),
    LengthParam(3, L"SmallestHeight", SandDraftSmallestHeight, { 5, 0, 500 }),
    ChoiceParam(4, L"Material", CommonMaterial, StandardChoices::CastingAlloys, UsualMaterial),
};

constexpr std::array MouldPockets = {
    NumberParam(1, L"MaximumDragRatio", SandPocketsMaximumDragRatio, { 1, 0.1, 5 }),
    NumberParam(2, L"MaximumCopeRatio", SandPocketsMaximumCopeRatio, { 0.5, 0.1, 5 }),
    LengthParam(3, L"SmallestWidth", SandPocketsSmallestWidth, { 12, 1, 200 }),
};

constexpr std::array Undercuts = {
    IntegerParam(1, L"MaximumUndercuts", SandUndercutsMaximumUndercuts, { 0, 0, 50 }),
    LengthParam(2, L"SmallestDepth", SandUndercutsSmallestDepth, { 0.5, 0, 50 }),
};

constexpr std::array PartingSteps = {
    LengthParam(1, L"MaximumStep", SandPartingLineMaximumStep, { 0, 0, 1000 }),
    AngleParam(2, L"MinimumStepAngle", SandPartingLineMinimumStepAngle, { 5, 0, 60 }),
};

constexpr std::array CoreSupport = {
    IntegerParam(1, L"MinimumOpenings", SandCoreSupportMinimumOpenings, { 2, 1, 10 }),
    LengthParam(2, L"SmallestOpening", SandCoreSupportSmallestOpening, { 20, 3, 500 }),
    NumberParam(3, L"MaximumSpanRatio", SandCoreSupportMaximumSpanRatio, { 5, 1, 20 }),
};

constexpr std::array HolesOfCores = {
    DefaultByChoice(LengthParam(1, L"MinimumDiameter", SandCoredHolesMinimumDiameter, { 10, 3, 200 }), 4,
                    L"hole_diameter_min"),
    NumberParam(2, L"MinimumWallRatio", SandCoredHolesMinimumWallRatio, { 1, 0, 5 }),
    NumberParam(3, L"MaximumDepthRatio", SandCoredHolesMaximumDepthRatio, { 3, 0.5, 15 }),
    ChoiceParam(4, L"Material", CommonMaterial, StandardChoices::CastingAlloys, UsualMaterial),
};

constexpr std::array MachiningAllowance = {
    LengthParam(1, L"MinimumAllowance", SandMachiningAllowanceMinimumAllowance, { 3, 0.5, 30 }),
    NumberParam(2, L"LengthSharePercent", SandMachiningAllowanceLengthSharePercent, { 0.7, 0, 3 }),
    LengthParam(3, L"CopeFaceExtra", SandMachiningAllowanceCopeFaceExtra, { 1, 0, 20 }),
};

constexpr std::array Tolerances = {
    LengthParam(1, L"SmallestTolerance", SandTolerancesSmallestTolerance, { 0.8, 0.1, 10 }),
    NumberParam(2, L"LengthSharePercent", SandTolerancesLengthSharePercent, { 0.3, 0, 3 }),
    LengthParam(3, L"PartingLineExtra", SandTolerancesPartingLineExtra, { 0.5, 0, 10 }),
};

constexpr std::array Rules = {
    RuleDefinition{ L"SandWallThickness", SandWallThickness, CategoryWalls, 5, L"sand_wall_thickness.htm",
                    WallThickness },
    RuleDefinition{ L"SandSectionChanges", SandSectionChanges, CategorySections, 4, L"sand_section_changes.htm",
                    SectionChanges },
    RuleDefinition{ L"SandFeedingPaths", SandFeedingPaths, CategoryFeeding, 5, L"sand_feeding_paths.htm",
                    FeedingPaths },
    RuleDefinition{ L"SandFillets", SandFillets, CategoryFillets, 4, L"sand_fillets.htm", FilletRadii },
    RuleDefinition{ L"SandDraft", SandDraft, CategoryDraft, 4, L"sand_draft.htm", DraftAngles },
    RuleDefinition{ L"SandPockets", SandPockets, CategoryPattern, 3, L"sand_pockets.htm", MouldPockets },
    RuleDefinition{ L"SandUndercuts", SandUndercuts, CategoryPattern, 3, L"sand_undercuts.htm", Undercuts },
    RuleDefinition{ L"SandPartingLine", SandPartingLine, CategoryPartingLine, 3, L"sand_parting_line.htm",
                    PartingSteps },
    RuleDefinition{ L"SandCoreSupport", SandCoreSupport, CategoryCores, 4, L"sand_core_support.htm", CoreSupport },
    RuleDefinition{ L"SandCoredHoles", SandCoredHoles, CategoryHoles, 3, L"sand_cored_holes.htm", HolesOfCores },
    RuleDefinition{ L"SandMachiningAllowance", SandMachiningAllowance, CategoryMachiningAllowances, 4,
                    L"sand_machining_allowance.htm", MachiningAllowance },
    RuleDefinition{ L"SandTolerances", SandTolerances, CategoryDimensions, 3, L"sand_tolerances.htm", Tolerances },
};

constexpr ModuleDefinition Module = {
    L"Sand Casting Rules", SandModuleSummary, L"QOXSandCastingRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
