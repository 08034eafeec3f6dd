#pragma once

#include <array>
#include <string_view>
#include <variant>

#include "study/section_row.h"
#include "study/stat_row.h"

namespace kalvo {

/// The two material classes of the fittings' loss coefficients.
enum class MaterialClass { kSteelPipe, kOtherPipe };

/// kSteelPipe when the trimmed word is "STEEL".
MaterialClass ClassOf(std::string_view material);

/// Loss coefficients ζ of the fittings whose value depends on the pipe; per piece, no unit.
struct FittingCoefficients {
  double AnglePOP = 0;
  double Elbow90 = 0;
  double GateValve = 0;
  double StrSwitch = 0;
  double AngSwitch = 0;
};

/// ζ of one unit of the plant marker.
constexpr double kZetaPlant = 2.5;

/// ζ of a piece: the same in every pipe, or by the pipe.
using ZetaRule = std::variant<double, double FittingCoefficients::*>;

/// A kind of fitting: where a row counts it, and what it is called.
struct Fitting {
  NumberField count;
  float StatRow::*total;  ///< its sum by pipe size; null where none is kept
  ZetaRule zeta;
  std::string_view column;          ///< of a CSV: the name of the row's field
  std::string_view key;             ///< of JSON
  const char* name;                 ///< Greek, in full
  std::array<const char*, 2> head;  ///< the same above a column, in two lines
};

/// All of them, in the order of the entry form. Whatever lists fittings goes by this table.
inline constexpr std::array<Fitting, 10> kFittings = {{
    {&SectionRow::AnglePOP,
     &StatRow::Corners,
     &FittingCoefficients::AnglePOP,
     "AnglePOP",
     "elbows",
     "Γωνίες",
     {"Γωνίες", ""}},
    {&SectionRow::Elbow90,
     &StatRow::Elbows,
     &FittingCoefficients::Elbow90,
     "Elbow90",
     "bends_90",
     "Καμπύλες 90°",
     {"Καμπύλες", "90°"}},
    {&SectionRow::GateValve,
     &StatRow::GlobeV,
     &FittingCoefficients::GateValve,
     "GateValve",
     "valves",
     "Βάννες",
     {"Βάννες", ""}},
    {&SectionRow::StrSwitch,
     &StatRow::StraightV,
     &FittingCoefficients::StrSwitch,
     "StrSwitch",
     "straight_valves",
     "Ευθείς διακόπτες",
     {"Διακόπτες", "ευθείς"}},
    {&SectionRow::AngSwitch,
     &StatRow::CornerV,
     &FittingCoefficients::AngSwitch,
     "AngSwitch",
     "angle_valves",
     "Γωνιακοί διακόπτες",
     {"Διακόπτες", "γωνιακοί"}},
    {&SectionRow::DiaTee,
     nullptr,
     1.5,
     "DiaTee",
     "tees_branch",
     "Ταυ, διακλάδωση",
     {"Ταυ", "διακλάδ."}},
    {&SectionRow::DieTee,
     nullptr,
     1.0,
     "DieTee",
     "tees_through",
     "Ταυ, διέλευση",
     {"Ταυ", "διέλευση"}},
    {&SectionRow::AntiTee,
     nullptr,
     3.0,
     "AntiTee",
     "tees_counter",
     "Ταυ, αντιρροή",
     {"Ταυ", "αντιρροή"}},
    {&SectionRow::SymboTee,
     nullptr,
     1.35,
     "SymboTee",
     "tees_junction",
     "Ταυ, συμβολή",
     {"Ταυ", "συμβολή"}},
    {&SectionRow::CheckValve,
     &StatRow::CheckV,
     4.0,
     "CheckValve",
     "check_valves",
     "Βαλβίδες αντεπιστροφής",
     {"Βαλβίδες", "αντεπ/φής"}},
}};

/// ζ of one piece in a pipe with these coefficients.
double ZetaOf(const Fitting& fitting, const FittingCoefficients& pipe);

/// Coefficients for a pipe of `diameter_mm` inner diameter; a diameter equal to a band's limit
/// belongs to the next band.
const FittingCoefficients& CoefficientsFor(MaterialClass material, double diameter_mm);

/// Σζ of the row's fittings in a pipe of that class and diameter, the plant left out.
double SumOfZeta(const SectionRow& row, MaterialClass material, double diameter_mm);

}  // namespace kalvo
