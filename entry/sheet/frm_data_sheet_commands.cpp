#include <algorithm>
#include <set>

#include "entry/sections/sheet_columns.h"
#include "entry/sections/sheet_paste.h"
#include "entry/sections/sheet_view.h"
#include "entry/sheet/frm_data_sheet.h"
#include "form/tell.h"
#include "study/letter_case.h"
#include "study/message_codes.h"

namespace kalvo {
namespace {

constexpr std::size_t kMostListed = 10;

// "Σειρά 12, ΜΗΚΟΣ [m] : abc"
std::string RefusedLine(const CellText& cell, SystemKind kind) {
  std::string line = "Σειρά " + std::to_string(cell.row + 1);
  if (cell.column < kSheetColumns) {
    line += std::string(", ") + HeadInWords(cell.column, kind);
  }
  constexpr std::size_t kLongest = 30;
  return line + " : " + FirstCharacters(cell.text, kLongest);
}

}  // namespace

void FrmData_Sheet::InsertRows() {
  Focus(fpSpread1);
  const GridBlock block = fpSpread1.block();
  SectionDraft& draft = sitting_.draft;
  const int count = draft.Count();
  if (block.top >= count) {
    Tell("Η σειρά είναι ήδη κενή");
    return;
  }
  if (count + block.rows() > kMostSections) {
    Tell("Έως 999 τμήματα", Tone::kAlarm);
    desk.sound.Beep();
    return;
  }
  bench.study.CurrentRow = static_cast<std::int16_t>(block.top + 1);
  {
    const SectionDraft::Action action(draft, "Παρεμβολή σειράς", Current());
    draft.InsertRows(block.top, block.rows());
  }
  Follow(GridPlace{block.top, Current().column});
}

void FrmData_Sheet::DeleteRows() {
  Focus(fpSpread1);
  const GridBlock block = fpSpread1.block();
  SectionDraft& draft = sitting_.draft;
  if (block.top >= draft.Count()) return;
  if (bench.Show(message::kDeleteSection) != Answer::kYes) return;
  {
    const SectionDraft::Action action(draft, "Διαγραφή σειράς", Current());
    draft.RemoveRows(block.top, std::min(block.rows(), draft.Count() - block.top));
  }
  Follow(GridPlace{block.top, Current().column});
}

void FrmData_Sheet::DeleteCells() {
  SectionDraft& draft = sitting_.draft;
  const std::vector<GridBlock> selection = fpSpread1.selection();
  {
    const SectionDraft::Action action(draft, "Διαγραφή περιεχομένου", Current());
    for (const GridBlock& block : selection) {
      for (int row = block.top; row <= std::min(block.bottom, std::max(draft.Count() - 1, 0));
           ++row) {
        for (int column = block.left; column <= block.right; ++column) {
          if (column != sheet_column::kSlash) draft.Set(row, column, "");
        }
      }
    }
  }
  Follow();
}

void FrmData_Sheet::OpenSame() {
  CboSame.entries.clear();
  for (int number = 1; number <= sitting_.draft.Count(); ++number) {
    CboSame.entries.push_back(std::to_string(number));
  }
  if (CboSame.entries.empty()) {
    Tell("Δεν υπάρχουν ακόμη τμήματα");
    Focus(fpSpread1);
    return;
  }
  CboSame.selected = static_cast<int>(CboSame.entries.size()) - 1;
  CboSame.visible = true;
  Focus(CboSame);
}

void FrmData_Sheet::TakeSame(int number) {
  CboSame.visible = false;
  Focus(fpSpread1);
  SectionDraft& draft = sitting_.draft;
  if (number < 1 || number > draft.Count()) return;
  const int row = Current().row;
  {
    const SectionDraft::Action action(draft, "Ίδιο με το τμήμα " + std::to_string(number),
                                      Current());
    const SheetRow from = draft.At(number - 1);
    for (int column = sheet_column::kLength; column < kSheetColumns; ++column) {
      draft.Set(row, column, from.texts[static_cast<std::size_t>(column)]);
    }
  }
  Follow();
}

void FrmData_Sheet::SetSource(int column) {
  {
    const SectionDraft::Action action(sitting_.draft, "Κόμβος ANT", Current());
    sitting_.draft.Set(Current().row, column, kSource);
  }
  Follow();
}

void FrmData_Sheet::DeleteSource() {
  {
    const SectionDraft::Action action(sitting_.draft, "Αναίρεση ANT", Current());
    sitting_.draft.Set(Current().row, sheet_column::kRight, "");
  }
  Follow();
}

void FrmData_Sheet::OpenTees() {
  Focus(fpSpread1);
  if (desk.navigator.IsOpen(screen::kTees)) return;
  desk.screens.tee_counters = this;
  desk.navigator.Show(screen::kTees);
}

// Nothing selected but empty cells: the clipboard keeps what it has.
void FrmData_Sheet::CopyCells() {
  Focus(fpSpread1);
  const std::string text = BlockText(sitting_.draft, fpSpread1.selection());
  if (text.find_first_not_of("\t\n") != std::string::npos) desk.clipboard.SetText(text);
}

void FrmData_Sheet::CutCells() {
  CopyCells();
  DeleteCells();
}

std::optional<bool> FrmData_Sheet::AskThousands(const std::string& example) {
  const Answer answer = bench.Ask({"Επικόλληση",
                                   {"Το " + example + " γράφεται με το σημείο των χιλιάδων.",
                                    "Χωρίζει χιλιάδες ?? (Όχι : είναι δεκαδικός αριθμός)"},
                                   box_style::kYesNoCancel});
  if (answer != Answer::kYes && answer != Answer::kNo) return std::nullopt;
  return answer == Answer::kYes;
}

void FrmData_Sheet::TellRefused(const std::vector<CellText>& refused) {
  if (refused.empty()) return;
  Box box{"Επικόλληση",
          {std::to_string(refused.size()) + (refused.size() == 1 ? " κείμενο δεν χωρά στο κελί του"
                                                                 : " κείμενα δεν χωρούν στα κελιά "
                                                                   "τους")},
          box_style::kInformation};
  for (std::size_t i = 0; i < std::min(refused.size(), kMostListed); ++i) {
    box.lines.push_back(RefusedLine(refused[i], sitting_.draft.kind()));
  }
  if (refused.size() > kMostListed) {
    box.lines.push_back("... και άλλα " + std::to_string(refused.size() - kMostListed));
  }
  KeepNow();  // what was pasted; nothing is kept while a box is up
  bench.Ask(box);
}

void FrmData_Sheet::PasteCells() {
  Focus(fpSpread1);
  const CellBlock cells = CellsOf(desk.clipboard.Text());
  if (cells.empty()) {
    Tell("Το πρόχειρο είναι κενό");
    return;
  }
  SectionDraft& draft = sitting_.draft;
  const GridBlock target = fpSpread1.block();
  const int most = std::max(draft.Count(), kMostSections);
  const std::string doubtful = DoubtfulNumber(cells, target, desk.separators);
  const auto thousands = doubtful.empty() ? std::optional(false) : AskThousands(doubtful);
  if (!thousands) return;
  const PastePlan plan = PlanPaste(cells, target, most, desk.separators, *thousands);
  {
    const SectionDraft::Action action(draft, "Επικόλληση", Current());
    for (const CellText& cell : plan.cells) {
      draft.Set(cell.row, cell.column, cell.text);
    }
  }
  Follow();
  if (plan.last_row >= target.top) {
    fpSpread1.SelectBlock({target.top, target.left,
                           std::min(plan.last_row, fpSpread1.row_count() - 1),
                           std::max(plan.last_column, target.left)});
  }
  TellRefused(plan.refused);
}

// The cell above, or in a block its first row, down to its last.
void FrmData_Sheet::FillDown() {
  SectionDraft& draft = sitting_.draft;
  GridBlock block = fpSpread1.block();
  if (block.rows() == 1) --block.top;
  if (block.top < 0) return;
  const int most = std::max(draft.Count(), kMostSections);
  {
    const SectionDraft::Action action(draft, "Συμπλήρωση προς τα κάτω", Current());
    for (int row = block.top + 1; row <= std::min(block.bottom, most - 1); ++row) {
      for (int column = block.left; column <= block.right; ++column) {
        if (column == sheet_column::kSlash) continue;
        const std::string from = draft.Text(block.top, column);
        draft.Set(row, column, from);
      }
    }
  }
  Follow();
}

void FrmData_Sheet::GoBack(bool forward) {
  Focus(fpSpread1);
  const auto at = forward ? sitting_.draft.Redo() : sitting_.draft.Undo();
  if (!at) {
    Tell(forward ? "Δεν υπάρχει κάτι να επαναληφθεί" : "Δεν υπάρχει κάτι να αναιρεθεί");
    return;
  }
  Follow(at);
}

void FrmData_Sheet::OpenFind() {
  TxtFind.visible = true;
  Focus(TxtFind);
}

void FrmData_Sheet::CloseFind() { TxtFind.visible = false; }

// The next cell that holds the text, row by row from the current one on and round.
void FrmData_Sheet::FindNext() {
  const std::string wanted = LowerCase(TxtFind.Trimmed());
  if (wanted.empty()) {
    OpenFind();
    return;
  }
  const SectionDraft& draft = sitting_.draft;
  const int cells = draft.Count() * kSheetColumns;
  const GridPlace from = Current();
  const int start = from.row * kSheetColumns + from.column;
  for (int step = 1; step <= cells; ++step) {
    const int at = (start + step) % std::max(cells, 1);
    const GridPlace place{at / kSheetColumns, at % kSheetColumns};
    if (place.column == sheet_column::kSlash) continue;
    if (LowerCase(draft.Text(place.row, place.column)).find(wanted) == std::string::npos) continue;
    fpSpread1.GoTo(place);
    Tell("");
    return;
  }
  Tell("Δεν βρέθηκε : " + TxtFind.Trimmed(), Tone::kAlarm);
  desk.sound.Beep();
}

void FrmData_Sheet::SelectText() {
  fpSpread1.Open();
  if (fpSpread1.editing()) fpSpread1.editor.whole_selected = true;
}

void FrmData_Sheet::DropHighlight() {
  if (fpSpread1.editing()) {
    fpSpread1.editor.whole_selected = false;
    fpSpread1.editor.highlight_dropped = true;
  } else {
    fpSpread1.CollapseSelection();
  }
}

void FrmData_Sheet::SaveSheet() {
  const Outcome saved = sitting_.Save();
  Tell(saved ? "Το φύλλο φυλάχθηκε" : saved.error().Line(), saved ? Tone::kPlain : Tone::kAlarm);
  Focus(fpSpread1);
}

void FrmData_Sheet::RetrieveSheet() {
  Focus(fpSpread1);
  const auto retrieved = sitting_.Retrieve(Current());
  if (!retrieved) {
    Tell(retrieved.error().IsMissing() ? "Δεν υπάρχει φυλαγμένο φύλλο" : retrieved.error().Line(),
         Tone::kAlarm);
    return;
  }
  Follow();
  fpSpread1.CollapseSelection();
  const int left_out = retrieved->left_out;
  Tell(left_out == 0 ? "Το φύλλο ανακλήθηκε"
                     : "Το φύλλο ανακλήθηκε · " + std::to_string(left_out) +
                           " κείμενα δεν χωρούν στα κελιά τους",
       left_out == 0 ? Tone::kPlain : Tone::kAlarm);
}

}  // namespace kalvo
