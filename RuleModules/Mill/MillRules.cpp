#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Common.h"
#include "RuleModules/Texts/Mill.h"

#include <array>

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = { CategoryPockets, CategoryFilletsAndChamfers, CategoryWalls, CategoryHoles,
                                    CategoryThreads, CategoryToolAccess };

constexpr auto UsualMaterial = L"EN AW-6082-T6";

constexpr std::array DeepPockets = {
    DefaultByChoice(NumberParam(1, L"MaximumDepthRatio", MillDeepPocketsMaximumDepthRatio, { 4, 1, 15 }), 3,
                    L"pocket_depth_ratio"),
    LengthParam(2, L"MinimumDepth", MillDeepPocketsMinimumDepth, { 5, 0, 1000 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, MillDeepPocketsMaterialHelp },
                StandardChoices::Metals, UsualMaterial),
};

constexpr std::array InternalCorners = {
    DefaultByChoice(LengthParam(1, L"MinimumRadius", MillInternalCornersMinimumRadius, { 1.5, 0.1, 100 }), 4,
                    L"diameter", 0.5),
    NumberParam(2, L"MinimumRadiusToDepthRatio", MillInternalCornersMinimumRadiusToDepthRatio, { 0.15, 0, 1 }),
    YesNoParam(3, L"AllowReliefs", MillInternalCornersAllowReliefs, true),
    ChoiceParam(4, L"SmallestCutter", MillInternalCornersSmallestCutter, StandardChoices::EndMills, L"3 mm"),
};

constexpr std::array PocketFloors = {
    NumberParam(1, L"MaximumShareOfCornerRadius", MillPocketFloorsMaximumShareOfCornerRadius, { 0.8, 0.1, 1 }),
    LengthParam(2, L"PreferredRadius", MillPocketFloorsPreferredRadius, { 1, 0, 25 }),
    YesNoParam(3, L"AllowSharpFloor", MillPocketFloorsAllowSharpFloor, true),
};

constexpr std::array OuterEdges = {
    AngleParam(1, L"PreferredChamferAngle", MillOuterEdgesPreferredChamferAngle, { 45, 15, 75 }),
    AngleParam(2, L"AngleTolerance", MillOuterEdgesAngleTolerance, { 1, 0, 10 }),
    LengthParam(3, L"LargestFreeFillet", MillOuterEdgesLargestFreeFillet, { 0, 0, 50 }),
};

constexpr std::array ThinWalls = {
    DefaultByChoice(LengthParam(1, L"MinimumThickness", MillThinWallsMinimumThickness, { 0.8, 0.1, 50 }), 3,
                    L"wall_thickness_min"),
    NumberParam(2, L"MaximumHeightRatio", MillThinWallsMaximumHeightRatio, { 10, 2, 40 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, MillThinWallsMaterialHelp }, StandardChoices::Metals,
                UsualMaterial),
};

constexpr std::array DeepHoles = {
    DefaultByChoice(NumberParam(1, L"MaximumDepthRatio", MillDeepHolesMaximumDepthRatio, { 6, 1, 40 }), 4,
                    L"drill_depth_ratio"),
    LengthParam(2, L"MinimumDiameter", MillDeepHolesMinimumDiameter, { 1, 0.1, 100 }),
    YesNoParam(3, L"CheckThroughHoles", MillDeepHolesCheckThroughHoles, true),
    ChoiceParam(4, L"Material", ParamTextSet{ CommonMaterialLabel, MillDeepHolesMaterialHelp }, StandardChoices::Metals,
                UsualMaterial),
};

constexpr std::array HoleBottoms = {
    AngleParam(1, L"DrillPointAngle", MillHoleBottomsDrillPointAngle, { 118, 60, 150 }),
    AngleParam(2, L"AngleTolerance", MillHoleBottomsAngleTolerance, { 2, 0, 20 }),
    LengthParam(3, L"LargestDrill", MillHoleBottomsLargestDrill, { 20, 1, 200 }),
};

