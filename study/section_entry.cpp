#include "study/section_entry.h"

#include <algorithm>
#include <utility>

#include "study/fault.h"
#include "study/tables.h"

namespace kalvo {

namespace {

// The length and the first five counts pass on to the next new row.
constexpr int kCarriedNumbers = 6;

std::string DefaultText(float value, Separators separators) {
  return FormatNumber(value, separators);
}
std::string DefaultText(std::int16_t value, Separators /*separators*/) { return NumberText(value); }

std::string NodeText(int number) {
  return number == 0 ? std::string(kSource) : std::to_string(number);
}

// A node as it is typed; the source's name becomes the Latin one whatever the keyboard.
std::string TypedNode(std::string_view text) {
  const std::string_view node = Trim(text);
  return node == "ΑΝΤ" ? std::string(kSource) : ToCodePage(node);
}

void TakeNumber(SectionRow& row, const NumberField& field, double value) {
  if (const auto* number = std::get_if<float SectionRow::*>(&field)) {
    row.*(*number) = ToSingle(value);
  } else {
    row.*std::get<std::int16_t SectionRow::*>(field) = ToInt16(value);
  }
}

// The row to be written in place of, or behind, those in `rows`.
SectionRow BuildRow(const Study& study, const std::vector<SectionRow>& rows,
                    const SectionEntry& entry, Separators separators) {
  const auto at = static_cast<std::size_t>(study.CurrentRow - 1);
  SectionRow row = at < rows.size() ? rows[at] : NewSectionRow(rows);
  row.RecordNumber = row.SectionNo = study.CurrentRow;
  TakeHeader(row, study);
  row.TOT = ToInt16(static_cast<double>(rows.size()) + 1);
  TakeEntry(row, entry, separators);
  if (study.SystemClosed()) {
    row.HeightDiff = 0;
  }
  if (row.RecordNumber == study.plant_section) {
    row.Auxi = PlantMark(row.RecordNumber);
  }
  return row;
}

// A section that begins at another node is another network: no row keeps what was calculated.
void ClearForNewBegin(const Study& study, std::vector<SectionRow>& rows) {
  for (SectionRow& row : rows) {
    row.PAR = row.DP = row.AvaiPres = 0;
    row.NomiDiam = {};
    row.MeanTemp = study.MeanTemp;
    row.FileNumber = study.pipe_system_number;
    row.MeanVel = study.MeanVel;
  }
}

// Whether `after` differs from `before` in more than the study's header.
bool SaysMore(const SectionRow& after, SectionRow before, const Study& study) {
  TakeHeader(before, study);
  before.TOT = after.TOT;
  return EncodeRows<SectionRow>({&before, 1}) != EncodeRows<SectionRow>({&after, 1});
}

}  // namespace

SectionRow NewSectionRow(const std::vector<SectionRow>& rows) {
  SectionRow row;
  if (!rows.empty()) {
    row.Client = rows.front().Client;
    row.Units = rows.front().Units;
    row.DP = rows.front().DP;
    row.INILAMDA = rows.front().INILAMDA;
  }
  return row;
}

std::string EntryText(const SectionRow& row, const NumberField& field, Separators separators) {
  return std::visit([&](auto member) { return DefaultText(row.*member, separators); }, field);
}

SectionEntry EntryOf(const SectionRow& row, Separators separators) {
  SectionEntry entry;
  entry.left = FromCodePage(Trim(LeftNode(row.Name)));
  entry.right = FromCodePage(Trim(RightNode(row.Name)));
  for (const auto& [text, field] : kEntryNumbers) {
    entry.*text = EntryText(row, field, separators);
  }
  return entry;
}

SectionEntry EntryForNewRow(int number, SystemKind kind, const SectionRow* previous,
                            Separators separators) {
  SectionEntry entry;
  const bool is_open = kind == SystemKind::kOpen;
  entry.left = NodeText(is_open ? number : number - 1);
  entry.right = NodeText(is_open ? number - 1 : number);
  int place = 0;
  for (const auto& [text, field] : kEntryNumbers) {
    if (++place > kCarriedNumbers) {
      entry.*text = "0";
    } else if (previous != nullptr) {
      entry.*text = EntryText(*previous, field, separators);
    }
  }
  return entry;
}

void TakeEntry(SectionRow& row, const SectionEntry& entry, Separators separators) {
  // What was not edited keeps its whole value, which its text may not show.
  const SectionEntry shown = EntryOf(row, separators);
  SectionRow taken = row;
  if (entry.left != shown.left || entry.right != shown.right) {
    taken.Name = MakeName(TypedNode(entry.left), TypedNode(entry.right));
  }
  for (const auto& [text, field] : kEntryNumbers) {
    if (entry.*text != shown.*text) TakeNumber(taken, field, ParseNumber(entry.*text, separators));
  }
  row = taken;
}

void TakeHeader(SectionRow& row, const Study& study) {
  row.Thema = FixedText<78>::FromUtf8(Trim(study.study_title));
  row.Material = FixedText<78>::FromUtf8(study.pipe_material);
  row.MeanTemp = study.MeanTemp;
  row.BurChil = study.plant_section;
  SetKind(row, study.SystemClosed() ? SystemKind::kClosed : SystemKind::kOpen);
  row.FileNumber = study.pipe_system_number;
  row.MeanVel = study.MeanVel;
  row.Outlets = study.EmitterCount;
  row.PAR = study.TotalFlowM3h;
}

void ClearResults(SectionRow& row) {
  row.DP = 0;
  for (float SectionRow::*const result :
       {&SectionRow::Velocity, &SectionRow::Reynolds, &SectionRow::Lamda, &SectionRow::FrictionRate,
        &SectionRow::TotalDrop, &SectionRow::AvaiPres}) {
    row.*result = 0;
  }
  if (row.InDiameter < 0) return;
  row.NomiDiam = {};
  row.Area = row.InDiameter = 0;
}

Outcome StoreSectionRow(Workbench& bench, const SectionEntry& entry, Separators separators) {
  Study& study = bench.study;
  RowFile<SectionRow> file = bench.workspace.Rows();
  Result<std::vector<SectionRow>> read = file.ReadAll();
  if (!read) {
    return read.error();
  }
  std::vector<SectionRow>& rows = read.value();
  SectionRow row = BuildRow(study, rows, entry, separators);
  const auto at = static_cast<std::size_t>(row.RecordNumber - 1);
  const bool is_new = at >= rows.size();
  if (at > rows.size()) {
    return FileError{file.path(), "Δεν υπάρχει η εγγραφή " + std::to_string(row.RecordNumber)};
  }
  const bool is_unsaved = study.unsaved_changes || (!is_new && SaysMore(row, rows[at], study));
  const bool results_valid = study.results_valid && !is_unsaved;
  if (!results_valid) {
    ClearResults(row);
  }
  // Which sections are outlets hangs on the feeders: the entry of the outlets has to follow.
  const bool new_feeder =
      study.SystemOpen() && !is_new && RightNode(row.Name) != RightNode(rows[at].Name);
  const bool new_begin =
      study.SystemClosed() && !is_new && LeftNode(row.Name) != LeftNode(rows[at].Name);
  rows.resize(std::max(rows.size(), at + 1));
  rows[at] = row;
  if (new_begin) ClearForNewBegin(study, rows);
  if (Outcome written = file.WriteAll(rows); !written) {
    return written;
  }
  study.NameErrors = study.NameErrors || new_feeder;
  study.unsaved_changes = is_unsaved || is_new;
  study.results_valid = results_valid && !is_new;
  study.row = row;
  RefreshSectionTable(study, rows);
  return Done{};
}

}  // namespace kalvo
