#include "entry/sections/draft_rows.h"

#include <algorithm>
#include <map>

#include "entry/sections/sheet_columns.h"
#include "form/edit.h"
#include "study/by_number.h"
#include "study/codepage.h"
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

bool CameFrom(const SheetRow& row, const Rows& base) {
  return row.origin >= 1 && row.origin <= static_cast<int>(base.size()) &&
         ByNumber(base, row.origin).Name == row.origin_name;
}

bool IsAny(const SectionRow& /*row*/) { return true; }
bool HasEmitter(const SectionRow& row) { return row.HasEmitter(); }

// Which row of that kind bears a name; 0 for a name that several bear.
std::map<std::string_view, int> RowsByName(const Rows& rows, bool (*is_meant)(const SectionRow&)) {
  std::map<std::string_view, int> numbers;
  for (int number = 1; number <= static_cast<int>(rows.size()); ++number) {
    if (!is_meant(ByNumber(rows, number))) continue;
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

bool SaysSame(const SectionRow& a, const SectionRow& b) {
  const auto same_number = [&](const EntryNumber& number) {
    return NumberOf(a, number.field) == NumberOf(b, number.field);
  };
  return a.Name == b.Name && std::ranges::all_of(kEntryNumbers, same_number);
}

bool SameSection(const SectionRow& a, const SectionRow& b) {
  return a.RecordNumber == b.RecordNumber && SaysSame(a, b);
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

// The first so many rows are where they were.
bool IsBegin(const std::vector<int>& origins, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (origins[i] != static_cast<int>(i) + 1) return false;
  }
  return true;
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
  made.inside = made.rows.size() < base.size() || !IsBegin(made.origins, base.size());
  made.moved = made.moved || made.rows.size() != base.size();
  made.changed = made.changed || made.moved;
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
    ClearResults(row);
  }
}

// The emitters with the numbers and names that their sections have now.
void MoveEmitters(Rows& emitters, const DraftRows& made) {
  for (SectionRow& emitter : emitters) {
    emitter.RecordNumber = NumberFrom(made.origins, emitter.RecordNumber);
    if (emitter.RecordNumber > 0) emitter.Name = ByNumber(made.rows, emitter.RecordNumber).Name;
  }
}

Outcome WriteEmitters(Workspace& workspace, const Rows& emitters) {
  const Result<Rows> before = workspace.Rows(work_file::kEmitters).ReadAll();
  if (!before) return before.error();
  if (EncodeRows<SectionRow>(emitters) == EncodeRows<SectionRow>(*before)) return Done{};
  return workspace.Rows(work_file::kEmitters).WriteAll(emitters);
}

void TakeEmitters(Study& study, Rows emitters) {
  std::erase_if(emitters, [](const SectionRow& row) { return row.RecordNumber == 0; });
  RefreshEmitterTable(study, emitters);
}

// The state that goes with rows newly in place.
void TakeDraftRows(Study& study, const DraftRows& made, const DraftBase& base) {
  study.plant_section = made.plant;
  RefreshSectionTable(study, made.rows);
  study.CurrentRow = std::clamp<std::int16_t>(study.CurrentRow, 0, study.SectionCount);
  if (study.CurrentRow > 0) study.row = ByNumber(made.rows, study.CurrentRow);
  study.unsaved_changes = base.unsaved_changes || made.changed;
  study.results_valid = base.results_valid && !made.changed;
  study.NameErrors = base.NameErrors || (study.SystemOpen() && made.feeders_changed);
  study.emitters_unchecked = base.emitters_unchecked || (made.moved && base.has_emitters);
}

Outcome WriteRows(Workspace& workspace, const Rows& rows) {
  if (rows.empty()) return workspace.Remove(work_file::kRows);
  if (Outcome written = workspace.Rows().WriteAll(rows); !written) return written;
  return workspace.Flush(work_file::kRows);
}

// "Τμήμα <3 > : Λείπει το ΜΗΚΟΣ"
std::string LineOnRow(int row, std::string_view what) {
  std::string line = "Τμήμα <" + std::to_string(row + 1);
  return line.append(" > : ").append(what);
}

void ListMissing(const SectionDraft& draft, int row, std::vector<std::string>& lines) {
  struct Needed {
    int column;
    const char* closed;
    const char* open;
  };
  constexpr Needed kNeeded[] = {
      {sheet_column::kLeft, "Λείπει ο ΑΡΧΙΚΟΣ ΚΟΜΒΟΣ", "Λείπει ο α/α του ΤΡΕΧΟΝΤΟΣ ΤΜΗΜΑΤΟΣ"},
      {sheet_column::kRight, "Λείπει ο ΤΕΛΙΚΟΣ ΚΟΜΒΟΣ", "Λείπει ο α/α του ΤΜΗΜΑΤΟΣ-ΤΡΟΦΟΔΟΤΗ"},
      {sheet_column::kLength, "Λείπει το ΜΗΚΟΣ", "Λείπει το ΜΗΚΟΣ"}};
  const bool open = draft.kind() == SystemKind::kOpen;
  for (const auto& [column, closed_text, open_text] : kNeeded) {
    if (!draft.Text(row, column).empty()) continue;
    lines.push_back(LineOnRow(row, open ? open_text : closed_text));
  }
}

void ListWrongNames(const SectionDraft& draft, int row, std::vector<std::string>& lines) {
  for (const int column : {sheet_column::kLeft, sheet_column::kRight}) {
    if (CountCharacters(draft.Text(row, column)) <= kLongestName) continue;
    lines.push_back(LineOnRow(row, "Όνομα με πάνω από 3 χαρακτήρες, " + draft.Text(row, column)));
  }
  const std::string& own = draft.Text(row, sheet_column::kLeft);
  const std::string number = std::to_string(row + 1);
  const bool looked_at = draft.kind() == SystemKind::kOpen && draft.IsEdited() && !own.empty();
  if (looked_at && own != number) {
    lines.push_back(LineOnRow(row, "Ο α/α του ΤΡΕΧΟΝΤΟΣ ΤΜΗΜΑΤΟΣ δεν είναι " + number));
  }
}

}  // namespace

