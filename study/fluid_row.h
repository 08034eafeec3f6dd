#pragma once

#include "study/record.h"

namespace kalvo {

/// Stands for "follows from the temperature" in a fluid's temperature and viscosity.
constexpr float kComputed = -10000.0F;

/// Name of the one fluid whose viscosity is computed.
constexpr std::string_view kWaterName = "Νερό";

/// One fluid, a record of `Liquids.dat` and the only record of `LIQUID.TMP`.
struct FluidRow {
  std::int16_t row_number = 0;  ///< its number in Liquids.dat
  FixedText<50> name;
  float mean_temperature = 0;  ///< °C at which the values hold
  float reserved1 = 0;
  float viscosity = 0;  ///< kinematic, cSt
  float density = 0;    ///< kg/m³
  float reserved2 = 0;

  static constexpr auto kFields = std::make_tuple(
      RecordField{"row_number", &FluidRow::row_number}, RecordField{"name", &FluidRow::name},
      RecordField{"mean_temperature", &FluidRow::mean_temperature},
      RecordField{"reserved1", &FluidRow::reserved1},
      RecordField{"viscosity", &FluidRow::viscosity}, RecordField{"density", &FluidRow::density},
      RecordField{"reserved2", &FluidRow::reserved2});
};

static_assert(RecordSize<FluidRow>() == 72);

}  // namespace kalvo
