#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Common.h"
#include "RuleModules/Texts/Generic.h"

#include <array>

// The limits are those that design guides of job shops, handbooks of machine elements, and the
// standards for undefined edges have in common. They hold for most processes; where a process
// has limits of its own, its module has rules for them.

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = { CategoryDimensions, CategoryFilletsAndChamfers,
                                    CategoryWalls,      CategoryHoles,
                                    CategoryFeatures,   CategoryDetails,
                                    CategoryProperties, CategoryModel };

// The travels of a medium machining centre.
constexpr std::array PartSize = {
    LengthParam(1, L"MaximumLength", GenericPartSizeMaximumLength, { 600, 1, 20000 }),
    LengthParam(2, L"MaximumWidth", GenericPartSizeMaximumWidth, { 400, 1, 10000 }),
    LengthParam(3, L"MaximumHeight", GenericPartSizeMaximumHeight, { 400, 1, 10000 }),
    LengthParam(4, L"StockAllowance", GenericPartSizeStockAllowance, { 2, 0, 50 }),
};

constexpr std::array SharpEdges = {
    LengthParam(1, L"MinimumSize", GenericSharpEdgesMinimumSize, { 0.2, 0.02, 10 }),
    AngleParam(2, L"LargestEdgeAngle", GenericSharpEdgesLargestEdgeAngle, { 135, 30, 179 }),
    LengthParam(3, L"MinimumLength", GenericSharpEdgesMinimumLength, { 1, 0, 100 }),
};

constexpr std::array InnerEdges = {
    LengthParam(1, L"MinimumRadius", GenericInnerEdgesMinimumRadius, { 0.5, 0.02, 50 }),
    YesNoParam(2, L"AllowReliefs", GenericInnerEdgesAllowReliefs, true),
    YesNoParam(3, L"PassOverHoleBottoms", GenericInnerEdgesPassOverHoleBottoms, true),
};

constexpr std::array WallThickness = {
    DefaultByChoice(LengthParam(1, L"MinimumThickness", GenericWallThicknessMinimumThickness, { 0.8, 0.05, 100 }), 3,
                    L"wall_thickness_min"),
    NumberParam(2, L"MaximumChangeRatio", GenericWallThicknessMaximumChangeRatio, { 3, 1, 20 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, GenericWallThicknessMaterialHelp },
                StandardChoices::Metals, L"EN AW-6082-T6"),
};

constexpr std::array HoleSizes = {
    LengthParam(1, L"Step", GenericHoleSizesStep, { 0.5, 0.05, 5 }),
    LengthParam(2, L"Tolerance", GenericHoleSizesTolerance, { 0.01, 0, 0.5 }),
    DefaultByChoice(LengthParam(3, L"SmallestDiameter", GenericHoleSizesSmallestDiameter, { 1, 0.05, 100 }), 4,
                    L"diameter"),
    ChoiceParam(4, L"SmallestDrill", GenericHoleSizesSmallestDrill, StandardChoices::Drills, L"1 mm"),
};

constexpr std::array HolesNearEdges = {
    NumberParam(1, L"MinimumEdgeRatio", GenericHolesNearEdgesMinimumEdgeRatio, { 1.5, 0.5, 5 }),
    NumberParam(2, L"MinimumSpacingRatio", GenericHolesNearEdgesMinimumSpacingRatio, { 2, 1, 10 }),
    LengthParam(3, L"LargestDiameter", GenericHolesNearEdgesLargestDiameter, { 25, 0.5, 500 }),
};

constexpr std::array HoleAlignment = {
    LengthParam(1, L"LargestDeviation", GenericHoleAlignmentLargestDeviation, { 0.5, 0.01, 20 }),
    LengthParam(2, L"Tolerance", GenericHoleAlignmentTolerance, { 0.01, 0, 1 }),
    AngleParam(3, L"LargestAngle", GenericHoleAlignmentLargestAngle, { 1, 0, 10 }),
};

constexpr std::array SmallFeatures = {
    LengthParam(1, L"MinimumEdgeLength", GenericSmallFeaturesMinimumEdgeLength, { 0.2, 0.001, 50 }),
    LengthParam(2, L"MinimumFaceWidth", GenericSmallFeaturesMinimumFaceWidth, { 0.2, 0.001, 50 }),
    YesNoParam(3, L"PassOverEdgeBreaks", GenericSmallFeaturesPassOverEdgeBreaks, true),
};

