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
// A start puts in what is missing, and replaces nothing.
constexpr const char* kRemedy =
    "Διαγράψτε το Αρχείο αυτό και ξεκινήστε πάλι το Πρόγραμμα : θα μπει ξανά στη θέση του";
constexpr const char* kTemplatePassword = "(*40731862*)";

// One report from the order to its end; every step gives kMade when the next one may follow, and
// tells the user if not.
class ReportRun {
 public:
  ReportRun(Workbench& bench, const ReportOrder& order)
      : bench_(bench),
        order_(order),
        choice_(ChooseReport(order.code, order.kind, bench.study.system_kind)) {}

  ReportEnd Make(SpreadsheetApplication& application, const ReportProgress& progress) {
    if (WritesFile() && order_.target.file.empty()) {
      bench_.Ask(NoReportNameBox());
      return ReportEnd::kRefused;
    }
    for (const auto step : {&ReportRun::FindTemplate, &ReportRun::ReadSource}) {
      if (const ReportEnd end = (this->*step)(); end != ReportEnd::kMade) return end;
    }
    const auto workbook = application.Open(template_, kTemplatePassword);
    if (!workbook) return Tell(ReportEnd::kUnreadable, {workbook.error().Line(), kRemedy});
    OpenWorkbook& open = **workbook;
    if (Outcome filled = FillReport(open, *choice_.table, source_, progress); !filled) {
      return Tell(ReportEnd::kUnreadable,
                  {FileError{template_, filled.error().reason}.Line(), kRemedy});
    }
    if (Outcome ended = End(open); !ended)
      return Tell(ReportEnd::kUnwritable, {ended.error().Line()});
    return cancelled_ ? ReportEnd::kCancelled : ReportEnd::kMade;
  }

 private:
  [[nodiscard]] bool WritesFile() const {
    return choice_.mode == ReportMode::kSave || choice_.mode == ReportMode::kPdf;
  }

  ReportEnd Tell(ReportEnd end, std::vector<std::string> lines) {
    bench_.Ask({kNotPossible, std::move(lines), box_style::kExclamation});
    return end;
  }

  ReportEnd FindTemplate() {
    const auto name = FindIgnoringCase(bench_.workspace.outer_disk(), order_.template_folder,
                                       choice_.table->template_file);
    if (!name) return Tell(ReportEnd::kUnreadable, {name.error().Line()});
    if (!*name) {
      return Tell(ReportEnd::kUnreadable,
                  {"... Λείπει κάποιο βασικό Αρχείο ...",
                   "< " + std::string(choice_.table->template_file) + " >"});
    }
    template_ = order_.template_folder / **name;
    return ReportEnd::kMade;
  }

  ReportEnd ReadSource() {
    ReportEnd end = ReportEnd::kRefused;  // by a fault
    RunTrapped(bench_, [&] {
      const ReportEnd read = ReadRows();
      if (read != ReportEnd::kMade) {
        end = read;
      } else {
        end = choice_.table == &kQuantitiesReport ? ReadSizes() : ReadPipe();
      }
    });
    return end;
  }

  ReportEnd ReadRows() {
    auto rows = bench_.workspace.Rows(order_.rows).ReadAll();
    if (!rows) return Tell(ReportEnd::kUnreadable, {rows.error().Line()});
    if (rows->empty()) {
      bench_.Show(message::kNoData);
      return ReportEnd::kRefused;
    }
    source_.designer = order_.designer;
    source_.kind = bench_.study.system_kind;
    source_.fluid = Trim(bench_.study.fluid_name);
    source_.rows = std::move(rows).value();
    return ReportEnd::kMade;
  }

  ReportEnd ReadPipe() {
    const auto pipes = ReadPipeSystem(bench_.workspace, bench_.study.pipe_system_number);
    if (!pipes) return Tell(ReportEnd::kUnreadable, {pipes.error().Line()});
    source_.pipe = pipes->front();
    return ReportEnd::kMade;
  }

  ReportEnd ReadSizes() {
    auto quantities = ReadQuantities(bench_.workspace, bench_.study, order_.rows);
    if (!quantities) return Tell(ReportEnd::kUnreadable, {quantities.error().Line()});
    if (quantities->lines.empty()) return Tell(ReportEnd::kRefused, {kNoQuantities});
    source_.pipe = quantities->pipes.front();
    source_.sizes = std::move(quantities->lines);
    return ReportEnd::kMade;
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
        PrintOrder print = order_.print;
        print.copies = std::max(1, print.copies);
        const auto printed = workbook.Print(print);
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

ReportEnd WriteReport(Workbench& bench, SpreadsheetApplication& application,
                      const ReportOrder& order, const ReportProgress& progress) {
  return ReportRun(bench, order).Make(application, progress);
}

std::string ReportProgressText(const ReportTable& table, std::size_t line, std::size_t count) {
  return std::string(table.line_noun) + " Νο < " + std::to_string(line) + " >, από Σύνολο " +
         table.lines_noun + " < " + std::to_string(count) + " >";
}

Box NoReportNameBox() {
  return {"  ! !  ΠΡΟΣΟΧΗ  ! ! ",
          {"... ΔΕΝ έχετε δώσει όνομα Αρχείου ..."},
          box_style::kExclamation,
          kAlarmBeeps};
}

}  // namespace kalvo
