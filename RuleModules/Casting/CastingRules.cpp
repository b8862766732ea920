#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Casting.h"
#include "RuleModules/Texts/Common.h"

#include <array>

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = { CategoryWalls, CategorySections, CategoryFillets,     CategoryDraft,
                                    CategoryHoles, CategoryCores,    CategoryPartingLine, CategoryMachiningAllowances };

constexpr auto UsualMaterial = L"EN-GJL-200";

// The defaults are those that design guides of casting associations and foundries usually have
// for gravity castings of medium size. Where such guides give a range, the default is the side
// of it that is easier to cast.

constexpr std::array WallThickness = {
    DefaultByChoice(LengthParam(1, L"MinimumThickness", CastWallThicknessMinimumThickness, { 4, 0.5, 100 }), 3,
                    L"wall_thickness_min"),
    DefaultByChoice(LengthParam(2, L"MaximumThickness", CastWallThicknessMaximumThickness, { 50, 2, 500 }), 3,
                    L"wall_thickness_max"),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, CastWallThicknessMaterialHelp },
                StandardChoices::CastingAlloys, UsualMaterial),
};

constexpr std::array SectionChanges = {
    NumberParam(1, L"MaximumThicknessRatio", CastSectionChangesMaximumThicknessRatio, { 2, 1, 5 }),
    NumberParam(2, L"MinimumTaperRatio", CastSectionChangesMinimumTaperRatio, { 4, 0.5, 20 }),
};

constexpr std::array InnerWalls = {
    NumberParam(1, L"MaximumSharePercent", CastInnerWallsMaximumSharePercent, { 80, 50, 100 }),
    DefaultByChoice(LengthParam(2, L"MinimumThickness", CastInnerWallsMinimumThickness, { 4, 0.5, 100 }), 3,
                    L"wall_thickness_min"),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, CastInnerWallsMaterialHelp },
                StandardChoices::CastingAlloys, UsualMaterial),
};

constexpr std::array HotSpots = {
    NumberParam(1, L"MaximumCircleRatio", CastHotSpotsMaximumCircleRatio, { 1.5, 1, 4 }),
    LengthParam(2, L"SmallestCircle", CastHotSpotsSmallestCircle, { 10, 0, 200 }),
    YesNoParam(3, L"AllowFedSpots", CastHotSpotsAllowFedSpots, true),
};

constexpr std::array Junctions = {
    IntegerParam(1, L"MaximumWalls", CastJunctionsMaximumWalls, { 3, 2, 8 }),
    AngleParam(2, L"MinimumAngle", CastJunctionsMinimumAngle, { 60, 15, 90 }),
    NumberParam(3, L"MinimumOffsetRatio", CastJunctionsMinimumOffsetRatio, { 2, 0, 10 }),
};

constexpr std::array FilletRadii = {
    NumberParam(1, L"MinimumRadiusRatio", CastFilletsMinimumRadiusRatio, { 0.33, 0, 2 }),
    NumberParam(2, L"MaximumRadiusRatio", CastFilletsMaximumRadiusRatio, { 1, 0.2, 5 }),
    LengthParam(3, L"MinimumRadius", CastFilletsMinimumRadius, { 3, 0, 50 }),
};

constexpr std::array DraftAngles = {
    DefaultByChoice(AngleParam(1, L"MinimumDraft", CastDraftMinimumDraft, { 1, 0, 10 }), 4, L"draft_min"),
    AngleParam(2, L"InnerExtraDraft", CastDraftInnerExtraDraft, { 1, 0, 10 }),
    LengthParam(3, L"SmallestHeight", CastDraftSmallestHeight, { 10, 0, 500 }),
    ChoiceParam(4, L"Material", ParamTextSet{ CommonMaterialLabel, CastDraftMaterialHelp },
                StandardChoices::CastingAlloys, UsualMaterial),
};

