#include "RuleModules/Common/ThisModule.h"

#include <array>

namespace
{

using namespace std::string_view_literals;

constexpr std::array Categories = { L"Bends"sv,    L"Flanges"sv, L"Reliefs"sv,
                                    L"Cut-outs"sv, L"Holes"sv,   L"Hems and Curls"sv };

constexpr std::array BuiltInMaterials = { L"CuZn37 sheet"sv, L"DC01"sv, L"DX51D+Z"sv, L"EN AW-5754-H22"sv,
                                          L"X5CrNi18-10 sheet"sv };

constexpr auto UsualMaterial = L"DC01"sv;

constexpr std::array BendRadii = {
    NumberParam(1, L"MinimumRadiusRatio", L"Minimum radius to thickness ratio", { 1, 0, 10 },
                L"Smallest allowed inside radius, divided by the thickness of the sheet."),
    LengthParam(2, L"MinimumRadius", L"Minimum inside radius", { 0.5, 0, 50 },
                L"Smallest allowed inside radius whatever the thickness."),
    MaterialParam(3, L"Material", L"Material", UsualMaterial, L"Material of the sheet."),
    YesNoParam(4, L"UseMaterialRatio", L"Use the material's ratio", true,
               L"Takes the ratio of the material from the rule database, if it has one, instead of the one above."),
};

constexpr std::array DifferentRadii = {
    IntegerParam(1, L"MaximumDifferentRadii", L"Maximum number of radii", { 1, 1, 10 },
                 L"Largest number of different inside radii in one part."),
    LengthParam(2, L"Tolerance", L"Tolerance", { 0.05, 0, 1 },
                L"Radii that differ by no more than this count as the same."),
};

constexpr std::array FlangeLengths = {
    NumberParam(1, L"MinimumLengthRatio", L"Minimum length to thickness ratio", { 4, 1, 20 },
                L"Smallest allowed length of a flange from the bend on, divided by the thickness."),
    LengthParam(2, L"MinimumLength", L"Minimum length", { 4, 0, 100 },
                L"Smallest allowed length whatever the thickness."),
    YesNoParam(3, L"AddBendRadius", L"Add the bend radius", true,
               L"Adds the inside radius to the length that the ratio gives."),
};

constexpr std::array BendReliefs = {
    YesNoParam(1, L"Required", L"Relief required", true, L"Reports bends that end inside an edge without a relief."),
    NumberParam(2, L"MinimumWidthRatio", L"Minimum width to thickness ratio", { 1, 0.1, 5 },
                L"Smallest allowed width of a relief, divided by the thickness."),
    LengthParam(3, L"MinimumExtraDepth", L"Minimum extra depth", { 0.5, 0, 20 },
                L"Smallest allowed depth of a relief beyond thickness and inside radius together."),
};

constexpr std::array HolesNearBends = {
    NumberParam(1, L"MinimumDistanceRatio", L"Minimum distance to thickness ratio", { 2.5, 0, 20 },
                L"Smallest allowed distance from a hole's edge to the bend, divided by the thickness."),
    YesNoParam(2, L"AddBendRadius", L"Add the bend radius", true,
               L"Adds the inside radius to the distance that the ratio gives."),
    LengthParam(3, L"SmallestDiameter", L"Smallest diameter to check", { 0, 0, 100 },
                L"Smaller holes, as those of a tool's locating pins, are passed over."),
};

constexpr std::array SmallHoles = {
    NumberParam(1, L"MinimumDiameterRatio", L"Minimum diameter to thickness ratio", { 1, 0.2, 5 },
                L"Smallest allowed diameter of a hole, divided by the thickness."),
    LengthParam(2, L"MinimumDiameter", L"Minimum diameter", { 1, 0.1, 50 },
                L"Smallest allowed diameter whatever the thickness."),
    MaterialParam(3, L"Material", L"Material", UsualMaterial,
                  L"Material of the sheet. Hard sheet calls for larger punches."),
};

constexpr std::array HolesNearEdges = {
    NumberParam(1, L"MinimumDistanceRatio", L"Minimum distance to thickness ratio", { 2, 0, 20 },
                L"Smallest allowed distance between the edge of a hole and that of the sheet, divided by the "
                L"thickness."),
    LengthParam(2, L"MinimumDistance", L"Minimum distance", { 1, 0, 100 },
                L"Smallest allowed distance whatever the thickness."),
};

constexpr std::array HoleSpacing = {
    NumberParam(1, L"MinimumSpacingRatio", L"Minimum spacing to thickness ratio", { 2, 0, 20 },
                L"Smallest allowed distance between the edges of two holes, divided by the thickness."),
    LengthParam(2, L"MinimumSpacing", L"Minimum spacing", { 1, 0, 100 },
                L"Smallest allowed distance whatever the thickness."),
};

constexpr std::array Countersinks = {
    NumberParam(1, L"MaximumDepthRatio", L"Maximum depth to thickness ratio", { 0.6, 0.1, 1 },
                L"Largest allowed depth of a countersink, divided by the thickness."),
    AngleParam(2, L"Angle", L"Countersink angle", { 90, 60, 120 }, L"Full angle of the screws that are used."),
    AngleParam(3, L"AngleTolerance", L"Angle tolerance", { 1, 0, 10 },
               L"Countersinks that differ from the angle by no more than this are accepted."),
};

constexpr std::array NarrowCutouts = {
    NumberParam(1, L"MinimumWidthRatio", L"Minimum width to thickness ratio", { 1.5, 0.2, 10 },
                L"Smallest allowed width of a slot, notch or tab, divided by the thickness."),
    NumberParam(2, L"MaximumLengthRatio", L"Maximum length to width ratio", { 5, 1, 50 },
                L"Largest allowed length of a notch or tab, divided by its width."),
    LengthParam(3, L"MinimumWidth", L"Minimum width", { 1, 0.1, 50 },
                L"Smallest allowed width whatever the thickness."),
};

constexpr std::array Hems = {
    NumberParam(1, L"MinimumReturnRatio", L"Minimum return to thickness ratio", { 4, 1, 20 },
                L"Smallest allowed length of the folded part, divided by the thickness."),
    YesNoParam(2, L"AllowClosedHems", L"Allow closed hems", true,
               L"Accepts hems that are pressed flat, without a gap."),
    NumberParam(3, L"MinimumGapRatio", L"Minimum gap to thickness ratio", { 0.5, 0, 5 },
                L"Smallest allowed gap of an open hem, divided by the thickness."),
};

constexpr std::array Curls = {
    NumberParam(1, L"MinimumRadiusRatio", L"Minimum outer radius to thickness ratio", { 2, 1, 20 },
                L"Smallest allowed outer radius of a curl, divided by the thickness."),
    AngleParam(2, L"MaximumAngle", L"Maximum angle", { 360, 90, 720 },
               L"Largest allowed angle through which the edge is rolled."),
    LengthParam(3, L"MinimumHoleDistance", L"Minimum distance to holes", { 3, 0, 100 },
                L"Smallest allowed distance from the curl to the edge of a hole."),
};

constexpr std::array Rules = {
    RuleDefinition{ L"SheetBendRadii", L"Minimum Bend Radius", L"Bends",
                    L"Finds bends with too small an inside radius.",
                    L"The outer side of a tight bend is stretched until it cracks. How tight a bend may be depends "
                    L"on the thickness and the material of the sheet.",
                    5, L"sheet_bend_radii.htm", BendRadii },
    RuleDefinition{ L"SheetDifferentRadii", L"Different Bend Radii", L"Bends",
                    L"Counts the different inside radii of a part.",
                    L"Each radius needs a punch of its own, and changing it between bends costs time. One radius for "
                    L"the whole part is best.",
                    2, L"sheet_different_radii.htm", DifferentRadii },
    RuleDefinition{ L"SheetFlangeLengths", L"Minimum Flange Length", L"Flanges",
                    L"Finds flanges that are too short to be bent.",
                    L"While it is bent, the sheet has to rest on both shoulders of the die. A short flange slips "
                    L"into the die and comes out slanted.",
                    4, L"sheet_flange_lengths.htm", FlangeLengths },
    RuleDefinition{ L"SheetBendReliefs", L"Bend Reliefs", L"Reliefs",
                    L"Checks that bends which end inside an edge have a relief that is large enough.",
                    L"Without a relief the sheet tears where the bent part meets the flat one, and bulges beside it. "
                    L"The relief has to reach beyond the bend.",
                    4, L"sheet_bend_reliefs.htm", BendReliefs },
    RuleDefinition{ L"SheetHolesNearBends", L"Holes near Bends", L"Holes", L"Finds holes that are too close to a bend.",
                    L"Material around a bend flows, so a hole close by is drawn out of round. It has to lie clear of "
                    L"the zone that is deformed, or be made after bending.",
                    4, L"sheet_holes_near_bends.htm", HolesNearBends },
    RuleDefinition{ L"SheetSmallHoles", L"Minimum Hole Diameter", L"Holes",
                    L"Finds holes that are small for the thickness of the sheet.",
                    L"A punch that is thinner than the sheet is loaded beyond its strength and breaks. Hard "
                    L"materials need a larger ratio still.",
                    3, L"sheet_small_holes.htm", SmallHoles },
    RuleDefinition{ L"SheetHolesNearEdges", L"Holes near Edges", L"Holes",
                    L"Finds holes that are too close to the edge of the sheet.",
                    L"The narrow strip between hole and edge bulges or tears when the hole is punched.", 3,
                    L"sheet_holes_near_edges.htm", HolesNearEdges },
    RuleDefinition{ L"SheetHoleSpacing", L"Hole Spacing", L"Holes", L"Finds holes that are too close to each other.",
                    L"Narrow webs between holes are deformed by punching and weaken the part along the row.", 3,
                    L"sheet_hole_spacing.htm", HoleSpacing },
    RuleDefinition{ L"SheetCountersinks", L"Countersinks", L"Holes", L"Checks depth and angle of countersinks.",
                    L"A countersink through most of the sheet leaves a sharp edge that wears out. An angle other "
                    L"than that of the screw lets its head rest on a line.",
                    2, L"sheet_countersinks.htm", Countersinks },
    RuleDefinition{ L"SheetNarrowCutouts", L"Narrow Slots and Tabs", L"Cut-outs",
                    L"Finds slots, notches and tabs that are too narrow or too long.",
                    L"Narrow punches break, and long, narrow tabs bend and twist while they are cut and handled.", 3,
                    L"sheet_narrow_cutouts.htm", NarrowCutouts },
    RuleDefinition{ L"SheetHems", L"Hems", L"Hems and Curls", L"Checks return length and gap of hems.",
                    L"A short return can't be held while it is folded, and flattening hard sheet without a gap "
                    L"cracks its outer side.",
                    2, L"sheet_hems.htm", Hems },
    RuleDefinition{ L"SheetCurls", L"Curls", L"Hems and Curls",
                    L"Checks radius and angle of curls, and their distance to holes.",
                    L"An edge can't be rolled tighter than about twice its thickness, and a hole within the rolled "
                    L"zone catches on the tool.",
                    2, L"sheet_curls.htm", Curls },
};

constexpr ModuleDefinition Module = {
    L"Sheet Metal Rules",
    L"Checks of cut and bent sheet metal parts: bends, flanges, holes and cut-outs for the thickness of the sheet.",
    L"QoxSMRulesu.dll",
    L"sheet",
    BuiltInMaterials,
    Categories,
    Rules,
};

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
