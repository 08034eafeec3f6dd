#include "study/numeric_text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <limits>
#include <string>

namespace kalvo {
namespace {

constexpr Separators kGreek{',', '.'};
constexpr Separators kEnglish{'.', ','};

double Greek(std::string_view text) { return ParseNumber(text, kGreek); }
double English(std::string_view text) { return ParseNumber(text, kEnglish); }

TEST(ParseNumber, ReadsBothConventionsWithThousandsSeparatorsAnywhere) {
  EXPECT_EQ(English("1.5"), 1.5);
  EXPECT_EQ(English("1,234,567.25"), 1234567.25);
  for (const auto& [text, value] :
       {std::pair("1,5", 1.5), std::pair("1.234.567,25", 1234567.25), std::pair("  -12  ", -12.0),
        std::pair(",5", 0.5), std::pair("5,", 5.0), std::pair("1.5", 15.0),
        std::pair("..1.2,5.", 12.5)}) {
    EXPECT_EQ(Greek(text), value) << text;
  }
}

TEST(ParseNumber, GivesZeroForWhatIsNoNumber) {
  for (const char* text : {"", "   ", "abc", ",", ".", "1,2,3", "1,2,3a", ",,", "-", "1-2", "5-",
                           "--5", "+-5", "-,", "a12", "0x1F", "nan", "-inf"}) {
    EXPECT_EQ(Greek(text), 0.0) << text;
  }
}

TEST(ParseNumber, TakesTheLeadingNumberOfAMixWithAPoint) {
  EXPECT_EQ(English("1,234.5 m"), 1.0);
  for (const auto& [text, value] :
       {std::pair("12a", 12.0), std::pair("1,5a", 1.0), std::pair("1.5a", 1.5),
        std::pair("1.5.7a", 1.5), std::pair("-3 m", -3.0), std::pair("+5", 5.0),
        std::pair("1e5", 1.0), std::pair("12\xCE\xBC", 12.0)}) {
    EXPECT_EQ(Greek(text), value) << text;
  }
}

TEST(NumericText, CountsAndStripsSeparators) {
  EXPECT_EQ(CountDecimalSeparators("1,2,3", kGreek), 2);
  EXPECT_EQ(CountDecimalSeparators("1,2,3", kEnglish), 0);
  EXPECT_EQ(StripThousands("1.234,5", kGreek), "1234,5");
  EXPECT_EQ(StripThousands("1,234.5", kEnglish), "1234.5");
}

TEST(NumberText, HasAtMostSevenOrFifteenDigits) {
  EXPECT_EQ(NumberText(0.1F), "0.1");
  EXPECT_EQ(NumberText(1234.5678F), "1234.568");
  EXPECT_EQ(NumberText(0.1F + 0.2F), "0.3");
  EXPECT_EQ(NumberText(16777216.0F), "16777220");
  EXPECT_EQ(NumberText(0.1), "0.1");
  EXPECT_EQ(NumberText(0.1 + 0.2), "0.3");
  EXPECT_EQ(NumberText(1.0 / 3.0), "0.333333333333333");
  EXPECT_EQ(NumberText(2.0 / 3.0), "0.666666666666667");
  EXPECT_EQ(NumberText(-2.0F), "-2");
  EXPECT_EQ(NumberText(-32768), "-32768");
}

TEST(NumberText, HasNoExponentBelowTenToTheFifteenth) {
  EXPECT_EQ(NumberText(999999999999999.0), "999999999999999");
  EXPECT_EQ(NumberText(1e15), "1E+15");
  EXPECT_EQ(NumberText(1.25e20), "1.25E+20");
  EXPECT_EQ(NumberText(1e10F), "10000000000");
  EXPECT_EQ(NumberText(0.000000125), "0.000000125");
  EXPECT_EQ(NumberText(1e-10F), "0.0000000001");
}

TEST(NumberText, ShowsZeroForZeroAndForWhatIsNotFinite) {
  EXPECT_EQ(NumberText(-0.0), "0");
  EXPECT_EQ(NumberText(std::numeric_limits<float>::infinity()), "0");
  EXPECT_EQ(NumberText(std::numeric_limits<double>::quiet_NaN()), "0");
}

TEST(FormatNumber, PutsTheDecimalSeparatorInPlace) {
  EXPECT_EQ(FormatNumber(1.5F, kGreek), "1,5");
  EXPECT_EQ(FormatNumber(1.5, kEnglish), "1.5");
  EXPECT_EQ(FormatNumber(2.0F, kGreek), "2");
  EXPECT_EQ(FormatNumber(" 7.25 ", kGreek), "7,25");
  EXPECT_EQ(FormatNumber("7,25", kEnglish), "7.25");
  EXPECT_EQ(FormatNumber("7.", kGreek), "7");
  EXPECT_EQ(FormatNumber("", kGreek), "");
  EXPECT_EQ(FormatNumber(1.25e20, kGreek), "1,25E+20");
}

struct Shown {
  float value;
  std::string_view pattern;
  std::string_view text;
};

TEST(FormatPattern, RoundsTheDecimalTextAndShowsDigitsAsThePatternSays) {
  constexpr Shown kShown[] = {
      // halves go away from zero
      {0.35F, "#,##0.0", "0,4"},
      {-0.25F, "#,##0.0", "-0,3"},
      {1.005F, "#,##0.00", "1,01"},
      {2.5F, "#,##0", "3"},
      {9.96F, "#,##0.0", "10,0"},
      {0.05F, "#,##0.0", "0,1"},
      {-0.04F, "#,##0.0", "0,0"},
      {999.95F, "#,##0.0", "1.000,0"},
      {0.0005F, "#,##0.0##", "0,001"},
      // digits shown
      {1234567.0F, "#,##0.0", "1.234.567,0"},
      {-1234.0F, "#,##0", "-1.234"},
      {1.5F, "#,##0.0##", "1,5"},
      {1.25F, "#,##0.0##", "1,25"},
      {0.0F, "#,##0.00", "0,00"},
      {0.4F, "##,###", ""},
      {12.0F, "##,###", "12"},
      {123456.0F, "##,###", "123.456"},
      {1e10F, "#,##0", "10.000.000.000"},
  };
  for (const Shown& shown : kShown) {
    EXPECT_EQ(FormatPattern(shown.value, shown.pattern, kGreek), shown.text)
        << shown.value << " " << shown.pattern;
  }
  EXPECT_EQ(FormatPattern(1234.5, "#,##0.00", kEnglish), "1,234.50");
  EXPECT_EQ(FormatPattern(2.675, "#,##0.00", kEnglish), "2.68");
}

TEST(ThroughText, KeepsWhatTheTextKeeps) {
  EXPECT_EQ(ThroughText(0.1F), 0.1);
  EXPECT_EQ(ThroughText(1234.5678F), 1234.568);
  EXPECT_EQ(ThroughText(1.0 / 3.0), 0.333333333333333);
  EXPECT_EQ(ThroughText(1234.567), 1234.567);
  EXPECT_EQ(ThroughText(0.1 + 0.2), 0.3);
  EXPECT_EQ(ThroughText(1e300), 1e300);
  for (const double value : {0.1 + 0.7, 123456.7891, 1e14 + 0.5, 98765432109.877}) {
    EXPECT_EQ(ThroughText(value), English(NumberText(value))) << value;
  }
}

TEST(Separators, ACalculationWorksWithThePoint) {
  EXPECT_EQ(ForceDotDecimal(kGreek), kEnglish);
  EXPECT_EQ(ForceDotDecimal(kEnglish), kEnglish);
  EXPECT_EQ(ForceDotDecimal({';', ' '}), (Separators{';', ' '}));
}

TEST(Separators, PlainLocalesCountAsGreek) {
  for (const char* name : {"C", "POSIX", "C.UTF-8", "", "no_SUCH.locale"}) {
    setenv("LC_ALL", name, 1);
    setenv("LC_NUMERIC", "", 1);
    setenv("LANG", "", 1);
    EXPECT_EQ(DetectSeparators(), kGreek) << name;
  }
}

}  // namespace
}  // namespace kalvo
