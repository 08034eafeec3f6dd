#include <algorithm>
#include <utility>

#include "entry/frm_data.h"
#include "entry/sheet_columns.h"
#include "form/tell.h"

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

// What the file has already is not written again.
bool FrmData::StoreRow() {
  const std::string action = is_new_ ? "Νέο τμήμα" : "Καταχώρηση";
  const SectionDraft::Action step(sitting_.draft, action, {row(), std::max(ColumnOf(focus()), 0)});
  TakeFields(action);
  if (lags_) return PutLagging();
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

// After steps were taken back, or done again: all rows at once, when none lacks a name or a length.
bool FrmData::PutLagging() {
  const auto missing = MissingLines(sitting_.draft);
  if (!missing.empty()) {
    Tell(missing.front());
    return false;
  }
  if (!TellIfFailed(bench, sitting_.PutRows(sitting_.Rows()))) return false;
  lags_ = is_new_ = false;
  return true;
}

bool FrmData::LeaveRow() {
  if (IsUntouchedNew()) return true;
  return FieldsFit() && Passes() && StoreRow();
}

void FrmData::MoveTo(int number) {
  const bool to_last = number == kLastRow;
  if (number == 0 || number == bench.study.CurrentRow) return;
  if (to_last && bench.study.CurrentRow == count()) return;
  if (!LeaveRow()) return;
  LeaveInsertMode();
  ShowRow(to_last ? count() : number);
  FocusAgain();
}

void FrmData::Next() {
  if (one_branch_) {
    EndEntry();
    one_branch_ = false;
    return;
  }
  if (!FieldsFit() || !Passes() || !StoreRow()) return;
  LeaveInsertMode();
  const int next = bench.study.CurrentRow + 1;
  const bool goes_on = IsPlain() || sitting_.continues;
  if (next <= count()) {
    ShowRow(next);
  } else if (!goes_on) {
    ShowRow(next - 1);
  } else if (next > kMostSections) {
    ShowRow(next - 1);
    Tell("Έως 999 τμήματα");
    desk.sound.Beep();
  } else {
    ShowNewRow();
  }
  if (IsPlain() || is_new_) {
    FocusFirst();
  } else {
    FocusAgain();
  }
}

// The list moves `CurrentRow` itself; entry from nothing takes no notice of it.
void FrmData::ChooseRow() {
  if (!IsUntouchedNew() && (!FieldsFit() || !Passes())) return;
  const std::int16_t here = bench.study.CurrentRow;
  desk.navigator.ShowModal(screen::kGoTo);
  const std::int16_t chosen = std::exchange(bench.study.CurrentRow, here);
  if (IsPlain() || chosen > count()) return;
  desk.Click();
  if (!LeaveRow()) return;
  LeaveInsertMode();
  ShowRow(chosen);
  FocusAgain();
}

void FrmData::GoBack(bool forward) {
  if (IsTyped() && FieldsFit()) TakeFields("Καταχώρηση");
  SectionDraft& draft = sitting_.draft;
  const auto place = forward ? draft.Redo() : draft.Undo();
  if (!place) {
    Tell(forward ? "Δεν υπάρχει κάτι να επαναληφθεί" : "Δεν υπάρχει κάτι να αναιρεθεί",
         Tone::kPlain);
    return;
  }
  LeaveInsertMode();
  lags_ = true;
  if (MissingLines(draft).empty()) PutLagging();
  if (place->row < draft.Count()) {
    ShowRow(place->row + 1);
  } else {
    ShowNewRow();
  }
  Field& field =
      FieldOf(place->column == sheet_column::kSlash ? sheet_column::kLength : place->column);
  Focus(field.CanEdit() ? field : Txt2);
}

}  // namespace kalvo
