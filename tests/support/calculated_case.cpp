#include "tests/support/calculated_case.h"

#include <sstream>

#include "study/load_study.h"

namespace kalvo {
namespace {

void ExpectHead(const Study& study, const std::string& head, const std::string& where) {
  const std::size_t critical_at = head.find("critical=");
  ASSERT_NE(critical_at, std::string::npos) << where;
  std::istringstream words(head.substr(0, critical_at));
  std::map<std::string, double> values;
  for (std::string word; words >> word;) {
    const std::size_t equals = word.find('=');
    values[word.substr(0, equals)] = CellNumber(word.substr(equals + 1));
  }
  ExpectNear(study.TotalFlowM3h, values.at("PAR"), 2e-6, where + " PAR");
  ExpectNear(study.CriticalDrop, values.at("DP"), 2e-6, where + " DP");
  ExpectNear(study.PumpHead, values.at("PumpHead"), 2e-6, where + " PumpHead");
  std::string cells;
  for (const std::string& part : Split(study.critical_branch, '-')) {
    const std::string_view number = Trim(part);
    cells += number.empty() ? "" : (cells.empty() ? "" : " ") + std::string(number);
  }
  EXPECT_EQ(cells, head.substr(critical_at + 9)) << where;
}

}  // namespace

Answer YesToAll::ShowMessage(int code, const Study& /*study*/) {
  EXPECT_TRUE(code == -300 || code == 190) << "message " << code;
  return Answer::kYes;
}

Answer YesToAll::Ask(const Box& box) {
  ADD_FAILURE() << box.title << ": " << box.lines.front();
  return Answer::kYes;
}

CalculatedCase::CalculatedCase(const std::filesystem::path& file,
                               const std::filesystem::path& library)
    : workspace(library) {
  pipes = BuildPipeList(*workspace, EmptyLibraries::kSkip).value();
  study.system_kind = file.extension() == ".PCA" ? SystemKind::kOpen : SystemKind::kClosed;
  study.study_path = file;
  EXPECT_TRUE(LoadStudy(bench, RecentList::kLeave)) << file;
}

void ExpectNear(double actual, double expected, double relative, const std::string& what) {
  EXPECT_LE(std::fabs(actual - expected), relative * std::fabs(expected) + 1e-9)
      << what << ": " << actual << " and not " << expected;
}

void ExpectResults(const CalculatedCase& calculated, const std::filesystem::path& file) {
  const CsvTable table = ReadCsv(file);
  const std::string name = file.filename().string();
  ASSERT_EQ(table.comments.size(), 1U) << name;
  ExpectHead(calculated.study, table.comments.front(), name);
  ExpectRows(calculated.Rows(), table.lines, 2e-6, name);
}

}  // namespace kalvo
