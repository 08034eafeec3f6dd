#include "entry/sheet_sitting.h"

#include "entry/sheet_columns.h"
#include "entry/sheet_paste.h"
#include "study/by_number.h"
#include "study/kept_sheet.h"
#include "study/row_file.h"

namespace kalvo {

Outcome SheetSitting::ReadBase() {
  auto rows = bench_.workspace.Rows().ReadAll();
  if (!rows) return rows.error();
  base_ = *std::move(rows);
  desk_.screens.edit_mode = !base_.empty();
  as_rows_ = Encoded(ImageOfRows(base_, bench_.study.system_kind, desk_.separators));
  if (base_.empty()) return Done{};
  return bench_.workspace.Write(work_file::kFirstRows, EncodeRows<SectionRow>(base_));
}

Outcome SheetSitting::Begin() {
  if (Outcome read = ReadBase(); !read) return read;
  const auto kept = bench_.workspace.Status(work_file::kSheetInWork);
  if (!kept) return kept.error();
  if (kept->has_value()) return TakeKept();
  draft.Begin(ImageOfRows(base_, bench_.study.system_kind, desk_.separators));
  kept_revision_ = draft.revision();
  return Done{};
}

Outcome SheetSitting::TakeKept() {
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
  FindOrigins(image.value(), base_);
  left_out_ = LeaveOutMisfits(image.value());
  draft.Begin(*std::move(image), true);
  kept_revision_ = draft.revision();
  return Done{};
}

Outcome SheetSitting::BeginWithRows() {
  if (Outcome read = ReadBase(); !read) return read;
  draft.Begin(ImageOfRows(base_, bench_.study.system_kind, desk_.separators));
  DropKeptSheet(bench_.workspace);
  kept_revision_ = draft.revision();
  return Done{};
}

std::string SheetSitting::Encoded(const SheetImage& image) const {
  return EncodeSheet(image, desk_.separators.decimal);
}

SheetImage SheetSitting::ImageWith(const std::optional<Pending>& pending) const {
  SheetImage image = draft.Image();
  if (!pending) return image;
  const auto row = static_cast<std::size_t>(pending->place.row);
  if (row >= image.rows.size()) {
    if (pending->text.empty()) return image;
    image.rows.resize(row + 1);
    if (image.kind == SystemKind::kOpen) {
      image.rows[row].texts[sheet_column::kLeft] = std::to_string(row + 1);
    }
  }
  image.rows[row].texts.at(static_cast<std::size_t>(pending->place.column)) = pending->text;
  return image;
}

bool SheetSitting::WantsKeeping(const std::optional<Pending>& pending) const {
  return kept_revision_ != draft.revision() || kept_pending_ != pending;
}

Outcome SheetSitting::Keep(const std::optional<Pending>& pending, bool flush) {
  if (WantsKeeping(pending)) {
    const std::string bytes = Encoded(ImageWith(pending));
    if (bytes == as_rows_) {
      DropKeptSheet(bench_.workspace);
      flushed_ = true;
    } else {
      Outcome kept = KeepSheet(bench_.workspace, bench_.study, work_file::kSheetInWork, bytes);
      if (!kept) return kept;
      flushed_ = false;
    }
    kept_revision_ = draft.revision();
    kept_pending_ = pending;
  }
  if (!flush || flushed_) return Done{};
  Outcome flushed = FlushSheet(bench_.workspace, work_file::kSheetInWork);
  flushed_ = flushed.ok();
  return flushed;
}

Outcome SheetSitting::Save() {
  return KeepSheet(bench_.workspace, bench_.study, work_file::kSheet, Encoded(draft.Image()));
}

// What no cell takes is left empty, as a paste leaves it out; but not what a row of the study
// holds.
int SheetSitting::LeaveOutMisfits(SheetImage& image) const {
  const SheetImage base = ImageOfRows(base_, draft.kind(), desk_.separators);
  int left_out = 0;
  for (SheetRow& row : image.rows) {
    const SheetRow from = row.origin > 0 ? ByNumber(base.rows, row.origin) : SheetRow{};
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

Result<SheetSitting::Retrieved> SheetSitting::Retrieve(GridPlace place) {
  const auto bytes = bench_.workspace.Read(work_file::kSheet);
  if (!bytes) return bytes.error();
  const std::filesystem::path file = bench_.workspace.Path(work_file::kSheet);
  auto image = DecodeSheet(*bytes, file, desk_.separators.decimal);
  if (!image) return image.error();
  if (image->kind != draft.kind()) {
    return FileError{file, "Το φύλλο είναι άλλου συστήματος σωλήνων"};
  }
  FindOrigins(image.value(), base_);
  Retrieved retrieved{LeaveOutMisfits(image.value())};
  const SectionDraft::Action action(draft, "Ανάκληση φύλλου", place);
  draft.Replace(std::move(image.value().rows));
  return retrieved;
}

DraftRows SheetSitting::Rows() const {
  return RowsOfDraft(draft, base_, bench_.study, desk_.separators);
}

Outcome SheetSitting::PutRows(const DraftRows& made) {
  if (Outcome put = PutDraftRows(bench_, made, base_); !put) return put;
  End();
  return Done{};
}

void SheetSitting::End() {
  DropKeptSheet(bench_.workspace);
  bench_.workspace.Delete(work_file::kFirstRows);
}

}  // namespace kalvo
