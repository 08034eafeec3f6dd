#pragma once

#include <utility>

#include "engine/calculation_command.h"
#include "engine/rerun.h"
#include "results/results_session.h"
#include "study/tables.h"
#include "tests/support/test_desk.h"

namespace kalvo {

/// A desk with a calculated study of six sections whose results were just asked for. Its critical
/// branch is sections 1, 2, 4, 6.
class ResultsDesk : public TestDesk {
 public:
  explicit ResultsDesk(SystemKind kind = SystemKind::kClosed) : TestDesk(kind) {
    if (kind == SystemKind::kOpen) {
      Calculate({"1/ANT 10m", "2/1 4m 300l/h outlet 10mwg", "3/1 6m 200l/h 2up outlet 12mwg"});
    } else {
      Calculate({"ANT/1 5m", "1/2 5m soma 300l/h 500mm", "1/3 5m soma 200l/h 400mm", "2/4 5m",
                 "3/4 5m", "4/ANT 5m"});
    }
  }

  void Calculate(const std::vector<std::string_view>& lines, Method method = Method::kFlowOnly) {
    test.PutNetwork(lines);
    CalculateAnew(method);
  }

  void CalculateAnew(Method method) {
    EXPECT_EQ(kalvo::Calculate(test.bench, method), CommandEnd::kCalculated);
    KeepCalculatedDiameters(test.study, test.Rows());
    test.study.unsaved_changes = false;
    desk.screens.results_begin = true;
  }

  /// The user imposes another pipe on a row; the calculation on it still waits.
  void Impose(int number, std::string_view name = "2", float diameter_mm = 53.1F) {
    test.ChangeRow(number, [&](SectionRow& row) {
      row.NomiDiam = FixedText<15>::FromUtf8(name);
      row.InDiameter = -diameter_mm;
    });
    test.study.unsaved_changes = true;
  }

  /// The same from the menu: the rows before it are kept.
  void ImposeFromMenu(int number) {
    EXPECT_TRUE(KeepRows(desk, work_file::kRowsBeforeChange));
    Impose(number);
  }

  /// The rows as a run on their diameters leaves them.
  [[nodiscard]] std::vector<SectionRow> RunOnTheirDiameters() const {
    TestBench fresh(test.study.system_kind);
    fresh.PutRows(test.Rows());
    fresh.study.plant_section = test.study.plant_section;
    fresh.study.pipe_system_number = test.study.pipe_system_number;
    EXPECT_EQ(Rerun(fresh.bench), RunEnd::kCalculated);
    return fresh.Rows();
  }

  /// What the navigator was asked for since this was called last.
  std::vector<std::string> TakeLog() { return std::exchange(navigator.log, {}); }
};

}  // namespace kalvo
