#include "engine/diameter_change.h"

#include <gtest/gtest.h>

#include "engine/calculation_command.h"
#include "tests/support/failing_disk.h"
#include "tests/support/random_network.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

constexpr const char* kFolder = TestBench::kProgramFolder;

// A calculated study whose results have just been opened.
struct OpenedResults {
  explicit OpenedResults(Method method = Method::kFlowOnly) {
    bench.PutNetwork({"ANT/1 5m", "1/2 5m soma 3000l/h 500mm", "1/3 5m soma 2000l/h 400mm",
                      "2/4 5m", "3/4 5m", "4/ANT 5m"});
    EXPECT_EQ(Calculate(bench.bench, method), CommandEnd::kCalculated);
    EXPECT_TRUE(bench.workspace.Copy(work_file::kRows, work_file::kFirstRows).ok());
    bench.study.results_valid = true;
    bench.study.unsaved_changes = false;
    before = bench.Bytes();
  }

  static DiameterChange To(std::string_view name, std::vector<int> sections) {
    for (const PipeRow& pipe : SteelPipes()) {
      if (pipe.nominal_diameter.Utf8() == name) return {std::move(sections), pipe};
    }
    ADD_FAILURE() << "no such pipe: " << name;
    return {};
  }

  // The study on another disk for its work files.
  template <typename Use>
  void On(Disk& disk, Use&& use) {
    Workspace workspace(disk, kFolder, bench.outer_disk, TestBench::kLibraryFolder, bench.clock);
    Workbench at(bench.study, workspace, bench.pipes, bench.prompter);
    use(at);
  }

  TestBench bench;
  std::string before;
};

const ChangedSection* SectionIn(const ChangeOutcome& outcome, int number) {
  for (const ChangedSection& section : outcome.comparison->sections) {
    if (section.number == number) return &section;
  }
  return nullptr;
}

TEST(DiameterChange, IsCalculatedAndCompared) {
  OpenedResults open;
  TestBench& bench = open.bench;
  const SectionRow was = bench.Row(3);
  const float head = bench.study.PumpHead;
  const ChangeOutcome outcome = ChangeDiameters(bench.bench, {OpenedResults::To("2", {3})});
  ASSERT_EQ(outcome.end, RunEnd::kCalculated);
  EXPECT_EQ(outcome.replaced, 1);
  const SectionRow is = bench.Row(3);
  EXPECT_EQ(is.NomiDiam.bytes(), "2              ");
  EXPECT_EQ(is.InDiameter, -53.1F);
  EXPECT_TRUE(bench.study.unsaved_changes);

  const ResultComparison& found = *outcome.comparison;
  EXPECT_FALSE(found.flow.Differs());
  EXPECT_FLOAT_EQ(static_cast<float>(found.head.before), head);
  EXPECT_FLOAT_EQ(static_cast<float>(found.head.after), bench.study.PumpHead);
  EXPECT_LT(found.head.after, found.head.before);
  EXPECT_EQ(found.critical_branch.after, bench.study.critical_branch);
  const auto area = [](std::string_view name) { return AreaM2(OpenedResults::To(name, {}).pipe); };
  EXPECT_NEAR(found.fluid_content.after - found.fluid_content.before,
              5 * (area("2") - area(was.NomiDiam.Utf8())), 1e-9);
  const ChangedSection* changed = SectionIn(outcome, 3);
  ASSERT_NE(changed, nullptr);
  EXPECT_EQ(changed->name, "1/3");
  EXPECT_EQ(changed->diameter, (BeforeAfter<std::string>{was.NomiDiam.Utf8(), "2"}));
  EXPECT_EQ(changed->velocity, (BeforeAfter<float>{was.Velocity, is.Velocity}));
  EXPECT_EQ(changed->drop, (BeforeAfter<float>{was.TotalDrop, is.TotalDrop}));
  const ChangedSection* other = SectionIn(outcome, 2);
  ASSERT_NE(other, nullptr) << "another pressure is left for it";
  EXPECT_FALSE(other->diameter.Differs() || other->drop.Differs());
}

TEST(DiameterChange, ThatIsTakenBackGivesTheFirstResultsWithoutMark) {
  for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
    OpenedResults open(method);
    TestBench& bench = open.bench;
    const std::string own = bench.Row(3).NomiDiam.Utf8();
    ASSERT_TRUE(ChangeDiameters(bench.bench, {OpenedResults::To("3", {3})}).comparison);
    const ChangeOutcome back = ChangeDiameters(bench.bench, {OpenedResults::To(own, {3})});
    EXPECT_EQ(bench.Bytes(), open.before);
    ASSERT_TRUE(back.comparison.has_value());
    EXPECT_EQ(SectionIn(back, 3)->diameter, (BeforeAfter<std::string>{"3", own}));
  }
}

