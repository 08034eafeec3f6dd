#include "entry/sections/section_draft.h"

#include <algorithm>
#include <charconv>
#include <utility>

#include "entry/sections/sheet_columns.h"

namespace kalvo {
namespace {

// A section's number as the sheet writes it; nothing for any other text.
std::optional<int> PlainNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool plain =
      error == std::errc() && end == text.data() + text.size() && number > 0 && text.front() != '0';
  return plain ? std::optional(number) : std::nullopt;
}

const SheetRow& BlankRow() {
  static const SheetRow kBlank;
  return kBlank;
}

}  // namespace

SectionDraft::Action::Action(SectionDraft& draft, std::string_view name, GridPlace place)
    : draft_(draft) {
  if (draft_.open_actions_++ == 0) draft_.open_step_ = {std::string(name), {}, place};
}

SectionDraft::Action::~Action() {
  if (--draft_.open_actions_ > 0 || draft_.open_step_.changes.empty()) return;
  draft_.history_.Add(std::move(draft_.open_step_));
}

void SectionDraft::Begin(SheetImage image, bool edited) {
  edited_ = edited;
  kind_ = image.kind;
  base_rows_ = image.base_rows;
  rows_ = std::move(image.rows);
  for (SheetRow& row : rows_) {
    row.texts[sheet_column::kSlash].clear();
  }
  if (rows_.empty()) rows_.push_back(FirstRow());
  history_.Clear();
  changes_.Reset();
  ++revision_;
}

SheetRow SectionDraft::FirstRow() const {
  SheetRow first;
  for (const int column : {sheet_column::kLeft, sheet_column::kRight}) {
    first.texts[static_cast<std::size_t>(column)] = Preset(0, column);
  }
  return first;
}

std::string SectionDraft::Preset(int row, int column) const {
  const bool open = kind_ == SystemKind::kOpen;
  if (column == sheet_column::kLeft) {
    if (open) return std::to_string(row + 1);
    return row == 0 ? std::string(kSource) : std::string();
  }
  return open && row == 0 && column == sheet_column::kRight ? std::string(kSource) : std::string();
}

SheetImage SectionDraft::Image() const {
  SheetImage image{kind_, base_rows_, {rows_.begin(), rows_.begin() + Count()}};
  for (SheetRow& row : image.rows) {
    row.texts[sheet_column::kSlash] = kSlashText;
  }
  return image;
}

bool SectionDraft::IsBlank(int row) const {
  const SheetRow& at = At(row);
  for (int column = 0; column < kSheetColumns; ++column) {
    const std::string& text = at.texts[static_cast<std::size_t>(column)];
    if (!text.empty() && (!IsNameColumn(column) || text != Preset(row, column))) return false;
  }
  return true;
}

int SectionDraft::Count() const {
  int count = static_cast<int>(rows_.size());
  while (count > 0 && IsBlank(count - 1)) --count;
  return count;
}

const SheetRow& SectionDraft::At(int row) const {
  return row >= 0 && row < static_cast<int>(rows_.size()) ? rows_[static_cast<std::size_t>(row)]
                                                          : BlankRow();
}

const std::string& SectionDraft::Text(int row, int column) const {
  return At(row).texts.at(static_cast<std::size_t>(column));
}

SheetRow& SectionDraft::Grown(int row) {
  if (row >= static_cast<int>(rows_.size())) rows_.resize(static_cast<std::size_t>(row) + 1);
  return rows_[static_cast<std::size_t>(row)];
}

void SectionDraft::Do(DraftChange change) {
  Apply(change, true);
  open_step_.changes.push_back(std::move(change));
}

void SectionDraft::Apply(const DraftChange& change, bool forward) {
  ++revision_;
  std::visit([&](const auto& one) { Apply(one, forward); }, change);
}

void SectionDraft::Apply(const CellChange& change, bool forward) {
  Grown(change.row).texts.at(static_cast<std::size_t>(change.column)) =
      forward ? change.after : change.before;
  changes_.Cells(change.row);
}

void SectionDraft::Apply(const RowsChange& change, bool forward) {
  const auto count = static_cast<std::ptrdiff_t>(change.rows.size());
  if (change.inserted == forward) {
    if (change.at > 0) Grown(change.at - 1);
    rows_.insert(rows_.begin() + change.at, change.rows.begin(), change.rows.end());
    changes_.Rows(GridChange::Kind::kInserted, change.at, change.at + static_cast<int>(count) - 1);
  } else {
    rows_.erase(rows_.begin() + change.at, rows_.begin() + change.at + count);
    changes_.Rows(GridChange::Kind::kRemoved, change.at, change.at + static_cast<int>(count) - 1);
  }
}

void SectionDraft::Apply(const NumberShift& change, bool forward) {
  const int from = forward ? change.from : change.from + change.by;
  const int by = forward ? change.by : -change.by;
  for (int row = 0; row < static_cast<int>(rows_.size()); ++row) {
    for (const int column : {sheet_column::kLeft, sheet_column::kRight}) {
      std::string& text =
          rows_[static_cast<std::size_t>(row)].texts[static_cast<std::size_t>(column)];
      const std::optional<int> number = PlainNumber(text);
      if (!number || *number < from) continue;
      text = std::to_string(*number + by);
      changes_.Cells(row);
    }
  }
}

