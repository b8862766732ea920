#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Common.h"
#include "RuleModules/Texts/Turn.h"

#include <array>

// The limits are those that handbooks of machining, the catalogues of insert and boring bar makers,
// and the standards for undercuts and thread run-outs have in common.

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = { CategoryClamping, CategoryOuterDiameters, CategoryFilletsAndChamfers,
                                    CategoryWalls,    CategoryInnerDiameters, CategoryHoles,
                                    CategoryGrooves,  CategoryThreads,        CategoryToolAccess };

constexpr auto UsualMaterial = L"EN AW-6082-T6";

// A bar that is held at one end bends by the third power of its length.
constexpr std::array SlenderParts = {
    NumberParam(1, L"MaximumRatioInChuck", TurnSlenderPartsMaximumRatioInChuck, { 4, 1, 15 }),
    NumberParam(2, L"MaximumRatioWithTailstock", TurnSlenderPartsMaximumRatioWithTailstock, { 10, 2, 40 }),
    YesNoParam(3, L"AllowSteadyRest", TurnSlenderPartsAllowSteadyRest, false),
};

// 65 mm is the usual bar capacity of a medium lathe.
constexpr std::array BarStock = {
    LengthParam(1, L"LargestBarDiameter", TurnBarStockLargestBarDiameter, { 65, 3, 500 }),
    LengthParam(2, L"MinimumAllowance", TurnBarStockMinimumAllowance, { 2, 0, 20 }),
    LengthParam(3, L"BarStep", TurnBarStockBarStep, { 5, 0.5, 50 }),
};

// A rhombic insert of 55 degrees at an approach of 93 degrees leaves 32 degrees behind it, less
// some clearance; makers of tool holders state 27 to 30.
constexpr std::array FallingContours = {
    AngleParam(1, L"MaximumAngle", TurnFallingContoursMaximumAngle, { 27, 0, 60 }),
    LengthParam(2, L"MinimumDepth", TurnFallingContoursMinimumDepth, { 0.5, 0, 50 }),
    YesNoParam(3, L"PassOverGrooves", TurnFallingContoursPassOverGrooves, true),
};

// A sleeve counts as thin where its diameter is more than 20 times its wall.
constexpr std::array ThinWalls = {
    DefaultByChoice(LengthParam(1, L"MinimumThickness", TurnThinWallsMinimumThickness, { 0.8, 0.1, 50 }), 3,
                    L"wall_thickness_min"),
    NumberParam(2, L"MinimumShareOfDiameter", TurnThinWallsMinimumShareOfDiameter, { 0.05, 0.005, 0.5 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, TurnThinWallsMaterialHelp }, StandardChoices::Metals,
                UsualMaterial),
};

// Finishing inserts have noses of 0.2, 0.4 and 0.8 mm.
constexpr std::array InternalCorners = {
    LengthParam(1, L"MinimumRadius", TurnInternalCornersMinimumRadius, { 0.4, 0.05, 25 }),
    YesNoParam(2, L"AllowUndercuts", TurnInternalCornersAllowUndercuts, true),
    YesNoParam(3, L"CheckBores", TurnInternalCornersCheckBores, true),
};

constexpr std::array OuterEdges = {
    LengthParam(1, L"MinimumSize", TurnOuterEdgesMinimumSize, { 0.2, 0.05, 10 }),
    AngleParam(2, L"PreferredChamferAngle", TurnOuterEdgesPreferredChamferAngle, { 45, 10, 80 }),
    AngleParam(3, L"AngleTolerance", TurnOuterEdgesAngleTolerance, { 1, 0, 20 }),
};

// Bars of steel stand out by 4 times their diameter, of hard metal by 6, with dampers by 10 and more.
constexpr std::array DeepBores = {
    NumberParam(1, L"MaximumDepthRatio", TurnDeepBoresMaximumDepthRatio, { 4, 1, 14 }),
    LengthParam(2, L"MinimumDiameter", TurnDeepBoresMinimumDiameter, { 8, 0.5, 200 }),
    YesNoParam(3, L"CountFromBothEnds", TurnDeepBoresCountFromBothEnds, true),
};

// The smallest of the undercuts that standards recommend for medium diameters.
constexpr std::array BoreReliefs = {
    LengthParam(1, L"MinimumWidth", TurnBoreReliefsMinimumWidth, { 2, 0.5, 20 }),
    LengthParam(2, L"MinimumDepth", TurnBoreReliefsMinimumDepth, { 0.2, 0.05, 5 }),
    YesNoParam(3, L"AllowDrillPoints", TurnBoreReliefsAllowDrillPoints, true),
};

