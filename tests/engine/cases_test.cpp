// Networks calculated independently of this program, compared field by field.

#include "engine/calculation_command.h"
#include "engine/explain.h"
#include "engine/rerun.h"
#include "tests/support/closed_case.h"

namespace kalvo {
namespace {

const std::filesystem::path kCases = std::filesystem::path(KALVO_SOURCE_DIR) / "tests/cases";

class ClosedCases : public testing::TestWithParam<const char*> {};

TEST_P(ClosedCases, ComeOutByBothMethods) {
  const std::string name = GetParam();
  for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
    ClosedCase calculated(kCases / (name + ".PCK"), kCases / "library");
    ASSERT_EQ(CalculateClosed(calculated.bench, method), CommandEnd::kCalculated);
    const std::string result = name + "-method" + std::to_string(static_cast<int>(method));
    ExpectResults(calculated, kCases / (result + ".csv"));
    const std::string pipes = result + "-pipes.csv";
    ExpectRows(calculated.workspace.Rows<StatRow>(work_file::kStatistics).ReadAll().value(),
               ReadCsv(kCases / pipes).lines, 1e-5, pipes);
  }
}

TEST_P(ClosedCases, AreExplainedRowByRow) {
  for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
    ClosedCase calculated(kCases / (std::string(GetParam()) + ".PCK"), kCases / "library");
    ASSERT_EQ(CalculateClosed(calculated.bench, method), CommandEnd::kCalculated);
    const auto pass = LoadPassConditions(calculated.bench);
    ASSERT_TRUE(pass.has_value());
    for (const SectionRow& row : calculated.Rows()) {
      EXPECT_TRUE(ExplainRow(row, *pass).Agrees())
          << GetParam() << " method " << static_cast<int>(method) << " row " << row.RecordNumber;
    }
  }
}

TEST_P(ClosedCases, ComeOutOnFixedDiameters) {
  const std::string name = std::string(GetParam()) + "-fixed";
  if (!std::filesystem::exists(kCases / (name + ".PCK"))) {
    return;
  }
  ClosedCase calculated(kCases / (name + ".PCK"), kCases / "library");
  Rerun(calculated.bench);
  ASSERT_EQ(calculated.study.CalcStatus, calc_status::kNothing);
  ExpectResults(calculated, kCases / (name + ".csv"));
}

INSTANTIATE_TEST_SUITE_P(Cases, ClosedCases,
                         testing::Values("closed-1", "closed-3", "closed-17", "closed-28",
                                         "closed-30", "closed-41", "closed-45", "closed-61",
                                         "closed-95"));

}  // namespace
}  // namespace kalvo
