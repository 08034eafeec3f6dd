#pragma once

#include "cli/console.h"
#include "results/study_report.h"

namespace kalvo {

/// Results as comma-separated text, a line per section, columns named as the row's fields. Cells
/// are kept apart by "," when the decimal point is ".", else by ";". Numbers are written so that
/// they read back exactly.
class CsvReport {
 public:
  /// `with_file`: the study's name comes as first column.
  CsvReport(const Console& console, PressureUnits units, bool with_file);

  /// Byte order mark and column names.
  void PrintHead() const;
  void Print(const StudyReport& report) const;

 private:
  const Console& console_;
  bool pascal_;
  bool with_file_;
  Separators separators_;
};

/// The quantities as such text, a line per size of the pipe system, columns named as the fields of
/// its record and litres of water behind them.
void PrintQuantitiesCsv(const Console& console, const StudyReport& report);

}  // namespace kalvo
