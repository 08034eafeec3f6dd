#pragma once

#include <array>
#include <string>

#include "study/workbench.h"

namespace kalvo {

/// What the user types of one section, as texts in the user's notation: the two halves of its name
/// and the values of the row fields of the same names.
struct SectionEntry {
  std::string left;
  std::string right;
  std::string Length;
  std::string AnglePOP;
  std::string Elbow90;
  std::string GateValve;
  std::string StrSwitch;
  std::string AngSwitch;
  std::string DiaTee;
  std::string DieTee;
  std::string AntiTee;
  std::string SymboTee;
  std::string CheckValve;
  std::string OtherDrop_mm;
  std::string OtherDrop_m;

  bool operator==(const SectionEntry&) const = default;
};

/// A number of an entry beside its row field.
struct EntryNumber {
  std::string SectionEntry::*text;
  NumberField field;
};

/// All of them, in the order of the form and of the sheet.
inline constexpr std::array<EntryNumber, 13> kEntryNumbers = {{
    {&SectionEntry::Length, &SectionRow::Length},
    {&SectionEntry::AnglePOP, &SectionRow::AnglePOP},
    {&SectionEntry::Elbow90, &SectionRow::Elbow90},
    {&SectionEntry::GateValve, &SectionRow::GateValve},
    {&SectionEntry::StrSwitch, &SectionRow::StrSwitch},
    {&SectionEntry::AngSwitch, &SectionRow::AngSwitch},
    {&SectionEntry::DiaTee, &SectionRow::DiaTee},
    {&SectionEntry::DieTee, &SectionRow::DieTee},
    {&SectionEntry::AntiTee, &SectionRow::AntiTee},
    {&SectionEntry::SymboTee, &SectionRow::SymboTee},
    {&SectionEntry::CheckValve, &SectionRow::CheckValve},
    {&SectionEntry::OtherDrop_mm, &SectionRow::OtherDrop_mm},
    {&SectionEntry::OtherDrop_m, &SectionRow::OtherDrop_m},
}};

/// The default text of a row's number in the user's notation.
std::string EntryText(const SectionRow& row, const NumberField& field, Separators separators);

/// The entry that shows `row`: names without blanks, numbers in their default text.
SectionEntry EntryOf(const SectionRow& row, Separators separators);

/// What a new section `number` starts with: names that go on from the section before (closed: from
/// node number - 1 to node number; open: section number, fed by number - 1; "ANT" for 0), the
/// length and the first five counts of `previous`, "0" for the tees and all that follows. Without
/// `previous` the length and the first five counts are empty.
SectionEntry EntryForNewRow(int number, SystemKind kind, const SectionRow* previous,
                            Separators separators);

/// What a new row of the study takes from the rows there are (row 1): `Client`, `Units`, `DP` and
/// `INILAMDA`.
SectionRow NewSectionRow(const std::vector<SectionRow>& rows);

/// Takes the typed values of `entry` into `row`: the name and the thirteen numbers.
/// Faults: 5 for a half name of more than three characters, 6 for a count outside 16 bits or a
/// number outside 32 bits; the row is then as it was.
void TakeEntry(SectionRow& row, const SectionEntry& entry, Separators separators);

/// Takes the values that are the same on every row from the study. `Client`, `Units`, `DP` and
/// `INILAMDA` stay; `TOT` is the caller's.
void TakeHeader(SectionRow& row, const Study& study);

/// Empties what a calculation fills in, `DP` included. The emitter's own values stay, and the
/// diameter that the user imposed: it is an entry, not a result.
void ClearResults(SectionRow& row);

/// Writes `entry` to the study's `CurrentRow`, at most one past the last row. A row that was there
/// keeps what the entry does not hold; a new one takes `Client`, `Units`, `DP` and `INILAMDA` of
/// row 1 and starts without flow, emitter and height. Unsaved changes from before, or a change of
/// more than header values in this row, make the results invalid; without valid results the row
/// is written without any, and where the first node of a closed network's row has changed no row
/// keeps its diameter, pressure and totals. Such a change, and a new row, count as unsaved from
/// here on. Faults: as TakeEntry(), and 6 for more rows than 16 bits count; nothing is then
/// changed.
Outcome StoreSectionRow(Workbench& bench, const SectionEntry& entry, Separators separators);

}  // namespace kalvo