constexpr std::array Variety = {
    IntegerParam(1, L"MaximumDiameters", GenericVarietyMaximumDiameters, { 6, 1, 100 }),
    IntegerParam(2, L"MaximumRadii", GenericVarietyMaximumRadii, { 4, 1, 100 }),
    LengthParam(3, L"SmallestDifference", GenericVarietySmallestDifference, { 0.5, 0.01, 10 }),
};

constexpr std::array Symmetry = {
    LengthParam(1, L"MinimumDifference", GenericSymmetryMinimumDifference, { 2, 0.1, 100 }),
    NumberParam(2, L"MinimumSharePercent", GenericSymmetryMinimumSharePercent, { 5, 0.1, 50 }),
    LengthParam(3, L"Tolerance", GenericSymmetryTolerance, { 0.01, 0, 1 }),
};

// Soft metals and plastics take strokes of 0.5 mm; shops ask for 0.8 mm in hard steel.
constexpr std::array EngravedText = {
    LengthParam(1, L"MinimumHeight", GenericEngravedTextMinimumHeight, { 3, 0.5, 200 }),
    LengthParam(2, L"MinimumStrokeWidth", GenericEngravedTextMinimumStrokeWidth, { 0.5, 0.05, 50 }),
    LengthParam(3, L"MaximumDepth", GenericEngravedTextMaximumDepth, { 0.5, 0.02, 20 }),
    YesNoParam(4, L"AllowRaisedText", GenericEngravedTextAllowRaisedText, false),
};

constexpr std::array Properties = {
    YesNoParam(1, L"RequireMaterial", GenericPropertiesRequireMaterial, true),
    YesNoParam(2, L"RequirePartNumber", GenericPropertiesRequirePartNumber, true),
    YesNoParam(3, L"RequireDescription", GenericPropertiesRequireDescription, true),
    YesNoParam(4, L"RequireRevision", GenericPropertiesRequireRevision, false),
};

constexpr std::array ModelState = {
    YesNoParam(1, L"CheckErrors", GenericModelStateCheckErrors, true),
    YesNoParam(2, L"CheckSuppressed", GenericModelStateCheckSuppressed, true),
    YesNoParam(3, L"CheckSketches", GenericModelStateCheckSketches, true),
};

constexpr std::array Rules = {
    RuleDefinition{ L"GenericPartSize", GenericPartSize, CategoryDimensions, 4, L"generic_part_size.htm", PartSize },
    RuleDefinition{ L"GenericSharpEdges", GenericSharpEdges, CategoryFilletsAndChamfers, 3, L"generic_sharp_edges.htm",
                    SharpEdges },
    RuleDefinition{ L"GenericInnerEdges", GenericInnerEdges, CategoryFilletsAndChamfers, 3, L"generic_inner_edges.htm",
                    InnerEdges },
    RuleDefinition{ L"GenericWallThickness", GenericWallThickness, CategoryWalls, 4, L"generic_wall_thickness.htm",
                    WallThickness },
    RuleDefinition{ L"GenericHoleSizes", GenericHoleSizes, CategoryHoles, 2, L"generic_hole_sizes.htm", HoleSizes },
    RuleDefinition{ L"GenericHolesNearEdges", GenericHolesNearEdges, CategoryHoles, 3, L"generic_holes_near_edges.htm",
                    HolesNearEdges },
    RuleDefinition{ L"GenericHoleAlignment", GenericHoleAlignment, CategoryHoles, 2, L"generic_hole_alignment.htm",
                    HoleAlignment },
    RuleDefinition{ L"GenericSmallFeatures", GenericSmallFeatures, CategoryFeatures, 3, L"generic_small_features.htm",
                    SmallFeatures },
    RuleDefinition{ L"GenericVariety", GenericVariety, CategoryFeatures, 1, L"generic_variety.htm", Variety },
    RuleDefinition{ L"GenericSymmetry", GenericSymmetry, CategoryFeatures, 2, L"generic_symmetry.htm", Symmetry },
    RuleDefinition{ L"GenericEngravedText", GenericEngravedText, CategoryDetails, 2, L"generic_engraved_text.htm",
                    EngravedText },
    RuleDefinition{ L"GenericProperties", GenericProperties, CategoryProperties, 3, L"generic_properties.htm",
                    Properties },
    RuleDefinition{ L"GenericModelState", GenericModelState, CategoryModel, 3, L"generic_model_state.htm", ModelState },
};

constexpr ModuleDefinition Module = {
    L"Generic Rules", GenericModuleSummary, L"QoxGenericRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
