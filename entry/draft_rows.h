#pragma once

#include <string>
#include <vector>

#include "entry/section_draft.h"
#include "study/section_row.h"
#include "study/separators.h"
#include "study/workbench.h"

namespace kalvo {

/// The rows of the study as a sheet shows them, each knowing where it came from.
SheetImage ImageOfRows(const std::vector<SectionRow>& rows, SystemKind kind, Separators separators);

/// Rows come from where their origins say; where an image was made over other rows than `base` (a
/// conversion that was broken off, an older sheet), from the only row of the same name.
void FindOrigins(SheetImage& image, const std::vector<SectionRow>& base);

/// A draft as rows of the study.
struct DraftRows {
  std::vector<SectionRow> rows;
  std::vector<int> origins;  ///< number of the row each came from; 0: it is new
  std::int16_t plant = 0;    ///< plant section
  bool changed = false;      ///< a name, a number or the count of rows is another one
  bool moved = false;        ///< rows were inserted or deleted
  bool feeders_changed = false;
};

/// Rows keep what the sheet does not show of the row each came from, `base`, and in what it shows
/// keep to the bit whatever was not edited; general values are the study's. Changed rows lose all
/// results. Faults: 6 for a number that no field of a row takes.
DraftRows RowsOfDraft(const SectionDraft& draft, const std::vector<SectionRow>& base,
                      const Study& study, Separators separators);

/// Makes them the study's: the work file, plant section, tables, and the emitters' numbers, which
/// follow their sections. The record of an emitter whose section is gone stays, with number 0.
/// Without rows the work file goes. Error: the study has not changed, and its rows are `base` as
/// before unless the disk refuses that too.
Outcome PutDraftRows(Workbench& bench, const DraftRows& made, const std::vector<SectionRow>& base);

/// Emitters whose number is that of a row of another name, as when the program ended between rows
/// and emitters, get the row of their name that has one.
Outcome FindEmitters(Workbench& bench, const std::vector<SectionRow>& rows);

/// What the sheet lacks, a line each: names and lengths, and in an open network that was edited own
/// numbers that are not the row's.
std::vector<std::string> MissingLines(const SectionDraft& draft);

}  // namespace kalvo
