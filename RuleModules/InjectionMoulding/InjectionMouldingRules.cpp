#include "RuleModules/Common/ThisModule.h"

#include <array>

namespace
{

using namespace std::string_view_literals;

constexpr std::array Categories = { L"Walls"sv,   L"Draft"sv, L"Ribs"sv,      L"Bosses"sv,
                                    L"Fillets"sv, L"Holes"sv, L"Undercuts"sv, L"Mould"sv };

constexpr std::array BuiltInMaterials = { L"ABS"sv, L"PA66"sv, L"PC"sv, L"PE-HD"sv, L"POM"sv, L"PP"sv };

constexpr auto UsualMaterial = L"ABS"sv;

constexpr std::array WallThickness = {
    LengthParam(1, L"MinimumThickness", L"Minimum wall thickness", { 1.2, 0.2, 10 },
                L"Walls that are thinner fill badly."),
    LengthParam(2, L"MaximumThickness", L"Maximum wall thickness", { 3.5, 0.5, 30 },
                L"Walls that are thicker cool slowly and sink."),
    MaterialParam(3, L"Material", L"Material", UsualMaterial, L"Material of the part."),
    YesNoParam(4, L"UseMaterialRange", L"Use the material's range", true,
               L"Takes both limits from the rule database, if it has them for the material, instead of those above."),
};

constexpr std::array WallVariation = {
    NumberParam(1, L"MaximumVariationPercent", L"Maximum variation (%)", { 25, 0, 100 },
                L"Largest allowed difference to the nominal wall thickness, in percent."),
    NumberParam(2, L"MinimumTransitionRatio", L"Minimum transition ratio", { 3, 0, 10 },
                L"Smallest allowed length of a transition, divided by the step in thickness."),
    MaterialParam(3, L"Material", L"Material", UsualMaterial,
                  L"Material of the part. Materials that shrink much allow less variation."),
};

constexpr std::array DraftAngles = {
    AngleParam(1, L"MinimumDraft", L"Minimum draft", { 1, 0, 10 },
               L"Smallest allowed angle between a wall and the direction in which the mould opens."),
    LengthParam(2, L"SmallestHeight", L"Smallest height to check", { 1, 0, 100 },
                L"Walls of less height are passed over."),
    YesNoParam(3, L"CheckCoreSide", L"Check the core side", true,
               L"Checks inner walls, which shrink onto the core, as well as outer ones."),
};

constexpr std::array TextureDraft = {
    LengthParam(1, L"TextureDepth", L"Texture depth", { 0.025, 0.001, 1 }, L"Depth of the texture on drafted walls."),
    AngleParam(2, L"DraftPerStep", L"Draft for each step", { 1.5, 0, 5 },
               L"Draft that each step of texture depth needs beyond that of a smooth wall."),
    LengthParam(3, L"DepthStep", L"Depth step", { 0.025, 0.001, 1 },
                L"Texture depth for which the draft above is added once."),
};

constexpr std::array RibThickness = {
    NumberParam(1, L"MaximumThicknessPercent", L"Maximum rib thickness (%)", { 60, 20, 100 },
                L"Largest allowed thickness at the foot of a rib, in percent of the wall that it stands on."),
    NumberParam(2, L"MinimumThicknessPercent", L"Minimum rib thickness (%)", { 40, 10, 100 },
                L"Smallest allowed thickness at the foot of a rib, in percent of the wall that it stands on."),
    MaterialParam(3, L"Material", L"Material", UsualMaterial,
                  L"Material of the part. Materials that shrink much need thinner ribs."),
};

constexpr std::array RibProportions = {
    NumberParam(1, L"MaximumHeightRatio", L"Maximum height to wall ratio", { 3, 0.5, 10 },
                L"Largest allowed height of a rib, divided by the wall thickness."),
    NumberParam(2, L"MinimumSpacingRatio", L"Minimum spacing to wall ratio", { 2, 0.5, 10 },
                L"Smallest allowed distance between ribs, divided by the wall thickness."),
    AngleParam(3, L"MinimumDraft", L"Minimum draft", { 0.5, 0, 5 }, L"Smallest allowed draft on each side of a rib."),
};

constexpr std::array BossProportions = {
    NumberParam(1, L"MaximumWallPercent", L"Maximum boss wall (%)", { 60, 20, 100 },
                L"Largest allowed wall thickness of a boss, in percent of the wall that it stands on."),
    NumberParam(2, L"MinimumDiameterRatio", L"Minimum outer to inner diameter ratio", { 1.8, 1.1, 4 },
                L"Smallest allowed outer diameter of a boss, divided by its inner diameter."),
    NumberParam(3, L"MaximumHeightRatio", L"Maximum height to diameter ratio", { 3, 0.5, 10 },
                L"Largest allowed height of a boss, divided by its outer diameter."),
    YesNoParam(4, L"RequireGussets", L"Require gussets on free bosses", false,
               L"Reports bosses that are tied neither to a wall nor by gussets."),
};

constexpr std::array CornerRadii = {
    NumberParam(1, L"MinimumInnerRatio", L"Minimum inner radius to wall ratio", { 0.5, 0, 2 },
                L"Smallest allowed radius on the inside of a corner, divided by the wall thickness."),
    NumberParam(2, L"OuterExtraRatio", L"Outer radius beyond the inner one", { 1, 0, 2 },
                L"What the outer radius should have beyond the inner one, divided by the wall thickness."),
    LengthParam(3, L"MinimumInnerRadius", L"Minimum inner radius", { 0.5, 0, 20 },
                L"Smallest allowed radius whatever the wall thickness."),
};

constexpr std::array CorePins = {
    NumberParam(1, L"MaximumBlindRatio", L"Maximum depth ratio of blind holes", { 3, 0.5, 10 },
                L"Largest allowed depth of a blind hole, divided by its diameter."),
    NumberParam(2, L"MaximumThroughRatio", L"Maximum depth ratio of through holes", { 6, 0.5, 20 },
                L"Largest allowed depth of a through hole, divided by its diameter."),
    LengthParam(3, L"MinimumDiameter", L"Minimum diameter", { 1, 0.1, 50 },
                L"Holes with a smaller diameter are reported whatever their depth."),
};

constexpr std::array HoleSpacing = {
    NumberParam(1, L"MinimumEdgeRatio", L"Minimum edge distance to wall ratio", { 2, 0, 10 },
                L"Smallest allowed distance from a hole to an edge, divided by the wall thickness."),
    NumberParam(2, L"MinimumSpacingRatio", L"Minimum spacing to diameter ratio", { 1, 0, 10 },
                L"Smallest allowed distance between two holes, divided by the larger diameter."),
};

constexpr std::array Undercuts = {
    IntegerParam(1, L"MaximumSideActions", L"Maximum number of side actions", { 0, 0, 20 },
                 L"Largest number of undercuts that need a slide or a lifter."),
    LengthParam(2, L"SmallestDepth", L"Smallest depth to check", { 0.1, 0, 10 },
                L"Undercuts of less depth are passed over."),
    YesNoParam(3, L"AllowStripping", L"Allow stripping", false,
               L"Accepts rounded undercuts that are pushed off the core by force."),
    NumberParam(4, L"MaximumStrippingPercent", L"Maximum stripping (%)", { 2, 0, 20 },
                L"Largest undercut that can be stripped, in percent of the diameter."),
};

constexpr std::array MouldSteel = {
    LengthParam(1, L"MinimumSteelThickness", L"Minimum steel thickness", { 3, 0.5, 50 },
                L"Smallest allowed distance between neighbouring features, which is steel in the mould."),
    NumberParam(2, L"MaximumHeightRatio", L"Maximum height to thickness ratio", { 3, 0.5, 20 },
                L"Largest allowed height of the steel between two features, divided by its thickness."),
};

constexpr std::array Rules = {
    RuleDefinition{ L"MouldWallThickness", L"Wall Thickness", L"Walls", L"Finds walls that are too thin or too thick.",
                    L"Thin walls freeze before the cavity is full. Thick ones take long to cool, and show sink marks "
                    L"and voids. What is right depends on the material.",
                    5, L"mould_wall_thickness.htm", WallThickness },
    RuleDefinition{ L"MouldWallVariation", L"Uniform Wall Thickness", L"Walls",
                    L"Finds walls whose thickness changes too much or too abruptly.",
                    L"Thick and thin regions shrink at different times and by different amounts, so the part warps. "
                    L"Where the thickness must change, it should do so over some length.",
                    4, L"mould_wall_variation.htm", WallVariation },
    RuleDefinition{ L"MouldDraftAngles", L"Minimum Draft", L"Draft", L"Finds walls without enough draft.",
                    L"A part shrinks onto the core. Without draft it drags along the steel over the whole stroke, is "
                    L"scratched, and may stick.",
                    5, L"mould_draft_angles.htm", DraftAngles },
    RuleDefinition{ L"MouldTextureDraft", L"Draft of Textured Walls", L"Draft",
                    L"Finds textured walls whose draft is small for the depth of the texture.",
                    L"Every pit of a texture is a small undercut. The deeper it is, the more draft is needed for "
                    L"the surface to come off unharmed.",
                    3, L"mould_texture_draft.htm", TextureDraft },
    RuleDefinition{ L"MouldRibThickness", L"Rib Thickness", L"Ribs",
                    L"Compares the foot of a rib with the wall that it stands on.",
                    L"A thick rib gathers material at its foot, which sinks on the side that is seen. A rib that is "
                    L"too thin does not fill.",
                    4, L"mould_rib_thickness.htm", RibThickness },
    RuleDefinition{ L"MouldRibProportions", L"Rib Height and Spacing", L"Ribs",
                    L"Checks height, spacing and draft of ribs.",
                    L"High ribs trap air and stick in the mould, and ribs that stand close leave thin steel that is "
                    L"hard to cool. Several low ribs are better than one high one.",
                    3, L"mould_rib_proportions.htm", RibProportions },
    RuleDefinition{ L"MouldBossProportions", L"Boss Proportions", L"Bosses",
                    L"Checks wall thickness, diameter and height of screw bosses.",
                    L"A boss has to hold the screw without bursting, and yet be thin enough to leave no sink mark on "
                    L"the side that is seen.",
                    3, L"mould_boss_proportions.htm", BossProportions },
    RuleDefinition{ L"MouldCornerRadii", L"Corner Radii", L"Fillets",
                    L"Finds corners that are sharp or whose wall changes its thickness.",
                    L"Sharp inner corners concentrate stress and hinder the flow. The outer radius should follow the "
                    L"inner one, so that the wall is as thick in the corner as beside it.",
                    4, L"mould_corner_radii.htm", CornerRadii },
    RuleDefinition{ L"MouldCorePins", L"Hole Depth", L"Holes", L"Finds holes that are deep for their diameter.",
                    L"A hole is made by a pin. One that is held at one end only bends under the pressure of the "
                    L"melt, so blind holes must be shorter than through holes.",
                    3, L"mould_core_pins.htm", CorePins },
    RuleDefinition{ L"MouldHoleSpacing", L"Hole Spacing", L"Holes",
                    L"Finds holes that are too close to an edge or to each other.",
                    L"The melt joins again behind each pin and leaves a weak line there. Close to an edge or to "
                    L"another hole the part breaks along it.",
                    2, L"mould_hole_spacing.htm", HoleSpacing },
    RuleDefinition{ L"MouldUndercuts", L"Undercuts", L"Undercuts",
                    L"Counts undercuts that keep the mould from opening straight.",
                    L"Each undercut needs a slide or a lifter, which makes the mould dear and slow. Small, rounded "
                    L"ones can be stripped off if the material is elastic enough.",
                    4, L"mould_undercuts.htm", Undercuts },
    RuleDefinition{ L"MouldSteel", L"Thin Mould Steel", L"Mould",
                    L"Finds neighbouring features with too little steel between them.",
                    L"Thin, high blades of steel between two features run hot, bend and break, and shorten the life "
                    L"of the mould.",
                    3, L"mould_steel.htm", MouldSteel },
};

constexpr ModuleDefinition Module = {
    L"Injection Moulding Rules",
    L"Checks of injection moulded parts: walls, draft, ribs, bosses and holes that fill and cool evenly and leave the "
    L"mould well.",
    L"QOXIMRulesu.dll",
    L"plastic",
    BuiltInMaterials,
    Categories,
    Rules,
};

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
