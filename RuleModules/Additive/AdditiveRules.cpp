#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Additive.h"
#include "RuleModules/Texts/Common.h"

#include <array>

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = { CategoryWalls,       CategoryOverhangs,
                                    CategorySupports,    CategoryHoles,
                                    CategoryDetails,     CategoryClearances,
                                    CategoryBuildVolume, CategoryMachiningAllowances };

// Fusion of metal powder by laser is the strictest of the common processes, so its limits are the
// defaults where the process is not known by the material.
constexpr auto UsualMaterial = L"AlSi10Mg powder";

// Design guidelines of engineers' associations and of printing services name 10 to 40 for the height.
constexpr std::array ThinWalls = {
    DefaultByChoice(LengthParam(1, L"MinimumThickness", AdditiveThinWallsMinimumThickness, { 0.8, 0.1, 20 }), 3,
                    L"wall_thickness_min"),
    NumberParam(2, L"MaximumHeightRatio", AdditiveThinWallsMaximumHeightRatio, { 20, 2, 100 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, AdditiveThinWallsMaterialHelp },
                StandardChoices::AdditiveMaterials, UsualMaterial),
};

constexpr std::array ThickSections = {
    LengthParam(1, L"MaximumThickness", AdditiveThickSectionsMaximumThickness, { 10, 1, 200 }),
    NumberParam(2, L"MaximumVariation", AdditiveThickSectionsMaximumVariation, { 3, 1, 20 }),
};

// 45 degrees is what guidelines for metal powder and filament have in common. Metal powder carries a
// level overhang of half a millimeter, filament one of about a millimeter.
constexpr std::array Overhangs = {
    DefaultByChoice(AngleParam(1, L"MinimumAngle", AdditiveOverhangsMinimumAngle, { 45, 0, 90 }), 3, L"overhang_angle"),
    LengthParam(2, L"LargestFreeOverhang", AdditiveOverhangsLargestFreeOverhang, { 0.5, 0, 20 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, AdditiveOverhangsMaterialHelp },
                StandardChoices::AdditiveMaterials, UsualMaterial),
};

// Printing services: 1 to 2 mm in metal powder, 5 to 10 mm in filament.
constexpr std::array Bridges = {
    LengthParam(1, L"MaximumSpan", AdditiveBridgesMaximumSpan, { 2, 0, 100 }),
    YesNoParam(2, L"AllowArches", AdditiveBridgesAllowArches, true),
};

// Printing services and makers of machines: 6 to 10 mm in metal powder.
constexpr std::array HorizontalHoles = {
    LengthParam(1, L"MaximumDiameter", AdditiveHorizontalHolesMaximumDiameter, { 8, 0.5, 100 }),
    YesNoParam(2, L"AllowTeardrops", AdditiveHorizontalHolesAllowTeardrops, true),
};

constexpr std::array TrappedSupports = {
    LengthParam(1, L"MinimumOpening", AdditiveTrappedSupportsMinimumOpening, { 10, 1, 200 }),
    NumberParam(2, L"MaximumDepthRatio", AdditiveTrappedSupportsMaximumDepthRatio, { 3, 0.5, 20 }),
};

// Printing services: 2 to 5 mm in metal powder, 3.5 to 4 mm in plastic powder and resin.
constexpr std::array HollowParts = {
    LengthParam(1, L"MinimumOpening", AdditiveHollowPartsMinimumOpening, { 4, 0.5, 50 }),
    IntegerParam(2, L"MinimumNumber", AdditiveHollowPartsMinimumNumber, { 2, 1, 20 }),
};

constexpr std::array SmallHoles = {
    DefaultByChoice(LengthParam(1, L"MinimumDiameter", AdditiveSmallHolesMinimumDiameter, { 1, 0.1, 20 }), 3,
                    L"hole_diameter_min"),
    NumberParam(2, L"MaximumDepthRatio", AdditiveSmallHolesMaximumDepthRatio, { 10, 1, 50 }),
    ChoiceParam(3, L"Material", ParamTextSet{ CommonMaterialLabel, AdditiveSmallHolesMaterialHelp },
                StandardChoices::AdditiveMaterials, UsualMaterial),
};

