// Any text read as a number, and any number written as text. First byte: the separators.

#include <cmath>
#include <cstring>

#include "fuzz/fuzz_bench.h"
#include "study/numeric_text.h"

namespace {

using namespace kalvo;

constexpr Separators kSeparators[] = {{',', '.'}, {'.', ','}, {'.', '\''}, {',', ' '}};
constexpr const char* kPatterns[] = {"#,##0.0", "#,##0.0##", "#,##0.00", "##,###", "#,##0"};

// Decimals that a pattern keeps at most.
int DecimalsOf(std::string_view pattern) {
  const std::size_t point = pattern.find('.');
  return point == std::string_view::npos ? 0 : static_cast<int>(pattern.size() - point - 1);
}

template <typename Number>
void TryPatterns(Number value, Separators separators) {
  const double slack = sizeof value == sizeof(float) ? 1e-6 : 1e-14;
  const auto exact = static_cast<double>(value);
  for (const std::string_view pattern : kPatterns) {
    const std::string text = FormatPattern(value, pattern, separators);
    Require(text.size() < 450, "no text longer than a number's digits");
    for (const char c : text) {
      Require((c >= '0' && c <= '9') || c == '-' || c == separators.decimal ||
                  c == separators.thousands,
              "digits, sign and separators only");
    }
    const double shown = ParseNumber(text, separators);
    const double unit = std::pow(10.0, -DecimalsOf(pattern));
    // At the very end of the range the rounded digits lie past it.
    Require(!(std::fabs(exact) < 1e308) ||
                std::fabs(shown - exact) <= unit * 0.51 + std::fabs(exact) * slack,
            "rounded to the pattern's decimals");
  }
}

template <typename Number>
void TryNumber(Number value, Separators separators) {
  const double through = ThroughText(value);
  Require(std::isfinite(through), "a number passes through text as a number");
  Require(ThroughText(through) == through, "once through the text, always the same");
  const std::string text = NumberText(value);
  Require(text.size() < 400 && text.find(',') == std::string::npos, "a point inside");
  if (std::isfinite(value) && std::fabs(value) < Number(1e14)) {
    Require(ParseNumber(FormatNumber(value, separators), separators) == through,
            "what is shown reads back");
  }
  TryPatterns(value, separators);
}

void TryText(std::string_view text, Separators separators) {
  const double value = ParseNumber(text, separators);
  Require(std::isfinite(value), "any text is a number");
  Require(ParseNumber(" " + std::string(text) + " ", separators) == value, "blanks do not count");
  Require(CountDecimalSeparators(text, separators) < 2 || value == 0.0, "two separators are 0");
  const std::string plain = StripThousands(text, separators);
  Require(plain.find(separators.thousands) == std::string::npos, "no thousands separator left");
  Require(FormatNumber(text, separators).size() <= text.size(), "formatting adds nothing");
  TryNumber(value, separators);
}

template <typename Number>
void TryBits(std::string_view bytes, Separators separators) {
  Number value = 0;
  if (bytes.size() >= sizeof value) {
    std::memcpy(&value, bytes.data(), sizeof value);
    TryNumber(value, separators);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view bytes = AsText(data, size);
  const Separators separators = kSeparators[TakeByte(bytes) % std::size(kSeparators)];
  TryText(bytes, separators);
  TryText(bytes, ForceDotDecimal(separators));
  TryBits<float>(bytes, separators);
  TryBits<double>(bytes, separators);
  return 0;
}
