#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

#include "study/numeric_text.h"
#include "study/pipe_row.h"
#include "study/section_row.h"
#include "study/stat_row.h"
#include "study/system_kind.h"

namespace kalvo {

/// What a report is made from. Texts are UTF-8.
struct ReportSource {
  std::string designer;
  SystemKind kind = SystemKind::kClosed;
  std::string fluid;             ///< trimmed
  PipeRow pipe;                  ///< the first of the pipe system
  std::vector<SectionRow> rows;  ///< at least one; the first holds what the study has in common
  std::vector<StatRow> sizes;    ///< every size of the pipe system; of the quantities alone

  [[nodiscard]] const SectionRow& header() const { return rows.front(); }
};

/// What is put into a cell; monostate: nothing is, the cell stays as the template has it.
using ReportValue = std::variant<std::monostate, std::string, double>;

/// A cell in the head of each page: row of the page and column of the sheet, from 1.
struct HeadCell {
  int row;
  int column;
  ReportValue (*value)(const ReportSource&);
};

/// A column of the table, and what it holds in the line of that index, from 0.
struct LineColumn {
  int column;
  ReportValue (*value)(const ReportSource&, std::size_t line);
  bool (*is_bold)(const ReportSource&,
                  std::size_t line) = nullptr;  ///< none: as the template has it
};

/// A page of a sheet, in rows.
struct PageShape {
  int height;
  int lines;       ///< of the table
  int first_line;  ///< row of the first line, from 1
};

/// A report as it is described once: where what goes in which template.
struct ReportTable {
  const char* template_file;
  const char* suffix;  ///< of the names of its workbooks
  const char* sheet;  ///< that is filled, the template's first; its name shows which template it is
  PageShape page;
  std::span<const HeadCell> head;
  std::span<const LineColumn> columns;
  std::size_t (*line_count)(const ReportSource&);
  const char* line_noun;  ///< "Τμήμα", and of many: "Τμημάτων"
  const char* lines_noun;
  const char* page_sheet = nullptr;  ///< the page further ones are copied from; none: the same
  double gap_height = 0;             ///< points, of the row before a new page; 0: as it is
};

/// A number as a cell gets it: without the digits that its default text does not have.
template <typename Number>
ReportValue NumberCell(Number value) {
  if constexpr (std::is_integral_v<Number>) return static_cast<double>(value);
  if constexpr (!std::is_integral_v<Number>) return ThroughText(value);
}

/// `PAR` and pump head of the study, m³/h and m w.g.
ReportValue TotalFlowCell(const ReportSource& source);
ReportValue PumpHeadCell(const ReportSource& source);
ReportValue StudyTitleCell(const ReportSource& source);
/// Title and material line of the pipe system.
std::string PipeTitle(const ReportSource& source);
std::string PipeMaterialLine(const ReportSource& source);

}  // namespace kalvo
