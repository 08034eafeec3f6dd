#include "study/fault.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "study/rounding.h"
#include "study/tables.h"
#include "tests/support/faults.h"

namespace kalvo {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kLargestSingle = std::numeric_limits<float>::max();

TEST(Faults, DivisionByZeroIsTwoFaults) {
  EXPECT_EQ(Divide(1.0, 4.0), 0.25);
  EXPECT_EQ(FaultOf([] { return Divide(0.0, 0.0); }), 6);
  EXPECT_EQ(FaultOf([] { return Divide(-1.0, 0.0); }), 11);
  EXPECT_EQ(FaultOf([] { return Divide(1e300, 1e-300); }), 6);
  EXPECT_EQ(FaultOf([] { return Divide(0.0, 5.0); }), 0);
}

TEST(Faults, LogarithmNeedsAValueAboveZero) {
  EXPECT_DOUBLE_EQ(Log10(1000.0), 3.0);
  EXPECT_EQ(FaultOf([] { return Log10(0.0); }), 5);
  EXPECT_EQ(FaultOf([] { return Log10(-0.1); }), 5);
  EXPECT_EQ(FaultOf([] { return Log10(std::nan("")); }), 5);
}

TEST(Faults, SinglesOverflowBeyondTheirRange) {
  EXPECT_EQ(ToSingle(0.1), 0.1F);
  EXPECT_EQ(ToSingle(-kLargestSingle), -std::numeric_limits<float>::max());
  EXPECT_EQ(FaultOf([] { return ToSingle(kLargestSingle * 2); }), 6);
  EXPECT_EQ(FaultOf([] { return ToSingle(kInfinity); }), 6);
  EXPECT_EQ(FaultOf([] { return ToSingle(std::nan("")); }), 6);
}

TEST(Faults, WholeNumbersRoundHalvesToEvenAndOverflow) {
  EXPECT_EQ(ToInt16(0.5), 0);
  EXPECT_EQ(ToInt16(1.5), 2);
  EXPECT_EQ(ToInt16(2.5), 2);
  EXPECT_EQ(ToInt16(-2.5), -2);
  EXPECT_EQ(ToInt16(32767.4), 32767);
  EXPECT_EQ(ToInt16(-32768.5), -32768);
  EXPECT_EQ(FaultOf([] { return ToInt16(32767.5); }), 6);
  EXPECT_EQ(FaultOf([] { return ToInt16(-32769.0); }), 6);
  EXPECT_EQ(FaultOf([] { return ToInt16(std::nan("")); }), 6);
}

TEST(Faults, TablesCountNoMoreRowsThanSixteenBits) {
  Study study;
  const std::vector<SectionRow> rows(32768);
  EXPECT_EQ(FaultOf([&] { RefreshSectionTable(study, rows); }), 6);
  EXPECT_EQ(FaultOf([&] { RefreshEmitterTable(study, rows); }), 6);
  EXPECT_TRUE(study.SectionTable.empty() && study.EmitterTable.empty());
}

TEST(Faults, PaddingATextThatIsTooLongIsABadArgument) {
  EXPECT_EQ(PadFront("1", 3), "  1");
  EXPECT_EQ(PadBehind("1", 3), "1  ");
  EXPECT_EQ(PadFront("123", 3), "123");
  EXPECT_EQ(FaultOf([] { return PadFront("1234", 3); }), 5);
  EXPECT_EQ(FaultOf([] { return PadBehind("1234", 3); }), 5);
}

TEST(Rounding, HalvesGoUpAndWholeNumbersGoDown) {
  EXPECT_EQ(RoundTo(0.125, 2), 0.13);
  EXPECT_EQ(RoundTo(-0.125, 2), -0.12);
  EXPECT_EQ(RoundTo(2.5, 0), 3.0);
  EXPECT_EQ(Int(-0.5), -1.0);
}

}  // namespace
}  // namespace kalvo
