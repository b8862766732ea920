#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Common.h"
#include "RuleModules/Texts/Tubing.h"

#include <array>

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = { CategoryBends, CategoryStraightLengths, CategoryTubeEnds, CategoryHoles,
                                    CategoryDimensions };

// Design guides of tube bending shops and makers of bending tools, for rotary draw bending: a radius
// of two diameters is bent with usual tools, less than that only with a ball mandrel and a wiper die.
constexpr std::array BendRadii = {
    DefaultByChoice(NumberParam(1, L"MinimumRadiusRatio", TubeBendRadiiMinimumRadiusRatio, { 2, 1, 10 }), 2,
                    L"bend_ratio"),
    ChoiceParam(2, L"Material", ParamTextSet{ CommonMaterialLabel, TubeBendRadiiMaterialHelp },
                StandardChoices::TubeMaterials, L"X5CrNi18-10 tube"),
};

// Mandrel charts of tool makers: what both ratios allow is bent with a mandrel of few balls.
constexpr std::array ThinWallBends = {
    NumberParam(1, L"MaximumWallFactor", TubeThinWallBendsMaximumWallFactor, { 30, 5, 200 }),
    NumberParam(2, L"MaximumSeverity", TubeThinWallBendsMaximumSeverity, { 15, 1, 100 }),
};

// A bend of two diameters loses about a fifth of its wall by geometry alone, one of one and a half
// about a quarter; piping codes add up to a quarter to the wall for tight bends.
constexpr std::array WallThinning = {
    NumberParam(1, L"MaximumThinningPercent", TubeWallThinningMaximumThinningPercent, { 25, 5, 50 }),
    LengthParam(2, L"MinimumWall", TubeWallThinningMinimumWall, { 0.7, 0, 20 }),
};

constexpr std::array DifferentRadii = {
    IntegerParam(1, L"MaximumDifferentRadii", TubeDifferentRadiiMaximumDifferentRadii, { 1, 1, 10 }),
    LengthParam(2, L"Tolerance", TubeDifferentRadiiTolerance, { 0.1, 0, 5 }),
};

// Clamp jaws of usual length are two to three diameters long; design guides of bending shops ask for
// one diameter at least and two where jaws are plain.
constexpr std::array StraightBetweenBends = {
    NumberParam(1, L"MinimumLengthRatio", TubeStraightBetweenBendsMinimumLengthRatio, { 2, 0, 10 }),
    LengthParam(2, L"MinimumLength", TubeStraightBetweenBendsMinimumLength, { 15, 0, 500 }),
    YesNoParam(3, L"AllowCompoundBends", TubeStraightBetweenBendsAllowCompoundBends, false),
};

constexpr std::array StraightEnds = {
    NumberParam(1, L"MinimumLengthRatio", TubeStraightEndsMinimumLengthRatio, { 2, 0, 10 }),
    LengthParam(2, L"MinimumLength", TubeStraightEndsMinimumLength, { 25, 0, 500 }),
};

// Tube forming shops, for one stroke in soft steel without annealing: 16 to 24 percent. Beads of
// stainless steel go up to 40.
constexpr std::array EndForms = {
    NumberParam(1, L"MaximumExpansionPercent", TubeEndFormsMaximumExpansionPercent, { 20, 0, 100 }),
    NumberParam(2, L"MaximumReductionPercent", TubeEndFormsMaximumReductionPercent, { 20, 0, 75 }),
    NumberParam(3, L"MinimumDistanceRatio", TubeEndFormsMinimumDistanceRatio, { 1.5, 0, 10 }),
};

// Shops ask for one diameter; the wall moves least where the bend has a mandrel.
constexpr std::array HolesNearBends = {
    NumberParam(1, L"MinimumDistanceRatio", TubeHolesNearBendsMinimumDistanceRatio, { 1, 0, 10 }),
    YesNoParam(2, L"AllowInBend", TubeHolesNearBendsAllowInBend, false),
};

// Design guides of tube punching and laser cutting shops.
constexpr std::array HoleSizes = {
    NumberParam(1, L"MaximumDiameterRatio", TubeHoleSizesMaximumDiameterRatio, { 0.5, 0.05, 1 }),
    NumberParam(2, L"MinimumWallRatio", TubeHoleSizesMinimumWallRatio, { 1, 0.1, 5 }),
    NumberParam(3, L"MinimumEndDistanceRatio", TubeHoleSizesMinimumEndDistanceRatio, { 2, 0, 20 }),
};

constexpr std::array BenderRange = {
    DefaultByChoice(LengthParam(1, L"SmallestDiameter", TubeBenderRangeSmallestDiameter, { 6, 1, 200 }), 3,
                    L"diameter"),
    LengthParam(2, L"LargestDiameter", TubeBenderRangeLargestDiameter, { 60, 2, 600 }),
    ChoiceParam(3, L"SmallestTube", TubeBenderRangeSmallestTube, StandardChoices::MetricTubes, L"6x1"),
};

// Stock comes in bars of 6 m.
constexpr std::array DevelopedLength = {
    LengthParam(1, L"MaximumLength", TubeDevelopedLengthMaximumLength, { 6000, 50, 20000 }),
    IntegerParam(2, L"MaximumBends", TubeDevelopedLengthMaximumBends, { 10, 1, 100 }),
};

constexpr std::array Rules = {
    RuleDefinition{ L"TubeBendRadii", TubeBendRadii, CategoryBends, 4, L"tube_bend_radii.htm", BendRadii },
    RuleDefinition{ L"TubeThinWallBends", TubeThinWallBends, CategoryBends, 4, L"tube_thin_wall_bends.htm",
                    ThinWallBends },
    RuleDefinition{ L"TubeWallThinning", TubeWallThinning, CategoryBends, 3, L"tube_wall_thinning.htm", WallThinning },
    RuleDefinition{ L"TubeDifferentRadii", TubeDifferentRadii, CategoryBends, 3, L"tube_different_radii.htm",
                    DifferentRadii },
    RuleDefinition{ L"TubeStraightBetweenBends", TubeStraightBetweenBends, CategoryStraightLengths, 4,
                    L"tube_straight_between_bends.htm", StraightBetweenBends },
    RuleDefinition{ L"TubeStraightEnds", TubeStraightEnds, CategoryStraightLengths, 4, L"tube_straight_ends.htm",
                    StraightEnds },
    RuleDefinition{ L"TubeEndForms", TubeEndForms, CategoryTubeEnds, 3, L"tube_end_forms.htm", EndForms },
    RuleDefinition{ L"TubeHolesNearBends", TubeHolesNearBends, CategoryHoles, 4, L"tube_holes_near_bends.htm",
                    HolesNearBends },
    RuleDefinition{ L"TubeHoleSizes", TubeHoleSizes, CategoryHoles, 3, L"tube_hole_sizes.htm", HoleSizes },
    RuleDefinition{ L"TubeBenderRange", TubeBenderRange, CategoryDimensions, 3, L"tube_bender_range.htm", BenderRange },
    RuleDefinition{ L"TubeDevelopedLength", TubeDevelopedLength, CategoryDimensions, 2, L"tube_developed_length.htm",
                    DevelopedLength },
};

constexpr ModuleDefinition Module = {
    L"Tubing Rules", TubeModuleSummary, L"QOXTubingRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
