#include "engine/driver.h"

#include <gtest/gtest.h>

#include "engine/capacity.h"
#include "engine/row_store.h"
#include "engine/trap.h"
#include "study/calculation_boxes.h"
#include "tests/support/failing_disk.h"
#include "tests/support/same_row.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

const std::vector<std::string_view> kLoop = {"ANT/1 5m 300l/h", "1/2 5m 300l/h soma 800mm",
                                             "2/ANT 5m 300l/h"};
const std::vector<std::string_view> kLoneSection = {"ANT/ANT 20m 1000l/h soma 500mm"};

TEST(Capacity, OfRowOneIsInLitresAndOfTheTotalAThousandTimesEasier) {
  // The largest pipe has 105.3 mm: 1.03 m/s are 32,291 l/h.
  struct Case {
    float total_m3h;
    const char* row_one;
    bool asks;
  };
  for (const auto& [total, row_one, asks] :
       {Case{0, "ANT/ANT 32000l/h", false}, Case{0, "ANT/ANT 32500l/h", true},
        Case{32.5F, "ANT/ANT 32500l/h", false}, Case{32500, "ANT/ANT 1l/h", true}}) {
    TestBench bench;
    bench.PutNetwork({row_one});
    bench.study.TotalFlowM3h = total;
    if (asks) {
      bench.prompter.Expect(-300, Answer::kYes);
    }
    EXPECT_TRUE(CheckPipeCapacity(bench.bench)) << total << " " << row_one;
  }
}

TEST(Run, BeginsByClearingWhatNoPassFills) {
  TestBench bench;
  bench.PutNetwork(kLoop);
  SectionRow expected = bench.Row(2);
  bench.ChangeRow(2, [](SectionRow& row) {
    row.NomiDiam = FixedText<15>::FromUtf8("2");
    row.PAR = row.DP = row.AvaiPres = 5;
    row.Velocity = 3;
  });
  bench.study.MeanTemp = expected.MeanTemp = 45;
  bench.study.MeanVel = expected.MeanVel = 0.7F;
  bench.study.pipe_system_number = expected.FileNumber = 2;
  RowTable rows(bench.Rows());
  ResetCalcFields(bench.study, rows);
  expected.Velocity = 3;  // not touched
  ExpectSameRow(rows.At(2), expected);
}

TEST(Run, ThatEndsWellSettlesTheStudy) {
  TestBench bench;
  bench.PutNetwork(kLoop);
  bench.study.recalculation_needed = bench.study.came_by_recovery = bench.study.CalcAborted = true;
  bench.study.method = Method::kFlowAndPressure;
  bench.study.CurrentRow = 2;
  EXPECT_EQ(RunCalculation(bench.bench), RunEnd::kCalculated);
  EXPECT_FALSE(bench.study.recalculation_needed);
  EXPECT_FALSE(bench.study.came_by_recovery);
  EXPECT_FALSE(bench.study.CalcAborted);
  EXPECT_EQ(bench.study.method, Method::kFlowOnly);
  EXPECT_EQ(bench.study.CurrentRow, 2);
  EXPECT_EQ(bench.Row(3).INILAMDA, 1.0F);
  EXPECT_EQ(bench.Rows().front().DP, bench.study.CriticalDrop);
  EXPECT_EQ(bench.Bytes(work_file::kStatistics).size(), 10U * 265U);
}

TEST(Run, ThatIsBrokenOffLeavesTheRowsBeforeAndNoStatistics) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m 300l/h", "1/2 5m soma 800mm", "2/ANT 5m 300l/h"});
  bench.study.recalculation_needed = true;
  EXPECT_EQ(RunCalculation(bench.bench), RunEnd::kBrokenOff);
  EXPECT_TRUE(bench.study.CalcAborted);
  EXPECT_TRUE(bench.study.recalculation_needed);
  EXPECT_EQ(bench.Row(1).NomiDiam.Utf8(), "3/8");
  EXPECT_EQ(bench.Row(2).NomiDiam.Utf8(), "");
  EXPECT_EQ(bench.Bytes(work_file::kStatistics), "(missing)");
  ASSERT_EQ(bench.prompter.boxes().size(), 1U);
  EXPECT_EQ(bench.prompter.boxes()[0].lines,
            (std::vector<std::string>{"... Μάλλον ΔΕΝ έχετε καταχωρήσει όλα τα Σώματα ...",
                                      "... Σφάλμα < 6 >, στο Τμήμα με α/α < 2 > : 1/2 ..."}));
  EXPECT_EQ(bench.study.failed_row, 2);
}

