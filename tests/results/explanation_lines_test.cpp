#include "results/explanation_lines.h"

#include <gtest/gtest.h>

namespace kalvo {
namespace {

constexpr Separators kGreek = {',', '.'};

SectionRow SizedRow(float flow_lh, float emitter) {
  SectionRow row;
  row.NomiDiam = FixedText<15>::FromUtf8("3/4");
  row.InDiameter = 21.7F;
  row.WaterFlow = flow_lh;
  row.Length = 10;
  row.Elbow90 = 2.5F;
  row.CheckValve = 1;
  row.SomaDrop = emitter;
  return row;
}

DropExplanation Explained(SystemKind kind, SectionRow row,
                          std::optional<double> stepped_rate = std::nullopt) {
  const FlowConditions water = {1.01e-6F, 1000.0F, 0.045F};
  FillHydraulics(row, water, MaterialClass::kSteelPipe, row.InDiameter);
  return ExplainDrop({kind, row, water, MaterialClass::kSteelPipe, stepped_rate});
}

TEST(ExplanationLines, AtLengthFollowTheSeparatorsOfTheCaller) {
  const DropExplanation from = Explained(SystemKind::kClosed, SizedRow(1000, 500));
  const LongExplanation greek = ExplainAtLength(from, kGreek);
  EXPECT_EQ(greek.steps.front().value, "1.000,0");
  EXPECT_EQ(ExplainAtLength(from, {'.', ','}).steps.front().value, "1,000.0");
  ASSERT_EQ(greek.fittings.size(), 2U);  // only those that the section has
  EXPECT_EQ(greek.fittings[0].what, "Καμπύλες 90°");
  EXPECT_EQ(greek.fittings[0].count, "2,5");
  EXPECT_EQ(greek.fittings[1].zeta, "4,00");
  EXPECT_EQ(greek.shares.back().what, "Σώμα");
  EXPECT_EQ(greek.shares.back().drop, "500,00");
  EXPECT_EQ(greek.remark, "");
}

TEST(ExplanationLines, NameTheOutletInAnOpenSystem) {
  const SectionRow row = SizedRow(1000, 10);
  const DropExplanation from = Explained(SystemKind::kOpen, row);
  EXPECT_EQ(ExplainAtLength(from, kGreek).shares.back().what, "Υποδοχέας");
  EXPECT_EQ(ShortSteps(from, row, kGreek).back().formula, "1,1 R L + Υποδοχέας 10,00");
  EXPECT_EQ(ShortShares(from, kGreek).back().what, "Υποδοχέας");
}

TEST(ExplanationLines, NameWhatFillsThePlantsPlaceAfterAStepDown) {
  const SectionRow row = SizedRow(1000, 0);
  const DropExplanation from = Explained(SystemKind::kClosed, row, 20.0);
  const LongExplanation lines = ExplainAtLength(from, kGreek);
  EXPECT_EQ(lines.shares[3].what, "Όρος μείωσης διαμέτρου");
  EXPECT_EQ(lines.shares[3].percent, "---");  // of a drop below 0
  EXPECT_NE(lines.remark, "");
  const std::vector<Share> shares = ShortShares(from, kGreek);
  EXPECT_EQ(shares[1].what, "Εξαρτήματα κ.ά.");
  EXPECT_EQ(shares[0].fraction, 0.0);
  EXPECT_NE(ShortSteps(from, row, kGreek)[6].formula.find(" - "), std::string::npos);
}

}  // namespace
}  // namespace kalvo
