#include <algorithm>
#include <exception>

#include "entry/section_form/frm_data.h"
#include "entry/sections/sheet_columns.h"
#include "form/tell.h"
#include "study/message_codes.h"
#include "study/section_rows.h"

namespace kalvo {

void FrmData::OpenSame() {
  if (row() == 0) return;
  CboSame.entries.clear();
  for (int number = 1; number <= count(); ++number) {
    CboSame.entries.push_back(std::to_string(number));
  }
  if (CboSame.entries.empty()) return;
  CboSame.selected = static_cast<int>(CboSame.entries.size()) - 1;
  Cmd_Same.enabled = false;
  CboSame.visible = Lbl_Same.visible = true;
  Focus(CboSame);
}

void FrmData::CloseSame() {
  Cmd_Same.enabled = true;
  CboSame.visible = Lbl_Same.visible = false;
  if (focus() == &CboSame) Focus(Txt2);
}

void FrmData::TakeSame(int number) {
  CloseSame();
  if (number < 1 || number > count()) return;
  const SheetRow from = sitting_.draft.At(number - 1);
  for (Field* field : fields_) {
    const int column = ColumnOf(field);
    if (IsNumberColumn(column)) field->Show(from.texts[static_cast<std::size_t>(column)]);
  }
  TakeFields("Όμοιο με το τμήμα " + std::to_string(number));
}

bool FrmData::AskOneBranch() {
  return bench.Ask(
             {"...! ΠΡΟΣΟΧΗ !...",
              {"Με την ενέργειά σας αυτή, υποδηλώνετε ότι το Σωληνοδίκτυο της Μελέτης σας ...",
               "... έχει ΕΝΑ και ΜΟΝΟΝ κλάδο (ένα Εναλλάκτη) ...", " ",
               "... Είναι πράγματι έτσι ???..."},
              box_style::kYesNo}) == Answer::kYes;
}

void FrmData::SetSource() {
  if (!FieldsAgree()) return;
  if (row() == 0) {
    if (count() > 1) return;
    one_branch_ = AskOneBranch();
    if (!one_branch_) {
      if (IsUntouchedNew()) return;
      Txt1.Show("1");
      TakeFields("Κόμβος ANT");
      return;
    }
  }
  Txt1.Show(kSource);
  TakeFields("Κόμβος ANT");
  Focus(Txt2);
}

// In an open network the feeders of the rows behind may grow by one.
bool FrmData::HasRoom() {
  std::string why = count() >= kMostSections ? "Έως 999 τμήματα" : "";
  for (int other = row() + 1; IsOpen() && other < sitting_.draft.Count(); ++other) {
    const std::string& feeder = sitting_.draft.Text(other, sheet_column::kRight);
    if (ParseNumber(feeder, desk.separators) < kMostSections) continue;
    why = "Τμήμα " + std::to_string(other + 1) + ", τροφοδοσία " + feeder +
          " : ο αριθμός δεν χωρά μετά από παρεμβολή";
  }
  if (why.empty()) return true;
  Tell(why);
  desk.sound.Beep();
  return false;
}

void FrmData::Insert() {
  if (insert_mode_) {
    desk.Click();
    CancelInsert();
    return;
  }
  if (!Checked() || !StoreRow()) return;
  desk.Click();
  if (GoToWrongRow() || !HasRoom() || !MayChangeRows()) return;
  SectionDraft& draft = sitting_.draft;
  const std::size_t steps = draft.history().depth();
  rows_before_insert_ = EncodeRows<SectionRow>(sitting_.rows());
  const SectionRow present = bench.study.row;
  {
    const SectionDraft::Action step(draft, "Παρεμβολή τμήματος", {row(), sheet_column::kLength});
    const int before = count();
    if (!TellIfFailed(bench, InsertSectionRow(bench)) || before < 2) return;
    if (!FollowRows(SectionSitting::RowMove::kInserted, row())) return;
    ShowRow(bench.study.CurrentRow);
    Show(SheetRowOf(EntryForNewRow(bench.study.CurrentRow, bench.study.system_kind, &present,
                                   desk.separators)));
    TakeFields("Παρεμβολή τμήματος");
  }
  insert_mode_ = true;
  steps_before_insert_ = steps;
  FocusFirst();
}

// The file of before comes back; where it has gone, or is another one, the rows are made of the
// draft.
void FrmData::CancelInsert() {
  LeaveInsertMode();
  SectionDraft& draft = sitting_.draft;
  while (draft.history().depth() > steps_before_insert_) draft.Undo();
  const auto old = bench.workspace.ReadIfThere(work_file::kRowsBeforeInsert);
  if (!GuardRows()) {
    lags_ = true;
  } else if (old && *old == rows_before_insert_ && UndoInsert(bench)) {
    const SectionDraft::Action step(draft, kCancelCaption, {row(), sheet_column::kLength});
    FollowRows(SectionSitting::RowMove::kNone, 0);
  } else {
    lags_ = true;
    PutDraft();
  }
  ShowRow(bench.study.CurrentRow);
  FocusAgain();
}

void FrmData::LeaveInsertMode() { insert_mode_ = false; }

void FrmData::Delete() {
  if (is_new_) {
    DropNewRow();
    return;
  }
  if (!Checked() || !StoreRow()) return;
  desk.Click();
  if (bench.Show(message::kDeleteSection) != Answer::kYes) return;
  if (GoToWrongRow() || !MayChangeRows()) return;
  if (IsOpen() && count() > kMostSections) {
    Tell("Πάνω από 999 τμήματα : οι α/α δεν χωρούν στα ονόματα");
    return;
  }
  LeaveInsertMode();
  const int number = bench.study.CurrentRow;
  const int before = count();
  {
    const SectionDraft::Action step(sitting_.draft, "Διαγραφή τμήματος",
                                    {row(), sheet_column::kLength});
    if (!TellIfFailed(bench, DeleteSectionRow(bench)) || before < 2) return;
    if (!FollowRows(SectionSitting::RowMove::kRemoved, number - 1)) {
      ShowRow(number);
      return;
    }
  }
  ShowRow(std::min(number, count()));
  FocusAgain();
  if (IsOpen()) TellFedRows(number);
}

// Feeder numbers stay as they were: those that may mean another section now are named.
void FrmData::TellFedRows(int number) {
  std::string rows;
  for (int other = 0; other < sitting_.draft.Count(); ++other) {
    const std::string& feeder = sitting_.draft.Text(other, sheet_column::kRight);
    if (ParseNumber(feeder, desk.separators) < number) continue;
    rows += (rows.empty() ? "" : ", ") + std::to_string(other + 1);
  }
  if (!rows.empty()) Tell("Ελέγξτε το τμήμα τροφοδοσίας στα τμήματα : " + rows);
}

// A new row that is not in the file yet.
void FrmData::DropNewRow() {
  one_branch_ = false;
  if (row() < sitting_.draft.Count()) {
    const SectionDraft::Action step(sitting_.draft, "Διαγραφή τμήματος",
                                    {row(), sheet_column::kLength});
    sitting_.draft.RemoveRow(row());
  }
  if (count() == 0) {
    ShowNewRow();
  } else {
    ShowRow(count());
  }
  FocusFirst();
}

// While the window is open the command does nothing at all.
void FrmData::OpenTees() {
  if (desk.screens.tee_counters != nullptr) return;
  desk.Click();
  desk.screens.tee_counters = this;
  TxtProgram.visible = false;
  LblWait.visible = true;
  try {
    desk.navigator.Show(screen::kFormTees);
  } catch (const std::exception&) {
    desk.screens.tee_counters = nullptr;
    Shown();
    throw;
  }
  Cmd_Tau.leaves_freely = true;
}

void FrmData::Shown() {
  LblWait.visible = false;
  TxtProgram.visible = true;
}

void FrmData::BringToFront() {
  desk.screens.tee_counters = nullptr;
  Cmd_Tau.leaves_freely = false;
  Shown();
  desk.navigator.Show(screen::kSections);
  Focus(Txt15);
}

void FrmData::ClearTees() {
  for (Field* field : {&Txt11, &Txt12, &Txt13, &Txt14}) {
    field->Show("0");
  }
  TakeFields("Μηδενισμός των < ΤΑΥ >");
}

std::string FrmData::SectionText() const {
  return "Τμήμα " + std::to_string(bench.study.CurrentRow) + " :  " + Txt0.text + " / " + Txt1.text;
}

TeeTexts FrmData::Counts() const { return {Txt11.text, Txt12.text, Txt13.text, Txt14.text}; }

std::string FrmData::Refusal() const {
  return held_ ? "Δεν προστέθηκε: η φόρμα έχει ένα πεδίο που πρέπει να διορθωθεί."
               : TeeCounters::Refusal();
}

bool FrmData::Press(char letter) {
  const TeeCase* tee = FindTeeCase(static_cast<char32_t>(letter));
  if (tee == nullptr) return false;
  held_ = !MoveFocus(&Txt15);
  if (held_) return false;
  Focus(Txt15);
  const auto counts = ApplyTeeCase(*tee, Table(), Counts(), desk.separators);
  const std::string name = std::string("< ΤΑΥ > περίπτωσης <") + letter + ">";
  if (!counts) {
    Tell(name + " : το πλήθος δεν περνά το 32.767");
    return false;
  }
  Field* const fields[] = {&Txt11, &Txt12, &Txt13, &Txt14};
  for (std::size_t i = 0; i < counts->size(); ++i) {
    if ((*counts)[i] != fields[i]->text) fields[i]->Show((*counts)[i]);
  }
  TakeFields(name);
  Tell(name + " : " + EffectText(*tee, Table()), Tone::kPlain);
  return true;
}

}  // namespace kalvo
