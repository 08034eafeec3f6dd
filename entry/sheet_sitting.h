#pragma once

#include <optional>
#include <string>
#include <vector>

#include "entry/draft_rows.h"
#include "entry/section_draft.h"
#include "form/desk.h"

namespace kalvo {

/// One sitting of section entry in the sheet: from the study's rows, or a sheet that was kept, to a
/// draft, and from there back to rows. What is typed keeps itself in `Spread.@@@` as long as the
/// rows do not have it.
class SheetSitting {
 public:
  explicit SheetSitting(Desk& desk) : desk_(desk), bench_(desk.bench) {}

  SectionDraft draft;

  /// Begins with the kept sheet, else with the study's rows. Error: one of them cannot be read;
  /// nothing is begun.
  Outcome Begin();
  /// Begins with the rows whatever was kept; the kept sheet goes into a safety copy first.
  Outcome BeginWithRows();

  [[nodiscard]] const std::vector<SectionRow>& base() const { return base_; }
  /// After a Begin() that failed: the kept sheet was read and is none, or one of the other kind.
  [[nodiscard]] bool kept_is_broken() const { return kept_is_broken_; }
  /// Cells of the kept sheet whose text does not fit.
  [[nodiscard]] int left_out() const { return left_out_; }

  /// What an open editor holds, as if it were in its cell.
  struct Pending {
    GridPlace place;
    std::string text;
    bool operator==(const Pending&) const = default;
  };

  /// Keeps the sheet as it is now, unless it is kept already; with `flush` onto the medium.
  Outcome Keep(const std::optional<Pending>& pending, bool flush);
  /// True when a change waits to be kept or flushed.
  [[nodiscard]] bool WantsKeeping(const std::optional<Pending>& pending) const;
  [[nodiscard]] bool WantsFlush() const { return !flushed_; }

  /// The user keeps the sheet in `Spread.ss2`, and brings it back as one action of the draft.
  Outcome Save();
  struct Retrieved {
    int left_out = 0;  ///< cells whose text does not fit
  };
  Result<Retrieved> Retrieve(GridPlace place);

  [[nodiscard]] DraftRows Rows() const;
  /// Makes rows of the draft. Error: the rows are as they were, the sheet is kept.
  Outcome PutRows(const DraftRows& made);
  /// The sitting is over: nothing of it is needed any more.
  void End();

 private:
  Outcome ReadBase();
  Outcome TakeKept();
  [[nodiscard]] std::string Encoded(const SheetImage& image) const;
  [[nodiscard]] SheetImage ImageWith(const std::optional<Pending>& pending) const;
  int LeaveOutMisfits(SheetImage& image) const;

  Desk& desk_;
  Workbench& bench_;
  std::vector<SectionRow> base_;
  std::string as_rows_;  ///< the sheet that says what the rows say
  bool kept_is_broken_ = false;
  int left_out_ = 0;
  int kept_revision_ = -1;
  std::optional<Pending> kept_pending_;
  bool flushed_ = true;
};

}  // namespace kalvo
