#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "study/pipe_row.h"
#include "study/section_row.h"
#include "study/stat_row.h"

namespace kalvo {

/// What a printed column holds: an i16, an f32 or a text.
enum class PrintType { kInteger, kSingle, kText };

struct PrintColumn {
  std::string_view name;
  PrintType type = PrintType::kInteger;
  int width = 0;  ///< of a text: the most characters

  bool operator==(const PrintColumn&) const = default;
};

/// Nothing, an integer, a single or a text in UTF-8 with the blanks of its field.
using PrintValue = std::variant<std::monostate, std::int32_t, float, std::string>;
using PrintLine = std::vector<PrintValue>;

/// What the print database and the files made with it hold: columns, and a value for each in every
/// line.
struct PrintTable {
  std::vector<PrintColumn> columns;
  std::vector<PrintLine> lines;
};

/// The columns of the sections' rows: the row's fields in their order.
std::vector<PrintColumn> SectionPrintColumns();
/// The columns of the quantities.
std::vector<PrintColumn> QuantityPrintColumns();

/// The rows under the designer's name, with a line on the material in place of its word. The
/// nominal diameter is in brackets where it is imposed, and missing where there is none.
PrintTable PrintedSections(std::span<const SectionRow> rows, std::string_view designer);
/// The quantities of a pipe system, whose texts and inner diameters they take over line by line.
PrintTable PrintedQuantities(std::span<const StatRow> lines, std::span<const PipeRow> pipes,
                             std::string_view designer);

}  // namespace kalvo
