#include "study/section_rows.h"

#include <algorithm>
#include <utility>

#include "study/by_number.h"
#include "study/fault.h"
#include "study/message_codes.h"
#include "study/tables.h"

namespace kalvo {

namespace {

using Rows = std::vector<SectionRow>;

void RenewOwnNumber(SectionRow& row) {
  row.Name = FixedText<7>::FromBytes(PadFront(std::to_string(row.RecordNumber), kNodeWidth) +
                                     std::string(row.Name.bytes().substr(kNodeWidth)));
}

// The section that feeds `row` in an open network; 0 for the source and for what is no number.
int FeederOf(const SectionRow& row) {
  return ToInt16(ParseNumber(FromCodePage(RightNode(row.Name)), Separators{'.', ','}));
}

void SetNumber(SectionRow& row, int number) { row.RecordNumber = row.SectionNo = ToInt16(number); }

// The name of a row that an insertion before `place` has moved up by one.
void ShiftName(SectionRow& row, int place) {
  const int feeder = FeederOf(row);
  if (row.RecordNumber == place + 1) {
    RenewOwnNumber(row);
  } else if (feeder >= place) {
    row.Name = MakeName(std::to_string(row.RecordNumber), std::to_string(feeder + 1));
  }
}

Rows WithoutRow(const Rows& rows, int place, bool is_open) {
  Rows rest;
  for (const SectionRow& row : rows) {
    if (static_cast<int>(&row - rows.data()) + 1 == place) {
      continue;
    }
    SectionRow& kept = rest.emplace_back(row);
    SetNumber(kept, static_cast<int>(rest.size()));
    if (is_open) {
      RenewOwnNumber(kept);
    }
  }
  return rest;
}

Rows WithCopyBefore(const Rows& rows, int place, bool is_open) {
  Rows grown = rows;
  for (int number = 1; number <= static_cast<int>(rows.size()); ++number) {
    SectionRow& row = ByNumber(grown, number);
    SetNumber(row, number < place ? number : number + 1);
    if (is_open && number < place) {
      RenewOwnNumber(row);
    } else if (is_open) {
      ShiftName(row, place);
    }
  }
  const auto at = static_cast<std::ptrdiff_t>(place - 1);
  SectionRow copy = rows[static_cast<std::size_t>(at)];
  SetNumber(copy, place);
  copy.Auxi = 0;
  copy.WaterFlow = copy.SomaDrop = copy.HeightDiff = 0;
  grown.insert(grown.begin() + at, copy);
  return grown;
}

// Writes the plant section's new number into every row; its mark tells whether it is row 1.
void MovePlant(Rows& rows, std::int16_t plant) {
  for (SectionRow& row : rows) {
    row.BurChil = plant;
    if (row.RecordNumber == plant && (row.Auxi == kPlantOnRow1 || row.Auxi == kPlantBehind)) {
      row.Auxi = PlantMark(plant);
    }
  }
}

// The state that goes with rows newly in place.
void TakeRows(Study& study, const Rows& rows, std::int16_t plant) {
  study.plant_section = plant;
  study.CurrentRow = std::min(study.CurrentRow, static_cast<std::int16_t>(rows.size()));
  study.row = ByNumber(rows, study.CurrentRow);
  RefreshSectionTable(study, rows);
}

Outcome ChangeRows(Workbench& bench, Rows rows, std::int16_t plant) {
  MovePlant(rows, plant);
  if (Outcome written = bench.workspace.Rows(work_file::kRebuilt).WriteAll(rows); !written) {
    return written;
  }
  if (Outcome moved = bench.workspace.MoveOver(work_file::kRebuilt, work_file::kRows); !moved) {
    return moved;
  }
  bench.study.unsaved_changes = true;
  bench.study.results_valid = false;
  // Their section numbers may be those of other rows now.
  bench.study.emitters_unchecked = bench.study.emitters_unchecked || bench.study.EmitterCount > 0;
  TakeRows(bench.study, rows, plant);
  return Done{};
}

// The rows, if `CurrentRow` is one of several; none after message `code` has said otherwise.
Result<Rows> SeveralRows(Workbench& bench, int code) {
  const RowFile<SectionRow> file = bench.workspace.Rows();
  Result<Rows> rows = file.ReadAll();
  if (!rows) {
    return rows;
  }
  if (rows->size() < 2) {
    bench.Show(code);
    return Rows{};
  }
  if (const Result<SectionRow> row = file.Read(bench.study.CurrentRow); !row) {
    return row.error();
  }
  return rows;
}

std::int16_t Moved(std::int16_t number, int by) { return ToInt16(number + by); }

}  // namespace

Outcome DeleteSectionRow(Workbench& bench) {
  Study& study = bench.study;
  const Result<Rows> rows = SeveralRows(bench, message::kNothingToDelete);
  if (!rows) {
    return rows.error();
  }
  if (rows->empty()) {
    return Done{};
  }
  const std::int16_t place = study.CurrentRow;
  std::int16_t plant = study.plant_section;
  if (plant >= place && static_cast<std::size_t>(plant) <= rows->size()) {
    plant = plant == place ? std::int16_t{0} : Moved(plant, -1);
  }
  return ChangeRows(bench, WithoutRow(*rows, place, study.SystemOpen()), plant);
}

Outcome InsertSectionRow(Workbench& bench) {
  Study& study = bench.study;
  const Result<Rows> rows = SeveralRows(bench, message::kNothingToInsertBefore);
  if (!rows) {
    return rows.error();
  }
  if (rows->empty()) {
    return Done{};
  }
  const std::int16_t place = study.CurrentRow;
  Rows grown = WithCopyBefore(*rows, place, study.SystemOpen());
  if (Outcome copied = bench.workspace.Copy(work_file::kRows, work_file::kRowsBeforeInsert);
      !copied) {
    return copied;
  }
  const bool follows =
      study.plant_section >= place && static_cast<std::size_t>(study.plant_section) <= rows->size();
  return ChangeRows(bench, std::move(grown), Moved(study.plant_section, follows ? 1 : 0));
}

Outcome UndoInsert(Workbench& bench) {
  Study& study = bench.study;
  const RowFile<SectionRow> before = bench.workspace.Rows(work_file::kRowsBeforeInsert);
  const Result<Rows> rows = before.ReadAll();
  if (!rows) {
    return rows.error();
  }
  if (rows->empty()) {
    return FileError{before.path(), "Το αρχείο δεν υπάρχει"};
  }
  if (Outcome moved = bench.workspace.MoveOver(work_file::kRowsBeforeInsert, work_file::kRows);
      !moved) {
    return moved;
  }
  const bool follows = study.plant_section > study.CurrentRow &&
                       static_cast<std::size_t>(study.plant_section) <= rows->size() + 1;
  TakeRows(study, *rows, Moved(study.plant_section, follows ? -1 : 0));
  return Done{};
}

}  // namespace kalvo
