#include "entry/draft_rows.h"

#include <algorithm>
#include <map>

#include "entry/sheet_columns.h"
#include "form/edit.h"
#include "study/by_number.h"
#include "study/section_entry.h"
#include "study/tables.h"

namespace kalvo {
namespace {

using Rows = std::vector<SectionRow>;

std::string& TextAt(SheetRow& row, int column) {
  return row.texts.at(static_cast<std::size_t>(column));
}

// Names that a row has no place for are cut.
SectionEntry NamesOfSheetRow(const SheetRow& row) {
  SectionEntry entry;
  entry.left = FirstCharacters(row.texts[sheet_column::kLeft], kLongestName);
  entry.right = FirstCharacters(row.texts[sheet_column::kRight], kLongestName);
  return entry;
}

SectionEntry EntryOfSheetRow(const SheetRow& row) {
  SectionEntry entry = NamesOfSheetRow(row);
  for (std::size_t i = 0; i < kEntryNumbers.size(); ++i) {
    entry.*kEntryNumbers[i].text = row.texts[sheet_column::kLength + i];
  }
  return entry;
}

bool CameFrom(const SheetRow& row, const Rows& base) {
  return row.origin >= 1 && row.origin <= static_cast<int>(base.size()) &&
         ByNumber(base, row.origin).Name == row.origin_name;
}

// Which row bears a name; 0 for a name that several bear.
std::map<std::string_view, int> RowsByName(const Rows& rows) {
  std::map<std::string_view, int> numbers;
  for (int number = 1; number <= static_cast<int>(rows.size()); ++number) {
    const auto [at, is_new] = numbers.emplace(ByNumber(rows, number).Name.bytes(), number);
    if (!is_new) at->second = 0;
  }
  return numbers;
}

FixedText<7> NameOfTexts(const SheetRow& row) {
  SectionRow made;
  TakeEntry(made, NamesOfSheetRow(row), Separators{});
  return made.Name;
}

bool SameSection(const SectionRow& a, const SectionRow& b) {
  const auto same_number = [&](const EntryNumber& number) {
    return NumberOf(a, number.field) == NumberOf(b, number.field);
  };
  return a.RecordNumber == b.RecordNumber && a.Name == b.Name &&
         std::ranges::all_of(kEntryNumbers, same_number);
}

// The row in its place, with what its texts say.
SectionRow MakeRow(const SheetRow& texts, int number, const Rows& base, const Study& study,
                   Separators separators) {
  SectionRow row = texts.origin > 0 ? ByNumber(base, texts.origin) : NewSectionRow(base);
  row.RecordNumber = row.SectionNo = ToInt16(number);
  TakeHeader(row, study);
  TakeEntry(row, EntryOfSheetRow(texts), separators);
  if (study.SystemClosed()) row.HeightDiff = 0;
  return row;
}

// Number of the row that came from row `origin`; 0 when none did.
std::int16_t NumberFrom(const std::vector<int>& origins, int origin) {
  const auto at = std::ranges::find(origins, origin);
  if (origin < 1 || at == origins.end()) return 0;
  return ToInt16(static_cast<double>(at - origins.begin()) + 1);
}

// The plant's section follows its row; 0 when that is gone, and a number above the rows stays.
std::int16_t PlantOf(const std::vector<int>& origins, std::int16_t plant, std::size_t base_rows) {
  if (plant < 1 || static_cast<std::size_t>(plant) > base_rows) return plant;
  return NumberFrom(origins, plant);
}

void CompareWithBase(DraftRows& made, const Rows& base) {
  made.changed = made.rows.size() != base.size();
  for (std::size_t i = 0; i < made.rows.size(); ++i) {
    made.moved = made.moved || made.origins[i] != static_cast<int>(i) + 1;
    if (i >= base.size()) continue;
    made.changed = made.changed || !SameSection(made.rows[i], base[i]);
    made.feeders_changed =
        made.feeders_changed || RightNode(made.rows[i].Name) != RightNode(base[i].Name);
  }
  made.moved = made.moved || made.rows.size() != base.size();
}

void FinishRows(DraftRows& made, std::int16_t plant_before) {
  for (SectionRow& row : made.rows) {
    row.TOT = ToInt16(static_cast<double>(made.rows.size()));
    row.BurChil = made.plant;
    const bool plant_mark = row.Auxi == kPlantOnRow1 || row.Auxi == kPlantBehind;
    if (row.RecordNumber == made.plant) {
      row.Auxi = PlantMark(row.RecordNumber);
    } else if (plant_mark && made.plant != plant_before) {
      row.Auxi = 0;
    }
    if (made.changed) ClearResults(row);
  }
}

// Changes the records of the emitters; the study's table follows. Nothing is written where none
// becomes another.
template <typename Change>
Outcome ChangeEmitters(Workbench& bench, Change&& change) {
  RowFile<SectionRow> file = bench.workspace.Rows(work_file::kEmitters);
  const Result<Rows> before = file.ReadAll();
  if (!before) return before.error();
  Rows emitters = *before;
  for (SectionRow& emitter : emitters) change(emitter);
  if (EncodeRows<SectionRow>(emitters) == EncodeRows<SectionRow>(*before)) return Done{};
  if (Outcome written = file.WriteAll(emitters); !written) return written;
  std::erase_if(emitters, [](const SectionRow& row) { return row.RecordNumber == 0; });
  RefreshEmitterTable(bench.study, emitters);
  return Done{};
}

// The emitters get the numbers that their sections have now.
Outcome MoveEmitters(Workbench& bench, const DraftRows& made) {
  return ChangeEmitters(bench, [&made](SectionRow& emitter) {
    emitter.RecordNumber = NumberFrom(made.origins, emitter.RecordNumber);
    if (emitter.RecordNumber > 0) emitter.Name = ByNumber(made.rows, emitter.RecordNumber).Name;
  });
}

Outcome WriteRows(Workspace& workspace, const Rows& rows) {
  if (rows.empty()) {
    workspace.Delete(work_file::kRows);
    return Done{};
  }
  if (Outcome written = workspace.Rows().WriteAll(rows); !written) return written;
  return workspace.Flush(work_file::kRows);
}

}  // namespace

SheetImage ImageOfRows(const Rows& rows, SystemKind kind, Separators separators) {
  SheetImage image{kind, static_cast<int>(rows.size()), {}};
  for (const SectionRow& row : rows) {
    SheetRow& shown = image.rows.emplace_back();
    shown.origin = static_cast<int>(image.rows.size());
    shown.origin_name = row.Name;
    const SectionEntry entry = EntryOf(row, separators);
    TextAt(shown, sheet_column::kLeft) = entry.left;
    TextAt(shown, sheet_column::kSlash) = kSlashText;
    TextAt(shown, sheet_column::kRight) = entry.right;
    for (std::size_t i = 0; i < kEntryNumbers.size(); ++i) {
      shown.texts[sheet_column::kLength + i] = entry.*kEntryNumbers[i].text;
    }
  }
  return image;
}

void FindOrigins(SheetImage& image, const Rows& base) {
  const bool same_base = image.base_rows == static_cast<int>(base.size()) &&
                         std::ranges::all_of(image.rows, [&](const SheetRow& row) {
                           return row.origin == 0 || CameFrom(row, base);
                         });
  if (!same_base) {
    const auto numbers = RowsByName(base);
    for (SheetRow& row : image.rows) {
      const auto at = numbers.find(NameOfTexts(row).bytes());
      row.origin = at == numbers.end() ? 0 : at->second;
    }
  }
  image.base_rows = static_cast<int>(base.size());
  std::vector<bool> taken(base.size() + 1);
  for (SheetRow& row : image.rows) {
    if (row.origin > 0 && taken[static_cast<std::size_t>(row.origin)]) row.origin = 0;
    taken[static_cast<std::size_t>(row.origin)] = true;
    row.origin_name = row.origin > 0 ? ByNumber(base, row.origin).Name : FixedText<7>();
  }
}

DraftRows RowsOfDraft(const SectionDraft& draft, const Rows& base, const Study& study,
                      Separators separators) {
  DraftRows made;
  const int count = draft.Count();
  for (int row = 0; row < count; ++row) {
    made.rows.push_back(MakeRow(draft.At(row), row + 1, base, study, separators));
    made.origins.push_back(draft.At(row).origin);
  }
  made.plant = PlantOf(made.origins, study.plant_section, base.size());
  CompareWithBase(made, base);
  FinishRows(made, study.plant_section);
  return made;
}

Outcome FindEmitters(Workbench& bench, const Rows& rows) {
  const auto numbers = RowsByName(rows);
  return ChangeEmitters(bench, [&](SectionRow& emitter) {
    const auto has_emitter = [&rows](int number) {
      return number >= 1 && number <= static_cast<int>(rows.size()) &&
             ByNumber(rows, number).HasEmitter();
    };
    if (has_emitter(emitter.RecordNumber)) return;
    const auto named = numbers.find(emitter.Name.bytes());
    if (named != numbers.end() && has_emitter(named->second)) {
      emitter.RecordNumber = ToInt16(named->second);
    }
  });
}

Outcome PutDraftRows(Workbench& bench, const DraftRows& made) {
  Study& study = bench.study;
  if (Outcome written = WriteRows(bench.workspace, made.rows); !written) return written;
  study.plant_section = made.plant;
  RefreshSectionTable(study, made.rows);
  study.CurrentRow = std::clamp<std::int16_t>(study.CurrentRow, 0, study.SectionCount);
  if (study.CurrentRow > 0) study.row = ByNumber(made.rows, study.CurrentRow);
  study.unsaved_changes = study.unsaved_changes || made.changed;
  study.results_valid = study.results_valid && !made.changed;
  study.NameErrors = study.NameErrors || (study.SystemOpen() && made.feeders_changed);
  if (made.moved) {
    study.emitters_unchecked = study.emitters_unchecked || study.EmitterCount > 0;
  }
  return MoveEmitters(bench, made);
}

std::vector<std::string> MissingLines(const SectionDraft& draft) {
  struct Needed {
    int column;
    const char* closed;
    const char* open;
  };
  constexpr Needed kNeeded[] = {
      {sheet_column::kLeft, " > : Λείπει ο ΑΡΧΙΚΟΣ ΚΟΜΒΟΣ",
       " > : Λείπει ο α/α του ΤΡΕΧΟΝΤΟΣ ΤΜΗΜΑΤΟΣ"},
      {sheet_column::kRight, " > : Λείπει ο ΤΕΛΙΚΟΣ ΚΟΜΒΟΣ",
       " > : Λείπει ο α/α του ΤΜΗΜΑΤΟΣ-ΤΡΟΦΟΔΟΤΗ"},
      {sheet_column::kLength, " > : Λείπει το ΜΗΚΟΣ", " > : Λείπει το ΜΗΚΟΣ"}};
  const bool open = draft.kind() == SystemKind::kOpen;
  const bool edited = draft.history().CanUndo();
  std::vector<std::string> lines;
  for (int row = 0, count = draft.Count(); row < count; ++row) {
    const std::string number = std::to_string(row + 1);
    for (const Needed& needed : kNeeded) {
      if (!draft.Text(row, needed.column).empty()) continue;
      lines.push_back("Τμήμα <" + number + (open ? needed.open : needed.closed));
    }
    const std::string& own = draft.Text(row, sheet_column::kLeft);
    if (open && edited && !own.empty() && own != number) {
      lines.push_back("Τμήμα <" + number + " > : Ο α/α του ΤΡΕΧΟΝΤΟΣ ΤΜΗΜΑΤΟΣ δεν είναι " + number);
    }
  }
  return lines;
}

}  // namespace kalvo
