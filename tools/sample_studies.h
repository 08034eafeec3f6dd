#pragma once

#include <string>
#include <vector>

#include "study/section_row.h"

namespace kalvo {

/// A study that is delivered with the program.
struct SampleStudy {
  std::string name;  ///< of its files, without extension
  std::vector<SectionRow> rows;
};

/// One circuit from the boiler to an air heater and back.
SampleStudy SingleCircuit();

/// The chilled water of an office floor: two corridors of ten fan coils each.
SampleStudy FanCoilFloor();

/// The heating of a hotel: three wings of six risers, five floors with two rooms at each riser,
/// lobby and restaurant.
SampleStudy Hotel();

std::vector<SampleStudy> AllSamples();

}  // namespace kalvo
