#include <algorithm>
#include <exception>

#include "entry/section_form/frm_data.h"
#include "entry/sections/section_entry_forms.h"
#include "entry/sections/sheet_columns.h"
#include "form/tell.h"

namespace kalvo {

// A new row that was only shown is no section unless the user says so.
bool FrmData::MayTakeNewRow() {
  if (!IsUntouchedNew() || count() == 0) return true;
  const Answer answer = bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
                                   {"Το νέο Τμήμα " + std::to_string(bench.study.CurrentRow) +
                                        " έχει μόνο τις τιμές με τις οποίες εμφανίστηκε.",
                                    "Να καταχωρηθεί ?? (Όχι : η καταχώρηση τελειώνει χωρίς αυτό)"},
                                   box_style::kDefaultNo});
  if (answer == Answer::kNo) ShowRow(count());
  return answer == Answer::kNo || answer == Answer::kYes;
}

// The user has said so, and has not taken it back.
bool FrmData::IsOneBranch() const {
  const SectionDraft& draft = sitting_.draft;
  return one_branch_ && draft.Text(0, sheet_column::kLeft) == kSource &&
         draft.Text(0, sheet_column::kRight) == kSource;
}

// One section that goes from the source to the source is meant only if the user says so.
bool FrmData::SettleOneBranch() {
  const bool says_so = Txt0.Trimmed() == kSource && Txt1.Trimmed() == kSource;
  if (IsOpen() || row() > 0 || says_so || count() > 1) return true;
  one_branch_ = AskOneBranch();
  if (!one_branch_ && IsUntouchedNew()) return false;
  Txt0.Show(kSource);
  Txt1.Show(one_branch_ ? kSource : "1");
  TakeFields("Κόμβος ANT");
  return one_branch_;
}

// Everything that the fields say is in the file.
bool FrmData::Finish() {
  if (count() == 0 && IsUntouchedNew()) return true;
  if (!Checked() || !StoreRow()) return false;
  LeaveInsertMode();
  return !GoToWrongRow() && GuardRows() && TellIfFailed(bench, sitting_.Settle());
}

// Rows that were taken back to what they were while they were typed keep entry from ending.
bool FrmData::GoToWrongRow() {
  const Put put = lags_ ? PutLagging() : Put::kDone;
  if (put != Put::kWaits) return put == Put::kFailed;
  const auto wrong = sitting_.FirstWrongRow();
  ShowRow(*wrong + 1);
  if (!Checked()) return true;
  Tell("Λείπει το όνομα του τμήματος");
  Focus(Txt0.text.empty() ? Txt0 : Txt1);
  return true;
}

void FrmData::EndEntry() {
  if (!MayTakeNewRow() || !FieldsFit() || !SettleOneBranch() || !Finish()) return;
  desk.Click();
  const DraftRows made = sitting_.Rows();
  const bool ends = !made.changed && desk.screens.edit_mode;
  const std::string_view next = ends ? screen::kMain : ScreenAfterEntry(desk, made);
  if (TellIfFailed(bench, sitting_.End())) Leave(next);
}

// Rows that came in or went send the emitters before the sheet. A new row that was only shown is
// dropped.
void FrmData::SwitchToSheet() {
  if (IsUntouchedNew() && count() > 0) ShowRow(count());
  if (!Finish()) return;
  desk.Click();
  const DraftRows made = sitting_.Rows();
  bench.study.CurrentRow =
      std::min<std::int16_t>(bench.study.CurrentRow, static_cast<std::int16_t>(count()));
  if (!made.inside || made.rows.empty()) {
    Leave(screen::kSheet);
    return;
  }
  if (!TellIfFailed(bench, sitting_.End())) return;
  desk.screens.back_to_sheet = true;
  Leave(IsOpen() ? screen::kOutlets : screen::kEmitters);
}

bool FrmData::MayClose() {
  LeaveByClosing();
  return false;
}

// As a move; a row that must not be stored is given up only if the user says so, or waits with the
// rows that lag.
void FrmData::LeaveByClosing() {
  bool stored = true;
  if (IsChanged()) {
    if (FieldsFit() && LeaveLeft() && !Fault()) {
      stored = StoreRow();
    } else if (lags_) {
      stored = false;
    } else {
      if (!MayDropRow()) return;
      GiveRowUp();
    }
  }
  desk.Click();
  stored = stored && (!lags_ || PutLagging() == Put::kDone) &&
           (sitting_.rows().empty() || GuardRows()) && TellIfFailed(bench, sitting_.Settle()) &&
           TellIfFailed(bench, sitting_.End());
  if (stored || MayLeaveUnstored()) Leave(screen::kMain);
}

// What the file has of the row counts again.
void FrmData::GiveRowUp() {
  if (is_new_) {
    DropNewRow();
    return;
  }
  {
    const SectionDraft::Action step(sitting_.draft, "Επαναφορά τμήματος", {row(), 0});
    sitting_.TakeStored(row());
  }
  ShowRow(bench.study.CurrentRow);
}

// What cannot go into the rows stays in the kept sheet, and where that cannot be, the user is
// asked; the rows as entry began stay then.
bool FrmData::MayLeaveUnstored() {
  const Answer answer =
      bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
                 {"Τα Τμήματα δεν πέρασαν όλα στην Μελέτη.",
                  "Να κλείσει η φόρμα, και να φυλαχθούν όπως είναι για την επόμενη φορά ??"},
                 box_style::kDefaultNo});
  if (answer != Answer::kYes) return false;
  const auto told = keeping_.KeepNow(PendingTexts());
  if (!told) {
    sitting_.DropFirstRows();
    return true;
  }
  return bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
                    {told->text, "Να κλείσει, και να χαθούν οι τελευταίες αλλαγές ??"},
                    box_style::kDefaultNo}) == Answer::kYes;
}

bool FrmData::MayDropRow() {
  const Answer answer = bench.Ask(
      {" !!... ΠΡΟΣΟΧΗ ...!! ",
       {"Οι τιμές του Τμήματος δεν μπορούν να καταχωρηθούν.", "Να κλείσει η φόρμα χωρίς αυτές ??"},
       box_style::kDefaultNo});
  return answer == Answer::kYes;
}

void FrmData::Leave(std::string_view next) {
  Study& study = bench.study;
  study.CurrentRow = std::min(study.CurrentRow, study.SectionCount);
  if (desk.screens.tee_counters == this) desk.screens.tee_counters = nullptr;
  if (next == screen::kMain) desk.screens.edit_mode = false;
  if (next != screen::kSheet) desk.screens.section_sitting.reset();
  desk.navigator.Close(screen::kFormTees);
  desk.navigator.Close(screen::kSections);
  try {
    desk.navigator.Show(next);
  } catch (const std::exception&) {
    desk.screens.section_sitting.reset();
    desk.screens.back_to_sheet = desk.screens.edit_mode = false;
    desk.navigator.Show(screen::kMain);
    throw;
  }
}

}  // namespace kalvo
