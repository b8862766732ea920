#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Assembly.h"
#include "RuleModules/Texts/Common.h"

#include <array>

// The limits are those that handbooks of design for assembly, the standards for clearance holes and
// for bolted joints, and ergonomic guidelines for lifting have in common.

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = { CategoryHoles,      CategoryFasteners, CategoryAccess,
                                    CategoryClearances, CategoryJoints,    CategoryHandling };

constexpr std::array HoleAlignment = {
    LengthParam(1, L"MaximumOffset", AssemblyHoleAlignmentMaximumOffset, { 0.1, 0, 5 }),
    AngleParam(2, L"MaximumAngle", AssemblyHoleAlignmentMaximumAngle, { 0.5, 0, 10 }),
    LengthParam(3, L"SearchDistance", AssemblyHoleAlignmentSearchDistance, { 3, 0.1, 50 }),
};

// From the fine to the coarse series of the standards for clearance holes.
constexpr std::array ClearanceHoles = {
    NumberParam(1, L"MinimumRatio", AssemblyClearanceHolesMinimumRatio, { 1.05, 1, 1.5 }),
    NumberParam(2, L"MaximumRatio", AssemblyClearanceHolesMaximumRatio, { 1.2, 1, 2 }),
    YesNoParam(3, L"AllowSlots", AssemblyClearanceHolesAllowSlots, true),
};

// For screws of usual strength; stronger ones need more.
constexpr std::array ThreadEngagement = {
    NumberParam(1, L"MinimumRatioInSteel", AssemblyThreadEngagementMinimumRatioInSteel, { 1, 0.5, 4 }),
    NumberParam(2, L"MinimumRatioInCastIron", AssemblyThreadEngagementMinimumRatioInCastIron, { 1.5, 0.5, 4 }),
    NumberParam(3, L"MinimumRatioInLightMetal", AssemblyThreadEngagementMinimumRatioInLightMetal, { 2, 0.5, 4 }),
    NumberParam(4, L"MaximumRatio", AssemblyThreadEngagementMaximumRatio, { 3, 1, 10 }),
};

constexpr std::array ScrewLengths = {
    NumberParam(1, L"MinimumProtrusion", AssemblyScrewLengthsMinimumProtrusion, { 1, 0, 10 }),
    NumberParam(2, L"MaximumProtrusion", AssemblyScrewLengthsMaximumProtrusion, { 6, 1, 50 }),
    NumberParam(3, L"MinimumFreeThread", AssemblyScrewLengthsMinimumFreeThread, { 2, 0, 10 }),
};

constexpr std::array FastenerVariety = {
    IntegerParam(1, L"MaximumSizes", AssemblyFastenerVarietyMaximumSizes, { 5, 1, 100 }),
    IntegerParam(2, L"MaximumDrives", AssemblyFastenerVarietyMaximumDrives, { 2, 1, 20 }),
    DefaultByChoice(LengthParam(3, L"SmallestDiameter", AssemblyFastenerVarietySmallestDiameter, { 3, 0.5, 64 }), 4,
                    L"diameter"),
    ChoiceParam(4, L"SmallestScrew", AssemblyFastenerVarietySmallestScrew, StandardChoices::MetricThreads, L"M3"),
};

// Standards for steel structures allow somewhat less, those for light metals ask for more.
constexpr std::array EdgeDistances = {
    NumberParam(1, L"MinimumEdgeRatio", AssemblyEdgeDistancesMinimumEdgeRatio, { 1.5, 0.5, 5 }),
    NumberParam(2, L"MinimumSpacingRatio", AssemblyEdgeDistancesMinimumSpacingRatio, { 3, 1, 20 }),
};

// The outer diameter of a socket is 2.3 to 2.5 times that of the screw. An open-ended spanner has
// to swing 60 degrees until it takes the next sides of a hexagon, or 30 if it is turned over.
constexpr std::array ToolSpace = {
    NumberParam(1, L"MinimumDiameterRatio", AssemblyToolSpaceMinimumDiameterRatio, { 2.5, 1, 10 }),
    LengthParam(2, L"MinimumHeight", AssemblyToolSpaceMinimumHeight, { 80, 0, 1000 }),
    AngleParam(3, L"MinimumSwing", AssemblyToolSpaceMinimumSwing, { 60, 15, 360 }),
};

constexpr std::array Directions = {
    IntegerParam(1, L"MaximumDirections", AssemblyDirectionsMaximumDirections, { 2, 1, 12 }),
    AngleParam(2, L"AngleTolerance", AssemblyDirectionsAngleTolerance, { 5, 0, 45 }),
    YesNoParam(3, L"CountFasteners", AssemblyDirectionsCountFasteners, true),
};

