#include "engine/rerun.h"

#include <gtest/gtest.h>

#include "engine/calculation_command.h"
#include "tests/support/random_network.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

// A network calculated by the first method, its rows kept as the previous and the first ones.
void PutFirstCalculation(TestBench& bench,
                         const std::vector<std::string_view>& lines = {
                             "ANT/1 5m", "1/2 5m soma 3000l/h 500mm", "1/3 5m soma 2000l/h 400mm",
                             "2/4 5m", "3/4 5m", "4/ANT 5m"}) {
  bench.PutNetwork(lines);
  ASSERT_EQ(Calculate(bench.bench, Method::kFlowOnly), CommandEnd::kCalculated);
  for (const char* name : {work_file::kPreviousRows, work_file::kFirstRows}) {
    ASSERT_TRUE(bench.workspace.Copy(work_file::kRows, name).ok());
  }
}

// Gives a row, now one of the second method, another pipe, as its user would.
void Overrule(TestBench& bench, int number, std::string_view name, float diameter_mm) {
  bench.ChangeRow(number, [&](SectionRow& row) {
    row.NomiDiam = FixedText<15>::FromUtf8(name);
    row.InDiameter = diameter_mm;
    row.INILAMDA = 2;
  });
}

TEST(Rerun, WithNothingChangedGivesTheSameRows) {
  TestBench bench;
  PutFirstCalculation(bench);
  const std::string rows = bench.Bytes();
  Rerun(bench.bench);
  EXPECT_EQ(bench.Bytes(), rows);
  EXPECT_TRUE(bench.study.unsaved_changes);
}

TEST(Rerun, CalculatesOnTheDiametersThatItFinds) {
  TestBench bench;
  PutFirstCalculation(bench);
  const SectionRow before = bench.Row(1);
  const float critical = bench.study.CriticalDrop;
  Overrule(bench, 1, "1 1/2", -41.9F);
  bench.study.CurrentRow = 5;
  EXPECT_EQ(Rerun(bench.bench), RunEnd::kCalculated);
  const SectionRow after = bench.Row(1);
  EXPECT_EQ(after.InDiameter, -41.9F);
  EXPECT_EQ(after.INILAMDA, 2.0F);
  EXPECT_EQ(after.Area, before.Area);
  EXPECT_GT(after.TotalDrop, before.TotalDrop);
  // Row 1 is on every branch.
  EXPECT_NEAR(bench.study.CriticalDrop, critical + after.TotalDrop - before.TotalDrop, 0.01);
  EXPECT_EQ(bench.study.CurrentRow, 5);
  EXPECT_EQ(bench.Bytes(work_file::kPreviousRows), bench.Bytes());
  EXPECT_EQ(bench.study.PipeStats[5].Length, 5.0F);
}

TEST(Rerun, TakesTheMarkOffRowsThatCameBack) {
  TestBench bench;
  PutFirstCalculation(bench);
  const float first = bench.Row(2).InDiameter;
  Overrule(bench, 2, bench.Row(2).NomiDiam.Utf8(), -first);
  Overrule(bench, 3, "2", -53.1F);
  Rerun(bench.bench);
  EXPECT_EQ(bench.Row(2).InDiameter, first);
  EXPECT_EQ(bench.Row(3).InDiameter, -53.1F);
  EXPECT_EQ(bench.Bytes(work_file::kPreviousRows), bench.Bytes());
}

TEST(Rerun, ThatEndsEarlyNeedsANewCalculation) {
  for (const bool broken_off : {true, false}) {
    TestBench bench;
    PutFirstCalculation(bench);
    const std::string previous = bench.Bytes(work_file::kPreviousRows);
    Overrule(bench, 2, "?", broken_off ? 0.0F : -27.3F);
    bench.study.fluid_name = broken_off ? std::string(kWaterName) : "Άλμη";
    EXPECT_EQ(Rerun(bench.bench), broken_off ? RunEnd::kBrokenOff : RunEnd::kViscosity);
    EXPECT_EQ(bench.study.CalcAborted, broken_off);
    EXPECT_TRUE(bench.study.recalculation_needed);
    EXPECT_EQ(bench.Bytes(work_file::kPreviousRows), previous);
  }
}

TEST(Rerun, ClosesALoneSection) {
  TestBench bench;
  PutFirstCalculation(bench, {"ANT/ANT 20m 1000l/h soma 500mm"});
  Overrule(bench, 1, "1/2", -16.1F);
  Rerun(bench.bench);
  EXPECT_EQ(bench.Row(1).DP, bench.Row(1).TotalDrop);
  EXPECT_EQ(bench.study.CriticalDrop, bench.Row(1).TotalDrop);
}

// What a run leaves behind for its user.
struct Results {
  explicit Results(const TestBench& bench)
      : rows(bench.Bytes()),
        flow(bench.study.TotalFlowM3h),
        drop(bench.study.CriticalDrop),
        head(bench.study.PumpHead),
        branch(bench.study.critical_branch) {}
  std::string rows;
  float flow, drop, head;
  std::string branch;
};