TEST(DiameterChange, OfManyPassesOverWhatHasThePipeAndWhatIsNoRow) {
  OpenedResults open;
  TestBench& bench = open.bench;
  const std::string own = bench.Row(3).NomiDiam.Utf8();
  const FolderImage image = ImageOf(bench.work_disk, kFolder);
  for (const std::vector<int>& none : {std::vector{3}, std::vector{0, 7, 21}, std::vector<int>{}}) {
    const ChangeOutcome outcome = ChangeDiameters(bench.bench, {OpenedResults::To(own, none)});
    EXPECT_EQ(outcome.replaced, 0);
    EXPECT_TRUE(outcome.comparison.value().sections.empty());
  }
  EXPECT_TRUE(ImageOf(bench.work_disk, kFolder) == image);
  EXPECT_FALSE(bench.study.unsaved_changes);
  EXPECT_EQ(ChangeDiameters(bench.bench, {OpenedResults::To("2", {2, 3, 7})}).replaced, 2);
  EXPECT_EQ(bench.Rows().size(), 6U);
}

TEST(DiameterChange, WritesRowsOnceThenQuantitiesThenThePreviousRows) {
  struct NotingDisk : ForwardingDisk {
    using ForwardingDisk::ForwardingDisk;
    Outcome Rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
      if (to.filename() != work_file::kPostponed) names.push_back(to.filename().string());
      return inner_.Rename(from, to);
    }
    std::vector<std::string> names;
  };
  OpenedResults open;
  NotingDisk disk(open.bench.work_disk);
  open.On(disk, [](Workbench& at) { ChangeDiameters(at, {OpenedResults::To("2", {2})}); });
  EXPECT_EQ(Joined(disk.names), "DATARES.TMP|STATIST.TMP|DATARES.PRV");
}

TEST(DiameterChange, KilledAnywhereLeavesTheRowsFromBeforeOrFromAfter) {
  bool killed = true;
  int afterwards = 0;
  for (int step = 1; killed; ++step) {
    OpenedResults open;
    FolderImage left;  // what is on the disk at the kill
    KillingDisk disk(open.bench.work_disk, step,
                     [&] { left = ImageOf(open.bench.work_disk, kFolder); });
    open.On(disk, [](Workbench& at) { ChangeDiameters(at, {OpenedResults::To("2", {2, 4})}); });
    killed = !left.empty();
    if (!killed) break;
    const std::string& rows = left.at(work_file::kRows);
    EXPECT_TRUE(rows == open.before || rows == open.bench.Bytes()) << step;
    EXPECT_EQ(left.at(work_file::kFirstRows), open.before) << step;
    afterwards += rows == open.bench.Bytes() ? 1 : 0;
  }
  EXPECT_GT(afterwards, 1) << "quantities and previous rows come later";
}

TEST(DiameterChange, OnADiskThatFailsKeepsTheOldResultsOrNeedsANewCalculation) {
  OpenedResults whole;
  ChangeDiameters(whole.bench.bench, {OpenedResults::To("2", {3})});
  const std::string after = whole.bench.Bytes();
  for (int operation = 1;; ++operation) {
    SCOPED_TRACE(operation);
    OpenedResults open;
    const Study study = open.bench.study;
    FailingDisk disk(open.bench.work_disk);
    disk.FailAtOperation(operation, FailingDisk::Lasting::kFromThenOn);
    ChangeOutcome outcome;
    open.On(disk,
            [&](Workbench& at) { outcome = ChangeDiameters(at, {OpenedResults::To("2", {3})}); });
    const std::string rows = open.bench.Bytes();
    if (outcome.end == RunEnd::kCalculated) {
      EXPECT_EQ(rows, after);
      break;
    }
    EXPECT_EQ(open.bench.prompter.boxes().size(), 1U);
    EXPECT_FALSE(outcome.comparison.has_value());
    ASSERT_TRUE(rows == open.before || rows == after);
    const bool kept = rows == open.before;
    EXPECT_EQ(open.bench.study.recalculation_needed, !kept);
    EXPECT_EQ(open.bench.study.unsaved_changes, !kept);
    EXPECT_EQ(open.bench.study.PumpHead == study.PumpHead, kept);
  }
}

TEST(DiameterChange, WorksBesidePipesThatTheLibraryDoesNotBear) {
  OpenedResults open;
  TestBench& bench = open.bench;
  bench.ChangeRow(5, [](SectionRow& row) {
    row.NomiDiam = FixedText<15>::FromUtf8("elsewhere");
    row.InDiameter = 33.3F;
  });
  PipeRow own;
  own.nominal_diameter = FixedText<12>::FromUtf8("DN own");
  own.inner_diameter = 44.4F;
  const ChangeOutcome outcome = ChangeDiameters(bench.bench, {DiameterChange{{2}, own}});
  ASSERT_EQ(outcome.end, RunEnd::kCalculated);
  EXPECT_EQ(bench.Row(2).InDiameter, -44.4F);
  EXPECT_EQ(bench.Row(5).InDiameter, 33.3F);
  EXPECT_EQ(bench.study.PipeStats.back().Length, 10.0F) << "counted with the largest";
  double content = 0;
  for (const StatRow& line : bench.study.PipeStats) content += line.FluidVolume;
  EXPECT_NEAR(outcome.comparison->fluid_content.after, content, 1e-6);
}

