#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Common.h"
#include "RuleModules/Texts/InjectionMoulding.h"

#include <array>

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = { CategoryWalls,   CategoryDraft, CategoryRibs,      CategoryBosses,
                                    CategoryFillets, CategoryHoles, CategoryUndercuts, CategoryMould };

constexpr auto UsualMaterial = L"ABS";

constexpr std::array WallThickness = {
    DefaultByChoice(LengthParam(1, L"MinimumThickness", MouldWallThicknessMinimumThickness, { 1.2, 0.2, 10 }), 3,
                    L"wall_thickness_min"),
    DefaultByChoice(LengthParam(2, L"MaximumThickness", MouldWallThicknessMaximumThickness, { 3.5, 0.5, 30 }), 3,
                    L"wall_thickness_max"),
    ChoiceParam(3, L"Material", CommonMaterial, StandardChoices::Plastics, UsualMaterial),
    YesNoParam(4, L"UseMaterialRange", MouldWallThicknessUseMaterialRange, true),
};

constexpr std::array WallVariation = {
    NumberParam(1, L"MaximumVariationPercent", MouldWallVariationMaximumVariationPercent, { 25, 0, 100 }),
    NumberParam(2, L"MinimumTransitionRatio", MouldWallVariationMinimumTransitionRatio, { 3, 0, 10 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, MouldWallVariationMaterialHelp },
                StandardChoices::Plastics, UsualMaterial),
};

constexpr std::array DraftAngles = {
    AngleParam(1, L"MinimumDraft", MouldDraftAnglesMinimumDraft, { 1, 0, 10 }),
    LengthParam(2, L"SmallestHeight", MouldDraftAnglesSmallestHeight, { 1, 0, 100 }),
    YesNoParam(3, L"CheckCoreSide", MouldDraftAnglesCheckCoreSide, true),
};

constexpr std::array TextureDraft = {
    LengthParam(1, L"TextureDepth", MouldTextureDraftTextureDepth, { 0.025, 0.001, 1 }),
    AngleParam(2, L"DraftPerStep", MouldTextureDraftDraftPerStep, { 1.5, 0, 5 }),
    LengthParam(3, L"DepthStep", MouldTextureDraftDepthStep, { 0.025, 0.001, 1 }),
};

constexpr std::array RibThickness = {
    NumberParam(1, L"MaximumThicknessPercent", MouldRibThicknessMaximumThicknessPercent, { 60, 20, 100 }),
    NumberParam(2, L"MinimumThicknessPercent", MouldRibThicknessMinimumThicknessPercent, { 40, 10, 100 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, MouldRibThicknessMaterialHelp },
                StandardChoices::Plastics, UsualMaterial),
};

constexpr std::array RibProportions = {
    NumberParam(1, L"MaximumHeightRatio", MouldRibProportionsMaximumHeightRatio, { 3, 0.5, 10 }),
    NumberParam(2, L"MinimumSpacingRatio", MouldRibProportionsMinimumSpacingRatio, { 2, 0.5, 10 }),
    AngleParam(3, L"MinimumDraft", MouldRibProportionsMinimumDraft, { 0.5, 0, 5 }),
};

constexpr std::array BossProportions = {
    NumberParam(1, L"MaximumWallPercent", MouldBossProportionsMaximumWallPercent, { 60, 20, 100 }),
    NumberParam(2, L"MinimumDiameterRatio", MouldBossProportionsMinimumDiameterRatio, { 1.8, 1.1, 4 }),
    NumberParam(3, L"MaximumHeightRatio", MouldBossProportionsMaximumHeightRatio, { 3, 0.5, 10 }),
    YesNoParam(4, L"RequireGussets", MouldBossProportionsRequireGussets, false),
};

constexpr std::array CornerRadii = {
    NumberParam(1, L"MinimumInnerRatio", MouldCornerRadiiMinimumInnerRatio, { 0.5, 0, 2 }),
    NumberParam(2, L"OuterExtraRatio", MouldCornerRadiiOuterExtraRatio, { 1, 0, 2 }),
    LengthParam(3, L"MinimumInnerRadius", MouldCornerRadiiMinimumInnerRadius, { 0.5, 0, 20 }),
};

