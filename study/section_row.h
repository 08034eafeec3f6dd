#pragma once

#include <variant>

#include "study/fault.h"
#include "study/record.h"

namespace kalvo {

/// The reserved node name: the source.
constexpr std::string_view kSource = "ANT";

/// One section of the network, a record of `DATARES.TMP` and of its companions. Values of the whole
/// study are repeated on every row. Units: flow l/h, lengths m, diameters mm, area m², velocity
/// m/s, pressures mm w.g., `PAR` m³/h, temperature °C.
struct SectionRow {
  std::int16_t RecordNumber = 0;  ///< 1-based, the record's position
  std::int16_t SectionNo = 0;     ///< always RecordNumber
  FixedText<51> Client;           ///< designer or firm
  FixedText<78> Thema;            ///< study title
  FixedText<8> Units;             ///< never given a value, carried through
  FixedText<78> Material;         ///< pipe system's material word
  float MeanTemp = 0;             ///< mean fluid temperature
  std::int16_t BurChil = 0;       ///< number of the plant section, 0 = none
  std::int16_t ANOIK = 0;         ///< not zero in an open system
  std::int16_t KLEIS = 0;         ///< not zero in a closed system
  std::int16_t FileNumber = 0;    ///< pipe system number
  std::int16_t TOT = 0;           ///< row count when the row was written
  float MeanVel = 0;              ///< design velocity
  std::int16_t Outlets = 0;       ///< emitters or outlets in the study
  float PAR = 0;                  ///< total flow, m³/h
  float DP = 0;                   ///< critical drop, mm w.g.
  float INILAMDA = 0;             ///< method of the last sizing, 1 or 2
  FixedText<7> Name;              ///< "abc/def"
  float WaterFlow = 0;
  float Length = 0;
  float AnglePOP = 0;  ///< elbows
  float Elbow90 = 0;   ///< 90° bends
  std::int16_t GateValve = 0;
  std::int16_t StrSwitch = 0;  ///< straight regulating valves
  std::int16_t AngSwitch = 0;  ///< angle regulating valves
  std::int16_t DiaTee = 0;     ///< tees taken as branch
  std::int16_t DieTee = 0;     ///< tees passed through
  std::int16_t AntiTee = 0;    ///< tees taken as counter-flow
  std::int16_t SymboTee = 0;   ///< tees taken as junction
  std::int16_t CheckValve = 0;
  float OtherDrop_mm = 0;  ///< other pressure drop
  float OtherDrop_m = 0;   ///< other pressure drop as equivalent length of pipe
  FixedText<15> NomiDiam;  ///< nominal diameter, blank until calculated
  float Velocity = 0;
  float Area = 0;
  float InDiameter = 0;  ///< negative: imposed by the user
  float Reynolds = 0;
  float Lamda = 0;         ///< friction factor
  float FrictionRate = 0;  ///< mm w.g. per metre
  float TotalDrop = 0;
  std::int16_t Auxi = 0;  ///< plant section: 1 on row 1, 2 on any other; else 0
  float AvaiPres = 0;     ///< pressure available behind the section
  float SomaDrop = 0;     ///< emitter's drop (closed) or outlet's pressure, m w.g. (open)
  float HeightDiff = 0;   ///< m, open systems

  [[nodiscard]] bool HasEmitter() const { return SomaDrop != 0.0F; }
  [[nodiscard]] bool HasPlantMark() const { return Auxi != 0; }

