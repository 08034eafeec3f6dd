// Networks calculated independently of this program, compared field by field.

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>

#include "engine/calculation_command.h"
#include "engine/rerun.h"
#include "study/load_study.h"
#include "study/memory_disk.h"
#include "study/real_disk.h"

namespace kalvo {
namespace {

const std::filesystem::path kCases = std::filesystem::path(KALVO_SOURCE_DIR) / "tests/cases";

// Answers every question with yes and fails on a box that tells of trouble.
class YesToAll : public Prompter {
 public:
  Answer ShowMessage(int code, const Study& /*study*/) override {
    EXPECT_TRUE(code == -300 || code == 190) << "message " << code;
    return Answer::kYes;
  }
  Answer Ask(const Box& box) override {
    ADD_FAILURE() << box.title << ": " << box.lines.front();
    return Answer::kYes;
  }
};

struct CaseBench {
  explicit CaseBench(const std::string& file)
      : workspace(memory, "/", disk, kCases / "library", clock) {
    pipes = BuildPipeList(workspace, EmptyLibraries::kSkip).value();
    study.system_kind = SystemKind::kClosed;
    study.study_path = kCases / file;
    LoadStudy(bench);
    EXPECT_EQ(study.CalcStatus, 0) << file;
  }

  MemoryDisk memory;
  RealDisk disk;
  NoWait clock;
  Workspace workspace;
  PipeList pipes;
  Study study;
  YesToAll prompter;
  Workbench bench{study, workspace, pipes, prompter};
};

using Line = std::map<std::string, std::string>;

struct Table {
  std::string head;  // the comment line above the columns
  std::vector<Line> lines;
};

std::vector<std::string> Split(const std::string& text, char by) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == by) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

Table ReadTable(const std::string& file) {
  std::ifstream stream(kCases / file);
  EXPECT_TRUE(stream.is_open()) << file;
  Table table;
  std::vector<std::string> columns;
  for (std::string text; std::getline(stream, text);) {
    if (text.starts_with("#")) {
      table.head = text.substr(2);
    } else if (columns.empty()) {
      columns = Split(text, ',');
    } else {
      const auto cells = Split(text, ',');
      Line line;
      for (std::size_t i = 0; i < columns.size(); ++i) {
        line[columns[i]] = cells.at(i);
      }
      table.lines.push_back(line);
    }
  }
  return table;
}

double Number(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

void ExpectNear(double actual, double expected, double relative, const std::string& what) {
  EXPECT_LE(std::fabs(actual - expected), relative * std::fabs(expected) + 1e-9)
      << what << ": " << actual << " and not " << expected;
}

template <typename Row>
void ExpectRow(Row& row, const Line& line, double relative, const std::string& where) {
  std::size_t compared = 0;
  ForEachField(row, [&](std::string_view name, const auto& value) {
    const auto cell = line.find(std::string(name));
    if (cell == line.end()) {
      return;
    }
    ++compared;
    const std::string what = where + " " + cell->first;
    using Value = std::decay_t<decltype(value)>;
    if constexpr (std::is_same_v<Value, float>) {
      ExpectNear(value, Number(cell->second), relative, what);
    } else if constexpr (std::is_same_v<Value, std::int16_t>) {
      EXPECT_EQ(value, static_cast<int>(Number(cell->second))) << what;
    } else {
      EXPECT_EQ(std::string(Trim(value.bytes())), std::string(Trim(ToCodePage(cell->second))))
          << what;
    }
  });
  EXPECT_EQ(compared, line.size()) << where << ": a column that no field bears";
}

void ExpectHead(const Study& study, const std::string& head, const std::string& where) {
  const std::size_t critical_at = head.find("critical=");
  std::istringstream words(head.substr(0, critical_at));
  std::map<std::string, double> values;
  for (std::string word; words >> word;) {
    const std::size_t equals = word.find('=');
    values[word.substr(0, equals)] = Number(word.substr(equals + 1));
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

template <typename Row>
void ExpectRows(const std::vector<Row>& rows, const std::vector<Line>& lines, double relative,
                const std::string& where) {
  ASSERT_EQ(rows.size(), lines.size()) << where;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    ExpectRow(rows[i], lines[i], relative, where + " row " + std::to_string(i + 1));
  }
}

void ExpectResults(const CaseBench& calculated, const std::string& file) {
  const Table table = ReadTable(file);
  ExpectHead(calculated.study, table.head, file);
  ExpectRows(calculated.workspace.Rows().ReadAll().value(), table.lines, 2e-6, file);
}

class ClosedCase : public testing::TestWithParam<const char*> {};

TEST_P(ClosedCase, ComesOutByBothMethods) {
  const std::string name = GetParam();
  for (const Method method : {Method::kFlowOnly, Method::kFlowAndPressure}) {
    CaseBench calculated(name + ".PCK");
    ASSERT_EQ(CalculateClosed(calculated.bench, method), CommandEnd::kCalculated);
    const std::string result = name + "-method" + std::to_string(static_cast<int>(method));
    ExpectResults(calculated, result + ".csv");
    const std::string pipes = result + "-pipes.csv";
    ExpectRows(calculated.workspace.Rows<StatRow>(work_file::kStatistics).ReadAll().value(),
               ReadTable(pipes).lines, 1e-5, pipes);
  }
}

TEST_P(ClosedCase, ComesOutOnFixedDiameters) {
  const std::string name = std::string(GetParam()) + "-fixed";
  if (!std::filesystem::exists(kCases / (name + ".PCK"))) {
    return;
  }
  CaseBench calculated(name + ".PCK");
  calculated.study.SingleSection = calculated.study.SectionCount == 1;
  Rerun(calculated.bench);
  ASSERT_EQ(calculated.study.CalcStatus, calc_status::kNothing);
  ExpectResults(calculated, name + ".csv");
}

INSTANTIATE_TEST_SUITE_P(Cases, ClosedCase,
                         testing::Values("closed-1", "closed-3", "closed-17", "closed-28",
                                         "closed-30", "closed-41", "closed-45", "closed-61",
                                         "closed-95"));

}  // namespace
}  // namespace kalvo
