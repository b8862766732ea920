#include "RuleModules/Kit/StandardChoices.h"
#include "RuleModules/Kit/ThisModule.h"
#include "RuleModules/Texts/Common.h"
#include "RuleModules/Texts/Tolerance.h"

#include <array>

namespace
{

using namespace RuleTexts;

constexpr std::array Categories = { CategoryDimensions, CategoryFits,          CategoryGeometricTolerances,
                                    CategoryDatums,     CategorySurfaceFinish, CategoryThreads };

constexpr double MillimetersPerMicrometer = 0.001;

// The defaults are those of machining with ordinary care: grades and finishes as tables of
// manufacturing handbooks give them for turning, milling and drilling without grinding, fits as in
// the selections that standards for limits and fits recommend, and shares of the tolerance of size
// as textbooks on geometrical tolerancing and surface texture have them.

constexpr std::array FineTolerances = {
    DefaultByChoice(LengthParam(1, L"SmallestTolerance", TolFineTolerancesSmallestTolerance, { 0.014, 0.0005, 2 }), 2,
                    L"to_3", MillimetersPerMicrometer),
    ChoiceParam(2, L"FinestGrade", TolFineTolerancesFinestGrade, StandardChoices::ToleranceGrades, L"IT8"),
    YesNoParam(3, L"CheckFits", TolFineTolerancesCheckFits, false),
};

constexpr std::array GeneralTolerances = {
    YesNoParam(1, L"RequireGeneral", TolGeneralTolerancesRequireGeneral, true),
    YesNoParam(2, L"FindNeedless", TolGeneralTolerancesFindNeedless, true),
    ChoiceParam(3, L"Grade", TolGeneralTolerancesGrade, StandardChoices::ToleranceGrades, L"IT14"),
};

constexpr std::array Chains = {
    IntegerParam(1, L"MaximumLinks", TolChainsMaximumLinks, { 4, 1, 50 }),
    NumberParam(2, L"MaximumSharePercent", TolChainsMaximumSharePercent, { 100, 1, 300 }),
    YesNoParam(3, L"AddStatistically", TolChainsAddStatistically, false),
};

constexpr std::array FitGrades = {
    IntegerParam(1, L"MaximumDifference", TolFitGradesMaximumDifference, { 1, 0, 6 }),
    ChoiceParam(2, L"FinestHole", TolFitGradesFinestHole, StandardChoices::ToleranceGrades, L"IT7"),
    ChoiceParam(3, L"FinestShaft", TolFitGradesFinestShaft, StandardChoices::ToleranceGrades, L"IT6"),
};

constexpr std::array FitSystem = {
    YesNoParam(1, L"RequireHoleBasis", TolFitSystemRequireHoleBasis, true),
    YesNoParam(2, L"AllowDrawnShafts", TolFitSystemAllowDrawnShafts, true),
    IntegerParam(3, L"MaximumFits", TolFitSystemMaximumFits, { 4, 1, 50 }),
};

constexpr std::array Interference = {
    NumberParam(1, L"MinimumPerMille", TolInterferenceMinimumPerMille, { 0.2, 0, 5 }),
    NumberParam(2, L"MaximumPerMille", TolInterferenceMaximumPerMille, { 2, 0.1, 20 }),
    LengthParam(3, L"SmallestDiameter", TolInterferenceSmallestDiameter, { 3, 0, 500 }),
};

constexpr std::array FormTolerances = {
    NumberParam(1, L"MaximumSharePercent", TolFormTolerancesMaximumSharePercent, { 60, 1, 100 }),
    NumberParam(2, L"MinimumSharePercent", TolFormTolerancesMinimumSharePercent, { 25, 0, 100 }),
};

constexpr std::array FlatFaces = {
    LengthParam(1, L"FinestPerHundred", TolFlatnessFinestPerHundred, { 0.02, 0.0005, 1 }),
    LengthParam(2, L"SmallestTolerance", TolFlatnessSmallestTolerance, { 0.01, 0.0005, 1 }),
    YesNoParam(3, L"CheckStraightness", TolFlatnessCheckStraightness, true),
};

constexpr std::array HolePositions = {
    LengthParam(1, L"FinestPosition", TolHolePositionsFinestPosition, { 0.1, 0.001, 5 }),
    NumberParam(2, L"MaximumSharePercent", TolHolePositionsMaximumSharePercent, { 100, 1, 200 }),
    YesNoParam(3, L"RequireMaximumMaterial", TolHolePositionsRequireMaximumMaterial, true),
};

constexpr std::array DatumFeatures = {
    IntegerParam(1, L"MaximumSystems", TolDatumsMaximumSystems, { 2, 1, 20 }),
    YesNoParam(2, L"RequireMachined", TolDatumsRequireMachined, true),
    YesNoParam(3, L"RequireFormTolerance", TolDatumsRequireFormTolerance, true),
};

constexpr std::array Roughness = {
    NumberParam(1, L"MaximumSharePercent", TolRoughnessMaximumSharePercent, { 50, 1, 100 }),
    NumberParam(2, L"RzPerRa", TolRoughnessRzPerRa, { 5, 1, 20 }),
};

constexpr std::array FineFinishes = {
    NumberParam(1, L"FinestRa", TolFineFinishesFinestRa, { 0.8, 0.01, 50 }),
    YesNoParam(2, L"RequireGeneral", TolFineFinishesRequireGeneral, true),
};

constexpr std::array ThreadClasses = {
    IntegerParam(1, L"FinestInternalGrade", TolThreadClassesFinestInternalGrade, { 6, 4, 8 }),
    IntegerParam(2, L"FinestExternalGrade", TolThreadClassesFinestExternalGrade, { 6, 3, 9 }),
    YesNoParam(3, L"CheckCoated", TolThreadClassesCheckCoated, true),
};

constexpr std::array Rules = {
    RuleDefinition{ L"TolFineTolerances", TolFineTolerances, CategoryDimensions, 5, L"tol_fine_tolerances.htm",
                    FineTolerances },
    RuleDefinition{ L"TolGeneralTolerances", TolGeneralTolerances, CategoryDimensions, 3, L"tol_general_tolerances.htm",
                    GeneralTolerances },
    RuleDefinition{ L"TolChains", TolChains, CategoryDimensions, 4, L"tol_chains.htm", Chains },
    RuleDefinition{ L"TolFitGrades", TolFitGrades, CategoryFits, 4, L"tol_fit_grades.htm", FitGrades },
    RuleDefinition{ L"TolFitSystem", TolFitSystem, CategoryFits, 3, L"tol_fit_system.htm", FitSystem },
    RuleDefinition{ L"TolInterference", TolInterference, CategoryFits, 4, L"tol_interference.htm", Interference },
    RuleDefinition{ L"TolFormTolerances", TolFormTolerances, CategoryGeometricTolerances, 3, L"tol_form_tolerances.htm",
                    FormTolerances },
    RuleDefinition{ L"TolFlatness", TolFlatness, CategoryGeometricTolerances, 4, L"tol_flatness.htm", FlatFaces },
    RuleDefinition{ L"TolHolePositions", TolHolePositions, CategoryGeometricTolerances, 4, L"tol_hole_positions.htm",
                    HolePositions },
    RuleDefinition{ L"TolDatums", TolDatums, CategoryDatums, 4, L"tol_datums.htm", DatumFeatures },
    RuleDefinition{ L"TolRoughness", TolRoughness, CategorySurfaceFinish, 3, L"tol_roughness.htm", Roughness },
    RuleDefinition{ L"TolFineFinishes", TolFineFinishes, CategorySurfaceFinish, 4, L"tol_fine_finishes.htm",
                    FineFinishes },
    RuleDefinition{ L"TolThreadClasses", TolThreadClasses, CategoryThreads, 2, L"tol_thread_classes.htm",
                    ThreadClasses },
};

constexpr ModuleDefinition Module = {
    L"Tolerance Rules", TolModuleSummary, L"QoxToleranceRulesu.dll", Categories, Rules,
};

static_assert(TablesAreInOrder<FindMistake(Module)>());

} // namespace

const ModuleDefinition& ThisModule()
{
    return Module;
}
