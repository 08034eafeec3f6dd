#include "entry/section_form/frm_data.h"

#include <algorithm>
#include <utility>

#include "entry/sections/section_entry_forms.h"
#include "entry/sections/sheet_columns.h"
#include "entry/sections/sheet_view.h"
#include "form/tell.h"
#include "study/kept_sheet.h"
#include "study/message_codes.h"

namespace kalvo {
namespace {

const char* const kNewEntry = "ΚΑΤΑΧΩΡΗΣΗ ΔΕΔΟΜΕΝΩΝ ΤΜΗΜΑΤΩΝ ΣΩΛΗΝΩΝ";
constexpr std::string_view kGreekSource = "ΑΝΤ";
const char* const kCorrection = "ΔΙΟΡΘΩΣΗ ΔΕΔΟΜΕΝΩΝ ΤΜΗΜΑΤΩΝ ΣΩΛΗΝΩΝ";

}  // namespace

FrmData::FrmData(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_Ins(*this, "Cmd_Ins", kInsertCaption, [this] { Insert(); }),
      Cmd_Del(*this, "Cmd_Del", "Διαγραφή", [this] { Delete(); }),
      Cmd_Same(*this, "Cmd_Same", "Τμήμα Όμοιο με ...", [this] { OpenSame(); }),
      Cmd_Tau(*this, "Cmd_Tau", " Αυτόματος Καθορισμός < ΤΑΥ > ", [this] { OpenTees(); }),
      CmdNoTau(*this, "CmdNoTau", " Μηδενισμός όλων των < ΤΑΥ > ", [this] { ClearTees(); }),
      Cmd_GoTo(*this, "Cmd_GoTo", " Πήγαινε (GoTo) στο Τμήμα με α/α ... ", [this] { ChooseRow(); },
               {Plain(KeyCode::kF5)}),
      Cmd_Help(*this, "Cmd_Help", "Βοήθεια πλήκτρων", [this] { ShowHelp(); },
               {Plain(KeyCode::kF1)}),
      CmdANT(*this, "CmdANT", " Θέτει το Όνομα Τελικού Κόμβου σε \"ΑΝΤ \" ",
             [this] { SetSource(); }),
      Cmd_First(*this, "Cmd_First", "Πρώτο Τμήμα", [this] { MoveTo(1); }, {Ctrl(KeyCode::kHome)}),
      Cmd_Prev(*this, "Cmd_Prev", "Προηγούμενο", [this] { MoveTo(row()); },
               {Plain(KeyCode::kPageUp)}),
      Cmd_Next(*this, "Cmd_Next", "Επόμενο", [this] { Next(); }, {Plain(KeyCode::kPageDown)}),
      Cmd_Last(*this, "Cmd_Last", "Τελευταίο", [this] { MoveTo(kLastRow); }, {Ctrl(KeyCode::kEnd)}),
      CmdShift_F12(*this, "CmdShift_F12", "Προβολή σε Φύλλο", [this] { SwitchToSheet(); },
                   {Shift(KeyCode::kF12), kCtrlAltShift}),
      Cmd_End(*this, "Cmd_End", "Τέλος Καταχώρησης Τμημάτων", [this] { EndEntry(); },
              {Ctrl(KeyCode::kEnter)}),
      Cmd_Undo(*this, "Cmd_Undo", "Αναίρεση", [this] { GoBack(false); }, {Ctrl('Z')}),
      Cmd_Redo(*this, "Cmd_Redo", "Επανάληψη", [this] { GoBack(true); },
               {Ctrl('Y'), CtrlShift('Z')}),
      mnuOther_Sound(*this, "mnuOther_Sound", "On-Off Ήχων",
                     [this] { desk.options.SoundOn = !desk.options.SoundOn; }),
      CmdEscape(*this, "CmdEscape", "Κλείσιμο", [this] { LeaveByClosing(); },
                {Plain(KeyCode::kEscape)}),
      goes_on_(desk.screens.section_sitting != nullptr),
      shared_(SittingOf(desk)),
      sitting_(*shared_),
      keeping_(sitting_, bench),
      fields_{&Txt0,  &Txt1,  &Txt2,  &Txt6,  &Txt7,  &Txt8,  &Txt9, &Txt10,
              &Txt11, &Txt12, &Txt13, &Txt14, &Txt15, &Txt16, &Txt17} {
  // They look at all fields as they were typed.
  for (Command* freely :
       {&Cmd_Help, &Cmd_End, &CmdShift_F12, &Cmd_Undo, &Cmd_Redo, &CmdEscape, &Cmd_Ins, &Cmd_Del,
        &Cmd_First, &Cmd_Prev, &Cmd_Next, &Cmd_Last, &Cmd_GoTo, &CmdANT}) {
    freely->leaves_freely = true;
  }
  for (Command* itself : {&Cmd_Ins, &Cmd_Del, &Cmd_End, &CmdShift_F12, &CmdEscape, &Cmd_Tau}) {
    itself->sounds_itself = true;
  }
  SetUpFields();
  MakeMenus();
}

FrmData::~FrmData() {
  if (desk.screens.tee_counters == this) desk.screens.tee_counters = nullptr;
}

void FrmData::SetUpFields() {
  Txt0.max_bytes = Txt1.max_bytes = kLongestName;
  Txt0.strips_thousands = false;
  Txt1.forbids = [this](std::string_view text) {
    const bool fits = text == kGreekSource || text.size() < Txt1.text.size() ||
                      text.find_first_not_of("0123456789ANT") == std::string_view::npos;
    return fits ? "" : "Εδώ γράφονται μόνο αριθμοί, ή ANT";
  };
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    Field& field = *fields_[i];
    field.one_separator = false;
    field.on_leave = [this, &field] { return LeaveField(field); };
    field.enter_to = i + 1 < fields_.size() ? static_cast<Control*>(fields_[i + 1]) : &Cmd_Next;
  }
  Txt1.on_change = [this] {
    if (Txt1.text == kGreekSource) Txt1.text = kSource;
  };
  CboSame.takes_same = true;
  CboSame.on_select = [this] { TakeSame(CboSame.selected + 1); };
  ChkSoundD.on_toggle = [this] { desk.options.SoundOn = ChkSoundD.on; };
  LblWait.visible = false;
}

void FrmData::MakeMenus() {
  menus = {
      {"&Τμήματα",
       {{"", "Πρώτο Τμήμα Σωλήνος", &Cmd_First},
        {"", "Προηγούμενο Τμήμα Σωλήνος", &Cmd_Prev},
        {"", "Επόμενο Τμήμα Σωλήνος", &Cmd_Next},
        {"", "Τελευταίο Τμήμα Σωλήνος", &Cmd_Last},
        {},
        {"", "Πήγαινε (GoTo), στο Τμήμα με α/α ...", &Cmd_GoTo},
        {},
        {"", "Προβολή σε Φύλλο", &CmdShift_F12},
        {"", "Τέλος Καταχώρησης Τμημάτων", &Cmd_End}}},
      {"&Ενέργειες",
       {{"Mnu_Undo", "", &Cmd_Undo},
        {"Mnu_Redo", "", &Cmd_Redo},
        {},
        {"", "Παρεμβολή Τμήματος, πριν από το παρόν Τμήμα", &Cmd_Ins},
        {"", "Διαγραφή του παρόντος Τμήματος", &Cmd_Del},
        {"", "Τμήμα όμοιο με ...", &Cmd_Same}}},
      {"&Διακλαδώσεις",
       {{"", " Αυτόματος Καθορισμός < ΤΑΥ > ", &Cmd_Tau},
        {"", "Διαγραφή των < Ταύ >, για το παρόν Τμήμα", &CmdNoTau}}},
      {"Ά&λλα",
       {{"mnuOther_Sound", "On-Off Ήχων", &mnuOther_Sound}, {"", "Βοήθεια πλήκτρων", &Cmd_Help}}}};
  popup = {"", menus[1].entries};
}

void FrmData::Load() {
  begun_ = goes_on_ || (!IsSheetKept(bench.workspace) && TellIfFailed(bench, sitting_.Begin()));
  if (!begun_) return;
  if (!goes_on_) {
    const bool goes_on = std::exchange(desk.screens.entry_goes_on, false);
    sitting_.continues = sitting_.continues || goes_on;
    if (goes_on) desk.screens.edit_mode = false;
  }
  title = desk.screens.edit_mode ? kCorrection : kNewEntry;
  Txt_System.text = IsOpen() ? "ΑΝΟΙΚΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ" : "ΚΛΕΙΣΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ";
  LblName.text = IsOpen() ? "Ονομασία Τμήματος (Ονομα Τμήματος/Ονομα Τμήματος "
                            "Τροφοδοσίας)..................."
                          : "Ονομασία Τμήματος (Ονομα Αρχικού Κόμβου/Ονομα Τελικού "
                            "Κόμβου)...................";
  LblLeft.text = IsOpen() ? "τμήμα" : "αρχή";
  LblRight.text = IsOpen() ? "τροφοδοσία" : "τέλος";
  CmdANT.visible = !IsOpen();
  CmdShift_F12.visible = !IsPlain();
  ShowFirst();
}

void FrmData::ShowFirst() {
  const int from_sheet = std::clamp<int>(bench.study.CurrentRow, 1, std::max(count(), 1));
  if (IsPlain() && sitting_.continues) {
    ShowPastLast();
  } else if (count() == 0) {
    ShowNewRow();
  } else {
    ShowRow(goes_on_ ? from_sheet : 1);
  }
  FocusFirst();
}

// A form that could not begin shows nothing that might be taken for the study.
void FrmData::Activate() {
  if (!begun_) Leave(screen::kMain);
}

void FrmData::Tell(std::string what, Tone tone) {
  LblStatus.text = std::move(what);
  LblStatus.tone = tone;
}

int FrmData::ColumnOf(const Control* part) const {
  const auto at = std::ranges::find(fields_, part);
  if (at == fields_.end()) return -1;
  const auto place = static_cast<int>(at - fields_.begin());
  return place == 0 ? sheet_column::kLeft : place + 1;
}

Field& FrmData::FieldOf(int column) const {
  return *fields_.at(static_cast<std::size_t>(column == sheet_column::kLeft ? 0 : column - 1));
}

SheetRow FrmData::Texts() const {
  SheetRow texts;
  for (const Field* field : fields_) {
    texts.texts.at(static_cast<std::size_t>(ColumnOf(field))) = field->Trimmed();
  }
  return texts;
}

void FrmData::Show(const SheetRow& texts) {
  for (Field* field : fields_) {
    field->Show(texts.texts.at(static_cast<std::size_t>(ColumnOf(field))));
  }
  if (IsOpen() && bench.study.CurrentRow <= kMostSections) {
    Txt0.Show(std::to_string(bench.study.CurrentRow));
  }
  Txt0.locked = IsOpen();
  Txt1.locked = bench.study.CurrentRow == 1;
  CloseSame();
  Tell("");
}

void FrmData::ShowRow(int number) {
  Study& study = bench.study;
  study.CurrentRow = static_cast<std::int16_t>(number);
  if (number <= static_cast<int>(sitting_.rows().size())) {
    study.row = sitting_.rows()[static_cast<std::size_t>(number - 1)];
  }
  is_new_ = false;
  Show(sitting_.draft.At(number - 1));
}

// It takes over what the last row says.
void FrmData::ShowNewRow() {
  Study& study = bench.study;
  const int number = count() + 1;
  SheetRow shown = SheetRowOf(EntryForNewRow(number, study.system_kind, nullptr, desk.separators));
  for (int column = sheet_column::kLength; column < kSheetColumns && count() > 0; ++column) {
    std::string& text = shown.texts.at(static_cast<std::size_t>(column));
    if (text.empty()) text = sitting_.draft.Text(count() - 1, column);
  }
  study.CurrentRow = static_cast<std::int16_t>(number);
  is_new_ = true;
  Show(shown);
}

void FrmData::FocusFirst() { Focus(bench.study.CurrentRow == 1 ? Txt2 : IsOpen() ? Txt1 : Txt0); }

// A correction stays in its column.
void FrmData::FocusAfterMove() {
  if (IsPlain() || is_new_) {
    FocusFirst();
  } else {
    FocusAgain();
  }
}

void FrmData::FocusAgain() {
  auto* field = dynamic_cast<Field*>(focus());
  if (field != nullptr && field->CanEdit()) {
    Focus(*field);
  } else if (field != nullptr) {
    Focus(Txt2);
  }
}

bool FrmData::IsTyped() const {
  return std::ranges::any_of(fields_, &Field::edited) ||
         (is_new_ && row() < sitting_.draft.Count());
}

const SheetRow& FrmData::Before() const {
  return lags_ ? sitting_.draft.At(row()) : sitting_.Stored(row());
}

bool FrmData::IsChanged() const {
  if (is_new_) return IsTyped();
  return std::ranges::any_of(fields_, [this](const Field* field) {
    return field->Trimmed() != Before().texts.at(static_cast<std::size_t>(ColumnOf(field)));
  });
}

bool FrmData::Erase(Field& field) {
  field.Show("");
  field.refused = true;
  return false;
}

// A text that was erased is still the user's.
bool FrmData::IsEdited(const Field& field) { return field.edited() || field.refused; }

// Names that were typed are judged, and those of a new row 1; others stay as the file has them.
bool FrmData::LeaveLeft() {
  if (IsOpen() || (!IsEdited(Txt0) && !(is_new_ && row() == 0))) return true;
  if (row() == 0) {
    if (Txt0.text != kSource) Txt0.Show(kSource);
    return true;
  }
  const bool named = ParseNumber(Txt0.text, desk.separators) != 0 || Txt0.Trimmed() == kSource;
  return named || Erase(Txt0);
}

bool FrmData::LeaveRight() {
  if (!IsEdited(Txt1) || IsOneBranch()) return true;
  const std::string name = Txt1.Trimmed();
  if (name == Txt0.Trimmed()) return Erase(Txt1);
  return ParseNumber(name, desk.separators) != 0 || name == kSource || Erase(Txt1);
}

bool FrmData::Fits(Field& field) {
  const int column = ColumnOf(&field);
  const bool looked_at = field.edited() && IsNumberColumn(column) &&
                         CountDecimalSeparators(field.text, desk.separators) <= 1;
  if (!looked_at) return true;
  if (AcceptedText(field.Trimmed(), column, desk.separators)) return true;
  bench.Show(message::kNumberTooLarge);
  return Erase(field);
}

bool FrmData::LeaveField(Field& field) {
  if (&field == &Txt0 && !LeaveLeft()) return false;
  if (&field == &Txt1 && !LeaveRight()) return false;
  if (!Fits(field)) return false;
  const SectionDraft::Action step(sitting_.draft, kStoring, {row(), ColumnOf(&field)});
  if (field.edited()) TakeFields(kStoring);
  if (lags_) TakeWords(PutLagging());
  return true;
}

bool FrmData::FieldsFit() {
  for (Field* field : fields_) {
    if (Fits(*field)) continue;
    Focus(*field);
    return false;
  }
  return true;
}

bool FrmData::FieldsAgree() {
  if (!FieldsFit()) return false;
  if (LeaveLeft()) return true;
  Focus(Txt0);
  return false;
}

// A number that is edited shows as the sheet shows it from now on. A text that no cell takes stays
// the field's until the row is left, and is told then.
void FrmData::TakeFields(std::string_view action) {
  const int column = std::max(ColumnOf(focus()), 0);
  const SectionDraft::Action step(sitting_.draft, action, {row(), column});
  for (Field* field : fields_) {
    const int at = ColumnOf(field);
    const bool whole = CountDecimalSeparators(field->text, desk.separators) <= 1;
    if (field->edited() && whole) {
      const auto accepted = AcceptedText(field->Trimmed(), at, desk.separators);
      if (!accepted) continue;
      field->Show(*accepted);
    }
    sitting_.draft.Set(row(), at, field->Trimmed());
  }
}

bool FrmData::PressSource(const Key& key) {
  if (focus() != &Txt1 || !Txt1.CanEdit() || !key.IsText() || key.latin != U'A') return false;
  Txt1.Show(kSource);
  TakeFields("Κόμβος ANT");
  Focus(Txt2);
  if (key.shift) source_rest_ = U"NT";
  return true;
}

// The name typed to its end in capitals must not become tees.
bool FrmData::PressRestOfSource(const Key& key) {
  if (key.IsText() && key.character == 0 && key.latin == 0) return false;  // Shift by itself
  const bool goes_on = !source_rest_.empty() && focus() == &Txt2 && key.IsText() &&
                       key.latin == source_rest_.front();
  source_rest_ = goes_on ? source_rest_.substr(1) : std::u32string_view();
  return goes_on;
}

// The two other drops are typed in whole numbers; a paste may bring decimals.
bool FrmData::PressDecimal(const Key& key) const {
  const bool whole = focus() == &Txt16 || focus() == &Txt17;
  return whole && key.IsText() && (key.character == U'.' || key.character == U',');
}

bool FrmData::PressTee(const Key& key) {
  const bool letter =
      key.code == KeyCode::kCharacter && key.shift && !key.alt && FindTeeCase(key.latin) != nullptr;
  if (!letter || !MoveFocus(nullptr)) return false;
  if (!Press(static_cast<char>(key.latin))) desk.sound.Beep();
  return true;
}

bool FrmData::FirstKey(const Key& key) {
  if (PressRestOfSource(key)) return true;
  if (focus() == &CboSame) {
    if (key != Plain(KeyCode::kEscape)) return CboSame.Press(key);
    CloseSame();
    Focus(Txt2);
    return true;
  }
  auto* field = dynamic_cast<Field*>(focus());
  if (key.ctrl && !key.alt && field != nullptr && (key.latin == U'L' || key.latin == U'D')) {
    field->whole_selected = key.latin == U'L';
    field->highlight_dropped = key.latin == U'D';
    return true;
  }
  if (key == Ctrl('Z')) {
    Run(Cmd_Undo);
    return true;
  }
  return PressSource(key) || PressDecimal(key) || PressTee(key);
}

SectionSitting::Pending FrmData::PendingTexts() const {
  SectionSitting::Pending pending;
  if (!IsTyped()) return pending;
  for (const Field* field : fields_) {
    const int column = ColumnOf(field);
    if (!is_new_ && !field->edited()) continue;
    pending.push_back({row(), column, field->Trimmed()});
  }
  return pending;
}

bool FrmData::Told(const std::optional<SelfKeeping::Telling>& told) {
  if (told) Tell(told->text, told->alarm ? Tone::kAlarm : Tone::kPlain);
  return told.has_value();
}

bool FrmData::Idle(double quiet_seconds) {
  return begun_ && Told(keeping_.Idle(PendingTexts(), quiet_seconds));
}

void FrmData::LostFocus() {
  if (begun_) Told(keeping_.KeepNow(PendingTexts()));
}

void FrmData::ShowHelp() {
  Box box{" ... ΒΟΗΘΕΙΑ ΠΛΗΚΤΡΟΛΟΓΗΣΕΩΝ ...",
          {"  ... < Ctrl+Home > ---> Πρώτη Καταχώρηση ...",
           "  ... < PgUp > ----------> Προηγούμενη Καταχώρηση ...",
           "  ... < PgDn > ----------> Επόμενη Καταχώρηση ...",
           "  ... < Ctrl+End > ------> Τελευταία Καταχώρηση ...",
           "  ... < F5 > ---------------> Πήγαινε (GoTo) στο Τμήμα με α/α ...",
           "  ... < Ctrl+L > -----------> Select Text in Text Box ...",
           "  ... < Ctrl+D > ----------> DeSelect Text in Text Box ..."},
          box_style::kInformation};
  box.beeps = kAlarmBeeps;
  bench.Ask(box);
}

}  // namespace kalvo
