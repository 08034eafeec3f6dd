#include "study/fault.h"

#include <cmath>
#include <limits>

#include "study/result.h"

namespace kalvo {

namespace {

std::string Blanks(std::size_t width, std::size_t length) {
  if (length > width) {
    throw Fault(FaultCode::kBadArgument, "negative count of blanks");
  }
  return std::string(width - length, ' ');
}

}  // namespace

Fault::Fault(const FileError& error)
    : std::runtime_error(error.Line()),
      code_(FaultCode::kFile),
      file_error_(std::make_shared<const FileError>(error)) {}

double Divide(double a, double b) {
  if (b == 0.0) {
    throw a == 0.0 || std::isnan(a) ? Fault(FaultCode::kOverflow, "zero divided by zero")
                                    : Fault(FaultCode::kDivisionByZero, "division by zero");
  }
  const double quotient = a / b;
  if (!std::isfinite(quotient)) {
    throw Fault(FaultCode::kOverflow, "quotient out of range");
  }
  return quotient;
}

double Log10(double a) {
  if (!(a > 0.0)) {
    throw Fault(FaultCode::kBadArgument, "logarithm of a value not above zero");
  }
  static const double kLogOfTen = std::log(10.0);
  return std::log(a) / kLogOfTen;
}

float ToSingle(double value) {
  if (!(std::fabs(value) <= static_cast<double>(std::numeric_limits<float>::max()))) {
    throw Fault(FaultCode::kOverflow, "value outside 32 bits");
  }
  return static_cast<float>(value);
}

std::int16_t ToInt16(double value) {
  // nearbyint follows the default rounding mode: halves to even.
  const double whole = std::nearbyint(value);
  if (!(whole >= std::numeric_limits<std::int16_t>::min() &&
        whole <= std::numeric_limits<std::int16_t>::max())) {
    throw Fault(FaultCode::kOverflow, "value outside 16 bits");
  }
  return static_cast<std::int16_t>(whole);
}

std::string PadFront(std::string_view text, std::size_t width) {
  return Blanks(width, text.size()) + std::string(text);
}

std::string PadBehind(std::string_view text, std::size_t width) {
  return std::string(text) + Blanks(width, text.size());
}

}  // namespace kalvo
