#include <gtest/gtest.h>

#include "engine/branches.h"
#include "engine/first_row_index.h"
#include "tests/support/faults.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

// The circuits of a network's emitters, as text.
std::string Circuits(std::string_view lines) {
  TestBench bench;
  bench.PutNetwork(Lines(lines));
  std::vector<std::string> texts;
  for (const Branch& branch : BuildBranchStrings(bench.study)) {
    texts.push_back(BranchText(branch));
  }
  return Joined(texts);
}

TEST(Circuit, RunsFromSourceToSourceThroughTheEmitterByTheLowestRows) {
  EXPECT_EQ(Circuits("ANT/1,1/2,1/3 soma 5mm,2/4 soma 5mm,4/5,3/5,5/ANT"),
            "1  -3  -6  -7  -|1  -2  -4  -5  -7  -");
  // Rows 2 and 3 both reach node 2, rows 5 and 6 both leave node 3.
  EXPECT_EQ(Circuits("ANT/1,1/2,1/2,2/3 soma 5mm,3/4,3/4,4/ANT"), "1  -2  -4  -5  -7  -");
  EXPECT_EQ(Circuits("ANT/ANT soma 5mm,ANT/1,1/ANT"), "1  -") << "from source to source";
  EXPECT_EQ(Circuits("1/2 soma 5mm,2/3,9/1"), "3  -1  -2  -") << "no row goes on: it stays open";
  // "  7" as a start and "7  " as an end are one node; " 7" inside a name is another than "17".
  EXPECT_EQ(Circuits("ANT/17,17/7,7/ANT soma 5mm"), "1  -2  -3  -");
}

TEST(Circuit, OfACircleEnds) {
  EXPECT_LE(Circuits("ANT/9,9/ANT,1/2 soma 5mm,2/1").size(), 4U * 9U);  // four steps either way
}

TEST(Circuit, OfAnEmitterWithoutRowKeepsTheNameFoundBefore) {
  TestBench bench;
  bench.PutNetwork({"ANT/1", "1/2 soma 5mm", "2/ANT"});
  bench.study.EmitterTable.push_back({40, 100, 5});
  const auto branches = BuildBranchStrings(bench.study);
  EXPECT_EQ(BranchText(branches.at(1)), "1  -40 -3  -");
}

TEST(Circuit, CannotHoldASectionNumberOfFourDigits) {
  TestBench bench;
  bench.PutNetwork({"ANT/1", "1/2 soma 5mm", "2/ANT"});
  bench.study.SectionTable[2].number = 999;
  EXPECT_EQ(BranchText(BuildBranchStrings(bench.study).front()), "1  -2  -999-");
  bench.study.SectionTable[2].number = 1000;
  EXPECT_EQ(FaultOf([&] { BuildBranchStrings(bench.study); }), 5);
}

TEST(FirstRow, IsTheLowestThatBearsTheKey) {
  const FirstRowIndex index({{7, 3}, {5, 2}, {7, 1}, {7, 4}});
  EXPECT_EQ(index.First(7), 1);
  EXPECT_EQ(index.All(7).size(), 3U);
  EXPECT_EQ(index.All(7)[1].second, 3);
  EXPECT_EQ(index.First(6), 0);
  EXPECT_TRUE(index.All(6).empty());
}

TEST(FirstRow, KeysTellApartWhatTrimmingLeavesApart) {
  EXPECT_EQ(NodeKey("  1"), NodeKey("1  "));
  EXPECT_NE(NodeKey("1 2"), NodeKey("12 "));
  EXPECT_NE(NodeKey("1"), NodeKey("01"));
  EXPECT_NE(NodeKey("a"), NodeKey("A"));
  EXPECT_NE(NodeKey(std::string_view("\0a", 2)), NodeKey("a"));
}

}  // namespace
}  // namespace kalvo
