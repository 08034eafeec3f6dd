#pragma once

#include <string>

#include "form/desk.h"

namespace kalvo {

/// What stands above every view of results: the study and the duty of its pump. Texts are ready to
/// be shown.
struct PumpFrame {
  std::string title;
  std::string flow;         ///< m³/h
  std::string head;         ///< m w.g.
  std::string pipes;        ///< title of the pipe system
  std::string temperature;  ///< °C
  std::string velocity;     ///< m/s, empty in a winter session
  std::string liquid;
};

/// Read from row 1 and the pipe system of its number. Error: one of them cannot be read.
Result<PumpFrame> ReadPumpFrame(const Desk& desk);

}  // namespace kalvo
