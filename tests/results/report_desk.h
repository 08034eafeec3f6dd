#pragma once

#include "results/reports/report_writer.h"
#include "tests/results/recorded_spreadsheet.h"
#include "tests/results/results_desk.h"

namespace kalvo {

/// A desk whose calculated study is put into reports, with all four templates at hand.
class ReportDesk : public ResultsDesk {
 public:
  explicit ReportDesk(SystemKind kind = SystemKind::kClosed) : ResultsDesk(kind) {
    for (const char* const name : {"KALV_RS.xls", "KALV_CD.xls", "KALV_OD.xls", "kalv_pr.XLS"}) {
      EXPECT_TRUE(test.outer_disk.Write(kTemplates / name, "a workbook").ok());
    }
    order.template_folder = kTemplates;
    order.designer = " Μ. Μηχανικός ";
  }

  bool Make(int code, ReportKind kind = ReportKind::kResults) {
    order.code = code;
    order.kind = kind;
    application.log.clear();
    return WriteReport(test.bench, application, order) == ReportEnd::kMade;
  }
  bool Preview(ReportKind kind) { return Make(CodeOf(ReportMode::kPreview), kind); }
  bool PreviewQuantities() { return Make(QuantitiesCodeOf(ReportMode::kPreview)); }

  /// The study has so many sections, each a copy of the first row but for its number.
  void PutSections(int count) {
    std::vector<SectionRow> rows(static_cast<std::size_t>(count), test.Row(1));
    for (int number = 1; number <= count; ++number) {
      SectionRow& row = rows[static_cast<std::size_t>(number - 1)];
      row.RecordNumber = row.SectionNo = static_cast<std::int16_t>(number);
    }
    EXPECT_TRUE(test.workspace.Rows().WriteAll(rows).ok());
  }

  /// The pipe system has so many sizes, and the study's list of quantities fits it.
  void PutSizes(int count) {
    std::vector<PipeRow> pipes(static_cast<std::size_t>(count), SteelPipes().front());
    test.study.PipeStats.assign(pipes.size(), StatRow());
    for (std::size_t i = 0; i < pipes.size(); ++i) {
      const std::string name = "DN " + std::to_string(i + 1);
      pipes[i].pipe_id = test.study.PipeStats[i].RecordNumber = static_cast<std::int16_t>(i + 1);
      pipes[i].nominal_diameter = FixedText<12>::FromUtf8(name);
      test.study.PipeStats[i].NomiDiameter = pipes[i].nominal_diameter;
    }
    PutPipes(test, PipeFileName(1), pipes);
  }

  /// What the workbook was told but for the cells that were put.
  [[nodiscard]] std::vector<std::string> Pages() const {
    std::vector<std::string> told;
    for (const std::string& line : application.log) {
      if (line.starts_with("copy") || line.starts_with("break") || line.starts_with("height")) {
        told.push_back(line);
      }
    }
    return told;
  }
  [[nodiscard]] std::string LastBox() const {
    return test.prompter.boxes().empty() ? "(none)" : Joined(test.prompter.boxes().back().lines);
  }

  static inline const std::filesystem::path kTemplates = "/program";
  RecordedSpreadsheet application;
  ReportOrder order;
};

}  // namespace kalvo
