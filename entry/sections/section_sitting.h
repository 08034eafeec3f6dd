#pragma once

#include <array>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "entry/kept_entry.h"
#include "entry/sections/draft_rows.h"
#include "entry/sections/section_draft.h"
#include "entry/sections/sheet_paste.h"
#include "form/desk.h"

namespace kalvo {

/// One sitting of section entry, in the sheet, in the form, or now in one and now in the other:
/// from the study's rows, or a sheet that was kept, to a draft, and from there back to rows. What
/// is typed keeps itself in `Spread.@@@` as long as the rows do not have it.
class SectionSitting {
 public:
  explicit SectionSitting(Desk& desk) : desk_(desk), bench_(desk.bench) {}

  SectionDraft draft;
  bool from_sheet = false;  ///< the form was reached from the sheet
  bool continues = false;   ///< rows are added to those that there are

  /// Begins with the kept sheet, else with the study's rows. Error: one of them cannot be read;
  /// nothing is begun.
  Outcome Begin();
  /// Begins with the rows whatever was kept; the kept sheet goes into a safety copy first.
  Outcome BeginWithRows();

  /// The rows as entry began.
  [[nodiscard]] const std::vector<SectionRow>& base() const { return base_.rows; }
  /// After a Begin() that failed: the kept sheet was read and is none, or one of the other kind.
  [[nodiscard]] bool kept_is_broken() const { return kept_is_broken_; }
  /// Cells of the kept sheet whose text does not fit.
  [[nodiscard]] int left_out() const { return left_out_; }

  /// What is typed and not in the draft yet, as if it were in its cells.
  using Pending = std::vector<CellText>;

  /// Keeps the sheet as it is now, unless it is kept already; with `flush` onto the medium.
  Outcome Keep(const Pending& pending, bool flush);
  /// True when a change waits to be kept or flushed.
  [[nodiscard]] bool WantsKeeping(const Pending& pending) const;
  [[nodiscard]] bool WantsFlush() const { return kept_.WantsFlush(); }

  /// The user keeps the sheet in `Spread.ss2`, and brings it back as one action of the draft.
  Outcome Save();
  struct Retrieved {
    int left_out = 0;  ///< cells whose text does not fit
  };
  Result<Retrieved> Retrieve(GridPlace place);

  [[nodiscard]] DraftRows Rows() const;
  /// The same with the count of rows that the form writes.
  [[nodiscard]] DraftRows RowsOfForm() const;
  /// Makes rows of the draft, with the flags and the emitters that go with them; writes nothing
  /// where the files say so already. Error: the rows are as they were, the sheet is kept.
  Outcome PutRows(const DraftRows& made);
  /// The last PutRows() failed, and the file may not even say again what it did before.
  [[nodiscard]] bool put_failed() const { return put_failed_; }

  /// The rows as the files of this sitting have them.
  [[nodiscard]] const std::vector<SectionRow>& rows() const { return rows_; }
  /// The first row that lacks a name, or that a check bars, and that the file never had. Rows count
  /// from 0.
  [[nodiscard]] std::optional<int> FirstWrongRow() const;
  /// What the files say of a row; blank: they have none. Rows count from 0.
  [[nodiscard]] const SheetRow& Stored(int row) const;
  /// The draft says of a row what the files say.
  [[nodiscard]] bool IsStored(int row) const;
  /// The draft says of a row again what the files say, or of all of them; in the action under way.
  void TakeStored(int row);
  void TakeStoredRows();
  /// Something else has changed the work file of rows, or took it away, since this sitting wrote or
  /// read it.
  Result<bool> RowsDiffer();
  /// Writes the rows of this sitting in place of what is there.
  Outcome RestoreRows();
  /// Before the first change of the rows: the emitters are still those that entry began with.
  Outcome ReadBaseEmitters();
  /// What an operation did to the rows, beside the texts of single ones.
  enum class RowMove { kNone, kInserted, kRemoved };
  /// After an operation on the work file: the draft takes over what the rows say, in the action
  /// under way; row `at` came or went. Settle() comes next.
  Outcome FollowRows(RowMove move, int at);
  /// Emitters and flags as they belong to the rows. Error: the emitters lag, until the next time.
  Outcome Settle();

  /// The copy of the rows as entry began goes if those of now are on the medium.
  void DropFirstRows();
  /// The sitting is over: nothing of it is needed any more. Error: the rows are not on the medium,
  /// what was kept stays.
  Outcome End();

 private:
  using Texts = std::array<std::string, kSheetColumns>;

  Outcome ReadBase();
  Outcome CopyFirstRows();
  Outcome TakeKept();
  void BeginDraft(SheetImage image, bool edited = false);
  void NoteRows(std::vector<SectionRow> rows, std::vector<int> origins);
  void SetInDoubt(bool in_doubt);
  Outcome FlushRows();
  [[nodiscard]] bool IsWrong(const SheetRow& texts, int row) const;
  [[nodiscard]] std::string Encoded(const SheetImage& image) const;
  [[nodiscard]] SheetImage ImageWith(const Pending& pending) const;
  [[nodiscard]] bool SaysRows(const SheetImage& image) const;
  int LeaveOutMisfits(SheetImage& image) const;

  Desk& desk_;
  Workbench& bench_;
  DraftBase base_;
  bool has_emitters_ = false;  ///< those of `base_` were read
  std::vector<SectionRow> rows_;
  SheetImage as_rows_;             ///< the sheet that says what they say
  std::vector<int> rows_origins_;  ///< the row of the base that each of them came from
  std::set<Texts> known_wrong_;    ///< rows that a check bars and that the file had all the same
  bool in_doubt_ = false;          ///< the file may not say what `rows_` do
  bool put_failed_ = false;
  bool unflushed_ = false;  ///< it was written, and not flushed yet
  bool kept_is_broken_ = false;
  int left_out_ = 0;
  int kept_revision_ = -1;
  Pending kept_pending_;
  KeptEntry kept_;
};

}  // namespace kalvo
