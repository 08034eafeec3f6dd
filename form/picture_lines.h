#pragma once

#include <string>

namespace kalvo {

/// One step of an explanation; texts are ready to be shown.
struct StepLine {
  std::string symbol;
  std::string what;
  std::string formula;
  std::string value;
  std::string unit;
  bool operator==(const StepLine&) const = default;
};

/// One part of a whole.
struct Share {
  std::string what;
  std::string value;
  double fraction = 0;  ///< of the whole, 0 to 1
  bool operator==(const Share&) const = default;
};

}  // namespace kalvo
