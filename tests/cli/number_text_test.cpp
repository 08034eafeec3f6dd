// How figures are written for reading.

#include "engine/notes.h"
#include "study/numeric_text.h"

#include <gtest/gtest.h>

namespace kalvo {
namespace {

constexpr Separators kGreek = {',', '.'};

TEST(NumberText, StandsInLineOrKeepsItsDigits) {
  EXPECT_EQ(WithDecimals(-148188.2F, 2, kGreek), "-148.188,20");
  EXPECT_EQ(WithDecimals(0.001F, 2, kGreek), "0,00");
  EXPECT_EQ(WithDecimals(26066.0F, 0, kGreek), "26.066");
  EXPECT_EQ(WithEnoughDecimals(0.001F, 2, kGreek), "0,001");
  EXPECT_EQ(WithEnoughDecimals(-0.0123F, 2, kGreek), "-0,0123");
  EXPECT_EQ(WithEnoughDecimals(0.8F, 2, kGreek), "0,80");
  EXPECT_EQ(WithEnoughDecimals(47.391F, 2, kGreek), "47,39");
  EXPECT_EQ(WithEnoughDecimals(0.0F, 3, kGreek), "0,000");
}

TEST(NumberText, RunsOfNumbersAreDrawnTogether) {
  EXPECT_EQ(NumberRanges({27, 28, 29, 30, 33}), "27-30, 33");
  EXPECT_EQ(NumberRanges({1, 2, 4, 5, 6}), "1, 2, 4-6");
  EXPECT_EQ(NumberRanges({}), "");
}

}  // namespace
}  // namespace kalvo
