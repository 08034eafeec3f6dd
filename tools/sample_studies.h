#pragma once

#include <string>
#include <vector>

#include "engine/winter.h"
#include "study/study_extensions.h"

namespace kalvo {

/// A study that is delivered with the program.
struct SampleStudy {
  std::string name;  ///< of its files, without extension
  std::vector<SectionRow> rows;

  [[nodiscard]] SystemKind kind() const { return KindOf(rows.front()); }
  /// Of its main file.
  [[nodiscard]] std::string file_name() const {
    return name + std::string(ExtensionsOf(kind()).main);
  }
};

/// One circuit from the boiler to an air heater and back.
SampleStudy SingleCircuit();

/// The chilled water of an office floor: two corridors of ten fan coils each.
SampleStudy FanCoilFloor();

/// The heating of a hotel: three wings of six risers, five floors with two rooms at each riser,
/// lobby and restaurant.
SampleStudy Hotel();

std::vector<SampleStudy> AllSamples();

/// Winter values of a fan coil: three fifths of the flow, at two fifths of the drop.
WinterLine InWinter(const WinterLine& summer);
constexpr float kWinterTemperature = 45;  ///< °C

}  // namespace kalvo