constexpr std::array Interference = {
    LengthParam(1, L"MaximumDepth", AssemblyInterferenceMaximumDepth, { 0.01, 0, 1 }),
    YesNoParam(2, L"PassOverThreads", AssemblyInterferencePassOverThreads, true),
    YesNoParam(3, L"PassOverPressFits", AssemblyInterferencePassOverPressFits, true),
};

constexpr std::array Clearances = {
    LengthParam(1, L"MinimumClearance", AssemblyClearancesMinimumClearance, { 0.5, 0, 100 }),
    LengthParam(2, L"MinimumMovingClearance", AssemblyClearancesMinimumMovingClearance, { 2, 0, 500 }),
    LengthParam(3, L"ContactTolerance", AssemblyClearancesContactTolerance, { 0.01, 0, 1 }),
    YesNoParam(4, L"PassOverFits", AssemblyClearancesPassOverFits, true),
};

constexpr std::array LeadIns = {
    LengthParam(1, L"MinimumChamfer", AssemblyLeadInsMinimumChamfer, { 0.5, 0.05, 20 }),
    AngleParam(2, L"MaximumAngle", AssemblyLeadInsMaximumAngle, { 45, 5, 75 }),
    LengthParam(3, L"LargestClearance", AssemblyLeadInsLargestClearance, { 0.2, 0, 5 }),
    YesNoParam(4, L"OneSideSuffices", AssemblyLeadInsOneSideSuffices, true),
};

// Design for assembly takes parts below 6 mm in size or 2 mm in thickness as hard to handle.
// The mass is for lifting again and again; limits for a single lift are 23 to 25 kg.
constexpr std::array Handling = {
    NumberParam(1, L"MaximumMass", AssemblyHandlingMaximumMass, { 15, 0.1, 1000 }),
    LengthParam(2, L"MinimumSize", AssemblyHandlingMinimumSize, { 6, 0.1, 100 }),
    LengthParam(3, L"MinimumThickness", AssemblyHandlingMinimumThickness, { 2, 0.05, 20 }),
};

constexpr std::array Rules = {
    RuleDefinition{ L"AssemblyHoleAlignment", AssemblyHoleAlignment, CategoryHoles, 5, L"assembly_hole_alignment.htm",
                    HoleAlignment },
    RuleDefinition{ L"AssemblyClearanceHoles", AssemblyClearanceHoles, CategoryHoles, 3,
                    L"assembly_clearance_holes.htm", ClearanceHoles },
    RuleDefinition{ L"AssemblyThreadEngagement", AssemblyThreadEngagement, CategoryFasteners, 4,
                    L"assembly_thread_engagement.htm", ThreadEngagement },
    RuleDefinition{ L"AssemblyScrewLengths", AssemblyScrewLengths, CategoryFasteners, 4, L"assembly_screw_lengths.htm",
                    ScrewLengths },
    RuleDefinition{ L"AssemblyFastenerVariety", AssemblyFastenerVariety, CategoryFasteners, 2,
                    L"assembly_fastener_variety.htm", FastenerVariety },
    RuleDefinition{ L"AssemblyEdgeDistances", AssemblyEdgeDistances, CategoryFasteners, 3,
                    L"assembly_edge_distances.htm", EdgeDistances },
    RuleDefinition{ L"AssemblyToolSpace", AssemblyToolSpace, CategoryAccess, 4, L"assembly_tool_space.htm", ToolSpace },
    RuleDefinition{ L"AssemblyDirections", AssemblyDirections, CategoryAccess, 2, L"assembly_directions.htm",
                    Directions },
    RuleDefinition{ L"AssemblyInterference", AssemblyInterference, CategoryClearances, 5, L"assembly_interference.htm",
                    Interference },
    RuleDefinition{ L"AssemblyClearances", AssemblyClearances, CategoryClearances, 3, L"assembly_clearances.htm",
                    Clearances },
    RuleDefinition{ L"AssemblyLeadIns", AssemblyLeadIns, CategoryJoints, 3, L"assembly_lead_ins.htm", LeadIns },
    RuleDefinition{ L"AssemblyHandling", AssemblyHandling, CategoryHandling, 2, L"assembly_handling.htm", Handling },
};

constexpr ModuleDefinition Module = {
    L"Assembly Rules", AssemblyModuleSummary, L"QOXAssemblyRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
