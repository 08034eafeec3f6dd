#include "platform/xls/workbook.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>

#include "platform/xls/sheet_password.h"

namespace kalvo {

namespace {

constexpr std::uint16_t kUsualFormat = 15;  // the first one of cells; those before are of styles
constexpr std::uint8_t kNotANumber = 0x24;
constexpr int kMostTwips = 8190;
constexpr double kTwipsOfPoint = 20;

// The options of a row.
constexpr std::uint32_t kHiddenRow = 0x20;
constexpr std::uint32_t kOwnHeight = 0x40;
constexpr std::uint32_t kOwnFormat = 0x80;

auto PlaceOf(const std::vector<Cell>& cells, int column) {
  return std::ranges::lower_bound(cells, column, {}, &Cell::column);
}

const ColumnSpan* SpanOf(const Sheet& sheet, int column) {
  const auto found = std::ranges::find_if(sheet.columns, [column](const ColumnSpan& span) {
    return span.first <= column && column <= span.last;
  });
  return found == sheet.columns.end() ? nullptr : &*found;
}

// Rows and columns may name a look that is not there; a cell has one that is.
std::uint16_t FormatOfNewCell(const Workbook& workbook, const Sheet& sheet, const WorkbookRow& row,
                              int column) {
  const ColumnSpan* span = SpanOf(sheet, column);
  std::uint16_t format = span != nullptr ? span->format : kUsualFormat;
  if ((row.options & kOwnFormat) != 0) format = (row.options >> 16U) & 0x0FFFU;
  if (format < workbook.formats.size()) return format;
  return kUsualFormat < workbook.formats.size() ? kUsualFormat : std::uint16_t{0};
}

// Row and column of the cell that holds the formula of an area.
using AreaCell = std::pair<unsigned, unsigned>;

// That cell, when a formula is only the remark that the one of the area holds here too.
// Source: [MS-XLS], PtgExp and PtgTbl.
std::optional<AreaCell> AreaCellOf(const CellFormula& formula) {
  RecordReader reader(formula.record);
  reader.Skip(22);
  const unsigned token = reader.U8();
  const unsigned row = reader.U16();
  const unsigned column = reader.U16();
  if (!reader.ok() || (token != 1 && token != 2)) return std::nullopt;
  return AreaCell{row, column};
}

// Takes the formula off a cell; one that is of an area is noted.
void DropFormula(int row, Cell& cell, std::set<AreaCell>& areas) {
  const auto formula = std::exchange(cell.formula, nullptr);
  if (formula == nullptr || formula->after.empty()) return;
  areas.emplace(static_cast<unsigned>(row), cell.column);
}

// Areas whose formula is gone keep their results.
void DropAreas(Sheet& sheet, const std::set<AreaCell>& areas) {
  if (areas.empty()) return;
  for (auto& [number, row] : sheet.rows) {
    for (Cell& cell : row.cells) {
      const auto area = cell.formula == nullptr ? std::nullopt : AreaCellOf(*cell.formula);
      if (area && areas.contains(*area)) cell.formula = nullptr;
    }
  }
}

void Put(const Workbook& workbook, Sheet& sheet, int row, int column, CellValue value) {
  WorkbookRow& in_row = sheet.rows[row];
  auto place = in_row.cells.begin() + (PlaceOf(in_row.cells, column) - in_row.cells.cbegin());
  if (place == in_row.cells.end() || place->column != column) {
    const std::uint16_t format = FormatOfNewCell(workbook, sheet, in_row, column);
    place = in_row.cells.insert(place, {static_cast<std::uint16_t>(column), format, {}, nullptr});
  }
  place->value = value;
  std::set<AreaCell> areas;
  DropFormula(row, *place, areas);
  DropAreas(sheet, areas);
}

// The rows from `first` to `last`, as they arrive elsewhere.
std::map<int, WorkbookRow> RowsWithout(const Sheet& sheet, int first, int last) {
  std::map<int, WorkbookRow> rows;
  for (auto row = sheet.rows.lower_bound(first); row != sheet.rows.end() && row->first <= last;
       ++row) {
    WorkbookRow& copy = rows[row->first];
    copy = row->second;
    copy.carried.clear();
    for (Cell& cell : copy.cells) cell.formula = nullptr;
  }
  return rows;
}

void EmptyRows(Sheet& sheet, int first, int last) {
  const auto begin = sheet.rows.lower_bound(first);
  const auto end = sheet.rows.upper_bound(last);
  std::set<AreaCell> areas;
  for (auto row = begin; row != end; ++row) {
    for (Cell& cell : row->second.cells) DropFormula(row->first, cell, areas);
  }
  sheet.rows.erase(begin, end);
  DropAreas(sheet, areas);
  std::erase_if(sheet.merges, [first, last](const CellRange& range) {
    return range.first_row <= last && range.last_row >= first;
  });
}

}  // namespace

const Cell* Sheet::FindCell(int row, int column) const {
  const auto in_row = rows.find(row);
  if (in_row == rows.end()) return nullptr;
  const auto place = PlaceOf(in_row->second.cells, column);
  return place != in_row->second.cells.end() && place->column == column ? &*place : nullptr;
}

double Sheet::RowHeightPoints(int row) const {
  const auto found = rows.find(row);
  if (found == rows.end()) return default_height_twips / kTwipsOfPoint;
  if (found->second.IsHidden()) return 0;
  return found->second.height_twips.value_or(default_height_twips) / kTwipsOfPoint;
}

double Sheet::ColumnWidth(int column) const {
  const ColumnSpan* span = SpanOf(*this, column);
  if (span == nullptr) return default_width;
  return span->hidden ? 0 : span->width;
}

const CellFormat& Workbook::FormatOf(std::uint16_t format) const {
  static const CellFormat usual;
  return format < formats.size() ? formats[format] : usual;
}

std::string_view Workbook::TextOf(const Cell& cell) const {
  const auto* text = std::get_if<TextRef>(&cell.value);
  return text != nullptr && text->index < texts.size() ? texts[text->index].text
                                                       : std::string_view();
}

bool IsInSheet(int row, int column) {
  return row >= 0 && row < kMostRows && column >= 0 && column < kMostColumns;
}

void PutText(Workbook& workbook, Sheet& sheet, int row, int column, std::string_view text) {
  if (text.empty()) return Put(workbook, sheet, row, column, {});
  Put(workbook, sheet, row, column, TextRef{workbook.texts.Add(text)});
}

void PutNumber(const Workbook& workbook, Sheet& sheet, int row, int column, double value) {
  if (!std::isfinite(value)) return Put(workbook, sheet, row, column, CellError{kNotANumber});
  Put(workbook, sheet, row, column, value);
}

void CopySheetRows(const Sheet& from, int first, int last, Sheet& to, int target) {
  last = std::min(last, first + (kMostRows - 1 - target));
  if (last < first) return;
  const int shift = target - first;
  std::map<int, WorkbookRow> rows = RowsWithout(from, first, last);
  std::vector<CellRange> merges;
  for (const CellRange& range : from.merges) {
    if (range.first_row >= first && range.last_row <= last) merges.push_back(range);
  }
  EmptyRows(to, target, last + shift);
  for (auto& [number, row] : rows) to.rows[number + shift] = std::move(row);
  for (CellRange& range : merges) {
    range.first_row += shift;
    range.last_row += shift;
    to.merges.push_back(range);
  }
}

bool AddPageBreak(Sheet& sheet, int row) {
  const auto place = std::ranges::lower_bound(sheet.breaks, row, {}, &PageBreak::row);
  if (place != sheet.breaks.end() && place->row == row) return true;
  if (sheet.breaks.size() >= kMostPageBreaks) return false;
  sheet.breaks.insert(place, {row});
  return true;
}

void SetSheetRowHeight(Sheet& sheet, int row, double points) {
  const double twips = std::isfinite(points) ? points * kTwipsOfPoint : 0;
  WorkbookRow& in_row = sheet.rows[row];
  const auto height = static_cast<int>(std::clamp(std::round(twips), 0.0, double{kMostTwips}));
  in_row.options &= ~(kHiddenRow | kOwnHeight);
  in_row.options |= height == 0 ? kHiddenRow : kOwnHeight;
  in_row.height_twips = height == 0 ? std::nullopt : std::optional(height);
}

void ProtectSheets(Workbook& workbook, std::string_view password) {
  const std::uint16_t hash = SheetPasswordHash(password);
  for (Sheet& sheet : workbook.sheets) {
    if (sheet.is_worksheet) sheet.protection = {true, true, true, hash};
  }
}

}  // namespace kalvo