SectionEntry EntryOfSheetRow(const SheetRow& row) {
  SectionEntry entry = NamesOfSheetRow(row);
  for (std::size_t i = 0; i < kEntryNumbers.size(); ++i) {
    entry.*kEntryNumbers[i].text = row.texts[sheet_column::kLength + i];
  }
  return entry;
}

SheetRow SheetRowOf(const SectionEntry& entry) {
  SheetRow row;
  TextAt(row, sheet_column::kLeft) = entry.left;
  TextAt(row, sheet_column::kSlash) = kSlashText;
  TextAt(row, sheet_column::kRight) = entry.right;
  for (std::size_t i = 0; i < kEntryNumbers.size(); ++i) {
    row.texts[sheet_column::kLength + i] = entry.*kEntryNumbers[i].text;
  }
  return row;
}

SheetImage ImageOfRows(const Rows& rows, SystemKind kind, Separators separators) {
  SheetImage image{kind, static_cast<int>(rows.size()), {}};
  for (const SectionRow& row : rows) {
    SheetRow& shown = image.rows.emplace_back(SheetRowOf(EntryOf(row, separators)));
    shown.origin = static_cast<int>(image.rows.size());
    shown.origin_name = row.Name;
  }
  return image;
}

void FindOrigins(SheetImage& image, const Rows& base) {
  const bool same_base = image.base_rows == static_cast<int>(base.size()) &&
                         std::ranges::all_of(image.rows, [&](const SheetRow& row) {
                           return row.origin == 0 || CameFrom(row, base);
                         });
  if (!same_base) {
    const auto numbers = RowsByName(base, IsAny);
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

DraftBase BaseOf(const Study& study, Rows rows) {
  return {std::move(rows),          {},
          study.plant_section,      study.unsaved_changes,
          study.results_valid,      study.NameErrors,
          study.emitters_unchecked, study.EmitterCount > 0};
}

DraftRows RowsOfDraft(const SectionDraft& draft, const DraftBase& base, const Study& study,
                      Separators separators) {
  DraftRows made;
  const int count = draft.Count();
  for (int row = 0; row < count; ++row) {
    made.rows.push_back(MakeRow(draft.At(row), row + 1, base.rows, study, separators));
    made.origins.push_back(draft.At(row).origin);
  }
  made.plant = ToInt16(draft.plant());
  CompareWithBase(made, base.rows);
  if (made.changed) {
    FinishRows(made, base.plant_section);
  } else {
    made.rows = base.rows;
  }
  return made;
}

void CountAsForm(DraftRows& made, const DraftBase& base) {
  for (std::size_t i = 0; i < made.rows.size(); ++i) {
    SectionRow& row = made.rows[i];
    const int origin = made.origins[i];
    const bool same = origin > 0 && SaysSame(row, ByNumber(base.rows, origin));
    row.TOT =
        same ? ByNumber(base.rows, origin).TOT : ToInt16(static_cast<double>(made.rows.size()) + 1);
  }
}

Outcome FindEmitters(Workbench& bench, const Rows& rows) {
  const Result<Rows> before = bench.workspace.Rows(work_file::kEmitters).ReadAll();
  if (!before) return before.error();
  const auto numbers = RowsByName(rows, HasEmitter);
  Rows emitters = *before;
  for (SectionRow& emitter : emitters) {
    const int number = emitter.RecordNumber;
    const bool in_rows = number >= 1 && number <= static_cast<int>(rows.size());
    const bool named = in_rows && ByNumber(rows, number).Name == emitter.Name;
    if (named && ByNumber(rows, number).HasEmitter()) continue;
    const auto found = numbers.find(emitter.Name.bytes());
    const bool renamed = in_rows && ByNumber(rows, number).SomaDrop == emitter.SomaDrop;
    if (found != numbers.end() && found->second > 0) {
      emitter.RecordNumber = ToInt16(found->second);
    } else if (!named && !renamed) {
      emitter.RecordNumber = 0;
    }
  }
  if (Outcome written = WriteEmitters(bench.workspace, emitters); !written) return written;
  TakeEmitters(bench.study, std::move(emitters));
  return Done{};
}

Outcome PutDraftRows(Workbench& bench, const DraftRows& made, const DraftBase& base,
                     const Rows& before) {
  Outcome put = WriteRows(bench.workspace, made.rows);
  if (put) put = SettleDraftRows(bench, made, base);
  if (!put) static_cast<void>(WriteRows(bench.workspace, before));  // as far as the disk lets
  return put;
}

Outcome SettleDraftRows(Workbench& bench, const DraftRows& made, const DraftBase& base) {
  Rows emitters = base.emitters;
  if (made.changed) MoveEmitters(emitters, made);
  if (Outcome written = WriteEmitters(bench.workspace, emitters); !written) return written;
  TakeDraftRows(bench.study, made, base);
  if (!emitters.empty()) TakeEmitters(bench.study, std::move(emitters));
  return Done{};
}

std::vector<std::string> MissingLines(const SectionDraft& draft) {
  std::vector<std::string> lines;
  for (int row = 0, count = draft.Count(); row < count; ++row) {
    ListMissing(draft, row, lines);
    ListWrongNames(draft, row, lines);
  }
  return lines;
}

}  // namespace kalvo
