#pragma once

#include <string>
#include <string_view>

#include "study/separators.h"

namespace kalvo {

/// Number in `text`. Two or more decimal separators, no numeric character or an empty text give 0;
/// a mix of numeric and other characters gives its leading number, read with "." as the point.
double ParseNumber(std::string_view text, Separators separators);

/// Count of decimal separators in `text`; a field with more than one is refused (message 110).
int CountDecimalSeparators(std::string_view text, Separators separators);

/// `text` without thousands separators.
std::string StripThousands(std::string_view text, Separators separators);

/// The default text of a number, "." inside: the shortest of at most 7 significant digits for a
/// 32-bit value, 15 for a double; never an exponent below 10^15.
std::string NumberText(float value);
std::string NumberText(double value);
std::string NumberText(int value);

/// The number's default text with the decimal separator.
std::string FormatNumber(std::string_view number_text, Separators separators);
std::string FormatNumber(float value, Separators separators);
std::string FormatNumber(double value, Separators separators);

/// The patterns in which the program shows numbers.
namespace pattern {
inline constexpr std::string_view kWhole = "#,##0";
inline constexpr std::string_view kOneDecimal = "#,##0.0";
inline constexpr std::string_view kTwoDecimals = "#,##0.00";
inline constexpr std::string_view kOneToThreeDecimals = "#,##0.0##";
/// `count` decimals, all shown.
std::string Decimals(int count);
}  // namespace pattern

/// `value` by a pattern of "#", "0", "," and ".": "," groups thousands, "0" is a digit always
/// shown, "#" one shown when it counts.
/// Rounds half away from zero on the default decimal text.
std::string FormatPattern(float value, std::string_view pattern, Separators separators);
std::string FormatPattern(double value, std::string_view pattern, Separators separators);

/// `value` with so many decimals, thousands grouped: one below the other the digits stand in line.
/// A 32-bit value is rounded on its own decimal text.
std::string WithDecimals(float value, int decimals, Separators separators);
std::string WithDecimals(double value, int decimals, Separators separators);

/// The same for a value that stands alone; one that would lose its digits keeps them all.
std::string WithEnoughDecimals(float value, int decimals, Separators separators);

/// The double that a value reads back as after passing through a text table: a 32-bit value with
/// at most 7 significant digits, a double with at most 15.
double ThroughText(float value);
double ThroughText(double value);

}  // namespace kalvo
