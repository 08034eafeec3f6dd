#include "engine/calculation_command.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "study/fluid_library.h"
#include "tests/support/test_bench.h"

namespace kalvo {
namespace {

const std::vector<std::string_view> kNetwork = {
    "ANT/1 5m", "1/2 5m soma 300l/h 500mm", "1/3 5m soma 200l/h 400mm", "2/4 5m", "3/4 5m",
    "4/ANT 5m"};

CommandEnd Calculate(TestBench& bench, Method method = Method::kFlowOnly) {
  return Calculate(bench.bench, method);
}

// A network that was calculated, its results shown.
void PutCalculated(TestBench& bench) {
  bench.PutNetwork(kNetwork);
  ASSERT_EQ(Calculate(bench), CommandEnd::kCalculated);
  bench.study.results_valid = true;
}

TEST(Gate, NamesTheFirstThingThatIsMissing) {
  TestBench bench;
  bench.PutNetwork(kNetwork);
  const std::string rows = bench.Bytes();
  const std::string emitters = bench.Bytes(work_file::kEmitters);
  Study& study = bench.study;
  study.emitters_unchecked = study.NameErrors = true;
  study.pipe_system_number = study.EmitterCount = 0;
  study.CurrentRow = 2;
  bench.workspace.DeleteWorkFiles();
  const auto put = [&bench](const char* name, std::string_view bytes) {
    EXPECT_TRUE(bench.workspace.Write(name, std::string(bytes)).ok());
  };
  const std::vector<std::pair<int, std::function<void()>>> steps = {
      {2005, [&] { put(work_file::kFluid, ""); }},
      {2005, [&] { EXPECT_TRUE(WriteStudyFluid(bench.bench, WaterRow(bench.workspace)).ok()); }},
      {2003, [&] { study.emitters_unchecked = false; }},
      {406, [&] { study.pipe_system_number = 1; }},
      {407, [&] { study.EmitterCount = 2; }},
      {139, [&] { put(work_file::kRows, rows); }},
      {142, [&] { put(work_file::kEmitters, emitters); }},
      {10, [&] { study.NameErrors = false; }}};
  std::vector<int> expected;
  for (const auto& [message, repair] : steps) {
    expected.push_back(message);
    EXPECT_EQ(Calculate(bench), CommandEnd::kRefused);
    EXPECT_EQ(bench.prompter.codes(), expected);
    repair();
  }
  EXPECT_EQ(bench.Bytes(), rows);
  EXPECT_EQ(Calculate(bench), CommandEnd::kCalculated);
}

TEST(Gate, LetsANewStudyOnRowOneWithoutRowsFail) {
  TestBench bench;
  bench.PutNetwork(kNetwork);
  bench.workspace.Delete(work_file::kRows);
  bench.study.CurrentRow = 1;
  EXPECT_EQ(Calculate(bench), CommandEnd::kLost);
  EXPECT_EQ(bench.prompter.codes(), std::vector<int>{2004});
}

TEST(Command, CalculatesANewNetworkByEitherMethod) {
  for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
    TestBench bench;
    bench.PutNetwork(kNetwork);
    EXPECT_EQ(Calculate(bench, method), CommandEnd::kCalculated);
    EXPECT_EQ(bench.study.CalcStatus, 0);
    EXPECT_EQ(bench.Row(6).WaterFlow, 500.0F);
    EXPECT_EQ(bench.Row(6).INILAMDA, static_cast<float>(method));
    EXPECT_TRUE(HasResults(bench.Rows()));
    EXPECT_TRUE(bench.workspace.HasBytes(work_file::kFlowReport));
  }
}

TEST(Command, StopsWhereABranchIsLost) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m", "7/2 5m soma 300l/h 500mm", "2/ANT 5m"});
  EXPECT_EQ(Calculate(bench), CommandEnd::kLost);
  EXPECT_EQ(bench.study.CalcStatus, 0);
  EXPECT_EQ(bench.study.lost_walk->node, "7");
  bench.PutNetwork({"1/ANT 20m soma 1000l/h 500mm"});  // one section, but not the lone one
  EXPECT_EQ(Calculate(bench), CommandEnd::kLost);
}

TEST(Command, StopsOnWrongNamesWithAFreshListAndNoFlag) {
  TestBench bench;
  bench.PutNetwork({"ANT/1 5m", "1/2 5m soma 300l/h 500mm", "2/ANT 5m", "9/1 5m"});
  ASSERT_TRUE(bench.workspace.Write(work_file::kErrors, "old\n").ok());
  const std::string rows = bench.Bytes();
  EXPECT_EQ(Calculate(bench), CommandEnd::kFindings);
  EXPECT_EQ(bench.Bytes(work_file::kErrors), "Το Τμήμα 4 έχει ανύπαρκτο Αρχικό Κόμβο !!\n");
  EXPECT_FALSE(bench.study.NameErrors);
  EXPECT_EQ(bench.study.CalcStatus, 0);
  EXPECT_EQ(bench.Bytes(), rows);
}

