#include "form/pasted_numbers.h"

#include <gtest/gtest.h>

#include "form/form.h"
#include "tests/support/test_desk.h"

namespace kalvo {
namespace {

constexpr Separators kGreek{',', '.'};

TEST(PastedNumbers, AreReadByTheirSigns) {
  const std::pair<const char*, double> numbers[] = {
      {"12", 12},          {"1.5", 1.5},           {"1,5", 1.5}, {"1.234,5", 1234.5},
      {"1,234.5", 1234.5}, {"1.234.567", 1234567}, {" 7 ", 7}};
  for (const auto& [text, value] : numbers) {
    EXPECT_EQ(PastedNumber(text, false, kGreek), value) << text;
  }
  EXPECT_EQ(PastedNumber("1.500", false, kGreek), 1.5);
  EXPECT_EQ(PastedNumber("1.500", true, kGreek), 1500);
  for (const char* text : {"", "abc", "-3", "1e5", "12 kg", "1.2,3.4", "9999999999999999"}) {
    EXPECT_FALSE(PastedNumber(text, false, kGreek)) << text;
  }
}

TEST(PastedNumbers, AreDoubtfulWhereNothingTellsThousandsFromDecimals) {
  EXPECT_TRUE(IsDoubtful({"1.500", "20"}, kGreek));
  for (const std::vector<std::string>& plain : std::vector<std::vector<std::string>>{
           {}, {"20"}, {"1.500", "1,5"}, {"1.50"}, {"1.500", "1.500.000"}, {"1,500"}}) {
    EXPECT_FALSE(IsDoubtful(plain, kGreek));
  }
}

TEST(PastedNumbers, ComeInLinesOfCells) {
  const auto lines = PastedLines("1\t2\r\n\t\r\n\n 3 \t\t4");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].cells, (std::vector<std::string>{"1", "2"}));
  EXPECT_EQ(lines[1].number, 4);
  EXPECT_EQ(lines[1].cells, (std::vector<std::string>{"3", "", "4"}));
  EXPECT_TRUE(PastedLines("").empty());
}

TEST(FieldOfCounts, TakesDigitsOnly) {
  TestDesk test;
  Form form(test.desk);
  Field field(form, "Text1", KeyFamily::kUnsignedWhole);
  TypeInto(form, field, "-1.2,3 α");
  EXPECT_EQ(field.text, "123");
  EXPECT_FALSE(PasteInto(form, field, "4.5"));
}

}  // namespace
}  // namespace kalvo
