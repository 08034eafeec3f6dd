#include "entry/sheet/frm_data_sheet.h"

#include <algorithm>
#include <utility>

#include "entry/sections/section_entry_forms.h"
#include "entry/sections/sheet_checks.h"
#include "entry/sections/sheet_columns.h"
#include "entry/sections/sheet_view.h"
#include "form/tell.h"
#include "study/kept_sheet.h"
#include "study/message_codes.h"
#include "study/safety_copies.h"

namespace kalvo {
namespace {

Box KeptSheetBox() {
  return {"Φύλλο Τμημάτων",
          {"Υπάρχει φύλλο με στοιχεία που δεν πέρασαν ακόμη στην Μελέτη.",
           "Να συνεχίσει η καταχώρηση από αυτό ?? (Όχι : από τα Τμήματα της Μελέτης)"},
          box_style::kYesNoCancel};
}

Box BrokenSheetBox() {
  return {"Φύλλο Τμημάτων",
          {"Το φύλλο που φυλάχθηκε δεν ανοίγει.",
           "Να αρχίσει η καταχώρηση από τα Τμήματα της Μελέτης ??",
           "(Το φύλλο θα μείνει σε Αντίγραφο Ασφαλείας)"},
          box_style::kDefaultNo};
}

}  // namespace

FrmData_Sheet::FrmData_Sheet(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_InsRow(*this, "Cmd_InsRow", "Παρεμβολή Σειράς", [this] { InsertRows(); },
                 {Ctrl(KeyCode::kInsert)}),
      Cmd_DelRow(*this, "Cmd_DelRow", "Διαγραφή σειράς", [this] { DeleteRows(); },
                 {Ctrl(KeyCode::kDelete)}),
      Cmd_DelCell(*this, "Cmd_DelCell", "Διαγραφή Cell", [this] { DeleteCells(); },
                  {Plain(KeyCode::kDelete)}),
      CmdSame(*this, "CmdSame", "Ίδιο με το τμήμα ...", [this] { OpenSame(); }),
      Cmd_ANT1(*this, "Cmd_ANT1", "ANT στον αρχικό κόμβο",
               [this] { SetSource(sheet_column::kLeft); }),
      Cmd_ANT2(*this, "Cmd_ANT2", "", [this] { SetSource(sheet_column::kRight); }),
      Cmd_DelANT(*this, "Cmd_DelANT", "", [this] { DeleteSource(); }),
      Cmd_Tau(*this, "Cmd_Tau", "Ταυ και σταυροί", [this] { OpenTees(); }),
      CmdCopyToClpbrd(*this, "CmdCopyToClpbrd", "Αντιγραφή", [this] { CopyCells(); }, {Ctrl('C')}),
      CmdPasteFromClpbrd(*this, "CmdPasteFromClpbrd", "Επικόλληση", [this] { PasteCells(); },
                         {Ctrl('V'), Shift(KeyCode::kInsert)}),
      Cmd_Save(*this, "Cmd_Save", "Save Spreadsheet", [this] { SaveSheet(); }, {Ctrl('S')}),
      Cmd_Retrieve(*this, "Cmd_Retrieve", "Retrieve Spreadsheet", [this] { RetrieveSheet(); },
                   {Ctrl('R')}),
      Cmd_Print(*this, "Cmd_Print", "Print Spreadsheet", [this] { PrintSheet(); }, {Ctrl('P')}),
      Cmd_Headers(*this, "Cmd_Headers", " Επαναφορά Πλάτους Στηλών ",
                  [this] { fpSpread1.RestoreWidths(); }),
      Cmd_Help(*this, "Cmd_Help", "Βοήθεια πλήκτρων", [this] { ShowHelp(); },
               {Plain(KeyCode::kF1)}),
      CmdShift_F12(*this, "CmdShift_F12", "Προβολή Τμήμα-Τμήμα", [this] { SwitchToForm(); },
                   {Shift(KeyCode::kF12), kCtrlAltShift}),
      Cmd_Exit(*this, "Cmd_Exit", "Τέλος Καταχώρησης Τμημάτων", [this] { EndEntry(); },
               {Ctrl(KeyCode::kEnter)}),
      Cmd_Undo(*this, "Cmd_Undo", "Αναίρεση", [this] { GoBack(false); }, {Ctrl('Z')}),
      Cmd_Redo(*this, "Cmd_Redo", "Επανάληψη", [this] { GoBack(true); },
               {Ctrl('Y'), CtrlShift('Z')}),
      Cmd_Cut(*this, "Cmd_Cut", "Αποκοπή", [this] { CutCells(); }, {Ctrl('X')}),
      Cmd_Fill(*this, "Cmd_Fill", "Συμπλήρωση προς τα κάτω", [this] { FillDown(); },
               {Plain(KeyCode::kF7)}),
      Cmd_Find(*this, "Cmd_Find", "Εύρεση ...", [this] { OpenFind(); }, {Ctrl('F')}),
      Cmd_FindNext(*this, "Cmd_FindNext", "Επόμενο", [this] { FindNext(); }, {Plain(KeyCode::kF3)}),
      goes_on_(desk.screens.section_sitting != nullptr),
      shared_(SittingOf(desk)),
      sitting_(*shared_),
      keeping_(sitting_, bench) {
  Cmd_Tau.hint = "Shift+A…T";
  CboSame.visible = false;
  CboSame.takes_same = true;
  CboSame.on_select = [this] { TakeSame(CboSame.selected + 1); };
  TxtFind.visible = false;
  TxtFind.on_enter = [this] { FindNext(); };
  fpSpread1.row_noun = "Τμήμα";
  fpSpread1.text_of = [this](GridPlace at) { return sitting_.draft.Text(at.row, at.column); };
  fpSpread1.on_accept = [this](GridPlace at, const std::string& text) {
    return AcceptCell(at, text);
  };
  MakeMenus();
}

FrmData_Sheet::~FrmData_Sheet() {
  if (desk.screens.tee_counters == this) desk.screens.tee_counters = nullptr;
}

void FrmData_Sheet::MakeMenus() {
  menus = {{"&Φύλλο",
            {{"", "Save Spreadsheet", &Cmd_Save},
             {"", "Retrieve Spreadsheet", &Cmd_Retrieve},
             {"", "Print Spreadsheet", &Cmd_Print},
             {},
             {"", "Επαναφορά Πλάτους Στηλών", &Cmd_Headers},
             {"", "Βοήθεια πλήκτρων", &Cmd_Help},
             {},
             {"", "Προβολή Τμήμα-Τμήμα", &CmdShift_F12},
             {"", "Τέλος Καταχώρησης Τμημάτων", &Cmd_Exit}}},
           {"&Επεξεργασία",
            {{"Mnu_Undo", "", &Cmd_Undo},
             {"Mnu_Redo", "", &Cmd_Redo},
             {},
             {"", "Αποκοπή", &Cmd_Cut},
             {"", "Αντιγραφή", &CmdCopyToClpbrd},
             {"", "Επικόλληση", &CmdPasteFromClpbrd},
             {"", "Διαγραφή Cell", &Cmd_DelCell},
             {"", "Συμπλήρωση προς τα κάτω", &Cmd_Fill},
             {},
             {"", "Εύρεση ...", &Cmd_Find},
             {"", "Εύρεση επόμενου", &Cmd_FindNext}}},
           {"&Σειρές",
            {{"", "Παρεμβολή Σειράς", &Cmd_InsRow},
             {"", "Διαγραφή σειράς", &Cmd_DelRow},
             {"", "Ίδιο με το τμήμα ...", &CmdSame},
             {},
             {"", "ANT στον αρχικό κόμβο", &Cmd_ANT1},
             {"Mnu_ANT2", "", &Cmd_ANT2},
             {"Mnu_DelANT", "", &Cmd_DelANT},
             {},
             {"", "Ταυ και σταυροί", &Cmd_Tau}}}};
  popup = {"", menus[1].entries};
}

void FrmData_Sheet::Load() {
  const bool open = bench.study.SystemOpen();
  LblSystem.text = open ? "ΑΝΟΙΚΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ" : "ΚΛΕΙΣΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ";
  title = "ΔΕΔΟΜΕΝΑ ΤΜΗΜΑΤΩΝ ΣΩΛΗΝΩΝ - " + LblSystem.text;
  Cmd_ANT1.visible = !open;
  Cmd_ANT2.caption = open ? "ANT ως τμήμα-τροφοδότης" : "ANT στον τελικό κόμβο";
  Cmd_DelANT.caption = open ? "Αναίρεση τροφοδότη" : "Αναίρεση ANT";
  const bool back = std::exchange(desk.screens.back_to_sheet, false) || goes_on_;
  const int row = back ? std::max<int>(bench.study.CurrentRow - 1, 0) : 0;
  begun_ = goes_on_ || BeginSitting();
  Show(row);
}

// A kept sheet goes on; the user may give it up, and so may one who meets a broken one. It goes
// into a safety copy then.
bool FrmData_Sheet::BeginSitting() {
  const bool unasked = std::exchange(desk.screens.open_kept_sheet, false);
  const bool kept = IsSheetKept(bench.workspace);
  const Answer go_on = !kept || unasked ? Answer::kYes : bench.Ask(KeptSheetBox());
  if (go_on == Answer::kYes) {
    const Outcome begun = sitting_.Begin();
    if (begun) {
      if (kept) TellIfFailed(bench, FindEmitters(bench, sitting_.base()));
      return true;
    }
    TellError(bench, begun.error());
    if (!sitting_.kept_is_broken() || bench.Ask(BrokenSheetBox()) != Answer::kYes) return false;
  } else if (go_on != Answer::kNo) {
    return false;
  }
  return KeepSafetyCopyAnyway(bench, desk.safety_folders()) &&
         TellIfFailed(bench, sitting_.BeginWithRows());
}

void FrmData_Sheet::Show(int row) {
  SetUpSheet(fpSpread1, sitting_.draft);
  if (sitting_.left_out() > 0) {
    Tell(std::to_string(sitting_.left_out()) + " κείμενα του φύλλου δεν χωρούν στα κελιά τους",
         Tone::kAlarm);
  }
  // Past the names that an empty sheet begins with.
  const int named =
      sitting_.draft.kind() == SystemKind::kOpen ? sheet_column::kLength : sheet_column::kRight;
  fpSpread1.GoTo({row, sitting_.draft.Count() == 0 ? named : sheet_column::kLeft});
  Focus(fpSpread1);
}

// A sheet that could not begin shows nothing that might be taken for the study.
void FrmData_Sheet::Activate() {
  if (!begun_) Leave(screen::kMain);
}

void FrmData_Sheet::Tell(std::string what, Tone tone) {
  LblStatus.text = std::move(what);
  LblStatus.tone = tone;
  told_revision_ = sitting_.draft.revision();
  told_selection_ = fpSpread1.selection_revision();
}

void FrmData_Sheet::Follow(std::optional<GridPlace> at) {
  FollowDraft(fpSpread1, sitting_.draft);
  if (at) fpSpread1.GoTo(*at);
  Focus(fpSpread1);
}

void FrmData_Sheet::Derive() {
  const SectionDraft& draft = sitting_.draft;
  const int count = draft.Count();
  const GridPlace at = Current();
  bench.study.CurrentRow =
      static_cast<std::int16_t>(std::min(at.row + 1, std::max<int>(bench.study.SectionCount, 1)));
  LblThema.text = bench.study.study_title;
  LblCount.text = std::to_string(count) + (count == 1 ? " τμήμα" : " τμήματα");
  LblCurrent.text = SectionText();
  const SheetColumn& column = SheetColumns()[static_cast<std::size_t>(at.column)];
  LblPrompt.text = column.Prompt(draft.kind());
  const RowRemarks remarks = RemarksOf(draft, at.row);
  LblRemarks.text = remarks.text;
  LblRemarks.tone = remarks.fault ? Tone::kAlarm : Tone::kQuiet;
  const std::size_t missing = MissingLines(draft).size();
  LblMissing.text = "Κενά που λείπουν: " + std::to_string(missing);
  const bool told = told_revision_ == draft.revision() &&
                    told_selection_ == fpSpread1.selection_revision() && !LblStatus.text.empty();
  if (!told && !keeping_.failed()) {
    LblStatus.text = SelectionSummary(draft, fpSpread1.selection(), desk.separators);
    LblStatus.tone = Tone::kPlain;
  }
  const DraftHistory& history = draft.history();
  Cmd_Undo.caption = "Αναίρεση" + (history.CanUndo() ? " : " + history.ToUndo().name : "");
  Cmd_Redo.caption = "Επανάληψη" + (history.CanRedo() ? " : " + history.ToRedo().name : "");
}

// Nothing is kept while another screen is up.
void FrmData_Sheet::ShowHelp() {
  KeepNow();
  desk.navigator.ShowModal(screen::kSheetHelp);
}

bool FrmData_Sheet::AcceptCell(GridPlace place, const std::string& text) {
  const auto accepted = AcceptedText(text, place.column, desk.separators);
  if (!accepted && IsNameColumn(place.column)) {
    Tell("Εδώ γράφονται μόνο αριθμοί, ή ANT", Tone::kAlarm);
    desk.sound.Beep();
    return false;
  }
  if (!accepted) {
    bench.Show(message::kNumberTooLarge);
    fpSpread1.editor.Show("");
  }
  {
    const SectionDraft::Action action(sitting_.draft, "Καταχώρηση", place);
    sitting_.draft.Set(place.row, place.column, accepted.value_or(""));
  }
  FollowDraft(fpSpread1, sitting_.draft);
  return accepted.has_value();
}

bool FrmData_Sheet::IsTeeKey(const Key& key) const {
  return key.code == KeyCode::kCharacter && key.shift && !key.alt && key.latin >= U'A' &&
         key.latin <= U'T';
}

// The key of the letter A names the source; the rest of its name is typed by habit.
bool FrmData_Sheet::PressSource(const Key& key) {
  const int column = Current().column;
  const bool name = column == sheet_column::kRight ||
                    (column == sheet_column::kLeft && bench.study.SystemClosed());
  if (!name || !HasSheetFocus() || !key.IsText() || key.shift) return false;
  if (key.latin == U'A') {
    fpSpread1.OpenWith(kSource);
    return true;
  }
  return fpSpread1.editing() && fpSpread1.editor.text == kSource &&
         (key.latin == U'N' || key.latin == U'T');
}

bool FrmData_Sheet::PressTee(const Key& key) {
  if (!IsTeeKey(key) || !fpSpread1.Accept()) return false;
  if (!Press(static_cast<char>(key.latin))) desk.sound.Beep();
  return true;
}

bool FrmData_Sheet::FirstKey(const Key& key) {
  if (focus() == &TxtFind || focus() == &CboSame) {
    if (key == Plain(KeyCode::kEscape)) {
      CloseFind();
      CboSame.visible = false;
      Focus(fpSpread1);
      return true;
    }
    return focus() == &CboSame && CboSame.Press(key);
  }
  if (key.ctrl && !key.alt && key.latin == U'L') {
    SelectText();
    return true;
  }
  if (key.ctrl && !key.alt && key.latin == U'D') {
    DropHighlight();
    return true;
  }
  if (key.ctrl && key.shift && (key.latin == U'R' || key.latin == U'S')) {
    Run(key.latin == U'R' ? Cmd_Retrieve : Cmd_Save);
    return true;
  }
  if (key.ctrl && key.shift && key.latin == U'P') {
    Run(Cmd_Print);
    return true;
  }
  if (IsTeeKey(key)) return PressTee(key);
  if (key == Plain(KeyCode::kF6) && fpSpread1.Accept()) {
    Focus(Cmd_Exit);
    return true;
  }
  const bool pastes = key == Ctrl('V') && fpSpread1.editing();
  if (pastes && desk.clipboard.Text().find_first_of("\t\n") != std::string::npos) {
    Run(CmdPasteFromClpbrd);
    return true;
  }
  return PressSource(key);
}

SectionSitting::Pending FrmData_Sheet::PendingText() const {
  if (!fpSpread1.editing()) return {};
  return {{Current().row, Current().column, fpSpread1.editor.text}};
}

bool FrmData_Sheet::Told(const std::optional<SelfKeeping::Telling>& told) {
  if (told) Tell(told->text, told->alarm ? Tone::kAlarm : Tone::kPlain);
  return told.has_value();
}

bool FrmData_Sheet::Idle(double quiet_seconds) {
  return begun_ && Told(keeping_.Idle(PendingText(), quiet_seconds));
}

bool FrmData_Sheet::KeepNow() { return !begun_ || !Told(keeping_.KeepNow(PendingText())); }

void FrmData_Sheet::LostFocus() { KeepNow(); }

std::string FrmData_Sheet::SectionText() const {
  const int row = Current().row;
  const SectionDraft& draft = sitting_.draft;
  const std::string& left = draft.Text(row, sheet_column::kLeft);
  const std::string& right = draft.Text(row, sheet_column::kRight);
  const std::string names = left.empty() && right.empty() ? "" : " :  " + left + " / " + right;
  return "Τμήμα " + std::to_string(row + 1) + names;
}

TeeTexts FrmData_Sheet::Counts() const {
  TeeTexts texts;
  for (std::size_t i = 0; i < texts.size(); ++i) {
    texts[i] = sitting_.draft.Text(Current().row, sheet_column::kDiaTee + static_cast<int>(i));
  }
  return texts;
}

bool FrmData_Sheet::Press(char letter) {
  const TeeCase* tee = FindTeeCase(static_cast<char32_t>(letter));
  if (tee == nullptr || !fpSpread1.Accept()) return false;
  Focus(fpSpread1);
  const GridPlace at = Current();
  const auto counts = ApplyTeeCase(*tee, Table(), Counts(), desk.separators);
  const std::string name = std::string("< ΤΑΥ > περίπτωσης <") + letter + ">";
  if (!counts) {
    Tell(name + " : το πλήθος δεν περνά το 32.767", Tone::kAlarm);
    return false;
  }
  {
    const SectionDraft::Action action(sitting_.draft, name, at);
    for (std::size_t i = 0; i < counts->size(); ++i) {
      sitting_.draft.Set(at.row, sheet_column::kDiaTee + static_cast<int>(i), (*counts)[i]);
    }
  }
  FollowDraft(fpSpread1, sitting_.draft);
  Tell(name + " : " + EffectText(*tee, Table()));
  return true;
}

void FrmData_Sheet::BringToFront() { desk.navigator.Show(screen::kSheet); }

}  // namespace kalvo
