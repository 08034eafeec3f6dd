#include <algorithm>
#include <utility>

#include "entry/section_form/frm_data.h"
#include "entry/sections/sheet_columns.h"
#include "entry/sections/sheet_view.h"
#include "form/tell.h"
#include "study/message_codes.h"

namespace kalvo {

// Entry from nothing, or on after the last row, as against the correction of rows that there are.
bool FrmData::IsPlain() const { return !desk.screens.edit_mode && !sitting_.from_sheet; }

bool FrmData::Passes() {
  const auto fault = FirstFault(Texts(), row(), desk.separators);
  if (!fault) return true;
  bench.Show(fault->message);
  Field& field = FieldOf(fault->column);
  field.refused = true;
  Focus(field);
  return false;
}

// All that bars a row from being left, also by a command that leaves its field freely.
bool FrmData::Checked() {
  if (!FieldsFit()) return false;
  if (!LeaveLeft()) {
    Focus(Txt0);
    return false;
  }
  const bool named =
      !Txt1.edited() ||
      AcceptedText(Txt1.Trimmed(), sheet_column::kRight, desk.separators).has_value();
  if (named) return Passes();
  bench.Show(message::kWrongFeeder);
  Txt1.refused = true;
  Focus(Txt1);
  return false;
}

// What the file has already is not written again. Rows that lag go there once none of them is
// wrong.
bool FrmData::StoreRow() {
  const std::string action = is_new_ ? "Νέο τμήμα" : "Καταχώρηση";
  const SectionDraft::Action step(sitting_.draft, action, {row(), std::max(ColumnOf(focus()), 0)});
  TakeFields(action);
  if (lags_) {
    PutLagging();
    return true;
  }
  if (sitting_.IsStored(row())) return true;
  if (!GuardRows()) return false;
  const SectionEntry entry = EntryOfSheetRow(sitting_.draft.At(row()));
  if (!TellIfFailed(bench, StoreSectionRow(bench, entry, desk.separators))) return false;
  is_new_ = false;
  return FollowRows(SectionSitting::RowMove::kNone, 0);
}

// Emitters that could not be written are told; they follow at the latest when entry ends.
bool FrmData::FollowRows(SectionSitting::RowMove move, int at) {
  if (!TellIfFailed(bench, sitting_.FollowRows(move, at))) return false;
  TellIfFailed(bench, sitting_.Settle());
  return true;
}

bool FrmData::GuardRows() {
  const auto mended = sitting_.GuardRows();
  if (!mended) {
    TellError(bench, mended.error());
    return false;
  }
  if (*mended) Tell("Το αρχείο των Τμημάτων είχε αλλάξει ή χαθεί : γράφτηκε πάλι");
  return true;
}

// After steps were taken back, or done again: all rows at once, when none is wrong that was not so
// when entry began. The row on show stays, a new one too.
bool FrmData::PutLagging() {
  if (sitting_.FirstWrongRow()) return false;
  const std::int16_t here = bench.study.CurrentRow;
  const Outcome put = sitting_.PutRows(sitting_.Rows());
  bench.study.CurrentRow = here;
  if (!TellIfFailed(bench, put)) return false;
  lags_ = false;
  is_new_ = here > count();
  return true;
}

bool FrmData::LeaveRow() { return IsUntouchedNew() || (Checked() && StoreRow()); }

void FrmData::MoveTo(int number) {
  const bool to_last = number == kLastRow;
  const int target = to_last ? count() : number;
  if (target < 1 || target == bench.study.CurrentRow || !LeaveRow()) return;
  LeaveInsertMode();
  ShowRow(to_last ? count() : target);
  FocusAgain();
}

void FrmData::Next() {
  if (one_branch_) {
    EndEntry();
    return;
  }
  if (!Checked() || !StoreRow()) return;
  LeaveInsertMode();
  const int next = bench.study.CurrentRow + 1;
  if (next <= count()) {
    ShowRow(next);
  } else {
    ShowPastLast();
  }
  if (IsPlain() || is_new_) {
    FocusFirst();
  } else {
    FocusAgain();
  }
}

// A new row where entry goes on, else the last one again.
void FrmData::ShowPastLast() {
  const bool goes_on = IsPlain() || sitting_.continues;
  if (count() == 0 || (goes_on && count() < kMostSections)) {
    ShowNewRow();
    return;
  }
  ShowRow(count());
  if (!goes_on) return;
  Tell("Έως 999 τμήματα");
  desk.sound.Beep();
}

// Entry from nothing takes no notice of the list.
void FrmData::ChooseRow() {
  if (!IsUntouchedNew() && !Checked()) return;
  const auto chosen = ChooseSection(desk);
  if (IsPlain() || !chosen || *chosen > count()) return;
  desk.Click();
  if (!LeaveRow()) return;
  LeaveInsertMode();
  ShowRow(*chosen);
  FocusAgain();
}

// A field whose text was erased shows again what the draft has.
bool FrmData::ShowErased() {
  const bool erased = std::ranges::any_of(fields_, &Field::refused);
  if (!erased || is_new_) return false;
  ShowRow(bench.study.CurrentRow);
  FocusAgain();
  return true;
}

void FrmData::GoBack(bool forward) {
  if (!FieldsFit() || ShowErased()) return;
  if (IsTyped()) TakeFields("Καταχώρηση");
  SectionDraft& draft = sitting_.draft;
  const auto place = forward ? draft.Redo() : draft.Undo();
  if (!place) {
    Tell(forward ? "Δεν υπάρχει κάτι να επαναληφθεί" : "Δεν υπάρχει κάτι να αναιρεθεί",
         Tone::kPlain);
    return;
  }
  LeaveInsertMode();
  one_branch_ = false;
  lags_ = true;
  PutLagging();
  if (place->row < draft.Count()) {
    ShowRow(place->row + 1);
  } else {
    ShowPastLast();
  }
  Field& field =
      FieldOf(place->column == sheet_column::kSlash ? sheet_column::kLength : place->column);
  Focus(field.CanEdit() ? field : Txt2);
}

}  // namespace kalvo
