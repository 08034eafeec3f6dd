#include "results/reports/report_writer.h"

#include <algorithm>

#include "engine/trap.h"
#include "results/quantities.h"
#include "results/reports/quantities_report.h"
#include "results/reports/section_report.h"
#include "study/message_codes.h"

namespace kalvo {
namespace {

constexpr const char* kNotPossible = "Η ΕΚΤΥΠΩΣΗ - μέσω του Microsoft Excel - ΔΕΝ ΕΙΝΑΙ ΔΥΝΑΤΗ";
constexpr const char* kTemplatePassword = "(*40731862*)";

bool Refuse(Workbench& bench, const std::string& reason) {
  bench.Ask({kNotPossible, {reason}, box_style::kExclamation});
  return false;
}

bool Refuse(Workbench& bench, const FileError& error) { return Refuse(bench, error.Line()); }

// One report from the order to its end; every step says whether the next one may follow, and tells
// the user if not.
class ReportRun {
 public:
  ReportRun(Workbench& bench, const ReportOrder& order)
      : bench_(bench),
        order_(order),
        choice_(ChooseReport(order.code, order.kind, bench.study.system_kind)) {}

  bool Make(SpreadsheetApplication& application, const ReportProgress& progress) {
    if (!HasTarget() || !FindTemplate() || !ReadSource()) return false;
    const auto workbook = application.Open(template_, kTemplatePassword);
    if (!workbook) return Refuse(bench_, workbook.error());
    OpenWorkbook& open = **workbook;
    if (Outcome filled = FillReport(open, *choice_.table, source_, progress); !filled) {
      return Refuse(bench_, {template_, filled.error().reason});
    }
    Outcome ended = End(open);
    return ended.ok() ? !cancelled_ : Refuse(bench_, ended.error());
  }

 private:
  [[nodiscard]] bool WritesFile() const {
    return choice_.mode == ReportMode::kSave || choice_.mode == ReportMode::kPdf;
  }

  bool HasTarget() {
    if (!WritesFile() || !order_.target.file.empty()) return true;
    bench_.Ask(NoReportNameBox());
    return false;
  }

  bool FindTemplate() {
    const auto name = FindIgnoringCase(bench_.workspace.outer_disk(), order_.template_folder,
                                       choice_.table->template_file);
    if (!name) return Refuse(bench_, name.error());
    if (!*name) return Refuse(bench_, "... Λείπει κάποιο βασικό Αρχείο ...");
    template_ = order_.template_folder / **name;
    return true;
  }

  bool ReadSource() {
    bool read = false;
    RunTrapped(bench_, [&] {
      read = ReadRows() && (choice_.table == &kQuantitiesReport ? ReadSizes() : ReadPipe());
    });
    return read;
  }

  bool ReadRows() {
    auto rows = bench_.workspace.Rows(order_.rows).ReadAll();
    if (!rows) return Refuse(bench_, rows.error());
    if (rows->empty()) {
      bench_.Show(message::kNoData);
      return false;
    }
    source_.designer = order_.designer;
    source_.kind = bench_.study.system_kind;
    source_.fluid = Trim(bench_.study.fluid_name);
    source_.rows = std::move(rows).value();
    return true;
  }

  bool ReadPipe() {
    const auto pipes = ReadPipeSystem(bench_.workspace, bench_.study.pipe_system_number);
    if (!pipes) return Refuse(bench_, pipes.error());
    source_.pipe = pipes->front();
    return true;
  }

  bool ReadSizes() {
    auto quantities = ReadQuantities(bench_.workspace, bench_.study, order_.rows);
    if (!quantities) return Refuse(bench_, quantities.error());
    if (quantities->lines.empty()) return Refuse(bench_, kNoQuantities);
    source_.pipe = quantities->pipes.front();
    source_.sizes = std::move(quantities->lines);
    return true;
  }

  Outcome End(OpenWorkbook& workbook) {
    if (WritesFile() && order_.target.in_export_folder) {
      const std::filesystem::path folder = order_.target.file.parent_path();
      if (Outcome made = bench_.workspace.outer_disk().MakeFolder(folder); !made) return made;
    }
    switch (choice_.mode) {
      case ReportMode::kPreview:
        return workbook.Preview();
      case ReportMode::kPrint: {
        const auto printed = workbook.Print(order_.printer, std::max(1, order_.copies));
        if (!printed) return printed.error();
        cancelled_ = !*printed;
        return Done{};
      }
      case ReportMode::kSave:
        workbook.Protect(kTemplatePassword);
        return workbook.SaveAs(order_.target.file);
      case ReportMode::kPdf:
        return workbook.SaveAsPdf(order_.target.file);
    }
    return Done{};
  }

  Workbench& bench_;
  const ReportOrder& order_;
  ReportChoice choice_;
  std::filesystem::path template_;
  ReportSource source_;
  bool cancelled_ = false;
};

}  // namespace

ReportChoice ChooseReport(int code, ReportKind kind, SystemKind system) {
  if (code <= kQuantitiesCode) {
    return {&kQuantitiesReport, static_cast<ReportMode>(code - kQuantitiesCode)};
  }
  const auto mode = static_cast<ReportMode>(code);
  if (kind == ReportKind::kResults) return {&kResultsReport, mode};
  return {system == SystemKind::kOpen ? &kOpenDataReport : &kClosedDataReport, mode};
}

bool WriteReport(Workbench& bench, SpreadsheetApplication& application, const ReportOrder& order,
                 const ReportProgress& progress) {
  return ReportRun(bench, order).Make(application, progress);
}

std::string ReportProgressText(std::size_t line, std::size_t count) {
  return "Τμήμα Νο < " + std::to_string(line) + " >, από Σύνολο Τμημάτων < " +
         std::to_string(count) + " >";
}

Box NoReportNameBox() {
  return {"  ! !  ΠΡΟΣΟΧΗ  ! ! ",
          {"... ΔΕΝ έχετε δώσει όνομα Αρχείου ..."},
          box_style::kExclamation,
          kAlarmBeeps};
}

}  // namespace kalvo
