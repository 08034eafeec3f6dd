#include "engine/hydraulics.h"

#include <gtest/gtest.h>

#include <array>
#include <tuple>
#include <vector>

#include "tests/support/faults.h"

namespace kalvo {
namespace {

// A steel pipe of 3/4 (21.7 mm) with 1000 l/h: 0.751 m/s before rounding.
constexpr FlowConditions kColdWater = {1.01e-6F, 1000.0F, 0.045F};

SectionRow Row(float flow_lh, float diameter_mm) {
  SectionRow row;
  row.WaterFlow = flow_lh;
  row.InDiameter = diameter_mm;
  row.Length = 10;
  return row;
}

void Fill(SectionRow& row, const FlowConditions& conditions = kColdWater) {
  FillHydraulics(row, conditions, MaterialClass::kSteelPipe, 21.7);
}

TEST(Friction, IsTheRootOfColebrooksEquation) {
  // Roots of 1/√λ = -2 log10(k/D/3.71 + 2.51/(Re √λ)), found with 40 digits. They agree with the
  // Moody chart: 0.0180 smooth and 0.0222 at k/D 0.001, both at Re 100,000.
  constexpr std::tuple<double, double, double> kRoots[] = {
      {1e-6, 1e5, 0.017995179}, {0.001, 1e5, 0.022165460},  {5e-5, 1e7, 0.010855305},
      {1e-4, 5e4, 0.021246939}, {0.002, 8192, 0.035244878}, {0.05, 4000, 0.076903991},
      {0.02, 1e6, 0.048626503}};
  for (const auto& [wall, reynolds, lamda] : kRoots) {
    EXPECT_NEAR(FrictionFactor(wall * 25.0, 25.0, reynolds), lamda, 1e-5 * lamda)
        << "k/D " << wall << ", Re " << reynolds;
  }
}

TEST(Friction, ThatCannotBeFoundIsAFault) {
  EXPECT_EQ(FaultOf([] { FrictionFactor(0.045, 20, 0); }), 6);  // 0/0 in the first step
  EXPECT_EQ(FaultOf([] { FrictionFactor(0, 20, 1e5); }), 5);    // logarithm of 0
  EXPECT_EQ(FaultOf([] { FrictionFactor(1e-9, 1, 1); }), 5);    // never settles
}

TEST(Water, ViscosityGoesStraightFromOneTenToTheNext) {
  EXPECT_EQ(WaterViscosity(20), 1.01e-6F);
  EXPECT_EQ(WaterViscosity(30), 8.1e-7F);
  EXPECT_EQ(WaterViscosity(100), 2.9e-7F);
  EXPECT_FLOAT_EQ(WaterViscosity(35), 7.35e-7F);
  EXPECT_FLOAT_EQ(WaterViscosity(25.5F), 9.0e-7F);  // 1.01 - 0.55 * 0.20
}

TEST(Water, PointsOutsideTheTableCountAsZero) {
  EXPECT_FLOAT_EQ(WaterViscosity(105), 1.45e-7F);  // halfway from 0.29 to nothing
  EXPECT_EQ(WaterViscosity(110), 0.0F);
  EXPECT_FLOAT_EQ(WaterViscosity(-5), 2.03e-6F);       // whole: 1.79 carried on from 0 downwards
  EXPECT_FLOAT_EQ(WaterViscosity(-2.5F), 1.3425e-6F);  // not whole: from nothing at -10
}

TEST(Row, ReynoldsTakesTheRoundedVelocityAndIsCutOff) {
  SectionRow row = Row(1000, 21.7F);
  Fill(row);
  EXPECT_EQ(row.Velocity, 0.75F);
  EXPECT_EQ(row.Reynolds, 16113.0F);  // 16113.86; with 0.7511 m/s 16137
}

TEST(Row, RatesAndDropsAreRounded) {
  EXPECT_EQ(FrictionRateOf(0.02, 1000, 1.0, 20), 50.968F);  // 50.9684
  EXPECT_EQ(VelocityOf(999, 21.7), 0.75F);                  // 0.7503
  EXPECT_EQ(TotalDropOf(0.333, {1, 0, 0, 0}, 0), 0.37F);    // 0.3663
}

TEST(Row, TheMarginIsOnTheSectionsOwnLossOnly) {
  EXPECT_EQ(TotalDropOf(10, {4, 3, 2, 1}, 250), 360.0F);
}

TEST(Row, WithoutFittingsHasItsOwnLengthOnly) {
  SectionRow row = Row(1000, 21.7F);
  Fill(row);
  const EquivalentLengths lengths = LengthsOf(row, MaterialClass::kSteelPipe, 21.7, 1.0);
  EXPECT_EQ(lengths.pipe_and_fittings, 10.0);
  EXPECT_EQ(lengths.Sum(), 10.0);
}

TEST(Row, OtherLossesEnterByTheRateAndAsLength) {
  SectionRow row = Row(1000, 21.7F);
  Fill(row);
  row.OtherDrop_mm = 150;
  row.OtherDrop_m = 2.5F;
  const EquivalentLengths lengths = LengthsOf(row, MaterialClass::kSteelPipe, 21.7, 40.0);
  EXPECT_EQ(lengths.other_drop, 3.75);
  EXPECT_EQ(lengths.other_length, 2.5);
}

TEST(Row, AsPlantIsLongerByItsMarker) {
  SectionRow row = Row(1000, 21.7F);
  Fill(row);
  row.Auxi = 2;
  const double length = 5 * static_cast<double>(row.InDiameter) / (1000.0 * row.Lamda);
  EXPECT_DOUBLE_EQ(LengthsOf(row, MaterialClass::kSteelPipe, 21.7, 1.0).plant, length);
}

TEST(Row, OverruledDiameterCountsWithoutItsSignAndKeepsIt) {
  SectionRow plain = Row(1000, 21.7F);
  SectionRow overruled = Row(1000, -21.7F);
  plain.AnglePOP = overruled.AnglePOP = 3;
  Fill(plain);
  Fill(overruled);
  EXPECT_EQ(overruled.InDiameter, -21.7F);
  EXPECT_EQ(overruled.Reynolds, plain.Reynolds);
  EXPECT_EQ(overruled.TotalDrop, plain.TotalDrop);
}

TEST(Row, WithoutFlowOrFluidIsAFault) {
  SectionRow dry = Row(0, 21.7F);
  EXPECT_EQ(FaultOf([&] { Fill(dry); }), 6);
  SectionRow row = Row(1000, 21.7F);
  EXPECT_EQ(FaultOf([&] { Fill(row, {0, 1000, 0.045F}); }), 11);
  EXPECT_EQ(FaultOf([&] { Fill(row, {1.01e-6F, 1000, 0}); }), 5);
  EXPECT_EQ(FaultOf([&] { Fill(row, {1.01e-6F, 0, 0.045F}); }), 6);  // 0 mm / rate 0
}

struct Expected {
  double diameter;
  std::array<double, 5> zeta;  // elbow, bend, valve, straight and angle regulating valve
};

void ExpectBands(MaterialClass material, const std::vector<Expected>& bands) {
  for (const auto& [diameter, zeta] : bands) {
    const FittingCoefficients& actual = CoefficientsFor(material, diameter);
    EXPECT_EQ((std::array{actual.AnglePOP, actual.Elbow90, actual.GateValve, actual.StrSwitch,
                          actual.AngSwitch}),
              zeta)
        << diameter << " mm";
  }
}

TEST(Fittings, OfSteelBeginTheirBandAtTheLimit) {
  ExpectBands(MaterialClass::kSteelPipe, {{18.99, {2, 1.5, 1, 12, 9}},
                                          {19, {1.5, 1, 0.5, 9, 7}},
                                          {30, {1, 0.5, 0.5, 7, 5}},
                                          {43, {1, 0.5, 0.5, 3, 1}},
                                          {99.99, {1, 0.5, 0.5, 3, 1}},
                                          {100, {0.5, 0.5, 0.5, 1, 0.5}}});
}

TEST(Fittings, OfEveryOtherMaterialBeginTheirBandAtTheLimit) {
  ExpectBands(MaterialClass::kOtherPipe, {{14.99, {2, 1.5, 1, 12, 9}},
                                          {15, {1.5, 1, 0.5, 9, 7}},
                                          {22, {1, 0.5, 0.5, 7, 5}},
                                          {35, {1, 0.5, 0.5, 7, 5}},
                                          {53.99, {1, 0.5, 0.5, 7, 5}},
                                          {54, {0.5, 0.5, 0.5, 1, 0.5}}});
  EXPECT_EQ(ClassOf(" STEEL  "), MaterialClass::kSteelPipe);
  EXPECT_EQ(ClassOf("Steel"), MaterialClass::kOtherPipe);
  EXPECT_EQ(ClassOf("COPPER"), MaterialClass::kOtherPipe);
}

TEST(Fittings, AreCountedEachWithItsOwnCoefficient) {
  SectionRow row;
  const double of_none = SumOfZeta(row, MaterialClass::kSteelPipe, 25);
  row.AnglePOP = 1.5F;  // 1.5 * 1.5
  row.Elbow90 = 2;      // 2 * 1
  row.GateValve = 3;    // 3 * 0.5
  row.StrSwitch = 1;    // 9
  row.AngSwitch = 1;    // 7
  row.DiaTee = 1;       // 1.5
  row.DieTee = 2;       // 2
  row.AntiTee = 1;      // 3
  row.SymboTee = 2;     // 2.7
  row.CheckValve = 1;   // 4
  row.Auxi = 1;         // kept apart
  EXPECT_EQ(of_none, 0.0);
  EXPECT_DOUBLE_EQ(SumOfZeta(row, MaterialClass::kSteelPipe, 25), 34.95);
}

}  // namespace
}  // namespace kalvo
