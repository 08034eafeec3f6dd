#pragma once

#include <string>
#include <vector>

#include "entry/sections/section_draft.h"
#include "study/section_entry.h"
#include "study/section_row.h"
#include "study/separators.h"
#include "study/workbench.h"

namespace kalvo {

/// What the texts of a row say as an entry, and the other way round. Names that a row has no place
/// for are cut.
SectionEntry EntryOfSheetRow(const SheetRow& row);
SheetRow SheetRowOf(const SectionEntry& entry);

/// The rows of the study as a sheet shows them, each knowing where it came from.
SheetImage ImageOfRows(const std::vector<SectionRow>& rows, SystemKind kind, Separators separators);

/// Rows come from where their origins say; where an image was made over other rows than `base` (a
/// conversion that was broken off, an older sheet), from the only row of the same name.
void FindOrigins(SheetImage& image, const std::vector<SectionRow>& base);

/// The study as section entry began.
struct DraftBase {
  std::vector<SectionRow> rows;
  std::vector<SectionRow> emitters;
  std::int16_t plant_section = 0;
  bool unsaved_changes = false;
  bool results_valid = false;
  bool NameErrors = false;
  bool emitters_unchecked = false;
  bool has_emitters = false;
};

/// The study as it is, save its emitters.
DraftBase BaseOf(const Study& study, std::vector<SectionRow> rows);

/// A draft as rows of the study.
struct DraftRows {
  std::vector<SectionRow> rows;
  std::vector<int> origins;  ///< number of the row each came from; 0: it is new
  std::int16_t plant = 0;    ///< plant section
  bool changed = false;      ///< a name, a number or the count of rows is another one
  bool moved = false;        ///< rows came in, or went
  bool inside = false;       ///< not all of those at the end
  bool feeders_changed = false;
};

/// Rows keep what the sheet does not show of the row each came from, and in what it shows keep to
/// the bit whatever was not edited; general values are the study's. Changed rows lose all results;
/// a draft that says what `base` does gives its rows as they are.
/// Faults: 6 for a number that no field of a row takes.
DraftRows RowsOfDraft(const SectionDraft& draft, const DraftBase& base, const Study& study,
                      Separators separators);

/// The count of rows as the section form writes it, `TOT`: one more than there are, in each row
/// that does not say what it said in `base`; the others keep theirs.
void CountAsForm(DraftRows& made, const DraftBase& base);

/// Makes them the study's: the work file, and what follows from it (SettleDraftRows()). Without
/// rows the work file goes. Error: the study has not changed, and its rows are `before` as they
/// were unless the disk refuses that too.
Outcome PutDraftRows(Workbench& bench, const DraftRows& made, const DraftBase& base,
                     const std::vector<SectionRow>& before);

/// What follows from rows that are in the work file: plant section, tables, flags, and the
/// emitters' numbers, which follow their sections. The record of an emitter whose section is gone
/// stays, with number 0. Error: the emitters could not be written, nothing has changed.
Outcome SettleDraftRows(Workbench& bench, const DraftRows& made, const DraftBase& base);

/// Emitters whose number is that of a row of another name or without one, as when the program ended
/// between rows and emitters, get the row of their name that has one; those of no row get number 0.
Outcome FindEmitters(Workbench& bench, const std::vector<SectionRow>& rows);

/// What the sheet lacks, a line each: names and lengths, and in an open network that was edited own
/// numbers that are not the row's.
std::vector<std::string> MissingLines(const SectionDraft& draft);

}  // namespace kalvo
