#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "results/reports/report_file.h"
#include "results/reports/report_paging.h"
#include "study/workbench.h"

namespace kalvo {

enum class ReportKind { kData = 1, kResults = 2 };

/// What becomes of a filled workbook: `Mode`.
enum class ReportMode : int { kPrint = 0, kPreview = -1, kSave = -2, kPdf = -3 };

/// What a report is asked for with: its mode, or for the quantities that plus this.
constexpr int kQuantitiesCode = -10;
constexpr int CodeOf(ReportMode mode) { return static_cast<int>(mode); }
constexpr int QuantitiesCodeOf(ReportMode mode) { return kQuantitiesCode + CodeOf(mode); }

/// A report and what becomes of it.
struct ReportChoice {
  const ReportTable* table;
  ReportMode mode;

  /// The end of the name of the file that it is written to.
  [[nodiscard]] std::string Suffix() const {
    return mode == ReportMode::kPdf ? PdfSuffix(table->suffix) : table->suffix;
  }
};

/// The report that a code asks for: a mode plus kQuantitiesCode is the quantities; a mode alone
/// goes by the kind of report and of system.
ReportChoice ChooseReport(int code, ReportKind kind, SystemKind system);

/// A report that is to be made.
struct ReportOrder {
  int code = CodeOf(ReportMode::kPreview);
  ReportKind kind = ReportKind::kResults;
  std::string designer{};
  std::filesystem::path template_folder{};
  PrintOrder print{};     ///< of kPrint
  ReportTarget target{};  ///< of kSave and kPdf
  std::string name{};     ///< of kPreview: what its files would be called; empty: as the study
  std::string_view rows = work_file::kRows;
};

/// How a report ended; unless it was made or cancelled a box said why.
enum class ReportEnd {
  kMade,
  kCancelled,   ///< by the user, while it was printed
  kRefused,     ///< the study has nothing for it, or its file has no name
  kUnreadable,  ///< the study, the pipe system or the template
  kUnwritable   ///< neither written, nor printed, nor shown
};

/// Makes a report of the open study. An old file under its name is replaced without a question.
ReportEnd WriteReport(Workbench& bench, SpreadsheetApplication& application,
                      const ReportOrder& order, const ReportProgress& progress = {});

/// "Τμήμα Νο < 12 >, από Σύνολο Τμημάτων < 41 >"
std::string ReportProgressText(const ReportTable& table, std::size_t line, std::size_t count);

/// The box for a file that was given no name.
Box NoReportNameBox();

}  // namespace kalvo