// Printing services, for powder; filament needs two or three times as much for pins.
constexpr std::array SmallDetails = {
    LengthParam(1, L"MinimumPinDiameter", AdditiveSmallDetailsMinimumPinDiameter, { 1, 0.1, 20 }),
    LengthParam(2, L"MinimumDetailWidth", AdditiveSmallDetailsMinimumDetailWidth, { 0.5, 0.05, 10 }),
    LengthParam(3, L"MinimumDetailDepth", AdditiveSmallDetailsMinimumDetailDepth, { 0.5, 0.05, 10 }),
};

// Printing services: 0.4 to 0.6 mm in plastic powder, filament and resin.
constexpr std::array Clearances = {
    LengthParam(1, L"MinimumGap", AdditiveClearancesMinimumGap, { 0.5, 0.05, 5 }),
    NumberParam(2, L"MaximumLengthRatio", AdditiveClearancesMaximumLengthRatio, { 20, 1, 200 }),
};

// A metal powder machine of medium size.
constexpr std::array BuildVolume = {
    LengthParam(1, L"Width", AdditiveBuildVolumeWidth, { 250, 10, 10000 }),
    LengthParam(2, L"Depth", AdditiveBuildVolumeDepth, { 250, 10, 10000 }),
    LengthParam(3, L"Height", AdditiveBuildVolumeHeight, { 300, 10, 10000 }),
    YesNoParam(4, L"AllowDiagonal", AdditiveBuildVolumeAllowDiagonal, false),
};

// Guidelines for metal parts: half a millimeter to one, on parts that are built to some 0.2 mm.
constexpr std::array MachiningAllowance = {
    LengthParam(1, L"MinimumAllowance", AdditiveMachiningAllowanceMinimumAllowance, { 0.5, 0, 10 }),
    LengthParam(2, L"TightestAsBuilt", AdditiveMachiningAllowanceTightestAsBuilt, { 0.2, 0.01, 2 }),
};

constexpr std::array Rules = {
    RuleDefinition{ L"AdditiveThinWalls", AdditiveThinWalls, CategoryWalls, 5, L"additive_thin_walls.htm", ThinWalls },
    RuleDefinition{ L"AdditiveThickSections", AdditiveThickSections, CategoryWalls, 3, L"additive_thick_sections.htm",
                    ThickSections },
    RuleDefinition{ L"AdditiveOverhangs", AdditiveOverhangs, CategoryOverhangs, 4, L"additive_overhangs.htm",
                    Overhangs },
    RuleDefinition{ L"AdditiveBridges", AdditiveBridges, CategoryOverhangs, 3, L"additive_bridges.htm", Bridges },
    RuleDefinition{ L"AdditiveHorizontalHoles", AdditiveHorizontalHoles, CategoryOverhangs, 3,
                    L"additive_horizontal_holes.htm", HorizontalHoles },
    RuleDefinition{ L"AdditiveTrappedSupports", AdditiveTrappedSupports, CategorySupports, 5,
                    L"additive_trapped_supports.htm", TrappedSupports },
    RuleDefinition{ L"AdditiveHollowParts", AdditiveHollowParts, CategoryHoles, 5, L"additive_hollow_parts.htm",
                    HollowParts },
    RuleDefinition{ L"AdditiveSmallHoles", AdditiveSmallHoles, CategoryHoles, 3, L"additive_small_holes.htm",
                    SmallHoles },
    RuleDefinition{ L"AdditiveSmallDetails", AdditiveSmallDetails, CategoryDetails, 3, L"additive_small_details.htm",
                    SmallDetails },
    RuleDefinition{ L"AdditiveClearances", AdditiveClearances, CategoryClearances, 4, L"additive_clearances.htm",
                    Clearances },
    RuleDefinition{ L"AdditiveBuildVolume", AdditiveBuildVolume, CategoryBuildVolume, 4, L"additive_build_volume.htm",
                    BuildVolume },
    RuleDefinition{ L"AdditiveMachiningAllowance", AdditiveMachiningAllowance, CategoryMachiningAllowances, 4,
                    L"additive_machining_allowance.htm", MachiningAllowance },
};

constexpr ModuleDefinition Module = {
    L"Additive Manufacturing Rules", AdditiveModuleSummary, L"QoxRPRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
