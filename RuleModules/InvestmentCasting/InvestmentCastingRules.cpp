#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Common.h"
#include "RuleModules/Texts/InvestmentCasting.h"

#include <array>

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = {
    CategoryWalls,   CategorySections,   CategoryFeeding,    CategoryFillets,
    CategoryDetails, CategoryDraft,      CategoryHoles,      CategoryShell,
    CategoryCores,   CategoryDistortion, CategoryDimensions, CategoryMachiningAllowances
};

constexpr auto UsualMaterial = L"GX2CrNi19-11";

// The defaults are those of design guides of investment casting associations and of the tables that
// foundries quote for ordinary castings of some hundred grams to a few kilograms, not the best
// values that are reached with added effort. What depends on the alloy comes from the database.

constexpr std::array WallThickness = {
    DefaultByChoice(LengthParam(1, L"MinimumThickness", InvestWallThicknessMinimumThickness, { 1.5, 0.3, 30 }), 3,
                    L"wall_thickness_min"),
    DefaultByChoice(LengthParam(2, L"MaximumThickness", InvestWallThicknessMaximumThickness, { 25, 2, 200 }), 3,
                    L"wall_thickness_max"),
    ChoiceParam(3, L"Material", CommonMaterial, StandardChoices::InvestmentAlloys, UsualMaterial),
};

constexpr std::array SectionChanges = {
    NumberParam(1, L"MaximumThicknessRatio", InvestSectionChangesMaximumThicknessRatio, { 2, 1, 5 }),
    NumberParam(2, L"MinimumTaperRatio", InvestSectionChangesMinimumTaperRatio, { 4, 0.5, 20 }),
};

constexpr std::array HotSpots = {
    NumberParam(1, L"MaximumCircleRatio", InvestHotSpotsMaximumCircleRatio, { 1.5, 1, 4 }),
    LengthParam(2, L"SmallestCircle", InvestHotSpotsSmallestCircle, { 6, 0, 100 }),
    YesNoParam(3, L"AllowGatedSpots", InvestHotSpotsAllowGatedSpots, true),
};

constexpr std::array GateFaces = {
    NumberParam(1, L"MinimumWidthRatio", InvestGateFacesMinimumWidthRatio, { 1, 0.2, 3 }),
    LengthParam(2, L"LargestStub", InvestGateFacesLargestStub, { 0.5, 0, 5 }),
};

constexpr std::array FilletRadii = {
    LengthParam(1, L"MinimumRadius", InvestFilletsMinimumRadius, { 0.8, 0, 20 }),
    NumberParam(2, L"MaximumRadiusRatio", InvestFilletsMaximumRadiusRatio, { 1, 0.2, 5 }),
};

constexpr std::array ThinEdges = {
    LengthParam(1, L"MinimumThickness", InvestEdgesMinimumThickness, { 0.8, 0.1, 10 }),
    LengthParam(2, L"MinimumRadius", InvestEdgesMinimumRadius, { 0.5, 0, 10 }),
};

constexpr std::array DraftAngles = {
    AngleParam(1, L"MinimumDraft", InvestDraftMinimumDraft, { 0.5, 0, 5 }),
    LengthParam(2, L"SmallestHeight", InvestDraftSmallestHeight, { 10, 0, 200 }),
};

constexpr std::array CastHoles = {
    DefaultByChoice(LengthParam(1, L"MinimumDiameter", InvestHolesMinimumDiameter, { 2, 0.5, 50 }), 4,
                    L"hole_diameter_min"),
    NumberParam(2, L"MaximumThroughRatio", InvestHolesMaximumThroughRatio, { 3, 0.5, 15 }),
    NumberParam(3, L"MaximumBlindRatio", InvestHolesMaximumBlindRatio, { 1.5, 0.3, 10 }),
    ChoiceParam(4, L"Material", CommonMaterial, StandardChoices::InvestmentAlloys, UsualMaterial),
};

