#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Common.h"
#include "RuleModules/Texts/Welding.h"

#include <array>

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = { CategoryJoints, CategorySeams, CategoryAccess, CategoryDistortion,
                                    CategoryClearances };

// Handbooks of makers of welding machines.
constexpr std::array ThinParts = {
    DefaultByChoice(LengthParam(1, L"MinimumThickness", WeldThinPartsMinimumThickness, { 1.5, 0.3, 50 }), 3,
                    L"weld_thickness_min"),
    NumberParam(2, L"MaximumThicknessRatio", WeldThinPartsMaximumThicknessRatio, { 3, 1, 20 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, WeldThinPartsMaterialHelp },
                StandardChoices::WeldedMetals, L"S235J2"),
};

// Standards of joint preparation for arc welding of steel: a square edge up to 4 mm from one side and
// 8 mm from both, a V groove of 40 to 60 degrees.
constexpr std::array EdgePreparations = {
    LengthParam(1, L"MaximumOneSided", WeldEdgePreparationsMaximumOneSided, { 4, 0.5, 20 }),
    LengthParam(2, L"MaximumTwoSided", WeldEdgePreparationsMaximumTwoSided, { 8, 1, 40 }),
    AngleParam(3, L"MinimumGrooveAngle", WeldEdgePreparationsMinimumGrooveAngle, { 40, 10, 90 }),
};

// Codes for steel structures ask for 2.5 (American) or 4 (European, under varying load).
constexpr std::array ThicknessSteps = {
    LengthParam(1, L"LargestStep", WeldThicknessStepsLargestStep, { 3, 0, 20 }),
    NumberParam(2, L"MinimumTaperRatio", WeldThicknessStepsMinimumTaperRatio, { 4, 1, 10 }),
};

// European codes for steel structures calculate welds within these angles as fillet welds.
constexpr std::array JointAngles = {
    AngleParam(1, L"MinimumAngle", WeldJointAnglesMinimumAngle, { 60, 20, 90 }),
    AngleParam(2, L"MaximumAngle", WeldJointAnglesMaximumAngle, { 120, 90, 170 }),
};

// American codes for steel structures and tanks. Rules for ships and older European codes have three or
// four for the ratio, and no absolute length.
constexpr std::array LapJoints = {
    NumberParam(1, L"MinimumOverlapRatio", WeldLapJointsMinimumOverlapRatio, { 5, 1, 20 }),
    LengthParam(2, L"MinimumOverlap", WeldLapJointsMinimumOverlap, { 25, 1, 500 }),
};

// Codes for steel structures: 3 mm at least. Workshop rules: no more than 0.7 of the thinner part.
constexpr std::array FilletSizes = {
    LengthParam(1, L"MinimumThroat", WeldFilletSizesMinimumThroat, { 3, 0.5, 30 }),
    NumberParam(2, L"MaximumThroatRatio", WeldFilletSizesMaximumThroatRatio, { 0.7, 0.2, 1.5 }),
};

// European codes for steel structures; American ones have four times the leg, which is nearly the same.
constexpr std::array Lengths = {
    LengthParam(1, L"MinimumLength", WeldLengthsMinimumLength, { 30, 1, 500 }),
    NumberParam(2, L"MinimumThroatRatio", WeldLengthsMinimumThroatRatio, { 6, 1, 40 }),
};

// A usual torch for gas shielded welding; it is held at 45 degrees, and at 30 where there is no more room.
constexpr std::array TorchAccess = {
    AngleParam(1, L"MinimumAngle", WeldTorchAccessMinimumAngle, { 30, 5, 60 }),
    LengthParam(2, L"NozzleDiameter", WeldTorchAccessNozzleDiameter, { 25, 3, 200 }),
    LengthParam(3, L"NozzleLength", WeldTorchAccessNozzleLength, { 100, 5, 1000 }),
};

// Design guides of galvanizers' associations, for small hollow sections; large ones need larger vents.
constexpr std::array ClosedSpaces = {
    LengthParam(1, L"MinimumVentDiameter", WeldClosedSpacesMinimumVentDiameter, { 10, 1, 200 }),
    IntegerParam(2, L"MinimumVents", WeldClosedSpacesMinimumVents, { 2, 1, 20 }),
};

// Rules for pressure vessels and steel structures; they name three to five times the thickness, and
// 30 to 100 mm.
constexpr std::array Spacing = {
    NumberParam(1, L"MinimumDistanceRatio", WeldSpacingMinimumDistanceRatio, { 4, 0, 20 }),
    LengthParam(2, L"MinimumDistance", WeldSpacingMinimumDistance, { 50, 0, 1000 }),
    YesNoParam(3, L"AllowCrossing", WeldSpacingAllowCrossing, false),
};

// European codes for steel structures: five thicknesses, unless the radius is large for the plate; three
// thicknesses are enough up to 24 mm.
constexpr std::array NearBends = {
    NumberParam(1, L"MinimumDistanceRatio", WeldNearBendsMinimumDistanceRatio, { 5, 0, 20 }),
    NumberParam(2, L"LargeRadiusRatio", WeldNearBendsLargeRadiusRatio, { 3, 0.5, 50 }),
};

constexpr std::array MachinedFaces = {
    LengthParam(1, L"MinimumDistance", WeldMachinedFacesMinimumDistance, { 15, 0, 500 }),
    YesNoParam(2, L"CheckThreads", WeldMachinedFacesCheckThreads, true),
};

constexpr std::array Rules = {
    RuleDefinition{ L"WeldThinParts", WeldThinParts, CategoryJoints, 4, L"weld_thin_parts.htm", ThinParts },
    RuleDefinition{ L"WeldEdgePreparations", WeldEdgePreparations, CategoryJoints, 4, L"weld_edge_preparations.htm",
                    EdgePreparations },
    RuleDefinition{ L"WeldThicknessSteps", WeldThicknessSteps, CategoryJoints, 3, L"weld_thickness_steps.htm",
                    ThicknessSteps },
    RuleDefinition{ L"WeldJointAngles", WeldJointAngles, CategoryJoints, 3, L"weld_joint_angles.htm", JointAngles },
    RuleDefinition{ L"WeldLapJoints", WeldLapJoints, CategoryJoints, 3, L"weld_lap_joints.htm", LapJoints },
    RuleDefinition{ L"WeldFilletSizes", WeldFilletSizes, CategorySeams, 4, L"weld_fillet_sizes.htm", FilletSizes },
    RuleDefinition{ L"WeldLengths", WeldLengths, CategorySeams, 3, L"weld_lengths.htm", Lengths },
    RuleDefinition{ L"WeldTorchAccess", WeldTorchAccess, CategoryAccess, 5, L"weld_torch_access.htm", TorchAccess },
    RuleDefinition{ L"WeldClosedSpaces", WeldClosedSpaces, CategoryAccess, 4, L"weld_closed_spaces.htm", ClosedSpaces },
    RuleDefinition{ L"WeldSpacing", WeldSpacing, CategoryDistortion, 4, L"weld_spacing.htm", Spacing },
    RuleDefinition{ L"WeldNearBends", WeldNearBends, CategoryClearances, 4, L"weld_near_bends.htm", NearBends },
    RuleDefinition{ L"WeldMachinedFaces", WeldMachinedFaces, CategoryClearances, 3, L"weld_machined_faces.htm",
                    MachinedFaces },
};

constexpr ModuleDefinition Module = {
    L"Welding Rules", WeldModuleSummary, L"QOXWeldRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
