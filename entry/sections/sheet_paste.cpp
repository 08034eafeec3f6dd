#include "entry/sections/sheet_paste.h"

#include <algorithm>
#include <limits>

#include "entry/sections/sheet_columns.h"
#include "form/edit.h"
#include "study/codepage.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

constexpr std::string_view kGreekSourceName = "ΑΝΤ";

constexpr std::string_view kBlanks = " \t\r\n";

std::string_view TrimmedCell(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// Takes one cell from the text; true when it was the last of its row.
bool TakeCell(std::string_view& rest, std::string& cell) {
  cell.clear();
  bool quoted = rest.starts_with('"');
  if (quoted) rest.remove_prefix(1);
  while (!rest.empty()) {
    const char next = rest.front();
    rest.remove_prefix(1);
    if (quoted && next == '"') {
      quoted = rest.starts_with('"');
      if (!quoted) continue;
      rest.remove_prefix(1);
      cell += '"';
    } else if (!quoted && next == '\t') {
      return false;
    } else if (!quoted && (next == '\n' || next == '\r')) {
      if (next == '\r' && rest.starts_with('\n')) rest.remove_prefix(1);
      return true;
    } else {
      cell += next;
    }
  }
  return true;
}

bool AllOf(const CellBlock& cells, std::size_t column) {
  return std::ranges::all_of(cells, [column](const auto& row) {
    return column >= row.size() || TrimmedCell(row[column]).empty() ||
           TrimmedCell(row[column]) == kSlashText;
  });
}

// Columns of the sheet for those of the block, -1 for one that is dropped or has no place.
std::vector<int> TargetColumns(const CellBlock& cells, int left) {
  std::size_t width = 0;
  for (const auto& row : cells) width = std::max(width, row.size());
  std::vector<int> columns;
  int column = left;
  for (std::size_t i = 0; i < width; ++i, ++column) {
    if (column == sheet_column::kSlash) {
      if (AllOf(cells, i)) {
        columns.push_back(-1);
        continue;
      }
      ++column;
    }
    columns.push_back(column < kSheetColumns ? column : -1);
  }
  return columns;
}

bool IsSingle(const CellBlock& cells) { return cells.size() == 1 && cells.front().size() == 1; }

// The first column that a single cell fills.
int FillColumn(const GridBlock& target) {
  return target.left == sheet_column::kSlash ? sheet_column::kRight : target.left;
}

// A single cell goes to the last column of its target, where a number would stand.
std::vector<int> ColumnsOf(const CellBlock& cells, const GridBlock& target) {
  if (IsSingle(cells)) return {std::max(target.right, FillColumn(target))};
  return TargetColumns(cells, target.left);
}

// Digits and signs, so that a head with a dot is none.
bool IsFigures(std::string_view text) {
  return !text.empty() && std::ranges::all_of(text, [](char c) {
    return (c >= '0' && c <= '9') || c == '.' || c == ',';
  });
}

// A thousands sign that is there once, before exactly three digits, and no other sign.
bool IsAmbiguous(std::string_view text, Separators separators) {
  const std::size_t at = text.find_first_of(".,");
  return IsFigures(text) && at != std::string_view::npos && at > 0 && at <= 3 &&
         text[at] == separators.thousands && text.size() - at - 1 == 3 &&
         text.find_first_of(".,", at + 1) == std::string_view::npos;
}

bool HasSign(std::string_view text) {
  return IsFigures(text) && text.find_first_of(".,") != std::string_view::npos;
}

std::optional<std::string> FittingName(std::string_view text) {
  if (text == kGreekSourceName) return std::string(kSource);
  if (CountCharacters(text) > kLongestName) return std::nullopt;
  for (std::string_view rest = text; !rest.empty();) {
    const char32_t character = TakeCharacter(rest);
    const bool fits = character > U' ' && character != 0x7F && CodePageByte(character).has_value();
    if (!fits) return std::nullopt;
  }
  return std::string(text);
}

// More digits before the decimal sign than a number is written with.
bool IsTooLong(std::string_view number, char decimal) {
  constexpr std::size_t kMostDigits = 15;
  const std::size_t whole = std::min(number.find(decimal), number.size());
  return whole > std::min(number.find_first_not_of('0'), whole) + kMostDigits;
}

std::optional<std::string> FittingNumber(std::string_view text, int column, Separators separators,
                                         bool thousands) {
  std::string number = NumberPiece(text, true, separators);
  if (thousands && IsAmbiguous(text, separators)) std::erase(number, separators.decimal);
  const std::size_t signs =
      static_cast<std::size_t>(std::ranges::count(number, separators.decimal));
  const auto plain = [&](char c) { return (c >= '0' && c <= '9') || c == separators.decimal; };
  if (signs > 1 || number.size() == signs || !std::ranges::all_of(number, plain)) {
    return std::nullopt;
  }
  const double value = ParseNumber(number, separators);
  const bool counts = std::holds_alternative<std::int16_t SectionRow::*>(FieldOfColumn(column));
  const double most = counts ? std::numeric_limits<std::int16_t>::max()
                             : static_cast<double>(std::numeric_limits<float>::max());
  const bool fits = !IsTooLong(number, separators.decimal) && value <= most;
  if (!fits || (counts && signs > 0)) return std::nullopt;
  std::string shown = FormatNumber(value, separators);
  if (shown.find('E') != std::string::npos) return std::nullopt;  // no cell reads an exponent
  return shown;
}

}  // namespace

