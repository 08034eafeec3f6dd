#pragma once

#include "study/record.h"

namespace kalvo {

/// One size of a pipe system, a record of a `.WPT` file; row 1 stands for the file as a whole.
struct PipeRow {
  FixedText<78> title;
  std::int16_t pipe_id = 0;
  FixedText<30> material;
  FixedText<12> nominal_diameter;
  float reserved1 = 0;
  float inner_diameter = 0;  ///< mm
  float area = 0;            ///< mm²
  float reserved2 = 0;
  float roughness = 0;  ///< mm, that of row 1 holds for the whole file
  float reserved3 = 0;

  static constexpr auto kFields = std::make_tuple(
      RecordField{"title", &PipeRow::title}, RecordField{"pipe_id", &PipeRow::pipe_id},
      RecordField{"material", &PipeRow::material},
      RecordField{"nominal_diameter", &PipeRow::nominal_diameter},
      RecordField{"reserved1", &PipeRow::reserved1},
      RecordField{"inner_diameter", &PipeRow::inner_diameter}, RecordField{"area", &PipeRow::area},
      RecordField{"reserved2", &PipeRow::reserved2}, RecordField{"roughness", &PipeRow::roughness},
      RecordField{"reserved3", &PipeRow::reserved3});
};

static_assert(RecordSize<PipeRow>() == 146);

}  // namespace kalvo