constexpr std::array InclinedEntries = {
    AngleParam(1, L"MaximumEntryAngle", MillInclinedEntriesMaximumEntryAngle, { 5, 0, 45 }),
    YesNoParam(2, L"CheckExit", MillInclinedEntriesCheckExit, true),
    LengthParam(3, L"MinimumDiameter", MillInclinedEntriesMinimumDiameter, { 0.5, 0, 100 }),
};

constexpr std::array PartialHoles = {
    NumberParam(1, L"MinimumSharePercent", MillPartialHolesMinimumSharePercent, { 75, 50, 100 }),
    LengthParam(2, L"LargestDiameter", MillPartialHolesLargestDiameter, { 50, 1, 500 }),
};

constexpr std::array DrillSizes = {
    LengthParam(1, L"Step", MillDrillSizesStep, { 0.5, 0.05, 5 }),
    LengthParam(2, L"Tolerance", MillDrillSizesTolerance, { 0.01, 0, 0.5 }),
    LengthParam(3, L"LargestDrill", MillDrillSizesLargestDrill, { 25, 1, 200 }),
};

constexpr std::array ThreadDepths = {
    NumberParam(1, L"MaximumDepthRatio", MillThreadDepthsMaximumDepthRatio, { 3, 0.5, 10 }),
    NumberParam(2, L"MinimumRunOutRatio", MillThreadDepthsMinimumRunOutRatio, { 0.5, 0, 3 }),
    DefaultByChoice(LengthParam(3, L"SmallestThread", MillThreadDepthsSmallestThread, { 2, 0.5, 100 }), 4, L"diameter"),
    ChoiceParam(4, L"SmallestStandardThread", MillThreadDepthsSmallestStandardThread, StandardChoices::MetricThreads,
                L"M2"),
};

constexpr std::array SetUps = {
    IntegerParam(1, L"MaximumDirections", MillSetUpsMaximumDirections, { 3, 1, 6 }),
    YesNoParam(2, L"AllowTilting", MillSetUpsAllowTilting, false),
    AngleParam(3, L"MaximumTilt", MillSetUpsMaximumTilt, { 30, 0, 120 }),
};

constexpr std::array Rules = {
    RuleDefinition{ L"MillDeepPockets", MillDeepPockets, CategoryPockets, 4, L"mill_deep_pockets.htm", DeepPockets },
    RuleDefinition{ L"MillInternalCorners", MillInternalCorners, CategoryPockets, 5, L"mill_internal_corners.htm",
                    InternalCorners },
    RuleDefinition{ L"MillPocketFloors", MillPocketFloors, CategoryPockets, 2, L"mill_pocket_floors.htm",
                    PocketFloors },
    RuleDefinition{ L"MillOuterEdges", MillOuterEdges, CategoryFilletsAndChamfers, 2, L"mill_outer_edges.htm",
                    OuterEdges },
    RuleDefinition{ L"MillThinWalls", MillThinWalls, CategoryWalls, 4, L"mill_thin_walls.htm", ThinWalls },
    RuleDefinition{ L"MillDeepHoles", MillDeepHoles, CategoryHoles, 3, L"mill_deep_holes.htm", DeepHoles },
    RuleDefinition{ L"MillHoleBottoms", MillHoleBottoms, CategoryHoles, 2, L"mill_hole_bottoms.htm", HoleBottoms },
    RuleDefinition{ L"MillInclinedEntries", MillInclinedEntries, CategoryHoles, 3, L"mill_inclined_entries.htm",
                    InclinedEntries },
    RuleDefinition{ L"MillPartialHoles", MillPartialHoles, CategoryHoles, 3, L"mill_partial_holes.htm", PartialHoles },
    RuleDefinition{ L"MillDrillSizes", MillDrillSizes, CategoryHoles, 1, L"mill_drill_sizes.htm", DrillSizes },
    RuleDefinition{ L"MillThreadDepths", MillThreadDepths, CategoryThreads, 3, L"mill_thread_depths.htm",
                    ThreadDepths },
    RuleDefinition{ L"MillSetUps", MillSetUps, CategoryToolAccess, 3, L"mill_set_ups.htm", SetUps },
};

constexpr ModuleDefinition Module = {
    L"Milling Rules", MillModuleSummary, L"QoxMillRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
