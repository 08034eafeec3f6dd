#pragma once

#include "tools/sample_studies.h"

namespace kalvo {

/// The water supply of a house of two floors: a kitchen and two baths.
SampleStudy House();

/// The water supply of a building of five floors: two apartments and a studio on each.
SampleStudy ApartmentBuilding();

}  // namespace kalvo