constexpr std::array CastHoles = {
    DefaultByChoice(LengthParam(1, L"MinimumDiameter", CastCoredHolesMinimumDiameter, { 10, 1, 200 }), 4,
                    L"hole_diameter_min"),
    NumberParam(2, L"MaximumBlindRatio", CastCoredHolesMaximumBlindRatio, { 1.5, 0.5, 10 }),
    NumberParam(3, L"MaximumThroughRatio", CastCoredHolesMaximumThroughRatio, { 3, 0.5, 20 }),
    ChoiceParam(4, L"Material", ParamTextSet{ CommonMaterialLabel, CastCoredHolesMaterialHelp },
                StandardChoices::CastingAlloys, UsualMaterial),
};

constexpr std::array Cavities = {
    IntegerParam(1, L"MinimumOpenings", CastCavitiesMinimumOpenings, { 2, 1, 10 }),
    LengthParam(2, L"SmallestOpening", CastCavitiesSmallestOpening, { 25, 3, 500 }),
};

constexpr std::array Undercuts = {
    IntegerParam(1, L"MaximumUndercuts", CastUndercutsMaximumUndercuts, { 0, 0, 50 }),
    LengthParam(2, L"SmallestDepth", CastUndercutsSmallestDepth, { 0.5, 0, 50 }),
};

constexpr std::array PartingSteps = {
    LengthParam(1, L"MaximumStep", CastPartingLineMaximumStep, { 0, 0, 1000 }),
    AngleParam(2, L"MinimumStepAngle", CastPartingLineMinimumStepAngle, { 5, 0, 60 }),
};

constexpr std::array MachiningAllowance = {
    LengthParam(1, L"MinimumAllowance", CastMachiningAllowanceMinimumAllowance, { 3, 0.2, 30 }),
    LengthParam(2, L"MaximumAllowance", CastMachiningAllowanceMaximumAllowance, { 6, 0.5, 60 }),
    LengthParam(3, L"TopFaceExtra", CastMachiningAllowanceTopFaceExtra, { 1, 0, 20 }),
};

constexpr std::array Rules = {
    RuleDefinition{ L"CastWallThickness", CastWallThickness, CategoryWalls, 5, L"cast_wall_thickness.htm",
                    WallThickness },
    RuleDefinition{ L"CastSectionChanges", CastSectionChanges, CategoryWalls, 4, L"cast_section_changes.htm",
                    SectionChanges },
    RuleDefinition{ L"CastInnerWalls", CastInnerWalls, CategoryWalls, 3, L"cast_inner_walls.htm", InnerWalls },
    RuleDefinition{ L"CastHotSpots", CastHotSpots, CategorySections, 5, L"cast_hot_spots.htm", HotSpots },
    RuleDefinition{ L"CastJunctions", CastJunctions, CategorySections, 4, L"cast_junctions.htm", Junctions },
    RuleDefinition{ L"CastFillets", CastFillets, CategoryFillets, 4, L"cast_fillets.htm", FilletRadii },
    RuleDefinition{ L"CastDraft", CastDraft, CategoryDraft, 4, L"cast_draft.htm", DraftAngles },
    RuleDefinition{ L"CastCoredHoles", CastCoredHoles, CategoryHoles, 3, L"cast_cored_holes.htm", CastHoles },
    RuleDefinition{ L"CastCavities", CastCavities, CategoryCores, 4, L"cast_cavities.htm", Cavities },
    RuleDefinition{ L"CastUndercuts", CastUndercuts, CategoryCores, 3, L"cast_undercuts.htm", Undercuts },
    RuleDefinition{ L"CastPartingLine", CastPartingLine, CategoryPartingLine, 2, L"cast_parting_line.htm",
                    PartingSteps },
    RuleDefinition{ L"CastMachiningAllowance", CastMachiningAllowance, CategoryMachiningAllowances, 4,
                    L"cast_machining_allowance.htm", MachiningAllowance },
};

constexpr ModuleDefinition Module = {
    L"Casting Rules", CastModuleSummary, L"QOXCastingRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