TEST(Run, ThatEndsWellDropsTheCopiesOfAnOlderChangeOfDiameters) {
  for (const bool ends_well : {false, true}) {
    TestBench bench;
    bench.PutNetwork(kLoop);
    for (const char* name : {work_file::kPreviousRows, work_file::kRowsBeforeChange}) {
      ASSERT_TRUE(bench.workspace.Copy(work_file::kRows, name).ok());
    }
    if (!ends_well) bench.ChangeRow(2, [](SectionRow& row) { row.WaterFlow = 0; });
    RunCalculation(bench.bench);
    EXPECT_EQ(bench.workspace.Exists(work_file::kPreviousRows), !ends_well);
    EXPECT_EQ(bench.workspace.Exists(work_file::kRowsBeforeChange), !ends_well);
  }
}

TEST(Run, OnAnUnreadableFileIsReportedOnce) {
  TestBench bench;
  bench.PutNetwork(kLoop);
  ASSERT_TRUE(bench.workspace.Write(work_file::kRows, "no whole record").ok());
  EXPECT_EQ(RunCalculation(bench.bench), RunEnd::kBrokenOff);
  EXPECT_EQ(bench.prompter.boxes().size(), 1U);
  EXPECT_EQ(bench.Bytes(), "no whole record");
}

TEST(Run, OnADiskThatFailsNamesTheFileAndKeepsTheResultsUntilARowWasWritten) {
  constexpr int kFirstWrite = 2;  // beside the rows, and renamed over them
  for (int operation = 1;; ++operation) {
    TestBench bench;
    bench.PutNetwork(kLoop);
    bench.ChangeRow(1, [](SectionRow& row) { row.DP = 1000; });
    bench.study.results_valid = true;
    bench.study.PumpHead = 1;
    const std::string rows = bench.Bytes();
    FailingDisk disk(bench.work_disk);
    disk.FailAtOperation(operation, FailingDisk::Lasting::kOnce);
    Workspace workspace(disk, TestBench::kProgramFolder, bench.outer_disk,
                        TestBench::kLibraryFolder, bench.clock);
    Workbench at(bench.study, workspace, bench.pipes, bench.prompter);
    RunPasses(at, Method::kFlowAndPressure);
    if (!bench.study.CalcAborted) {
      EXPECT_GT(operation, kFirstWrite);
      EXPECT_FALSE(bench.study.results_valid);
      break;
    }
    EXPECT_EQ(bench.study.results_valid, operation <= kFirstWrite) << operation;
    EXPECT_EQ(bench.Bytes() == rows, operation <= kFirstWrite) << operation;
    EXPECT_EQ(bench.study.PumpHead == 1, operation <= kFirstWrite) << operation;
    ASSERT_EQ(bench.prompter.boxes().size(), 1U) << operation;
    const std::vector<std::string>& lines = bench.prompter.boxes()[0].lines;
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0], "... ΣΟΒΑΡΟ ΣΦΑΛΜΑ : Οι Υπολογισμοί τερματίζονται ...");
    EXPECT_TRUE(lines[1].starts_with("... Σφάλμα < 57 > : Ο δίσκος είναι γεμάτος : /program/"))
        << lines[1];
  }
}

TEST(Run, OfALoneSectionIsClosedFromItsOwnRow) {
  for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
    TestBench bench;
    bench.PutNetwork(kLoneSection);
    bench.study.SingleSection = true;
    RunPasses(bench.bench, method);
    const SectionRow row = bench.Row(1);
    EXPECT_EQ(row.INILAMDA, static_cast<float>(method));
    EXPECT_EQ(row.PAR, 1.0F);
    EXPECT_GT(row.TotalDrop, 500.0F);
    EXPECT_EQ(row.DP, row.TotalDrop);
    EXPECT_EQ(row.AvaiPres, 0.0F);
    EXPECT_EQ(bench.study.CriticalDrop, row.TotalDrop);
    EXPECT_FLOAT_EQ(bench.study.PumpHead, row.TotalDrop / 1000);
    EXPECT_EQ(bench.study.critical_branch, "1");
  }
}

TEST(Run, ClosesNothingButTheLoneSection) {
  TestBench bench;
  RowTable rows(Network({"ANT/1 20m 1000l/h soma 500mm"}));
  CloseSingleSection(bench.study, rows);
  ExpectSameRow(rows.At(1), Network({"ANT/1 20m 1000l/h soma 500mm"}).front());
}