void SectionDraft::Apply(const WholeChange& change, bool forward) {
  rows_ = forward ? change.after : change.before;
  changes_.Reset();
}

void SectionDraft::Apply(const PlantChange& change, bool forward) {
  plant_ = forward ? change.after : change.before;
}

void SectionDraft::MovePlant(int section) {
  if (section != plant_) Do(PlantChange{plant_, section});
}

// Both are asked before the rows come or go.
void SectionDraft::PlantMakesRoom(int at, int count) {
  if (plant_ > at && plant_ <= Count()) MovePlant(plant_ + count);
}

void SectionDraft::PlantLosesRows(int at, int count) {
  if (plant_ <= at || plant_ > Count()) return;
  MovePlant(plant_ <= at + count ? 0 : plant_ - count);
}

void SectionDraft::Set(int row, int column, std::string_view text) {
  const std::string before = Text(row, column);
  if (before == text) return;
  const bool was_blank = IsBlank(row);
  Do(CellChange{row, column, before, std::string(text)});
  const bool wants_number = kind_ == SystemKind::kOpen && was_blank && !IsBlank(row) &&
                            column != sheet_column::kLeft && Text(row, sheet_column::kLeft).empty();
  if (wants_number) {
    Do(CellChange{row, sheet_column::kLeft, "", Preset(row, sheet_column::kLeft)});
  }
}

void SectionDraft::InsertRows(int at, int count) {
  if (count <= 0) return;
  const bool open = kind_ == SystemKind::kOpen;
  PlantMakesRoom(at, count);
  if (open) Do(NumberShift{at + 1, count});
  RowsChange change{at, true, std::vector<SheetRow>(static_cast<std::size_t>(count))};
  for (int i = 0; open && i < count; ++i) {
    change.rows[static_cast<std::size_t>(i)].texts[sheet_column::kLeft] =
        Preset(at + i, sheet_column::kLeft);
  }
  Do(std::move(change));
}

void SectionDraft::EmptyNames(int first, int last) {
  for (int row = 0; row < static_cast<int>(rows_.size()); ++row) {
    for (const int column : {sheet_column::kLeft, sheet_column::kRight}) {
      const std::optional<int> number = PlainNumber(Text(row, column));
      if (number && *number >= first && *number <= last) {
        Do(CellChange{row, column, Text(row, column), ""});
      }
    }
  }
}

void SectionDraft::RemoveRows(int at, int count) {
  count = std::min(count, static_cast<int>(rows_.size()) - at);
  if (at < 0 || count <= 0) return;
  PlantLosesRows(at, count);
  const auto first = rows_.begin() + at;
  RowsChange change{at, false, {first, first + count}};
  Do(std::move(change));
  if (kind_ == SystemKind::kOpen) {
    EmptyNames(at + 1, at + count);
    Do(NumberShift{at + count + 1, -count});
  }
  if (rows_.empty()) Do(RowsChange{0, true, {FirstRow()}});
  if (Count() > 0) return;
  for (const int column : {sheet_column::kLeft, sheet_column::kRight}) {
    if (Text(0, column).empty() && !Preset(0, column).empty()) {
      Do(CellChange{0, column, "", Preset(0, column)});
    }
  }
}

void SectionDraft::InsertRow(int at, SheetRow row) {
  PlantMakesRoom(at, 1);
  Do(RowsChange{at, true, {std::move(row)}});
}

void SectionDraft::RemoveRow(int at) {
  PlantLosesRows(at, 1);
  Do(RowsChange{at, false, {At(at)}});
  if (rows_.empty()) Do(RowsChange{0, true, {FirstRow()}});
}

void SectionDraft::Replace(std::vector<SheetRow> rows) {
  for (SheetRow& row : rows) {
    row.texts[sheet_column::kSlash].clear();
  }
  WholeChange change{rows_, std::move(rows)};
  if (change.after.empty()) change.after.push_back(FirstRow());
  if (change.before == change.after) return;
  const int origin = plant_ > 0 ? At(plant_ - 1).origin : 0;
  const auto row = std::ranges::find(change.after, origin, &SheetRow::origin);
  const bool found = row != change.after.end();
  const int section = found ? static_cast<int>(row - change.after.begin()) + 1 : 0;
  Do(std::move(change));
  if (origin > 0) MovePlant(section);
}

std::optional<GridPlace> SectionDraft::Undo() {
  if (!history_.CanUndo()) return std::nullopt;
  const DraftStep& step = history_.ToUndo();
  for (auto change = step.changes.rbegin(); change != step.changes.rend(); ++change) {
    Apply(*change, false);
  }
  history_.Undone();
  return step.place;
}

std::optional<GridPlace> SectionDraft::Redo() {
  if (!history_.CanRedo()) return std::nullopt;
  const DraftStep& step = history_.ToRedo();
  for (const DraftChange& change : step.changes) {
    Apply(change, true);
  }
  history_.Redone();
  return step.place;
}

}  // namespace kalvo
