#include "engine/flow_report.h"

#include <gtest/gtest.h>

#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

constexpr const char* kRule =
    "=========================================================================\n";

// Summed flows by row after a report, as text; "-" where there is none.
std::vector<std::string> Flows(const TestBench& bench) {
  std::vector<std::string> flows;
  for (const SectionLine& line : bench.study.SectionTable) {
    flows.push_back(line.flow_lh ? NumberText(*line.flow_lh) : "-");
  }
  return flows;
}

using Texts = std::vector<std::string>;

std::string Heading(const std::string& number, const std::string& name, const std::string& flow) {
  return "Το Σώμα < " + number + " >, με κόμβους : " + name + " και παροχή : " + flow +
         " [Lit/h],\nεπηρεάζει τα εξής τμήματα του Σωληνοδικτύου :\n";
}

TEST(FlowReport, TellsWhatEveryEmitterAddsOnItsWay) {
  TestBench bench;
  bench.PutNetwork(
      {"ANT/1", "1/2 soma 300l/h 5mm", "1/3 soma 200.5l/h 5mm", "2/4", "3/4", "4/ANT"});
  EXPECT_TRUE(WriteSectionFlows(bench.bench));
  EXPECT_EQ(Flows(bench), (Texts{"500.5", "300", "200.5", "300", "200.5", "500.5"}));
  const std::string expected =
      kRule + Heading("2", "  1/2  ", "300") +
      "- 1 -> κόμβοι: ANT/1  , μεταβάλλοντας την παροχή του σε : 300 [Lit/h]\n"
      "- 4 -> κόμβοι:   2/4  , μεταβάλλοντας την παροχή του σε : 300 [Lit/h]\n"
      "- 6 -> κόμβοι:   4/ANT, μεταβάλλοντας την παροχή του σε : 300 [Lit/h]\n" +
      kRule + Heading("3", "  1/3  ", "200.5") +
      "- 1 -> κόμβοι: ANT/1  , μεταβάλλοντας την παροχή του σε : 500.5 [Lit/h]\n"
      "- 5 -> κόμβοι:   3/4  , μεταβάλλοντας την παροχή του σε : 200.5 [Lit/h]\n"
      "- 6 -> κόμβοι:   4/ANT, μεταβάλλοντας την παροχή του σε : 500.5 [Lit/h]\n" +
      kRule;
  EXPECT_EQ(bench.Bytes(work_file::kFlowReport), expected);
}

TEST(FlowReport, AnEmittersOwnSectionForgetsWhatWasSummedBefore) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 soma 100l/h 5mm", "1/2 soma 300l/h 5mm", "2/ANT soma 40l/h 5mm"});
  WriteSectionFlows(bench.bench);
  // Row 1: 100 assigned, then 300 and 40 added. Row 3: 100 and 300 added, then 40 assigned.
  EXPECT_EQ(Flows(bench), (Texts{"440", "340", "40"}));
}

TEST(FlowReport, FromAnEmitterAtTheSourceOnlyTheWayBackIsPrinted) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 soma 100l/h 5mm", "1/ANT"});
  WriteSectionFlows(bench.bench);
  EXPECT_EQ(bench.Bytes(work_file::kFlowReport),
            kRule + Heading("1", "ANT/1  ", "100") +
                "- 2 -> κόμβοι:   1/ANT, μεταβάλλοντας την παροχή του σε : 100 [Lit/h]\n" + kRule);
}

TEST(FlowReport, SumsPassThroughFifteenDigitsAndFlowsThroughSeven) {
  TestBench bench;
  bench.PutNetwork({"ANT/1", "1/2 soma 0.1l/h 5mm", "1/3 soma 0.2l/h 5mm",
                    "1/4 soma 123456.789l/h 5mm", "2/5", "3/5", "4/6", "5/6", "6/ANT"});
  WriteSectionFlows(bench.bench);
  EXPECT_EQ(bench.study.SectionTable[7].flow_lh, 0.3);  // and not 0.1 + 0.2
  EXPECT_EQ(bench.study.SectionTable[3].flow_lh, 123456.8);
}

TEST(FlowReport, NeedsOneSectionThatEndsAtTheSource) {
  for (const char* last : {"2/3", "3/ANT"}) {
    TestBench bench;
    bench.PutNetwork(
        {"ANT/1", "1/2 soma 300l/h 5mm", last == std::string("2/3") ? "3/4" : "2/ANT", last});
    ASSERT_TRUE(bench.workspace.Write(work_file::kFlowReport, "old").ok());
    EXPECT_FALSE(WriteSectionFlows(bench.bench)) << last;
    EXPECT_EQ(bench.Bytes(work_file::kFlowReport), "(missing)") << last;
    ASSERT_TRUE(bench.study.lost_walk) << last;
    EXPECT_EQ(bench.study.lost_walk->emitter_section, 0) << last;
  }
}

// Place of a report that gets lost.
LostWalk LostAt(TestBench& bench) {
  EXPECT_FALSE(WriteSectionFlows(bench.bench));
  return bench.study.lost_walk.value_or(LostWalk{-1, "not lost"});
}

TEST(FlowReport, NamesTheNodeAtWhichAWalkIsLost) {
  TestBench bench;
  bench.PutNetwork({"ANT/1", "1/2 soma 300l/h 5mm", "7/3 soma 200l/h 5mm", "2/3", "3/ANT"});
  const LostWalk lost = LostAt(bench);
  EXPECT_EQ(lost.emitter_section, 3);
  EXPECT_EQ(lost.node, "7");
  // The report stands as far as it was written: the first emitter, and the second's heading.
  EXPECT_TRUE(
      bench.Bytes(work_file::kFlowReport).ends_with(kRule + Heading("3", "  7/3  ", "200")));
}

TEST(FlowReport, IsLostOnACircleOfNamesAndOnAnEmitterWithoutRow) {
  TestBench bench;
  bench.PutNetwork({"ANT/9", "9/ANT", "1/2 soma 300l/h 5mm", "2/1"});
  EXPECT_EQ(LostAt(bench).emitter_section, 3);
  bench.PutNetwork({"ANT/1", "1/2 soma 300l/h 5mm", "2/ANT"});
  bench.study.EmitterTable.push_back({8, 100, 5});
  EXPECT_EQ(LostAt(bench).emitter_section, 8);
}

}  // namespace
}  // namespace kalvo
