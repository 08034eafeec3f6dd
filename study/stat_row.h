#pragma once

#include "study/record.h"

namespace kalvo {

/// Quantities of one pipe size, a record of `STATIST.TMP`; one per row of the pipe library.
struct StatRow {
  std::int16_t RecordNumber = 0;  ///< the library row's pipe id
  FixedText<51> Client;
  FixedText<78> Thema;
  FixedText<8> Units;
  FixedText<78> PipeMaterial;
  FixedText<12> NomiDiameter;
  float InDiameter = 0;   ///< mm
  float Length = 0;       ///< m
  float FluidVolume = 0;  ///< m³
  float Corners = 0;      ///< sum of AnglePOP
  float Elbows = 0;       ///< sum of Elbow90
  float GlobeV = 0;       ///< sum of GateValve
  float StraightV = 0;    ///< sum of StrSwitch
  float CornerV = 0;      ///< sum of AngSwitch
  float CheckV = 0;       ///< sum of CheckValve

  static constexpr auto kFields = std::make_tuple(
      RecordField{"RecordNumber", &StatRow::RecordNumber}, RecordField{"Client", &StatRow::Client},
      RecordField{"Thema", &StatRow::Thema}, RecordField{"Units", &StatRow::Units},
      RecordField{"PipeMaterial", &StatRow::PipeMaterial},
      RecordField{"NomiDiameter", &StatRow::NomiDiameter},
      RecordField{"InDiameter", &StatRow::InDiameter}, RecordField{"Length", &StatRow::Length},
      RecordField{"FluidVolume", &StatRow::FluidVolume}, RecordField{"Corners", &StatRow::Corners},
      RecordField{"Elbows", &StatRow::Elbows}, RecordField{"GlobeV", &StatRow::GlobeV},
      RecordField{"StraightV", &StatRow::StraightV}, RecordField{"CornerV", &StatRow::CornerV},
      RecordField{"CheckV", &StatRow::CheckV});
};

static_assert(RecordSize<StatRow>() == 265);

/// A section whose upstream pressure was not known yet, a record of `RESTBRA.TMP`.
struct PostponedRow {
  FixedText<5> number;

  static constexpr auto kFields = std::make_tuple(RecordField{"number", &PostponedRow::number});
};

static_assert(RecordSize<PostponedRow>() == 5);

}  // namespace kalvo