CellBlock CellsOf(std::string_view text) {
  CellBlock rows;
  std::string cell;
  bool begins = true;
  while (!text.empty()) {
    if (begins) rows.emplace_back();
    const bool tab_ends_text = text.back() == '\t';
    begins = TakeCell(text, cell);
    rows.back().push_back(OneLine(cell));
    if (!begins && text.empty() && tab_ends_text) rows.back().emplace_back();
  }
  return rows;
}

std::string BlockText(const std::vector<GridBlock>& selection,
                      const std::function<std::string(GridPlace)>& text_of) {
  GridBlock all = selection.front();
  for (const GridBlock& block : selection) {
    all = {std::min(all.top, block.top), std::min(all.left, block.left),
           std::max(all.bottom, block.bottom), std::max(all.right, block.right)};
  }
  std::string text;
  for (int row = all.top; row <= all.bottom; ++row) {
    if (row > all.top) text += "\n";
    for (int column = all.left; column <= all.right; ++column) {
      if (column > all.left) text += "\t";
      const auto holds = [&](const GridBlock& block) { return block.Contains({row, column}); };
      if (std::ranges::any_of(selection, holds)) text += text_of({row, column});
    }
  }
  return text;
}

std::string BlockText(const SectionDraft& draft, const std::vector<GridBlock>& selection) {
  return BlockText(selection, [&draft](GridPlace at) {
    const bool slash = at.column == sheet_column::kSlash && at.row < draft.Count();
    return slash ? std::string(kSlashText) : draft.Text(at.row, at.column);
  });
}

std::optional<std::string> FittingText(std::string_view text, int column, Separators separators,
                                       bool thousands) {
  const std::string_view trimmed = TrimmedCell(text);
  if (trimmed.empty()) return std::string();
  return IsNameColumn(column) ? FittingName(trimmed)
                              : FittingNumber(trimmed, column, separators, thousands);
}

std::string DoubtfulNumber(const CellBlock& cells, const GridBlock& target, Separators separators) {
  const std::vector<int> columns = ColumnsOf(cells, target);
  std::string example;
  for (const auto& row : cells) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      if (columns[i] < 0 || !IsNumberColumn(columns[i])) continue;
      const std::string_view text = TrimmedCell(row[i]);
      if (IsAmbiguous(text, separators)) {
        if (example.empty()) example = text;
      } else if (HasSign(text)) {
        return {};
      }
    }
  }
  return example;
}

PastePlan PlanPaste(const CellBlock& cells, const GridBlock& target, int most_rows,
                    Separators separators, bool thousands) {
  PastePlan plan;
  if (cells.empty()) return plan;
  const auto put = [&](int row, int column, const std::string& text) {
    const auto fitting =
        row < most_rows ? FittingText(text, column, separators, thousands) : std::nullopt;
    if (!fitting) {
      plan.refused.push_back({row, column, text});
      return;
    }
    plan.cells.push_back({row, column, *fitting});
    plan.last_row = std::max(plan.last_row, row);
    plan.last_column = std::max(plan.last_column, column);
  };
  if (IsSingle(cells)) {
    const int last = std::max(target.right, FillColumn(target));
    for (int row = target.top; row <= target.bottom; ++row) {
      for (int column = FillColumn(target); column <= last; ++column) {
        if (column != sheet_column::kSlash) put(row, column, cells.front().front());
      }
    }
    return plan;
  }
  const std::vector<int> columns = ColumnsOf(cells, target);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    for (std::size_t j = 0; j < cells[i].size(); ++j) {
      const int row = target.top + static_cast<int>(i);
      if (columns[j] >= 0) {
        put(row, columns[j], cells[i][j]);
      } else if (!TrimmedCell(cells[i][j]).empty() && TrimmedCell(cells[i][j]) != kSlashText) {
        plan.refused.push_back({row, kSheetColumns, cells[i][j]});
      }
    }
  }
  return plan;
}

}  // namespace kalvo
