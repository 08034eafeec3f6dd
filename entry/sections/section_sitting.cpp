#include "entry/sections/section_sitting.h"

#include <algorithm>
#include <numeric>

#include "entry/sections/row_checks.h"
#include "entry/sections/sheet_columns.h"
#include "study/by_number.h"
#include "study/kept_sheet.h"
#include "study/row_file.h"

namespace kalvo {
namespace {

std::array<std::string, kSheetColumns> TextsOf(const SheetRow& row) {
  std::array<std::string, kSheetColumns> texts = row.texts;
  texts[sheet_column::kSlash].clear();
  return texts;
}

}  // namespace

Outcome SectionSitting::ReadBase() {
  auto rows = bench_.workspace.Rows().ReadAll();
  if (!rows) return rows.error();
  base_ = BaseOf(bench_.study, *rows);
  std::vector<int> origins(rows->size());
  std::iota(origins.begin(), origins.end(), 1);
  NoteRows(*std::move(rows), std::move(origins));
  desk_.screens.edit_mode = !base().empty();
  continues = base().empty();
  return Done{};
}

// The last step of a beginning: one that fails leaves no copy behind.
Outcome SectionSitting::CopyFirstRows() {
  if (base().empty()) return Done{};
  return bench_.workspace.Write(work_file::kFirstRows, EncodeRows<SectionRow>(base()));
}

Outcome SectionSitting::ReadBaseEmitters() {
  if (has_emitters_) return Done{};
  auto emitters = bench_.workspace.Rows(work_file::kEmitters).ReadAll();
  if (!emitters) return emitters.error();
  base_.emitters = *std::move(emitters);
  has_emitters_ = true;
  return Done{};
}

void SectionSitting::NoteRows(std::vector<SectionRow> rows, std::vector<int> origins) {
  rows_ = std::move(rows);
  rows_origins_ = std::move(origins);
  as_rows_ = ImageOfRows(rows_, bench_.study.system_kind, desk_.separators);
  for (int row = 0; row < static_cast<int>(rows_.size()); ++row) {
    if (IsWrong(Stored(row), row)) known_wrong_.insert(TextsOf(Stored(row)));
  }
  SetInDoubt(false);
  put_failed_ = false;
}

// The sheet is kept whatever it says while nobody knows what the rows say.
void SectionSitting::SetInDoubt(bool in_doubt) {
  if (in_doubt != in_doubt_) kept_revision_ = -1;
  in_doubt_ = in_doubt;
}

// The plant follows its row; a number above the rows stays.
void SectionSitting::BeginDraft(SheetImage image, bool edited) {
  const int plant = base_.plant_section;
  const auto row = std::ranges::find(image.rows, plant, &SheetRow::origin);
  const bool among = plant >= 1 && plant <= static_cast<int>(base().size());
  const bool found = among && row != image.rows.end();
  const int section = found ? static_cast<int>(row - image.rows.begin()) + 1 : 0;
  draft.Begin(std::move(image), edited);
  draft.BeginPlant(among ? section : plant);
}

Outcome SectionSitting::Begin() {
  if (Outcome read = ReadBase(); !read) return read;
  const auto kept = bench_.workspace.Status(work_file::kSheetInWork);
  if (!kept) return kept.error();
  if (kept->has_value()) {
    if (Outcome taken = TakeKept(); !taken) return taken;
  } else {
    BeginDraft(ImageOfRows(base(), bench_.study.system_kind, desk_.separators));
  }
  kept_revision_ = draft.revision();
  return CopyFirstRows();
}

Outcome SectionSitting::TakeKept() {
  const auto bytes = bench_.workspace.Read(work_file::kSheetInWork);
  if (!bytes) return bytes.error();
  auto image =
      DecodeSheet(*bytes, bench_.workspace.Path(work_file::kSheetInWork), desk_.separators.decimal);
  kept_is_broken_ = !image.ok() || image->kind != bench_.study.system_kind;
  if (!image) return image.error();
  if (image->kind != bench_.study.system_kind) {
    return FileError{bench_.workspace.Path(work_file::kSheetInWork),
                     "Το φύλλο είναι άλλου συστήματος σωλήνων"};
  }
  FindOrigins(image.value(), base());
  left_out_ = LeaveOutMisfits(image.value());
  BeginDraft(*std::move(image), true);
  return Done{};
}

Outcome SectionSitting::BeginWithRows() {
  if (Outcome read = ReadBase(); !read) return read;
  BeginDraft(ImageOfRows(base(), bench_.study.system_kind, desk_.separators));
  if (Outcome copied = CopyFirstRows(); !copied) return copied;
  DropKeptSheet(bench_.workspace);
  kept_revision_ = draft.revision();
  return Done{};
}

std::string SectionSitting::Encoded(const SheetImage& image) const {
  return EncodeSheet(image, desk_.separators.decimal);
}

// What the next sitting meets are the rows as they are in their file now.
SheetImage SectionSitting::ImageWith(const Pending& pending) const {
  SheetImage image = draft.Image();
  image.base_rows = static_cast<int>(rows_.size());
  for (SheetRow& row : image.rows) {
    const auto at = std::ranges::find(rows_origins_, row.origin);
    const bool found = row.origin > 0 && at != rows_origins_.end();
    row.origin = found ? static_cast<int>(at - rows_origins_.begin()) + 1 : 0;
    row.origin_name = found ? ByNumber(rows_, row.origin).Name : FixedText<7>();
  }
  for (const CellText& cell : pending) {
    const auto row = static_cast<std::size_t>(cell.row);
    if (row >= image.rows.size()) {
      if (cell.text.empty()) continue;
      image.rows.resize(row + 1);
      if (image.kind == SystemKind::kOpen) {
        image.rows[row].texts[sheet_column::kLeft] = std::to_string(row + 1);
      }
    }
    image.rows[row].texts.at(static_cast<std::size_t>(cell.column)) = cell.text;
  }
  return image;
}

// Texts alone do not: a row that was deleted and typed anew has lost its emitter. A row that came
// in in this sitting has no origin, also once it is in the file.
bool SectionSitting::SaysRows(const SheetImage& image) const {
  if (image.rows.size() != as_rows_.rows.size()) return false;
  for (std::size_t i = 0; i < image.rows.size(); ++i) {
    const int origin = rows_origins_[i] > 0 ? static_cast<int>(i) + 1 : 0;
    if (image.rows[i].origin != origin || image.rows[i].texts != as_rows_.rows[i].texts) {
      return false;
    }
  }
  return true;
}

bool SectionSitting::WantsKeeping(const Pending& pending) const {
  return kept_revision_ != draft.revision() || kept_pending_ != pending;
}

Outcome SectionSitting::Keep(const Pending& pending, bool flush) {
  const auto write = [&]() -> Result<bool> {
    const SheetImage image = ImageWith(pending);
    const bool elsewhere = !in_doubt_ && SaysRows(image);
    if (elsewhere) {
      const bool kept = IsSheetKept(bench_.workspace);
      if (Outcome flushed = kept ? FlushRows() : Outcome(Done{}); !flushed) return flushed.error();
      DropKeptSheet(bench_.workspace);
    } else if (Outcome kept = KeepSheet(bench_.workspace, bench_.study, work_file::kSheetInWork,
                                        Encoded(image));
               !kept) {
      return kept.error();
    }
    kept_revision_ = draft.revision();
    kept_pending_ = pending;
    return !elsewhere;
  };
  return kept_.Keep(WantsKeeping(pending), flush, write,
                    [this] { return FlushSheet(bench_.workspace, work_file::kSheetInWork); });
}

Outcome SectionSitting::Save() {
  return KeepSheet(bench_.workspace, bench_.study, work_file::kSheet, Encoded(draft.Image()));
}

// What no cell takes is left empty, as a paste leaves it out; but not what a row of the study
// holds.
int SectionSitting::LeaveOutMisfits(SheetImage& image) const {
  const SheetImage base_image = ImageOfRows(base(), draft.kind(), desk_.separators);
  int left_out = 0;
  for (SheetRow& row : image.rows) {
    const SheetRow from = row.origin > 0 ? ByNumber(base_image.rows, row.origin) : SheetRow{};
    for (int column = 0; column < kSheetColumns; ++column) {
      std::string& text = row.texts[static_cast<std::size_t>(column)];
      if (column == sheet_column::kSlash || FittingText(text, column, desk_.separators)) continue;
      if (text == from.texts[static_cast<std::size_t>(column)]) continue;
      text.clear();
      ++left_out;
    }
  }
  return left_out;
}

Result<SectionSitting::Retrieved> SectionSitting::Retrieve(GridPlace place) {
  const auto bytes = bench_.workspace.Read(work_file::kSheet);
  if (!bytes) return bytes.error();
  const std::filesystem::path file = bench_.workspace.Path(work_file::kSheet);
  auto image = DecodeSheet(*bytes, file, desk_.separators.decimal);
  if (!image) return image.error();
  if (image->kind != draft.kind()) {
    return FileError{file, "Το φύλλο είναι άλλου συστήματος σωλήνων"};
  }
  FindOrigins(image.value(), base());
  Retrieved retrieved{LeaveOutMisfits(image.value())};
  const SectionDraft::Action action(draft, "Ανάκληση φύλλου", place);
  draft.Replace(std::move(image.value().rows));
  return retrieved;
}

DraftRows SectionSitting::Rows() const {
  return RowsOfDraft(draft, base_, bench_.study, desk_.separators);
}

DraftRows SectionSitting::RowsOfForm() const {
  DraftRows made = Rows();
  if (made.changed) CountAsForm(made, base_);
  return made;
}

Outcome SectionSitting::PutRows(const DraftRows& made) {
  if (Outcome read = ReadBaseEmitters(); !read) return read;
  if (!in_doubt_ && EncodeRows<SectionRow>(made.rows) == EncodeRows<SectionRow>(rows_)) {
    Outcome flushed = FlushRows();
    return flushed ? SettleDraftRows(bench_, made, base_) : flushed;
  }
  if (Outcome put = PutDraftRows(bench_, made, base_, rows_); !put) {
    unflushed_ = true;
    const auto differ = RowsDiffer();
    put_failed_ = !differ || *differ;
    return put;
  }
  NoteRows(made.rows, made.origins);
  unflushed_ = false;
  return Done{};
}

bool SectionSitting::IsWrong(const SheetRow& texts, int row) const {
  return texts.texts[sheet_column::kLeft].empty() || texts.texts[sheet_column::kRight].empty() ||
         FirstFault(texts, row, desk_.separators);
}

std::optional<int> SectionSitting::FirstWrongRow() const {
  for (int row = 0, count = draft.Count(); row < count; ++row) {
    const SheetRow& texts = draft.At(row);
    if (IsWrong(texts, row) && !known_wrong_.contains(TextsOf(texts))) return row;
  }
  return std::nullopt;
}

const SheetRow& SectionSitting::Stored(int row) const {
  static const SheetRow kNone;
  const auto at = static_cast<std::size_t>(row);
  return at < as_rows_.rows.size() ? as_rows_.rows[at] : kNone;
}

bool SectionSitting::IsStored(int row) const {
  return row < static_cast<int>(rows_.size()) && TextsOf(Stored(row)) == TextsOf(draft.At(row));
}

void SectionSitting::TakeStored(int row) {
  for (int column = 0; column < kSheetColumns; ++column) {
    if (column == sheet_column::kSlash) continue;
    draft.Set(row, column, Stored(row).texts.at(static_cast<std::size_t>(column)));
  }
}

void SectionSitting::TakeStoredRows() {
  for (int row = 0; row < static_cast<int>(rows_.size()); ++row) TakeStored(row);
}

Result<bool> SectionSitting::RowsDiffer() {
  const auto bytes = bench_.workspace.ReadIfThere(work_file::kRows);
  const bool same = bytes && *bytes == EncodeRows<SectionRow>(rows_);
  SetInDoubt(!same);
  if (!bytes) return bytes.error();
  return !same;
}

Outcome SectionSitting::RestoreRows() {
  Outcome written = bench_.workspace.Rows().WriteAll(rows_);
  if (!written) return written;
  SetInDoubt(false);
  unflushed_ = true;
  return written;
}

Outcome SectionSitting::FlushRows() {
  if (!unflushed_) return Done{};
  Outcome flushed = bench_.workspace.Flush(work_file::kRows);
  unflushed_ = !flushed;
  return flushed;
}

Outcome SectionSitting::FollowRows(RowMove move, int at) {
  auto rows = bench_.workspace.Rows().ReadAll();
  if (!rows) {
    SetInDoubt(true);
    return rows.error();
  }
  unflushed_ = true;
  if (move == RowMove::kInserted) draft.InsertRow(at, {});
  if (move == RowMove::kRemoved) draft.RemoveRow(at);
  std::vector<int> origins;
  for (std::size_t row = 0; row < rows->size(); ++row) {
    origins.push_back(draft.At(static_cast<int>(row)).origin);
  }
  NoteRows(*std::move(rows), std::move(origins));
  TakeStoredRows();
  return Done{};
}

// Where the draft says what entry began with, the rows do so in all they hold, results too.
Outcome SectionSitting::Settle() {
  DraftRows made = Rows();
  if (!made.changed && !has_emitters_) return Done{};  // no row was ever written
  if (!made.changed) return PutRows(made);
  if (Outcome read = ReadBaseEmitters(); !read) return read;
  made.rows = rows_;
  return SettleDraftRows(bench_, made, base_);
}

void SectionSitting::DropFirstRows() {
  const auto differ = RowsDiffer();
  if (differ && !*differ && FlushRows()) bench_.workspace.Delete(work_file::kFirstRows);
}

Outcome SectionSitting::End() {
  if (Outcome flushed = FlushRows(); !flushed) {
    SetInDoubt(true);
    return flushed;
  }
  DropKeptSheet(bench_.workspace);
  bench_.workspace.Delete(work_file::kFirstRows);
  return Done{};
}

}  // namespace kalvo
