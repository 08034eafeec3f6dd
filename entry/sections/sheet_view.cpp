#include "entry/sections/sheet_view.h"

#include <algorithm>

#include "entry/sections/sheet_columns.h"
#include "entry/sections/sheet_paste.h"
#include "study/section_row.h"

namespace kalvo {
namespace {

// Empty rows after the last section.
constexpr int kSpareRows = 40;

int RowsShown(const SectionDraft& draft) {
  const int count = draft.Count();
  return std::max(count, std::min(kMostSections, count + kSpareRows));
}

GridCell CellOf(const SectionDraft& draft, int row, int column, int count) {
  GridCell cell;
  if (column == sheet_column::kSlash) {
    if (row <= count) cell.text = kSlashText;  // the next row invites
    return cell;
  }
  const std::string& text = draft.Text(row, column);
  const bool nothing = column > sheet_column::kLength && text == "0";
  if (!nothing) cell.text = text;
  if (text == kSource) cell.tone = Tone::kStrong;
  return cell;
}

void ShowRows(EditableGrid& grid, const SectionDraft& draft, int first, int last) {
  const int count = draft.Count();
  for (int row = std::max(first, 0); row <= last && row < grid.row_count(); ++row) {
    for (int column = 0; column < kSheetColumns; ++column) {
      grid.Set(row, column, CellOf(draft, row, column, count));
    }
  }
}

void FollowRows(EditableGrid& grid, const GridChange& change) {
  const int count = change.last - change.first + 1;
  if (change.first >= grid.row_count()) return;
  if (change.kind == GridChange::Kind::kInserted) {
    grid.InsertRows(change.first, count);
  } else {
    grid.RemoveRows(change.first, std::min(count, grid.row_count() - change.first));
  }
}

void FitRowCount(EditableGrid& grid, const SectionDraft& draft) {
  const int wanted = std::max(RowsShown(draft), 1);
  const int missing = wanted - grid.row_count();
  grid.InsertRows(grid.row_count(), std::max(missing, 0));
  grid.RemoveRows(wanted, std::max(-missing, 0));
}

// A number without leading zeros, or the source.
std::optional<std::string> TypedName(std::string_view text) {
  if (text == kSource) return std::string(text);
  if (text.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  return std::string(text.substr(std::min(text.find_first_not_of('0'), text.size())));
}

}  // namespace

void SetUpSheet(EditableGrid& grid, const SectionDraft& draft) {
  grid.Reset(SheetGridColumns(draft.kind()), RowsShown(draft));
  grid.SetTyping(SheetTyping());
  grid.used_rows = draft.Count();
  ShowRows(grid, draft, 0, grid.row_count() - 1);
}

void FollowDraft(EditableGrid& grid, SectionDraft& draft) {
  const int used_before = grid.used_rows;
  bool all = false;
  int first = used_before;
  int last = used_before;
  for (const GridChange& change : draft.TakeChanges()) {
    if (change.kind == GridChange::Kind::kCells) {
      first = std::min(first, change.first);
      last = std::max(last, change.last);
      continue;
    }
    all = true;
    if (change.kind != GridChange::Kind::kReset) FollowRows(grid, change);
  }
  grid.used_rows = draft.Count();
  FitRowCount(grid, draft);
  if (all) {
    first = 0;
    last = grid.row_count() - 1;
  }
  if (!grid.SelectionFits()) grid.CollapseSelection();
  ShowRows(grid, draft, std::min(first, grid.used_rows), std::max(last, grid.used_rows));
}

std::optional<std::string> AcceptedText(std::string_view text, int column, Separators separators) {
  if (IsNameColumn(column)) return TypedName(text);
  const bool no_digit = text.find_first_not_of(".,") == std::string_view::npos;
  return no_digit ? "" : FittingText(text, column, separators);
}

}  // namespace kalvo
