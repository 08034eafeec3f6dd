#include <algorithm>
#include <utility>

#include "entry/section_form/frm_data.h"
#include "entry/sections/sheet_columns.h"
#include "entry/sections/sheet_view.h"
#include "form/tell.h"
#include "study/message_codes.h"
#include "study/safety_copies.h"

namespace kalvo {

// Entry from nothing, or on after the last row, as against the correction of rows that there are.
bool FrmData::IsPlain() const { return !desk.screens.edit_mode && !sitting_.from_sheet; }

std::optional<RowFault> FrmData::Fault() const {
  const SheetRow texts = Texts();
  if (const auto fault = SeparatorFault(texts, desk.separators)) return fault;
  const bool named =
      !Txt1.edited() || AcceptedText(Txt1.Trimmed(), sheet_column::kRight, desk.separators);
  if (!named) return RowFault{message::kWrongFeeder, sheet_column::kRight};
  return FirstFault(texts, row(), desk.separators);
}

// What was typed stays, unless no row takes it.
bool FrmData::Checked() {
  if (!FieldsAgree()) return false;
  const auto fault = Fault();
  if (!fault) return true;
  bench.Show(fault->message);
  Field& field = FieldOf(fault->column);
  field.refused = true;
  Focus(field);
  return false;
}

// What the file has already is not written again. Rows that lag go there once none of them is
// wrong.
bool FrmData::StoreRow() {
  const std::string action = is_new_ ? "Νέο τμήμα" : kStoring;
  const SectionDraft::Action step(sitting_.draft, action, {row(), std::max(ColumnOf(focus()), 0)});
  TakeFields(action);
  if (lags_) return TakeWords(PutLagging());
  if (sitting_.IsStored(row())) return true;
  if (!MayChangeRows()) return false;
  if (lags_) return TakeWords(PutDraft());
  const SectionEntry entry = EntryOfSheetRow(sitting_.draft.At(row()));
  if (!TellIfFailed(bench, StoreSectionRow(bench, entry, desk.separators))) return false;
  is_new_ = false;
  FollowRows(SectionSitting::RowMove::kNone, 0);
  return !lags_;
}

// Where nobody knows what the rows say now they are made of the draft. Emitters that could not be
// written are told; they follow at the latest when entry ends.
bool FrmData::FollowRows(SectionSitting::RowMove move, int at) {
  if (!TellIfFailed(bench, sitting_.FollowRows(move, at))) {
    lags_ = true;
    PutDraft();
    return false;
  }
  TellIfFailed(bench, sitting_.Settle());
  return true;
}

// What something else has put there goes to safety; then the rows come back. Where there are none
// yet, those that come take its place.
bool FrmData::GuardRows() {
  const auto differ = sitting_.RowsDiffer();
  if (!differ) {
    TellError(bench, differ.error());
    return false;
  }
  if (!*differ) return true;
  const bool has_bytes = bench.workspace.HasBytes(work_file::kRows);
  if (has_bytes && !KeepSafetyCopyAnyway(bench, desk.safety_folders())) return false;
  if (sitting_.rows().empty()) {
    lags_ = true;
  } else if (!TellIfFailed(bench, sitting_.RestoreRows())) {
    return false;
  }
  Box box{" !!... ΠΡΟΣΟΧΗ ...!! ",
          {"Το αρχείο των Τμημάτων είχε αλλάξει ή χαθεί. Γράφεται πάλι από την φόρμα."},
          box_style::kExclamation};
  if (has_bytes) box.lines.emplace_back("Ό,τι είχε φυλάχθηκε σε αντίγραφο ασφαλείας.");
  bench.Ask(box);
  return true;
}

bool FrmData::MayChangeRows() {
  return GuardRows() && TellIfFailed(bench, sitting_.ReadBaseEmitters());
}

// After steps were taken back, or done again: all rows at once, when none is wrong that was not so
// when entry began. What an attempt that failed has left in the file is nobody else's.
FrmData::Put FrmData::PutLagging() {
  if (sitting_.FirstWrongRow()) return Put::kWaits;
  return sitting_.put_failed() || GuardRows() ? PutDraft() : Put::kFailed;
}

// Whatever the file says. The row on show stays, a new one too.
FrmData::Put FrmData::PutDraft() {
  if (sitting_.FirstWrongRow()) return Put::kWaits;
  const std::int16_t here = bench.study.CurrentRow;
  const Outcome put = sitting_.PutRows(sitting_.RowsOfForm());
  bench.study.CurrentRow = here;
  if (!TellIfFailed(bench, put)) return Put::kFailed;
  lags_ = false;
  is_new_ = here > count();
  return Put::kDone;
}

// The draft, and the fields, then say what was typed in the words of the rows: "0" for nothing.
bool FrmData::TakeWords(Put put) {
  if (put == Put::kDone) {
    sitting_.TakeStoredRows();
    for (Field* field : fields_) {
      const int column = ColumnOf(field);
      const std::string& text = sitting_.draft.Text(row(), column);
      const bool takes = IsNumberColumn(column) && !field->edited() && field->Trimmed() != text;
      if (takes) field->Show(text);
    }
  }
  return put != Put::kFailed;
}

bool FrmData::LeaveRow() { return IsUntouchedNew() || (Checked() && StoreRow()); }

void FrmData::MoveTo(int number) {
  const bool to_last = number == kLastRow;
  const int target = to_last ? count() : number;
  if (target < 1 || target == bench.study.CurrentRow || !LeaveRow()) return;
  LeaveInsertMode();
  ShowRow(to_last ? count() : target);
  FocusAfterMove();
}

void FrmData::Next() {
  if (IsOneBranch()) {
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
  FocusAfterMove();
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

// Entry from nothing takes no notice of the list, which is that of the file.
void FrmData::ChooseRow() {
  if (!IsUntouchedNew() && !Checked()) return;
  const bool put = !lags_ || (IsUntouchedNew() ? PutLagging() != Put::kFailed : StoreRow());
  if (!put) return;
  const auto chosen = ChooseSection(desk);
  if (IsPlain() || !chosen || *chosen > count()) return;
  desk.Click();
  if (!LeaveRow()) return;
  LeaveInsertMode();
  ShowRow(*chosen);
  FocusAgain();
}

// A field whose text was erased, or barred from being taken, shows again what it had.
bool FrmData::ShowErased() {
  const bool is_unknown = is_new_ && row() >= sitting_.draft.Count();
  bool erased = false;
  for (Field* field : fields_) {
    const std::string& before = sitting_.draft.Text(row(), ColumnOf(field));
    if (!field->refused || field->Trimmed() == before) continue;
    field->Show(before);
    erased = true;
  }
  if (erased && is_unknown) ShowNewRow();
  if (erased) FocusAgain();
  return erased;
}

void FrmData::GoBack(bool forward) {
  if (!FieldsFit()) return;
  const bool named = LeaveLeft() && LeaveRight();
  if (ShowErased() || !named) return;
  if (IsTyped()) TakeFields(kStoring);
  SectionDraft& draft = sitting_.draft;
  const auto place = forward ? draft.Redo() : draft.Undo();
  if (!place) {
    Tell(forward ? "Δεν υπάρχει κάτι να επαναληφθεί" : "Δεν υπάρχει κάτι να αναιρεθεί",
         Tone::kPlain);
    return;
  }
  LeaveInsertMode();
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
