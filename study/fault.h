#pragma once

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kalvo {

struct FileError;

/// Numbers of the run-time faults a pass can be broken off by.
enum class FaultCode : int {
  kResumable = 1,
  kBadArgument = 5,
  kOverflow = 6,
  kBadIndex = 9,
  kDivisionByZero = 11,
  kFile = 57,
  kBadRecordNumber = 63,
};

/// Arithmetic or a file access that cannot go on. Thrown by the checked helpers below and caught
/// by the trap around a pass alone.
class Fault : public std::runtime_error {
 public:
  Fault(FaultCode code, const std::string& what) : std::runtime_error(what), code_(code) {}
  /// kFile: the world said no.
  explicit Fault(const FileError& error);

  [[nodiscard]] FaultCode code() const { return code_; }
  [[nodiscard]] int number() const { return static_cast<int>(code_); }
  /// The file and why it said no; nullptr for any other fault.
  [[nodiscard]] const FileError* file_error() const { return file_error_.get(); }
  /// The row that the pass worked on, 0 = not known.
  [[nodiscard]] int row() const { return row_; }
  void SetRow(int row) { row_ = row; }

 private:
  FaultCode code_;
  int row_ = 0;
  std::shared_ptr<const FileError> file_error_;  // shared: a copy of an exception must not throw
};

/// a / b. Faults: 11 for a non-zero value divided by zero, 6 for 0/0 and for any result that is not
/// a finite number.
double Divide(double a, double b);

/// Base 10 logarithm as Log(a) / Log(10). Faults: 5 unless a > 0.
double Log10(double a);

/// `value` as a 32-bit float. Faults: 6 when it is not finite in 32 bits.
float ToSingle(double value);

/// `value` as a signed 16-bit whole number, halves rounded to even. Faults: 6 outside the range.
std::int16_t ToInt16(double value);

/// `text` padded with blanks in front to `width` characters.
/// Faults: 5 when the text is longer than that (a negative count of blanks).
std::string PadFront(std::string_view text, std::size_t width);

/// `text` padded with blanks behind to `width` characters. Faults: 5 as PadFront().
std::string PadBehind(std::string_view text, std::size_t width);

}  // namespace kalvo