constexpr std::array NarrowSlots = {
    LengthParam(1, L"MinimumWidth", InvestSlotsMinimumWidth, { 1.5, 0.3, 30 }),
    NumberParam(2, L"MaximumDepthRatio", InvestSlotsMaximumDepthRatio, { 2, 0.3, 10 }),
};

constexpr std::array InnerCavities = {
    IntegerParam(1, L"MaximumCores", InvestCavitiesMaximumCores, { 0, 0, 20 }),
    YesNoParam(2, L"AllowSolubleWax", InvestCavitiesAllowSolubleWax, false),
};

constexpr std::array FlatFaces = {
    LengthParam(1, L"SmallestTolerance", InvestFlatnessSmallestTolerance, { 0.2, 0.02, 5 }),
    NumberParam(2, L"LengthSharePercent", InvestFlatnessLengthSharePercent, { 0.6, 0, 5 }),
    YesNoParam(3, L"AllowStraightening", InvestFlatnessAllowStraightening, false),
};

constexpr std::array Tolerances = {
    LengthParam(1, L"SmallestTolerance", InvestTolerancesSmallestTolerance, { 0.15, 0.02, 5 }),
    NumberParam(2, L"LengthSharePercent", InvestTolerancesLengthSharePercent, { 0.5, 0.1, 5 }),
    AngleParam(3, L"SmallestAngleTolerance", InvestTolerancesSmallestAngleTolerance, { 0.5, 0.1, 5 }),
};

constexpr std::array MachiningAllowance = {
    LengthParam(1, L"MinimumAllowance", InvestMachiningAllowanceMinimumAllowance, { 0.8, 0.1, 10 }),
    NumberParam(2, L"LengthSharePercent", InvestMachiningAllowanceLengthSharePercent, { 0.7, 0, 5 }),
};

constexpr std::array Rules = {
    RuleDefinition{ L"InvestWallThickness", InvestWallThickness, CategoryWalls, 5, L"invest_wall_thickness.htm",
                    WallThickness },
    RuleDefinition{ L"InvestSectionChanges", InvestSectionChanges, CategorySections, 4, L"invest_section_changes.htm",
                    SectionChanges },
    RuleDefinition{ L"InvestHotSpots", InvestHotSpots, CategorySections, 4, L"invest_hot_spots.htm", HotSpots },
    RuleDefinition{ L"InvestGateFaces", InvestGateFaces, CategoryFeeding, 4, L"invest_gate_faces.htm", GateFaces },
    RuleDefinition{ L"InvestFillets", InvestFillets, CategoryFillets, 4, L"invest_fillets.htm", FilletRadii },
    RuleDefinition{ L"InvestEdges", InvestEdges, CategoryDetails, 3, L"invest_edges.htm", ThinEdges },
    RuleDefinition{ L"InvestDraft", InvestDraft, CategoryDraft, 2, L"invest_draft.htm", DraftAngles },
    RuleDefinition{ L"InvestHoles", InvestHoles, CategoryHoles, 4, L"invest_holes.htm", CastHoles },
    RuleDefinition{ L"InvestSlots", InvestSlots, CategoryShell, 4, L"invest_slots.htm", NarrowSlots },
    RuleDefinition{ L"InvestCavities", InvestCavities, CategoryCores, 4, L"invest_cavities.htm", InnerCavities },
    RuleDefinition{ L"InvestFlatness", InvestFlatness, CategoryDistortion, 3, L"invest_flatness.htm", FlatFaces },
    RuleDefinition{ L"InvestTolerances", InvestTolerances, CategoryDimensions, 4, L"invest_tolerances.htm",
                    Tolerances },
    RuleDefinition{ L"InvestMachiningAllowance", InvestMachiningAllowance, CategoryMachiningAllowances, 3,
                    L"invest_machining_allowance.htm", MachiningAllowance },
};

constexpr ModuleDefinition Module = {
    L"Investment Casting Rules", InvestModuleSummary, L"QOXInvestmentCastRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