TEST(DiameterChange, ThatCannotBeCalculatedKeepsTheWayBack) {
  for (const bool fluid : {true, false}) {
    OpenedResults open;
    TestBench& bench = open.bench;
    ASSERT_TRUE(bench.workspace.Copy(work_file::kRows, work_file::kPreviousRows).ok());
    if (fluid) {
      bench.study.fluid_name = "Άλμη";
    } else {
      bench.ChangeRow(6, [](SectionRow& row) { row.WaterFlow = 0; });
    }
    const std::string previous = bench.Bytes(work_file::kPreviousRows);
    const ChangeOutcome outcome = ChangeDiameters(bench.bench, {OpenedResults::To("2", {2})});
    EXPECT_EQ(outcome.end, fluid ? RunEnd::kViscosity : RunEnd::kBrokenOff);
    EXPECT_FALSE(outcome.comparison.has_value());
    EXPECT_EQ(bench.prompter.boxes().size(), 1U);
    EXPECT_EQ(bench.study.CalcAborted, !fluid);
    EXPECT_TRUE(bench.study.recalculation_needed);
    EXPECT_EQ(bench.Row(2).NomiDiam.Utf8(), "2") << "which diameters hold is asked later";
    EXPECT_EQ(bench.Bytes(work_file::kFirstRows), open.before);
    EXPECT_EQ(bench.Bytes(work_file::kPreviousRows), previous);
    EXPECT_TRUE(ChangeWaits(bench.workspace).value());
  }
}

TEST(DiameterChange, MayWaitForItsCalculation) {
  OpenedResults open;
  TestBench& bench = open.bench;
  const SectionRow was = bench.Row(2);
  ASSERT_TRUE(bench.workspace.Copy(work_file::kRows, work_file::kRowsBeforeChange).ok());
  EXPECT_EQ(ReplaceDiameters(bench.bench, OpenedResults::To("2", {2})).value(), 1);
  EXPECT_EQ(bench.Row(2).InDiameter, -53.1F);
  EXPECT_EQ(bench.Row(2).Velocity, was.Velocity);
  EXPECT_TRUE(bench.study.unsaved_changes);
  EXPECT_TRUE(ChangeWaits(bench.workspace).value());
  EXPECT_EQ(ReplaceDiameters(bench.bench, OpenedResults::To("2", {2})).value(), 0);
  EXPECT_EQ(ReplaceDiameters(bench.bench, OpenedResults::To(was.NomiDiam.Utf8(), {2})).value(), 1);
  EXPECT_EQ(bench.Bytes(), open.before);
  EXPECT_FALSE(ChangeWaits(bench.workspace).value());

  FailingDisk full(bench.work_disk);
  full.FailAfterBytes(100);
  open.On(full, [](Workbench& at) {
    EXPECT_FALSE(ReplaceDiameters(at, OpenedResults::To("2", {2})).ok());
  });
  EXPECT_EQ(bench.Bytes(), open.before);
}

TEST(DiameterChange, ThatIsTakenBackInAnyStudyGivesItsFirstResults) {
  for (std::uint32_t seed = 1; seed <= CountOfRandomStudies(); ++seed) {
    for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
      for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", " +
                     (kind == SystemKind::kOpen ? "open" : "closed") + ", method " +
                     std::to_string(static_cast<int>(method)));
        TestBench bench(kind);
        bench.PutRows(RandomNetwork(seed, kind));
        ASSERT_EQ(Calculate(bench.bench, method), CommandEnd::kCalculated);
        ASSERT_TRUE(bench.workspace.Copy(work_file::kRows, work_file::kFirstRows).ok());
        const std::string before = bench.Bytes();
        const std::string branch = bench.study.critical_branch;
        const auto library = bench.study.pipe_system_number == 1 ? SteelPipes() : CopperPipes();
        const int number = 1 + static_cast<int>(seed) % bench.study.SectionCount;
        const std::string own = bench.Row(number).NomiDiam.Utf8();
        const auto named = [&](bool other) {
          const auto found = std::ranges::find_if(library, [&](const PipeRow& pipe) {
            const bool is_own = pipe.nominal_diameter.Utf8() == own;
            return other ? !is_own && pipe.inner_diameter > 12 : is_own;
          });
          return DiameterChange{{number}, *found};
        };
        EXPECT_TRUE(ChangeDiameters(bench.bench, {named(true)}).comparison.has_value());
        EXPECT_NE(bench.Bytes(), before);
        const ChangeOutcome back = ChangeDiameters(bench.bench, {named(false)});
        ASSERT_TRUE(back.comparison.has_value());
        EXPECT_TRUE(bench.Bytes() == before);
        EXPECT_EQ(back.comparison->critical_branch.after, branch);
      }
    }
  }
}

}  // namespace
}  // namespace kalvo