constexpr std::array NarrowGrooves = {
    LengthParam(1, L"MinimumWidth", TurnNarrowGroovesMinimumWidth, { 1, 0.3, 25 }),
    NumberParam(2, L"MaximumDepthRatio", TurnNarrowGroovesMaximumDepthRatio, { 4, 0.5, 12 }),
    YesNoParam(3, L"CheckBores", TurnNarrowGroovesCheckBores, true),
};

// As the standards for the run-out of metric threads have it in their regular series; their short
// series needs about half the width.
constexpr std::array ThreadReliefs = {
    NumberParam(1, L"MinimumWidthRatio", TurnThreadReliefsMinimumWidthRatio, { 2, 0.5, 6 }),
    NumberParam(2, L"MinimumInnerWidthRatio", TurnThreadReliefsMinimumInnerWidthRatio, { 4, 0.5, 10 }),
    NumberParam(3, L"MinimumDepthRatio", TurnThreadReliefsMinimumDepthRatio, { 0.75, 0.6, 2 }),
};

constexpr std::array AxialHoles = {
    DefaultByChoice(NumberParam(1, L"MaximumDepthRatio", TurnAxialHolesMaximumDepthRatio, { 6, 1, 40 }), 3,
                    L"drill_depth_ratio"),
    LengthParam(2, L"MinimumDiameter", TurnAxialHolesMinimumDiameter, { 1, 0.1, 100 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, TurnAxialHolesMaterialHelp },
                StandardChoices::Metals, UsualMaterial),
};

constexpr std::array OffAxisFeatures = {
    LengthParam(1, L"MaximumOffset", TurnOffAxisFeaturesMaximumOffset, { 0.02, 0, 5 }),
    YesNoParam(2, L"AllowDrivenTools", TurnOffAxisFeaturesAllowDrivenTools, true),
    YesNoParam(3, L"CheckFlats", TurnOffAxisFeaturesCheckFlats, true),
};

constexpr std::array Rules = {
    RuleDefinition{ L"TurnSlenderParts", TurnSlenderParts, CategoryClamping, 4, L"turn_slender_parts.htm",
                    SlenderParts },
    RuleDefinition{ L"TurnBarStock", TurnBarStock, CategoryOuterDiameters, 3, L"turn_bar_stock.htm", BarStock },
    RuleDefinition{ L"TurnFallingContours", TurnFallingContours, CategoryOuterDiameters, 3,
                    L"turn_falling_contours.htm", FallingContours },
    RuleDefinition{ L"TurnThinWalls", TurnThinWalls, CategoryWalls, 4, L"turn_thin_walls.htm", ThinWalls },
    RuleDefinition{ L"TurnInternalCorners", TurnInternalCorners, CategoryFilletsAndChamfers, 4,
                    L"turn_internal_corners.htm", InternalCorners },
    RuleDefinition{ L"TurnOuterEdges", TurnOuterEdges, CategoryFilletsAndChamfers, 2, L"turn_outer_edges.htm",
                    OuterEdges },
    RuleDefinition{ L"TurnDeepBores", TurnDeepBores, CategoryInnerDiameters, 4, L"turn_deep_bores.htm", DeepBores },
    RuleDefinition{ L"TurnBoreReliefs", TurnBoreReliefs, CategoryInnerDiameters, 2, L"turn_bore_reliefs.htm",
                    BoreReliefs },
    RuleDefinition{ L"TurnNarrowGrooves", TurnNarrowGrooves, CategoryGrooves, 3, L"turn_narrow_grooves.htm",
                    NarrowGrooves },
    RuleDefinition{ L"TurnThreadReliefs", TurnThreadReliefs, CategoryThreads, 3, L"turn_thread_reliefs.htm",
                    ThreadReliefs },
    RuleDefinition{ L"TurnAxialHoles", TurnAxialHoles, CategoryHoles, 3, L"turn_axial_holes.htm", AxialHoles },
    RuleDefinition{ L"TurnOffAxisFeatures", TurnOffAxisFeatures, CategoryToolAccess, 3, L"turn_off_axis_features.htm",
                    OffAxisFeatures },
};

constexpr ModuleDefinition Module = {
    L"Turning Rules", TurnModuleSummary, L"QoxTurnRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