  static constexpr auto kFields = std::make_tuple(
      RecordField{"RecordNumber", &SectionRow::RecordNumber},
      RecordField{"SectionNo", &SectionRow::SectionNo}, RecordField{"Client", &SectionRow::Client},
      RecordField{"Thema", &SectionRow::Thema}, RecordField{"Units", &SectionRow::Units},
      RecordField{"Material", &SectionRow::Material},
      RecordField{"MeanTemp", &SectionRow::MeanTemp}, RecordField{"BurChil", &SectionRow::BurChil},
      RecordField{"ANOIK", &SectionRow::ANOIK}, RecordField{"KLEIS", &SectionRow::KLEIS},
      RecordField{"FileNumber", &SectionRow::FileNumber}, RecordField{"TOT", &SectionRow::TOT},
      RecordField{"MeanVel", &SectionRow::MeanVel}, RecordField{"Outlets", &SectionRow::Outlets},
      RecordField{"PAR", &SectionRow::PAR}, RecordField{"DP", &SectionRow::DP},
      RecordField{"INILAMDA", &SectionRow::INILAMDA}, RecordField{"Name", &SectionRow::Name},
      RecordField{"WaterFlow", &SectionRow::WaterFlow}, RecordField{"Length", &SectionRow::Length},
      RecordField{"AnglePOP", &SectionRow::AnglePOP}, RecordField{"Elbow90", &SectionRow::Elbow90},
      RecordField{"GateValve", &SectionRow::GateValve},
      RecordField{"StrSwitch", &SectionRow::StrSwitch},
      RecordField{"AngSwitch", &SectionRow::AngSwitch}, RecordField{"DiaTee", &SectionRow::DiaTee},
      RecordField{"DieTee", &SectionRow::DieTee}, RecordField{"AntiTee", &SectionRow::AntiTee},
      RecordField{"SymboTee", &SectionRow::SymboTee},
      RecordField{"CheckValve", &SectionRow::CheckValve},
      RecordField{"OtherDrop_mm", &SectionRow::OtherDrop_mm},
      RecordField{"OtherDrop_m", &SectionRow::OtherDrop_m},
      RecordField{"NomiDiam", &SectionRow::NomiDiam},
      RecordField{"Velocity", &SectionRow::Velocity}, RecordField{"Area", &SectionRow::Area},
      RecordField{"InDiameter", &SectionRow::InDiameter},
      RecordField{"Reynolds", &SectionRow::Reynolds}, RecordField{"Lamda", &SectionRow::Lamda},
      RecordField{"FrictionRate", &SectionRow::FrictionRate},
      RecordField{"TotalDrop", &SectionRow::TotalDrop}, RecordField{"Auxi", &SectionRow::Auxi},
      RecordField{"AvaiPres", &SectionRow::AvaiPres},
      RecordField{"SomaDrop", &SectionRow::SomaDrop},
      RecordField{"HeightDiff", &SectionRow::HeightDiff});
};

static_assert(RecordSize<SectionRow>() == 355);

/// Any number of a row.
using NumberField = std::variant<float SectionRow::*, std::int16_t SectionRow::*>;

inline float NumberOf(const SectionRow& row, const NumberField& field) {
  return std::visit([&row](auto member) { return static_cast<float>(row.*member); }, field);
}

/// `Auxi` of the plant section when it is row `number`.
constexpr std::int16_t kPlantOnRow1 = 1;
constexpr std::int16_t kPlantBehind = 2;
constexpr std::int16_t PlantMark(int number) { return number == 1 ? kPlantOnRow1 : kPlantBehind; }

/// Marks the row when it is the plant section, and takes the mark off any other.
inline void MarkPlant(SectionRow& row, int plant) {
  row.Auxi = row.RecordNumber == plant ? PlantMark(plant) : std::int16_t{0};
}

/// Bytes of a node's name within a section's.
constexpr std::size_t kNodeWidth = 3;

/// The left and right three bytes of a section's name; blanks and any other byte as they stand.
inline std::string_view LeftNode(const FixedText<7>& name) {
  return name.bytes().substr(0, kNodeWidth);
}
inline std::string_view RightNode(const FixedText<7>& name) {
  return name.bytes().substr(kNodeWidth + 1, kNodeWidth);
}

/// "abc/def" of two names: the left one right-justified, the right one left-justified in three
/// bytes each. Faults: 5 for a name of more than three bytes.
inline FixedText<7> MakeName(std::string_view left, std::string_view right) {
  return FixedText<7>::FromBytes(PadFront(Trim(left), kNodeWidth) + "/" +
                                 PadBehind(Trim(right), kNodeWidth));
}

}  // namespace kalvo