constexpr std::array CorePins = {
    NumberParam(1, L"MaximumBlindRatio", MouldCorePinsMaximumBlindRatio, { 3, 0.5, 10 }),
    NumberParam(2, L"MaximumThroughRatio", MouldCorePinsMaximumThroughRatio, { 6, 0.5, 20 }),
    LengthParam(3, L"MinimumDiameter", MouldCorePinsMinimumDiameter, { 1, 0.1, 50 }),
};

constexpr std::array HoleSpacing = {
    NumberParam(1, L"MinimumEdgeRatio", MouldHoleSpacingMinimumEdgeRatio, { 2, 0, 10 }),
    NumberParam(2, L"MinimumSpacingRatio", MouldHoleSpacingMinimumSpacingRatio, { 1, 0, 10 }),
};

constexpr std::array Undercuts = {
    IntegerParam(1, L"MaximumSideActions", MouldUndercutsMaximumSideActions, { 0, 0, 20 }),
    LengthParam(2, L"SmallestDepth", MouldUndercutsSmallestDepth, { 0.1, 0, 10 }),
    YesNoParam(3, L"AllowStripping", MouldUndercutsAllowStripping, false),
    NumberParam(4, L"MaximumStrippingPercent", MouldUndercutsMaximumStrippingPercent, { 2, 0, 20 }),
};

constexpr std::array SteelThickness = {
    LengthParam(1, L"MinimumSteelThickness", MouldSteelMinimumSteelThickness, { 3, 0.5, 50 }),
    NumberParam(2, L"MaximumHeightRatio", MouldSteelMaximumHeightRatio, { 3, 0.5, 20 }),
};

constexpr std::array Rules = {
    RuleDefinition{ L"MouldWallThickness", MouldWallThickness, CategoryWalls, 5, L"mould_wall_thickness.htm",
                    WallThickness },
    RuleDefinition{ L"MouldWallVariation", MouldWallVariation, CategoryWalls, 4, L"mould_wall_variation.htm",
                    WallVariation },
    RuleDefinition{ L"MouldDraftAngles", MouldDraftAngles, CategoryDraft, 5, L"mould_draft_angles.htm", DraftAngles },
    RuleDefinition{ L"MouldTextureDraft", MouldTextureDraft, CategoryDraft, 3, L"mould_texture_draft.htm",
                    TextureDraft },
    RuleDefinition{ L"MouldRibThickness", MouldRibThickness, CategoryRibs, 4, L"mould_rib_thickness.htm",
                    RibThickness },
    RuleDefinition{ L"MouldRibProportions", MouldRibProportions, CategoryRibs, 3, L"mould_rib_proportions.htm",
                    RibProportions },
    RuleDefinition{ L"MouldBossProportions", MouldBossProportions, CategoryBosses, 3, L"mould_boss_proportions.htm",
                    BossProportions },
    RuleDefinition{ L"MouldCornerRadii", MouldCornerRadii, CategoryFillets, 4, L"mould_corner_radii.htm", CornerRadii },
    RuleDefinition{ L"MouldCorePins", MouldCorePins, CategoryHoles, 3, L"mould_core_pins.htm", CorePins },
    RuleDefinition{ L"MouldHoleSpacing", MouldHoleSpacing, CategoryHoles, 2, L"mould_hole_spacing.htm", HoleSpacing },
    RuleDefinition{ L"MouldUndercuts", MouldUndercuts, CategoryUndercuts, 4, L"mould_undercuts.htm", Undercuts },
    RuleDefinition{ L"MouldSteel", MouldSteel, CategoryMould, 3, L"mould_steel.htm", SteelThickness },
};

constexpr ModuleDefinition Module = {
    L"Injection Moulding Rules", MouldModuleSummary, L"QOXIMRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
