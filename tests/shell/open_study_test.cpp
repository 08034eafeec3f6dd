// What a study is after it was saved and opened again.
#include "shell/open_study.h"

#include <cstdlib>

#include "engine/calculation_command.h"
#include "study/rounding.h"
#include "study/write_study.h"
#include "tests/support/calculated_case.h"
#include "tests/support/random_network.h"
#include "tests/support/sample_study.h"

namespace kalvo {
namespace {

namespace fs = std::filesystem;
const fs::path kFile = "/studies/network";

// What a user has of a calculation.
struct Known {
  std::string critical_branch;
  std::int16_t plant = 0;
  double pump_head = 0;
  float flow = 0;
  std::vector<std::string> diameters;

  bool operator==(const Known&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Known& known) {
  return out << known.critical_branch << " plant " << known.plant << " head " << known.pump_head
             << " flow " << known.flow << " pipes " << Joined(known.diameters);
}

Known KnownOf(const TestBench& bench) {
  const Study& study = bench.study;
  // A run may give the head in four decimals; what is stored has them all.
  return {study.critical_branch, study.plant_section, RoundTo(study.PumpHead, 4),
          study.TotalFlowM3h, bench.Diameters()};
}

void Run(TestBench& bench, Method method) {
  ASSERT_EQ(Calculate(bench.bench, method), CommandEnd::kCalculated);
  bench.study.results_valid = true;  // they were looked at
}

void SaveAndOpen(TestBench& bench) {
  bench.study.study_path = kFile;
  ASSERT_TRUE(WriteStudy(bench.bench).ok());
  EXPECT_EQ(OpenStudyFile(bench.bench, RecentList::kLeave), OpenEnd::kOpened);
  EXPECT_TRUE(bench.study.results_valid);
}

void ExpectSameAgain(std::uint32_t seed, SystemKind kind, Method method) {
  TestBench bench(kind);
  bench.PutRows(RandomNetwork(seed, kind));
  Run(bench, method);
  const Known first = KnownOf(bench);
  EXPECT_FALSE(first.critical_branch.empty());
  SaveAndOpen(bench);
  EXPECT_EQ(KnownOf(bench), first) << "opened";
  bench.prompter.Expect(190, Answer::kYes);
  Run(bench, method);
  EXPECT_EQ(KnownOf(bench), first) << "calculated once more";
  EXPECT_TRUE(bench.prompter.boxes().empty());
}

TEST(OpenedAgain, AnyStudyHasItsPlantItsBranchAndItsPump) {
  for (std::uint32_t seed = 1; seed <= CountOfRandomStudies(); ++seed) {
    for (const SystemKind kind : {SystemKind::kClosed, SystemKind::kOpen}) {
      for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", " +
                     (kind == SystemKind::kOpen ? "open" : "closed") + ", method " +
                     std::to_string(static_cast<int>(method)));
        ExpectSameAgain(seed, kind, method);
      }
    }
  }
}

TEST(OpenedAgain, AFloorWithItsPlantOnABranchKeepsItsPump) {
  CalculatedCase floor(fs::path(KALVO_SAMPLES_DIR) / "fancoil.PCK", KALVO_LIBRARY_DIR);
  std::vector<SectionRow> rows = floor.Rows();
  for (SectionRow& row : rows) {
    row.BurChil = 31;
    row.Auxi = row.RecordNumber == 31 ? PlantMark(31) : std::int16_t{0};
  }
  ASSERT_EQ(rows[30].Name.bytes(), "502/501");
  ASSERT_TRUE(floor.workspace->Rows().WriteAll(rows).ok());
  floor.study.plant_section = 31;
  const DiskBench disk;
  for (const char* run : {"first", "unsaved", "saved"}) {
    ASSERT_EQ(Calculate(floor.bench, Method::kFlowAndPressure), CommandEnd::kCalculated);
    floor.study.results_valid = true;
    EXPECT_NEAR(floor.study.PumpHead, 5.42, 0.005) << run;
    EXPECT_EQ(floor.Rows()[30].Auxi, PlantMark(31)) << run;
    if (run == std::string_view("first")) continue;
    floor.study.study_path = disk.studies() / "floor.PCK";
    ASSERT_TRUE(WriteStudy(floor.bench).ok());
    EXPECT_EQ(OpenStudyFile(floor.bench, RecentList::kLeave), OpenEnd::kOpened);
    EXPECT_EQ(floor.study.plant_section, 31);
    EXPECT_NEAR(floor.study.PumpHead, 5.42, 0.005) << run << ", opened";
  }
}

// Two emitters beside a third, dearer one, stepped down.
struct Balanced : TestBench {
  Balanced() {
    PutNetwork({"ANT/1 5m", "1/2 5m", "2/3 5m soma 3000l/h 100mm", "2/3 5m soma 3000l/h 200mm",
                "1/4 5m soma 6000l/h 9000mm", "3/4 5m", "4/ANT 5m"});
    Run(*this, Method::kFlowAndPressure);
    study.study_path = kFile;
  }
};

TEST(OpenedAgain, AStudyThatCannotBeSizedAnewGoesByItsStoredDropsAndSaysNothing) {
  Balanced bench;
  bench.ChangeRow(3, [](SectionRow& row) { row.WaterFlow = 0; });
  const std::string branch = bench.study.critical_branch;
  SaveAndOpen(bench);
  EXPECT_EQ(bench.study.critical_branch, branch);
  EXPECT_TRUE(bench.prompter.boxes().empty());
}

TEST(OpenedAgain, AStudyWithoutABranchIsLoadedAllTheSame) {
  Balanced bench;
  for (int number = 1; number <= 7; ++number) {
    bench.ChangeRow(number, [](SectionRow& row) { row.TotalDrop = 3e38F, row.INILAMDA = 1; });
  }
  ASSERT_TRUE(WriteStudy(bench.bench).ok());
  EXPECT_EQ(OpenStudyFile(bench.bench, RecentList::kLeave), OpenEnd::kWithoutBranch);
  EXPECT_TRUE(bench.study.results_valid);
  EXPECT_TRUE(bench.prompter.boxes().empty());
}

TEST(OpenedAgain, AStudyThatCannotBeLoadedIsToldByOneBox) {
  TestBench bench;
  bench.study.study_path = kFile;
  EXPECT_EQ(OpenStudyFile(bench.bench, RecentList::kLeave), OpenEnd::kNotOpened);
  ASSERT_EQ(bench.prompter.boxes().size(), 1U);
  const Box& box = bench.prompter.boxes()[0];
  EXPECT_EQ(box.title, " !!... ΠΡΟΣΟΧΗ ...!! ");
  EXPECT_EQ(box.style, box_style::kStop);
  ASSERT_EQ(box.lines.size(), 2U);
  EXPECT_EQ(box.lines[0], "... Ελλιπές Σύνολο Αρχείων Μελέτης ...");
  EXPECT_NE(box.lines[1].find(kFile.string()), std::string::npos) << box.lines[1];
}

}  // namespace
}  // namespace kalvo
