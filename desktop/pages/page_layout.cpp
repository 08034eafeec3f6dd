#include "desktop/pages/page_layout.h"

#include <algorithm>
#include <optional>

#include "desktop/pages/digit_width.h"

namespace kalvo {
namespace {

// A page may be so much too long for its paper: heights and margins come in rounded figures.
constexpr double kSlack = 10;
constexpr double kLeastRoom = 20;
constexpr int kLeastScale = 10;
constexpr int kMostScale = 400;

bool IsFilled(const BorderLine& line) { return line.style != LineStyle::kNone; }

bool ShowsSomething(const Workbook& workbook, const Cell& cell) {
  if (!std::holds_alternative<std::monostate>(cell.value)) return true;
  const CellFormat& format = workbook.FormatOf(cell.format);
  return format.fill_pattern != 0 || IsFilled(format.left) || IsFilled(format.right) ||
         IsFilled(format.top) || IsFilled(format.bottom);
}

// The cells from the first one to the last that shows something.
std::optional<CellRange> CellsInUse(const Workbook& workbook, const Sheet& sheet) {
  CellRange range{0, -1, 0, -1};
  for (const auto& [number, row] : sheet.rows) {
    for (const Cell& cell : row.cells) {
      if (!ShowsSomething(workbook, cell)) continue;
      range.last_row = std::max(range.last_row, number);
      range.last_column = std::max(range.last_column, int{cell.column});
    }
  }
  for (const CellRange& merged : sheet.merges) {
    const Cell* first = sheet.FindCell(merged.first_row, merged.first_column);
    if (first == nullptr || !ShowsSomething(workbook, *first)) continue;
    range.last_row = std::max(range.last_row, merged.last_row);
    range.last_column = std::max(range.last_column, merged.last_column);
  }
  if (range.last_row < 0) return std::nullopt;
  return range;
}

CellRange PrintedCells(const Workbook& workbook, const Sheet& sheet) {
  const auto area = sheet.print_area;
  if (area && area->first_row <= area->last_row && area->first_column <= area->last_column) {
    return *area;
  }
  return CellsInUse(workbook, sheet).value_or(CellRange{});
}

// Edges of `count` rows or columns, one after the other.
template <typename SizeOf>
std::vector<double> Edges(int count, const SizeOf& size) {
  std::vector<double> edges{0};
  for (int i = 0; i < count; ++i) edges.push_back(edges.back() + size(i));
  return edges;
}

struct Span {
  int first;
  int last;
};

// Rows, or columns, parted into those of each page.
std::vector<Span> Part(Span whole, const std::vector<double>& edges, double room,
                       const std::vector<int>& breaks) {
  std::vector<Span> parts{{whole.first, whole.first}};
  for (int i = whole.first + 1; i <= whole.last; ++i) {
    Span& part = parts.back();
    const double length =
        edges[static_cast<std::size_t>(i) + 1] - edges[static_cast<std::size_t>(part.first)];
    if (std::ranges::binary_search(breaks, i) || length > room + kSlack) {
      parts.push_back({i, i});
    } else {
      part.last = i;
    }
  }
  return parts;
}

const Sheet* PrintedSheet(const Workbook& workbook) {
  const auto is_printed = [](const Sheet& sheet) { return sheet.is_worksheet && !sheet.hidden; };
  const auto found = std::ranges::find_if(workbook.sheets, is_printed);
  return found == workbook.sheets.end() ? nullptr : &*found;
}

std::vector<int> RowBreaks(const Sheet& sheet) {
  std::vector<int> rows;
  for (const PageBreak& after : sheet.breaks) rows.push_back(after.row);
  std::ranges::sort(rows);
  return rows;
}

class PageMaker {
 public:
  PageMaker(PageLayout& layout, const PageSetup& setup) : layout_(layout), setup_(setup) {
    room_width_ = Room(layout.paper.width, setup.left, setup.right);
    room_height_ = Room(layout.paper.height, setup.top, setup.bottom);
  }

  void MakePages(const CellRange& range, std::vector<int> column_breaks,
                 const std::vector<int>& row_breaks) {
    std::ranges::sort(column_breaks);
    const auto across = Part({range.first_column, range.last_column}, layout_.column_edges,
                             room_width_, column_breaks);
    const auto down =
        Part({range.first_row, range.last_row}, layout_.row_edges, room_height_, row_breaks);
    for (const Span& columns : across) {
      for (const Span& rows : down) AddPage({rows.first, rows.last, columns.first, columns.last});
    }
  }

 private:
  // What is left between two margins for cells before scaling.
  [[nodiscard]] double Room(double paper, double before, double behind) const {
    return std::max(paper - (before + behind) * kTwipsOfInch, kLeastRoom) / layout_.scale;
  }

  void AddPage(const CellRange& cells) {
    SheetPage page{cells, setup_.left * kTwipsOfInch, setup_.top * kTwipsOfInch};
    const double width = layout_.Left(cells.last_column + 1) - layout_.Left(cells.first_column);
    const double height = layout_.Top(cells.last_row + 1) - layout_.Top(cells.first_row);
    if (setup_.centre_horizontally) {
      page.left += std::max(room_width_ - width, 0.0) / 2 * layout_.scale;
    }
    if (setup_.centre_vertically) {
      page.top += std::max(room_height_ - height, 0.0) / 2 * layout_.scale;
    }
    layout_.pages.push_back(page);
  }

  PageLayout& layout_;
  const PageSetup& setup_;
  double room_width_;
  double room_height_;
};

}  // namespace

PageLayout LayOutPages(const Workbook& workbook) {
  PageLayout layout;
  layout.sheet = PrintedSheet(workbook);
  const Sheet none;
  const Sheet& sheet = layout.sheet == nullptr ? none : *layout.sheet;
  layout.paper = PaperOf(sheet.page);
  layout.scale = std::clamp(sheet.page.scale, kLeastScale, kMostScale) / 100.0;

  const CellRange range = PrintedCells(workbook, sheet);
  const int digit = DigitDots(workbook.default_font);
  layout.row_edges = Edges(
      range.last_row + 1, [&sheet](int row) { return sheet.RowHeightPoints(row) * kTwipsOfPoint; });
  layout.column_edges = Edges(range.last_column + 1, [&sheet, digit](int column) {
    return ColumnTwips(sheet.ColumnWidth(column), digit);
  });
  PageMaker(layout, sheet.page).MakePages(range, sheet.column_breaks, RowBreaks(sheet));
  return layout;
}

}  // namespace kalvo
