#include "platform/xls/number_format.h"

#include <gtest/gtest.h>

#include <limits>

namespace kalvo {
namespace {

std::string Shown(double value, std::string_view format) {
  return NumberByFormat(value, format, Separators{',', '.'});
}

TEST(NumberFormat, ShowsDigitsByTheirPattern) {
  EXPECT_EQ(Shown(12.5, "0"), "13");
  EXPECT_EQ(Shown(2.345, "0.00"), "2,35");
  EXPECT_EQ(Shown(0.5, "#.##"), ",5");
  EXPECT_EQ(Shown(7, "000"), "007");
  EXPECT_EQ(Shown(1234567.89, "#,##0.0"), "1.234.567,9");
  EXPECT_EQ(Shown(-1234.5, "#,##0.000"), "-1.234,500");
  EXPECT_EQ(Shown(0.125, "0.0%"), "12,5%");
  EXPECT_EQ(Shown(1234567, "#,##0,"), "1.235");
  EXPECT_EQ(Shown(1.5, "?0.0?"), "1,5");
  EXPECT_EQ(NumberByFormat(1234.5, "#,##0.00", Separators{'.', ','}), "1,234.50");
}

TEST(NumberFormat, ShowsTextsAroundTheDigits) {
  EXPECT_EQ(Shown(2.5, "0.0\" m³/h\""), "2,5 m³/h");
  EXPECT_EQ(Shown(2.5, "\"Σ; = \"0.0\\ \\μ"), "Σ; = 2,5 μ");
  EXPECT_EQ(Shown(-2.5, "[Red][$€-408] 0.0_)"), "- 2,5 ");
  EXPECT_EQ(Shown(3, "* 0"), "3");
  EXPECT_EQ(Shown(3, "\"κλειστό\""), "κλειστό");
}

TEST(NumberFormat, HasSectionsForSigns) {
  EXPECT_EQ(Shown(-5, "0;(0)"), "(5)");
  EXPECT_EQ(Shown(5, "0;(0)"), "5");
  EXPECT_EQ(Shown(0, "+0;-0;\"-\""), "-");
  EXPECT_EQ(Shown(-0.4, "+0;-0;\"-\""), "-0");
  EXPECT_EQ(Shown(0, "0.0;(0.0)"), "0,0");
  EXPECT_EQ(Shown(-1, "0;;"), "");
  EXPECT_EQ(Shown(-0.001, "0.00"), "0,00") << "zero has no sign";
  EXPECT_EQ(TextByFormat("ANT", "0;-0;0;\"<\"@\">\""), "<ANT>");
  EXPECT_EQ(TextByFormat("ANT", "@"), "ANT");
  EXPECT_EQ(TextByFormat("ANT", "0.00"), "ANT");
  EXPECT_EQ(TextByFormat("ANT", "0;0;0;"), "");
}

TEST(NumberFormat, ShowsAnyOtherNumberAsGeneral) {
  EXPECT_EQ(Shown(0, "General"), "0");
  EXPECT_EQ(Shown(0.1 + 0.2, "General"), "0,3");
  EXPECT_EQ(Shown(-12.5, "GENERAL"), "-12,5");
  EXPECT_EQ(Shown(1.0 / 3, ""), "0,333333333");
  EXPECT_EQ(Shown(1234.56789012, "General"), "1234,56789");
  EXPECT_EQ(Shown(123456789012.0, "General"), "1,23457E+11");
  EXPECT_EQ(Shown(0.0000123456, "General"), "1,23456E-05");
  EXPECT_EQ(Shown(2.5, "@"), "2,5");
  EXPECT_EQ(Shown(2.5, "0.00E+00"), "2,5");
  EXPECT_EQ(Shown(2.5, "General\" l\""), "2,5 l");
}

TEST(NumberFormat, EndsWithAnyFormat) {
  for (const std::string_view format : {"\"", "[", "\\", "_", "*", ";", ";;;;;;", "0.", ".", ",",
                                        "%%%", "\\\xCE", "0,,,,", "#\"", "?"}) {
    for (const double value : {-1e300, -1.0, 0.0, 1e-300, 5.0, 1e300}) {
      Shown(value, format);
      TextByFormat("α", format);
    }
  }
  EXPECT_EQ(Shown(std::numeric_limits<double>::quiet_NaN(), "0"), "");
}

}  // namespace
}  // namespace kalvo
