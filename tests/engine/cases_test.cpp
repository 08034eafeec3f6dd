// Networks calculated independently of this program, compared field by field.

#include "engine/calculation_command.h"
#include "engine/explain.h"
#include "engine/rerun.h"
#include "engine/winter.h"
#include "tests/support/calculated_case.h"

namespace kalvo {
namespace {

const std::filesystem::path kCases = std::filesystem::path(KALVO_SOURCE_DIR) / "tests/cases";

std::filesystem::path StudyFile(const std::string& name) {
  return kCases / (name + (name.starts_with("open") ? ".PCA" : ".PCK"));
}

class Cases : public testing::TestWithParam<const char*> {};

TEST_P(Cases, ComeOutByBothMethods) {
  const std::string name = GetParam();
  for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
    CalculatedCase calculated(StudyFile(name), kCases / "library");
    ASSERT_EQ(Calculate(calculated.bench, method), CommandEnd::kCalculated);
    const std::string result = name + "-method" + std::to_string(static_cast<int>(method));
    ExpectResults(calculated, kCases / (result + ".csv"));
    const std::string pipes = result + "-pipes.csv";
    ExpectRows(calculated.workspace->Rows<StatRow>(work_file::kStatistics).ReadAll().value(),
               ReadCsv(kCases / pipes).lines, 1e-5, pipes);
    const std::string found = std::exchange(calculated.study.critical_branch, {});
    RefindCriticalBranch(calculated.bench);
    EXPECT_EQ(calculated.study.critical_branch, found) << result << ", as a load finds it";
    ASSERT_TRUE(calculated.workspace->Copy(work_file::kRows, work_file::kFirstRows).ok());
    ASSERT_EQ(Rerun(calculated.bench), RunEnd::kCalculated);
    ExpectResults(calculated, kCases / (result + ".csv"));
  }
}

TEST_P(Cases, AreExplainedRowByRow) {
  for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
    CalculatedCase calculated(StudyFile(GetParam()), kCases / "library");
    ASSERT_EQ(Calculate(calculated.bench, method), CommandEnd::kCalculated);
    const auto pass = TakePassConditions(calculated.bench);
    ASSERT_TRUE(pass.has_value());
    for (const SectionRow& row : calculated.Rows()) {
      EXPECT_TRUE(ExplainRow(calculated.study.system_kind, row, *pass).Agrees())
          << GetParam() << " method " << static_cast<int>(method) << " row " << row.RecordNumber;
    }
  }
}

TEST_P(Cases, ComeOutOnFixedDiameters) {
  const std::string name = std::string(GetParam()) + "-fixed";
  if (!std::filesystem::exists(StudyFile(name))) {
    return;
  }
  CalculatedCase calculated(StudyFile(name), kCases / "library");
  const std::vector<SectionRow> imposed = calculated.Rows();
  ASSERT_EQ(Rerun(calculated.bench), RunEnd::kCalculated);
  ExpectResults(calculated, kCases / (name + ".csv"));

  // As changes of a session of results, and back on the diameters of its first rows.
  CalculatedCase session(StudyFile(GetParam()), kCases / "library");
  ASSERT_EQ(Calculate(session.bench, Method::kFlowOnly), CommandEnd::kCalculated);
  const auto first = session.Rows();
  ASSERT_TRUE(session.workspace->Copy(work_file::kRows, work_file::kFirstRows).ok());
  ASSERT_TRUE(session.workspace->Rows().WriteAll(imposed).ok());
  ASSERT_EQ(Rerun(session.bench), RunEnd::kCalculated);
  ExpectResults(session, kCases / (name + ".csv"));
  auto back = session.Rows();
  for (std::size_t i = 0; i < back.size(); ++i) {
    back[i].NomiDiam = first[i].NomiDiam;
    back[i].InDiameter = -std::fabs(first[i].InDiameter);
  }
  ASSERT_TRUE(session.workspace->Rows().WriteAll(back).ok());
  ASSERT_EQ(Rerun(session.bench), RunEnd::kCalculated);
  ExpectResults(session, kCases / (std::string(GetParam()) + "-method1.csv"));
}

INSTANTIATE_TEST_SUITE_P(Closed, Cases,
                         testing::Values("closed-1", "closed-3", "closed-17", "closed-28",
                                         "closed-30", "closed-41", "closed-45", "closed-61",
                                         "closed-95"));
INSTANTIATE_TEST_SUITE_P(Open, Cases,
                         testing::Values("open-1", "open-3", "open-13", "open-28", "open-51",
                                         "open-92"));

class WinterCases : public testing::TestWithParam<const char*> {};

// Winter flows and drops by section; the pipes keep their lengths.
std::vector<WinterLine> WinterLines(const Workbench& bench, const std::filesystem::path& file) {
  std::vector<WinterLine> lines = SummerValues(bench);
  for (const CsvLine& values : ReadCsv(file).lines) {
    const auto section = static_cast<int>(CellNumber(values.at("section")));
    for (WinterLine& line : lines) {
      if (line.section == section) {
        line.flow_lh = static_cast<float>(CellNumber(values.at("flow")));
        line.drop = static_cast<float>(CellNumber(values.at("drop")));
      }
    }
  }
  return lines;
}

TEST_P(WinterCases, ComeOutOnSummersPipes) {
  const std::string name = GetParam();
  CalculatedCase calculated(StudyFile(name), kCases / "library");
  const std::string summer = calculated.workspace->Read(work_file::kRows).value();
  const auto lines = WinterLines(calculated.bench, kCases / (name + "-values.csv"));
  const auto result = kCases / (name + "-result.csv");
  const std::string head = ReadCsv(result).comments.front();
  const auto temperature = static_cast<float>(CellNumber(head.substr(head.find('=') + 1)));
  const float pump_head = calculated.study.PumpHead;

  WinterDuty winter(calculated.bench);
  ASSERT_EQ(winter.Run(temperature, lines).end, WinterEnd::kCalculated);
  ExpectRows(calculated.Rows(work_file::kWinter), ReadCsv(result).lines, 2e-6, name);
  winter.Close();
  EXPECT_EQ(calculated.workspace->Read(work_file::kRows).value(), summer);
  EXPECT_EQ(calculated.study.PumpHead, pump_head);
}

INSTANTIATE_TEST_SUITE_P(Winter, WinterCases, testing::Values("winter-19", "winter-50"));

}  // namespace
}  // namespace kalvo
