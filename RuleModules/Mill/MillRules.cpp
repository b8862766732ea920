#include "RuleModules/Common/ThisModule.h"

#include <array>

namespace
{

using namespace std::string_view_literals;

constexpr std::array Categories = { L"Pockets"sv, L"Fillets and Chamfers"sv, L"Walls"sv, L"Holes"sv,
                                    L"Threads"sv, L"Tool Access"sv };

constexpr std::array BuiltInMaterials = { L"42CrMo4"sv,       L"C45"sv,       L"CuZn39Pb3"sv,  L"EN AW-6082-T6"sv,
                                          L"EN AW-7075-T6"sv, L"Ti-6Al-4V"sv, L"X5CrNi18-10"sv };

constexpr auto UsualMaterial = L"EN AW-6082-T6"sv;

constexpr std::array DeepPockets = {
    NumberParam(1, L"MaximumDepthRatio", L"Maximum depth to width ratio", { 4, 1, 15 },
                L"Largest allowed depth of a pocket, divided by its smallest width."),
    LengthParam(2, L"MinimumDepth", L"Smallest depth to check", { 5, 0, 1000 },
                L"Pockets that are shallower are passed over."),
    MaterialParam(3, L"Material", L"Material", UsualMaterial,
                  L"Material of the part. Hard and tough materials call for a smaller ratio."),
};

constexpr std::array InternalCorners = {
    LengthParam(1, L"MinimumRadius", L"Minimum corner radius", { 1.5, 0.1, 100 },
                L"Smallest allowed radius between two walls of a pocket."),
    NumberParam(2, L"MinimumRadiusToDepthRatio", L"Minimum radius to depth ratio", { 0.15, 0, 1 },
                L"Smallest allowed corner radius, divided by the depth of the pocket."),
    YesNoParam(3, L"AllowReliefs", L"Allow corner reliefs", true,
               L"Accepts a sharp corner that a bore or slot at its edge sets free."),
};

constexpr std::array PocketFloors = {
    NumberParam(1, L"MaximumShareOfCornerRadius", L"Maximum share of the corner radius", { 0.8, 0.1, 1 },
                L"Largest allowed floor radius, divided by the radius of the pocket's corners."),
    LengthParam(2, L"PreferredRadius", L"Preferred floor radius", { 1, 0, 25 },
                L"Tip radius of the cutters that the workshop has at hand."),
    YesNoParam(3, L"AllowSharpFloor", L"Allow sharp floors", true,
               L"Accepts floors without a radius, as a flat end mill leaves them."),
};

constexpr std::array OuterEdges = {
    AngleParam(1, L"PreferredChamferAngle", L"Preferred chamfer angle", { 45, 15, 75 },
               L"Angle of the chamfers that one standard tool cuts."),
    AngleParam(2, L"AngleTolerance", L"Angle tolerance", { 1, 0, 10 },
               L"Chamfers that differ from the preferred angle by no more than this are accepted."),
    LengthParam(3, L"LargestFreeFillet", L"Largest fillet to accept", { 0, 0, 50 },
                L"Fillets on outer edges up to this radius are accepted; 0 reports them all."),
};

constexpr std::array ThinWalls = {
    LengthParam(1, L"MinimumThickness", L"Minimum wall thickness", { 0.8, 0.1, 50 },
                L"Walls that are thinner are reported whatever their height."),
    NumberParam(2, L"MaximumHeightRatio", L"Maximum height to thickness ratio", { 10, 2, 40 },
                L"Largest allowed height of a free standing wall, divided by its thickness."),
    MaterialParam(3, L"Material", L"Material", UsualMaterial,
                  L"Material of the part. Soft and elastic materials give way sooner."),
};

constexpr std::array DeepHoles = {
    NumberParam(1, L"MaximumDepthRatio", L"Maximum depth to diameter ratio", { 6, 1, 40 },
                L"Largest allowed depth of a hole, divided by its diameter."),
    LengthParam(2, L"MinimumDiameter", L"Minimum diameter", { 1, 0.1, 100 },
                L"Holes with a smaller diameter are reported whatever their depth."),
    YesNoParam(3, L"CheckThroughHoles", L"Check through holes", true, L"Checks through holes as well as blind ones."),
};

constexpr std::array HoleBottoms = {
    AngleParam(1, L"DrillPointAngle", L"Drill point angle", { 118, 60, 150 },
               L"Full angle of the cone that the drill leaves at the bottom."),
    AngleParam(2, L"AngleTolerance", L"Angle tolerance", { 2, 0, 20 },
               L"Cones that differ from the drill point by no more than this are accepted."),
    LengthParam(3, L"LargestDrill", L"Largest drilled diameter", { 20, 1, 200 },
                L"Larger holes are milled or bored, so a flat bottom is accepted."),
};

constexpr std::array InclinedEntries = {
    AngleParam(1, L"MaximumEntryAngle", L"Maximum entry angle", { 5, 0, 45 },
               L"Largest allowed angle between the hole's axis and the normal of the face that it starts from."),
    YesNoParam(2, L"CheckExit", L"Check the exit face", true, L"Checks the face that the drill comes out of as well."),
    LengthParam(3, L"MinimumDiameter", L"Smallest diameter to check", { 0.5, 0, 100 },
                L"Holes with a smaller diameter are passed over."),
};

constexpr std::array PartialHoles = {
    NumberParam(1, L"MinimumSharePercent", L"Minimum share inside the part (%)", { 75, 50, 100 },
                L"Smallest allowed part of the hole's circumference that lies in material, in percent."),
    LengthParam(2, L"LargestDiameter", L"Largest diameter to check", { 50, 1, 500 },
                L"Larger holes are bored on a path and are passed over."),
};

constexpr std::array DrillSizes = {
    LengthParam(1, L"Step", L"Step between drill sizes", { 0.5, 0.05, 5 },
                L"Diameters should be whole multiples of this step."),
    LengthParam(2, L"Tolerance", L"Tolerance", { 0.01, 0, 0.5 },
                L"Diameters that differ from a step by no more than this are accepted."),
    LengthParam(3, L"LargestDrill", L"Largest drilled diameter", { 25, 1, 200 },
                L"Larger holes are milled or bored to any size and are passed over."),
};

constexpr std::array ThreadDepths = {
    NumberParam(1, L"MaximumDepthRatio", L"Maximum thread depth ratio", { 3, 0.5, 10 },
                L"Largest useful length of the thread, divided by its nominal diameter."),
    NumberParam(2, L"MinimumRunOutRatio", L"Minimum run-out ratio", { 0.5, 0, 3 },
                L"Smallest length without thread at the bottom of a blind hole, divided by the nominal diameter."),
    LengthParam(3, L"SmallestThread", L"Smallest thread", { 2, 0.5, 100 },
                L"Threads with a smaller nominal diameter are reported, since taps of that size break easily."),
};

constexpr std::array SetUps = {
    IntegerParam(1, L"MaximumDirections", L"Maximum number of directions", { 3, 1, 6 },
                 L"Largest number of directions from which all features must be reached."),
    YesNoParam(2, L"AllowTilting", L"Allow a tilting spindle", false,
               L"Counts directions that a tilting machine reaches in one set-up as one."),
    AngleParam(3, L"MaximumTilt", L"Maximum tilt", { 30, 0, 120 },
               L"Largest tilt of the spindle; without meaning on machines that can't tilt."),
};

constexpr std::array Rules = {
    RuleDefinition{ L"MillDeepPockets", L"Deep Pockets", L"Pockets", L"Finds pockets that are deep for their width.",
                    L"Deep, narrow pockets need long, slender cutters, which bend and chatter. The depth of a pocket "
                    L"is compared with its smallest width.",
                    4, L"mill_deep_pockets.htm", DeepPockets },
    RuleDefinition{ L"MillInternalCorners", L"Internal Corner Radius", L"Pockets",
                    L"Finds corners between pocket walls that are sharp or have too small a radius.",
                    L"A turning cutter leaves a radius in every upright corner. A small radius forces a thin cutter "
                    L"down the whole depth, and a sharp corner needs another process.",
                    5, L"mill_internal_corners.htm", InternalCorners },
    RuleDefinition{ L"MillPocketFloors", L"Pocket Floor Radius", L"Pockets",
                    L"Compares the radius at the floor of a pocket with that of its corners.",
                    L"A floor radius as large as the corner radius can be cut by a ball end mill only, pass by pass. "
                    L"A smaller radius lets one bull nose cutter finish walls and floor.",
                    2, L"mill_pocket_floors.htm", PocketFloors },
    RuleDefinition{ L"MillOuterEdges", L"Fillets on Outer Edges", L"Fillets and Chamfers",
                    L"Finds fillets on outer edges, where a chamfer would do.",
                    L"A chamfer is cut in one pass with a standard tool, while a fillet on an outer edge needs a form "
                    L"cutter that is set exactly, or surface milling.",
                    2, L"mill_outer_edges.htm", OuterEdges },
    RuleDefinition{ L"MillThinWalls", L"Thin Walls", L"Walls",
                    L"Finds walls that are too thin or too high for their thickness.",
                    L"Thin walls spring back under the cutting force. They lose their size, show chatter marks and "
                    L"warp when the part is taken from the vice.",
                    4, L"mill_thin_walls.htm", ThinWalls },
    RuleDefinition{ L"MillDeepHoles", L"Deep Holes", L"Holes", L"Finds holes that are deep for their diameter.",
                    L"Beyond some diameters of depth chips clog the flutes and the drill wanders. Such holes need "
                    L"pecking or special drills, which cost time.",
                    3, L"mill_deep_holes.htm", DeepHoles },
    RuleDefinition{ L"MillHoleBottoms", L"Flat Bottomed Holes", L"Holes",
                    L"Finds blind holes whose bottom is not the cone of a drill.",
                    L"A twist drill leaves a cone. A flat bottom needs a second tool and gives nothing in most "
                    L"uses, so the bottom should have the angle of the drill's point.",
                    2, L"mill_hole_bottoms.htm", HoleBottoms },
    RuleDefinition{ L"MillInclinedEntries", L"Holes on Inclined Faces", L"Holes",
                    L"Finds holes that start or end on a face that is not square to their axis.",
                    L"On an inclined face the drill's point slips sideways before it bites, and on the exit side it "
                    L"is pushed off. A spot face square to the axis prevents both.",
                    3, L"mill_inclined_entries.htm", InclinedEntries },
    RuleDefinition{ L"MillPartialHoles", L"Partial Holes", L"Holes",
                    L"Finds holes that break out of the side of the part.",
                    L"A drill that cuts on one side only is pushed to the open side and may break. Most of the "
                    L"hole's circumference has to lie in material.",
                    3, L"mill_partial_holes.htm", PartialHoles },
    RuleDefinition{ L"MillDrillSizes", L"Standard Drill Sizes", L"Holes",
                    L"Finds diameters for which there is no standard drill.",
                    L"Standard drills are in stock and cheap. An odd diameter has to be milled, reamed or drilled "
                    L"with a tool that is made for it.",
                    1, L"mill_drill_sizes.htm", DrillSizes },
    RuleDefinition{ L"MillThreadDepths", L"Thread Depth", L"Threads",
                    L"Finds threads that are too long, too small, or reach the bottom of their hole.",
                    L"A thread bears with its first turns, so a long one adds risk and no strength. In a blind hole "
                    L"the tap needs room for its lead and for chips.",
                    3, L"mill_thread_depths.htm", ThreadDepths },
    RuleDefinition{ L"MillSetUps", L"Number of Set-ups", L"Tool Access",
                    L"Counts the directions from which the part has to be machined.",
                    L"Each further direction means clamping and measuring the part anew, which costs time and adds "
                    L"to the error between features.",
                    3, L"mill_set_ups.htm", SetUps },
};

constexpr ModuleDefinition Module = {
    L"Milling Rules",
    L"Checks of milled and drilled parts: reach and strength of cutters, standard tools, and few set-ups.",
    L"QoxMillRulesu.dll",
    L"metal",
    BuiltInMaterials,
    Categories,
    Rules,
};

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
