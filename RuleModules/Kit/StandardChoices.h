#pragma once

#include "RuleModules/Kit/RuleTable.h"

#include <array>

/// The choices that rules of all modules share, with a few of each where no database can be
/// read. The designations are those of the database's tables.
namespace StandardChoices
{

namespace BuiltIn
{

using namespace std::string_view_literals;

inline constexpr std::array Metals = { L"42CrMo4"sv,       L"C45"sv,       L"CuZn39Pb3"sv,  L"EN AW-6082-T6"sv,
                                       L"EN AW-7075-T6"sv, L"Ti-6Al-4V"sv, L"X5CrNi18-10"sv };
inline constexpr std::array SheetMetals = { L"CuZn37 sheet"sv, L"DC01"sv, L"DX51D+Z"sv, L"EN AW-5754-H22"sv,
                                            L"X5CrNi18-10 sheet"sv };
inline constexpr std::array Plastics = { L"ABS"sv, L"PA66"sv, L"PC"sv, L"PE-HD"sv, L"POM"sv, L"PP"sv };
inline constexpr std::array CastingAlloys = { L"EN AC-42100-T6"sv, L"EN-GJL-200"sv, L"EN-GJS-400-15"sv, L"GE240"sv,
                                              L"GX5CrNi19-10"sv };
inline constexpr std::array InvestmentAlloys = { L"EN AC-42200-T6"sv, L"G42CrMo4"sv, L"GX2CrNi19-11"sv,
                                                 L"GX5CrNiCu16-4"sv };
inline constexpr std::array DieCastingAlloys = { L"EN AC-46000"sv, L"EN AC-47100"sv, L"EN-MCMgAl9Zn1"sv, L"ZP0410"sv };
inline constexpr std::array AdditiveMaterials = { L"AlSi10Mg powder"sv, L"PA12 powder"sv, L"PLA filament"sv,
                                                  L"Ti-6Al-4V powder"sv, L"X2CrNiMo17-12-2 powder"sv };
inline constexpr std::array WeldedMetals = { L"EN AW-5083-O"sv, L"S235J2"sv, L"S355J2+N"sv, L"X2CrNi19-11"sv };
inline constexpr std::array TubeMaterials = { L"E235+N"sv, L"E355+N"sv, L"EN AW-6060-T4 tube"sv,
                                              L"X5CrNi18-10 tube"sv };
inline constexpr std::array Drills = { L"1 mm"sv, L"2 mm"sv,  L"3 mm"sv,  L"4 mm"sv,  L"5 mm"sv, L"6 mm"sv,
                                       L"8 mm"sv, L"10 mm"sv, L"12 mm"sv, L"16 mm"sv, L"20 mm"sv };
inline constexpr std::array EndMills = { L"2 mm"sv, L"3 mm"sv,  L"4 mm"sv,  L"5 mm"sv,  L"6 mm"sv,
                                         L"8 mm"sv, L"10 mm"sv, L"12 mm"sv, L"16 mm"sv, L"20 mm"sv };
inline constexpr std::array MetricThreads = { L"M2"sv, L"M3"sv,  L"M4"sv,  L"M5"sv,  L"M6"sv,
                                              L"M8"sv, L"M10"sv, L"M12"sv, L"M16"sv, L"M20"sv };
inline constexpr std::array MetricFineThreads = { L"M8x1"sv, L"M10x1"sv, L"M12x1.5"sv, L"M16x1.5"sv, L"M20x1.5"sv };
inline constexpr std::array UnifiedThreads = { L"#4-40 UNC"sv,  L"#6-32 UNC"sv,   L"#8-32 UNC"sv,  L"#10-24 UNC"sv,
                                               L"1/4-20 UNC"sv, L"5/16-18 UNC"sv, L"3/8-16 UNC"sv, L"1/2-13 UNC"sv };
inline constexpr std::array SheetThicknesses = { L"0.5 mm"sv, L"0.8 mm"sv, L"1 mm"sv, L"1.5 mm"sv,
                                                 L"2 mm"sv,   L"3 mm"sv,   L"4 mm"sv, L"6 mm"sv };
inline constexpr std::array SteelGauges = { L"MSG 10"sv, L"MSG 12"sv, L"MSG 14"sv, L"MSG 16"sv,
                                            L"MSG 18"sv, L"MSG 20"sv, L"MSG 22"sv, L"MSG 24"sv };
inline constexpr std::array MetricTubes = { L"6x1"sv,  L"8x1"sv,  L"10x1"sv,   L"12x1.5"sv,
                                            L"16x2"sv, L"20x2"sv, L"25x2.5"sv, L"30x3"sv };
inline constexpr std::array ToleranceGrades = { L"IT5"sv,  L"IT6"sv,  L"IT7"sv,  L"IT8"sv,  L"IT9"sv,
                                                L"IT10"sv, L"IT11"sv, L"IT12"sv, L"IT13"sv, L"IT14"sv };

} // namespace BuiltIn

// Not `inline`: the address of an object that several libraries may define can be null to a
// compiler that checks for it, and then the tables aren't checked at compile time.
constexpr ChoiceSource Metals = { L"materials", L"metal", BuiltIn::Metals };
constexpr ChoiceSource SheetMetals = { L"materials", L"sheet", BuiltIn::SheetMetals };
constexpr ChoiceSource Plastics = { L"materials", L"plastic", BuiltIn::Plastics };
constexpr ChoiceSource CastingAlloys = { L"materials", L"cast", BuiltIn::CastingAlloys };
constexpr ChoiceSource InvestmentAlloys = { L"materials", L"invest", BuiltIn::InvestmentAlloys };
constexpr ChoiceSource DieCastingAlloys = { L"materials", L"diecast", BuiltIn::DieCastingAlloys };
constexpr ChoiceSource AdditiveMaterials = { L"materials", L"additive", BuiltIn::AdditiveMaterials };
constexpr ChoiceSource WeldedMetals = { L"materials", L"weld", BuiltIn::WeldedMetals };
constexpr ChoiceSource TubeMaterials = { L"materials", L"tube", BuiltIn::TubeMaterials };
constexpr ChoiceSource Drills = { L"drills", L"metric", BuiltIn::Drills };
constexpr ChoiceSource EndMills = { L"end_mills", L"metric", BuiltIn::EndMills };
constexpr ChoiceSource MetricThreads = { L"threads", L"metric-coarse", BuiltIn::MetricThreads };
constexpr ChoiceSource MetricFineThreads = { L"threads", L"metric-fine", BuiltIn::MetricFineThreads };
constexpr ChoiceSource UnifiedThreads = { L"threads", L"unified-coarse", BuiltIn::UnifiedThreads };
constexpr ChoiceSource SheetThicknesses = { L"gauges", L"metric", BuiltIn::SheetThicknesses };
constexpr ChoiceSource SteelGauges = { L"gauges", L"steel", BuiltIn::SteelGauges };
constexpr ChoiceSource MetricTubes = { L"tubes", L"metric", BuiltIn::MetricTubes };
constexpr ChoiceSource ToleranceGrades = { L"tolerance_grades", L"standard", BuiltIn::ToleranceGrades };

} // namespace StandardChoices