TEST(Trap, TellsEveryFaultByItsNumber) {
  constexpr const char* kTitle = "  ! !  ΠΡΟΣΟΧΗ : Διακοπή των Υπολογισμών ! ! ";
  const std::pair<int, const char*> kTexts[] = {
      {5, "... ΛΑΝΘΑΣΜΕΝΗ ΚΛΗΣΗ ΣΥΝΑΡΤΗΣΗΣ : Οι Υπολογισμοί τερματίζονται ..."},
      {6, "... Μάλλον ΔΕΝ έχετε καταχωρήσει όλα τα Σώματα ..."},
      {11, "... ΣΟΒΑΡΟ ΣΦΑΛΜΑ : Οι Υπολογισμοί τερματίζονται ..."}};
  for (const auto& [code, text] : kTexts) {
    const Box box = CalcErrorBox(code);
    EXPECT_EQ(box.title, kTitle);
    EXPECT_EQ(box.lines, std::vector<std::string>{text});
    EXPECT_FALSE(StyleAsks(box.style));
    EXPECT_EQ(box.beeps, 2);
  }
}

TEST(Trap, AsksOnCodeOneWhetherToGoOn) {
  constexpr const char* kTitle = "  ! !  ΠΡΟΣΟΧΗ : Προσωρινή Διακοπή των Υπολογισμών ! ! ";
  TestBench bench;
  bench.prompter.Expect(kTitle, Answer::kYes);
  EXPECT_FALSE(ReportCalcError(bench.bench, Fault(FaultCode::kResumable, "raised")));
  bench.prompter.Expect(kTitle, Answer::kNo);
  EXPECT_TRUE(ReportCalcError(bench.bench, Fault(FaultCode::kResumable, "raised")));
  EXPECT_EQ(bench.prompter.boxes()[0].beeps, 2);
  EXPECT_EQ(bench.prompter.boxes()[0].lines,
            (std::vector<std::string>{
                "... Το Επιλεγέν <Σύστημα Σωλήνων>, δεν επαρκεί για την διατήρηση της",
                "ταχύτητας του νερού, στην περιοχή της <Μέσης Ταχύτητας Νερού> που",
                "έχετε επιλέξει στα <Εισαγωγικά Δεδομένα> της Μελέτης.", "   ",
                "              ... ΝΑ ΣΥΝΕΧΙΣΘΟΥΝ ΟΙ ΥΠΟΛΟΓΙΣΜΟΙ ?? ...             "}));
}

struct NotedFaults : FaultLog {
  void Note(const FaultNote& note) override { notes.push_back(note); }
  std::vector<FaultNote> notes;
};

TEST(Trap, GivesTheFaultThatEndsARunAndWritesItDown) {
  TestBench bench;
  NotedFaults log;
  bench.bench.fault_log = &log;
  EXPECT_FALSE(RunTrapped(bench.bench, [] {}));
  const auto fault =
      RunTrapped(bench.bench, [] { throw Fault(FaultCode::kBadIndex, "beyond the table"); });
  ASSERT_TRUE(fault);
  EXPECT_EQ(fault->number, 9);
  ASSERT_EQ(log.notes.size(), 1U);
  EXPECT_EQ(log.notes[0].number, 9);
  EXPECT_EQ(log.notes[0].text, "beyond the table");
  EXPECT_EQ(bench.prompter.boxes()[0].lines.back(), "... Σφάλμα < 9 > ...");
}

TEST(Trap, TellsTheFirstFaultWhenTheRowsDoneCannotBeKeptEither) {
  TestBench bench;
  bench.PutNetwork(kLoop);
  FailingDisk full(bench.work_disk);
  full.FailAfterBytes(0);
  Workspace workspace(full, TestBench::kProgramFolder, bench.outer_disk, TestBench::kLibraryFolder,
                      bench.clock);
  Workbench at(bench.study, workspace, bench.pipes, bench.prompter);
  RunTrapped(at, [&] {
    RowStore store(workspace);
    store.SaveAfter([] { AtRow(2, [] { Divide(0, 0); }); });
  });
  EXPECT_EQ(bench.prompter.boxes()[0].lines.back(),
            "... Σφάλμα < 6 >, στο Τμήμα με α/α < 2 > : 1/2 ...");
}

}  // namespace
}  // namespace kalvo