TEST(Command, ASectionWithoutFlowBreaksItOff) {
  TestBench bench;
  auto lines = kNetwork;
  lines.emplace_back("1/4 5m 90l/h");  // a bypass that no emitter's circuit takes
  bench.PutNetwork(lines);
  EXPECT_EQ(Calculate(bench), CommandEnd::kBrokenOff);
  EXPECT_TRUE(bench.study.CalcAborted);
  EXPECT_EQ(bench.study.CalcStatus, 0);
  EXPECT_FALSE(bench.Row(6).NomiDiam.Trimmed().empty());
  EXPECT_TRUE(bench.Row(7).NomiDiam.Trimmed().empty());
}

TEST(Command, AFluidThatDoesNotFitEndsItWithoutResults) {
  TestBench bench;
  bench.PutNetwork(kNetwork);
  bench.study.fluid_name = "Άλμη";  // the file still says -10000 °C
  EXPECT_EQ(Calculate(bench), CommandEnd::kViscosity);
  EXPECT_FALSE(bench.workspace.Exists(work_file::kStatistics));
  EXPECT_FALSE(bench.study.CalcAborted);
  EXPECT_EQ(bench.study.CalcStatus, 0);
  EXPECT_FALSE(HasResults(bench.Rows()));
}

TEST(Command, GoesOnWithPipesThatDoNotSufficeOnYesOnly) {
  for (const bool yes : {false, true}) {
    TestBench bench;
    // The first row still carries the flow that was entered.
    bench.PutNetwork({"ANT/1 5m 60000l/h", "1/2 5m soma 60000l/h 500mm", "2/ANT 5m"});
    bench.prompter.Expect(-300, yes ? Answer::kYes : Answer::kNo);
    EXPECT_EQ(Calculate(bench), yes ? CommandEnd::kCalculated : CommandEnd::kCapacity);
    EXPECT_EQ(bench.study.CalcStatus, 0);
    EXPECT_EQ(HasResults(bench.Rows()), yes);
    EXPECT_EQ(bench.Row(1).NomiDiam.Utf8(), yes ? "4" : "");
  }
}

TEST(Command, NoAndCancelLeaveResultsAsTheyStand) {
  for (const auto& [answer, end] : {std::pair{Answer::kNo, CommandEnd::kShowOld},
                                    std::pair{Answer::kCancel, CommandEnd::kCancelled}}) {
    TestBench bench;
    PutCalculated(bench);
    const std::string rows = bench.Bytes();
    bench.prompter.Expect(190, answer);
    EXPECT_EQ(Calculate(bench), end);
    EXPECT_EQ(bench.Bytes(), rows);
  }
}

TEST(Command, ANewRunOnResultsTakesTheRowsAsTheyStand) {
  TestBench bench;
  PutCalculated(bench);
  bench.ChangeRow(1, [](SectionRow& row) { row.WaterFlow = 9000; });
  bench.workspace.Delete(work_file::kFlowReport);
  bench.prompter.Expect(190, Answer::kYes);
  EXPECT_EQ(Calculate(bench), CommandEnd::kCalculated);
  EXPECT_EQ(bench.Row(1).WaterFlow, 9000.0F);  // no rebuild
  EXPECT_EQ(bench.Row(1).NomiDiam.Utf8(), "2 1/2");
  EXPECT_FALSE(bench.workspace.Exists(work_file::kFlowReport));
}

TEST(Command, ResultsThatCameByRecoveryAreCalculatedFromTheData) {
  TestBench bench;
  PutCalculated(bench);
  bench.study.came_by_recovery = true;
  bench.ChangeRow(1, [](SectionRow& row) { row.WaterFlow = 9000; });
  EXPECT_EQ(Calculate(bench), CommandEnd::kCalculated);
  EXPECT_NE(bench.Row(1).WaterFlow, 9000.0F);
  EXPECT_TRUE(bench.prompter.codes().empty());
}

TEST(Command, ALoneSectionNeedsNoNetwork) {
  TestBench bench;
  bench.PutNetwork({"ANT/ANT 20m 1000l/h soma 500mm"});
  EXPECT_EQ(Calculate(bench, Method::kFlowAndPressure), CommandEnd::kCalculated);
  EXPECT_EQ(bench.Row(1).INILAMDA, 2.0F);
  EXPECT_EQ(bench.study.TotalFlowM3h, 1.0F);
  EXPECT_FALSE(bench.workspace.Exists(work_file::kFlowReport));

  bench.study.results_valid = true;
  bench.prompter.Expect(190, Answer::kCancel);
  EXPECT_EQ(Calculate(bench), CommandEnd::kCancelled);
}