void ExpectResults(const TestBench& bench, const Results& expected, const char* when) {
  const Results now(bench);
  EXPECT_TRUE(now.rows == expected.rows) << when;
  EXPECT_EQ(now.flow, expected.flow) << when;
  EXPECT_EQ(now.drop, expected.drop) << when;
  EXPECT_EQ(now.head, expected.head) << when;
  EXPECT_EQ(now.branch, expected.branch) << when;
}

void ExpectTheWayBack(std::uint32_t seed, SystemKind kind, Method method) {
  TestBench bench(kind);
  bench.PutRows(RandomNetwork(seed, kind));
  ASSERT_EQ(Calculate(bench.bench, method), CommandEnd::kCalculated);
  ASSERT_TRUE(bench.workspace.Copy(work_file::kRows, work_file::kFirstRows).ok());
  const Results first(bench);
  EXPECT_EQ(Rerun(bench.bench), RunEnd::kCalculated);
  ExpectResults(bench, first, "nothing changed");

  const int number = 1 + static_cast<int>(seed) % bench.study.SectionCount;
  const SectionRow before = bench.Row(number);
  bench.ChangeRow(number, [](SectionRow& row) {
    row.NomiDiam = FixedText<15>::FromUtf8("?");
    row.InDiameter = -1.25F * row.InDiameter;
  });
  EXPECT_EQ(Rerun(bench.bench), RunEnd::kCalculated);
  EXPECT_NE(bench.Row(number).TotalDrop, before.TotalDrop);
  bench.ChangeRow(number, [&before](SectionRow& row) {
    row.NomiDiam = before.NomiDiam;
    row.InDiameter = -before.InDiameter;
    row.Client = FixedText<51>::FromUtf8("Μελετητής");
  });
  EXPECT_EQ(Rerun(bench.bench), RunEnd::kCalculated);
  EXPECT_EQ(bench.Row(number).Client.Utf8(), "Μελετητής") << "no result";
  bench.ChangeRow(number, [&before](SectionRow& row) { row.Client = before.Client; });
  ExpectResults(bench, first, "and back");
  EXPECT_TRUE(bench.prompter.boxes().empty());
}

TEST(Rerun, OnTheDiametersOfTheSessionsFirstRowsGivesTheirResults) {
  for (std::uint32_t seed = 1; seed <= CountOfRandomStudies(); ++seed) {
    for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
      for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", " +
                     (kind == SystemKind::kOpen ? "open" : "closed") + ", method " +
                     std::to_string(static_cast<int>(method)));
        ExpectTheWayBack(seed, kind, method);
      }
    }
  }
}

TEST(Rerun, GivesARowThatCameBackTheMarkThatItHadFirst) {
  TestBench bench;
  PutFirstCalculation(bench);
  Overrule(bench, 2, "2", -53.1F);  // in an earlier session
  Rerun(bench.bench);
  ASSERT_TRUE(bench.workspace.Copy(work_file::kRows, work_file::kFirstRows).ok());
  Overrule(bench, 2, "1", -27.3F);
  Rerun(bench.bench);
  Overrule(bench, 2, "2", 53.1F);
  Overrule(bench, 3, "1/2", -16.1F);
  Rerun(bench.bench);
  EXPECT_EQ(bench.Row(2).InDiameter, -53.1F);
  EXPECT_EQ(bench.Row(3).InDiameter, -16.1F);
}

TEST(RerunIfChanged, WaitsForAnotherNominalDiameter) {
  TestBench bench;
  PutFirstCalculation(bench);
  const float diameter = bench.Row(2).InDiameter;
  Overrule(bench, 2, bench.Row(2).NomiDiam.Utf8(), -diameter);  // the name is the same
  EXPECT_FALSE(RerunIfChanged(bench.bench).value());
  Overrule(bench, 2, "1", -27.3F);
  EXPECT_TRUE(RerunIfChanged(bench.bench).value());
  EXPECT_FALSE(RerunIfChanged(bench.bench).value());
}

TEST(Diameters, AreComparedTrimmedAndByCase) {
  TestBench bench;
  bench.PutNetwork({"ANT/1", "1/ANT"});
  Overrule(bench, 2, "dn 20", 21);
  const auto differ = [&bench] {
    return DiametersDiffer(bench.workspace, work_file::kPreviousRows).value();
  };
  EXPECT_FALSE(differ());  // nothing to compare with
  ASSERT_TRUE(bench.workspace.Write(work_file::kPreviousRows, "").ok());
  EXPECT_FALSE(differ());
  ASSERT_TRUE(bench.workspace.Copy(work_file::kRows, work_file::kPreviousRows).ok());
  Overrule(bench, 2, "  dn 20", -50);
  EXPECT_FALSE(differ());
  Overrule(bench, 2, "DN 20", 21);
  EXPECT_TRUE(differ());
  ASSERT_TRUE(bench.workspace.Write(work_file::kPreviousRows, "odd").ok());
  EXPECT_FALSE(DiametersDiffer(bench.workspace, work_file::kPreviousRows).ok());
}

}  // namespace
}  // namespace kalvo