TEST(Command, ResultsThatAnEditMadeVoidAreNone) {
  TestBench bench;
  PutCalculated(bench);
  auto rows = bench.Rows();
  rows[1].Name = MakeName("1", "9");
  bench.PutRows(rows);
  bench.study.results_valid = false;
  EXPECT_EQ(Calculate(bench), CommandEnd::kLost);
  EXPECT_THAT(bench.Bytes(work_file::kErrors), testing::StartsWith("Ο Κλάδος του Σώματος"));
}

const std::vector<std::string_view> kOpenNetwork = {"1/ANT 5m", "2/1 5m 2up outlet 300 l/h 5mwg",
                                                    "3/1 5m 4up outlet 200 l/h 5mwg"};

// An open network, one name of which is another.
void PutOpen(TestBench& bench, std::size_t row = 0, std::string_view name = "1/ANT") {
  auto lines = kOpenNetwork;
  const std::string line = std::string(name) + std::string(lines[row].substr(lines[row].find(' ')));
  lines[row] = line;
  bench.PutNetwork(lines);
}

TEST(OpenCommand, ShowsTheFirstListThatHasSomethingAndCalculatesNothing) {
  const std::vector<std::tuple<std::size_t, std::string, std::string>> wrong = {
      {2, "2/1", "Το Τμήμα 2 και το Τμήμα 3 έχουν το ίδιο όνομα !!\n"},
      {2, "3/9", "Το Τμήμα 3 τροφοδοτείται από ανύπαρκτο Τμήμα !!\n"},
      {2, "3/2",
       "Τα Τμήματα 1 και 2 έχουν, ΧΩΡΙΣ ΛΟΓΟ, διαφορετικό όνομα...\n"
       "Τα Τμήματα 2 και 3 έχουν, ΧΩΡΙΣ ΛΟΓΟ, διαφορετικό όνομα...\n"}};
  for (const auto& [row, name, findings] : wrong) {
    TestBench bench(SystemKind::kOpen);
    PutOpen(bench, row, name);
    EXPECT_EQ(Calculate(bench), CommandEnd::kFindings) << name;
    EXPECT_EQ(bench.Bytes(work_file::kErrors), findings);
    EXPECT_EQ(bench.study.CalcStatus, 0);
    EXPECT_FALSE(HasResults(bench.Rows()));
  }
}

TEST(OpenCommand, FeedersInACircleEndTheSumming) {
  TestBench bench(SystemKind::kOpen);
  bench.PutNetwork({"1/ANT 5m", "2/1 5m outlet 300 l/h 5mwg", "3/4 5m", "4/3 5m",
                    "5/3 5m outlet 100 l/h 5mwg", "6/4 5m outlet 100 l/h 5mwg"});
  EXPECT_EQ(Calculate(bench), CommandEnd::kLost);
  EXPECT_EQ(bench.prompter.codes(), std::vector<int>{2004});
  EXPECT_THAT(bench.Bytes(work_file::kErrors), testing::HasSubstr("κύκλο"));
}

TEST(OpenCommand, NamesThatWereNotCheckedSinceAChangeAreRefused) {
  TestBench bench(SystemKind::kOpen);
  PutOpen(bench);
  bench.study.NameErrors = true;
  EXPECT_EQ(Calculate(bench), CommandEnd::kRefused);
  EXPECT_EQ(bench.prompter.codes(), std::vector<int>{12});
  PutOpen(bench, 2, "3/9");
  EXPECT_EQ(Calculate(bench), CommandEnd::kFeeders);
  EXPECT_EQ(bench.Bytes(work_file::kErrors),
            "Το Τμήμα 3 τροφοδοτείται από ανύπαρκτο Τμήμα (Νο 9 )\n");
}

TEST(OpenCommand, AClosedChoiceLeavesTheRows) {
  TestBench bench(SystemKind::kOpen);
  PutOpen(bench);
  EXPECT_EQ(Calculate(bench.bench, [](const CalculationRuns& /*runs*/) {}), CommandEnd::kCancelled);
  EXPECT_FALSE(HasResults(bench.Rows()));
  EXPECT_EQ(Calculate(bench, Method::kFlowAndPressure), CommandEnd::kCalculated);
  EXPECT_EQ(bench.Row(1).INILAMDA, 2.0F);
  EXPECT_EQ(bench.study.method, Method::kFlowAndPressure);
}

}  // namespace
}  // namespace kalvo
