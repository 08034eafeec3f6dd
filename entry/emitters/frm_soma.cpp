#include "entry/emitters/frm_soma.h"

#include <algorithm>

#include "engine/checks.h"
#include "engine/lost_walk.h"
#include "entry/emitters/emitter_forms.h"
#include "entry/emitters/pasted_emitters.h"
#include "form/wait.h"
#include "study/message_codes.h"

namespace kalvo {
namespace {

constexpr const char* kAskSection =
    "... Δώσε τον α/α του Τμήματος, που περιλαμβάνει Εναλλάκτη (Σώμα) ...";
constexpr const char* kAskFlow =
    "... Δώσε την Παροχή του Υγρού στον συγκεκριμένο Εναλλάκτη (Σώμα) ...";
constexpr const char* kAskDrop =
    "... Δώσε την Πτώση Πίεσης (για την εν λόγω Παροχή), στον Εναλλάκτη (Σώμα) ...";
constexpr const char* kSectionGone =
    "... Το Τμήμα του Σώματος ΔΕΝ υπάρχει πλέον : δώσε άλλον α/α, ή αφαίρεσε το Σώμα ...";
constexpr const char* kValueMissing = "... Λείπουν τιμές από το Σώμα ...";

constexpr double kAboveAllSections = 1e6;  // what is above need not be told apart

std::vector<GridColumn> EmitterColumns() {
  return {{"α/α", 16},
          {"ΟΝΟΜΑΣΙΑ ΤΜΗΜΑΤΟΣ", 18},
          {"ΠΑΡΟΧΗ [Lit/h]", 18},
          {"ΠΤΩΣΗ ΠΙΕΣΗΣ [mm w.g.]", 24}};
}

}  // namespace

FrmSoma::FrmSoma(Desk& shared_desk)
    : Form(shared_desk),
      CmdRemove(*this, "CmdRemove", "Αφαίρεση Σώματος", [this] { Remove(); },
                {Ctrl(KeyCode::kDelete)}),
      CmdF12(*this, "CmdF12", "Τιμές μνήμης ...",
             [this] { desk.navigator.ShowModal(screen::kMemoryValues); }, {kAltCtrl}),
      CmdPaste(*this, "CmdPaste", "Επικόλληση στη λίστα", [this] { Paste(); }),
      CmdHelp(*this, "CmdHelp", "Βοήθεια πλήκτρων", [this] { ShowEmitterKeys(bench); },
              {Plain(KeyCode::kF1)}),
      SSCmdBack(*this, "SSCmdBack", "Τέλος Καταχωρήσεων", [this] { End(); }),
      SSCmdNext(*this, "SSCmdNext", "Επόμενο Τμήμα-Σώμα", [this] { Next(); }),
      CmdFill(*this, "CmdFill", "Αντιγραφή από την μνήμη", [this] { Fill(); },
              {Plain(KeyCode::kF12), Plain(KeyCode::kInsert)}),
      CmdEscape(*this, "CmdEscape", "Τέλος", [this] { EndOrAsk(); }, {Plain(KeyCode::kEscape)}),
      CmdLeave(*this, "CmdLeave", "Άμεση Έξοδος", [this] { LeaveAtOnce(); }, {kAltShift}),
      CmdList(*this, "CmdList", "Λίστα",
              [this] { Focus(focus() == &LstSoma ? static_cast<Control&>(Text1) : LstSoma); },
              {Plain(KeyCode::kF6)}) {
  title = "Στοιχεία Σωμάτων Δικτύου (ΚΛΕΙΣΤΟ ΚΥΚΛΩΜΑ)";
  for (Command* freely : {&CmdRemove, &CmdF12, &CmdPaste, &CmdHelp, &SSCmdBack, &CmdFill,
                          &CmdEscape, &CmdLeave, &CmdList}) {
    freely->leaves_freely = true;
  }
  SSCmdNext.sounds_itself = SSCmdBack.sounds_itself = CmdEscape.sounds_itself = true;
  SSCmdNext.hint = "Ctrl+End";
  CmdF12.hint = "Alt+Ctrl";
  CmdPaste.hint = "Ctrl+V";
  SetUpFields();
}

void FrmSoma::SetUpFields() {
  Text2.locked = true;
  Text1.on_change = [this] { ShowName(); };
  Text1.on_leave = [this] { return SectionFits(); };
  Text1.enter_to = &Text3;
  Text3.enter_to = &Text4;
  Text4.enter_to = &SSCmdNext;
  LstSoma.row_noun = "Σώμα";
  LstSoma.on_activate = [this] {
    if (LstSoma.row_count() > 0) Correct(LstSoma.current().row + 1);
  };
}

void FrmSoma::Load() {
  entry_.emplace(bench);
  ShowRecord(1);
}

void FrmSoma::Derive() {
  const ScreenState& screens = desk.screens;
  const bool lost = entry_ && current_ <= entry_->count() && !entry_->HasOwnSection(current_);
  TxtHelp.text = focus() == &Text3   ? kAskFlow
                 : focus() == &Text4 ? kAskDrop
                 : lost              ? kSectionGone
                 : focus() == &Text1 ? kAskSection
                                     : "";
  TxtHelp.tone = TxtHelp.text == kSectionGone ? Tone::kAlarm : Tone::kPlain;
  LblCurrent.text = "Σώμα " + std::to_string(current_);
  LblMemoryFlow.text = MemoryText(screens.emitter_memory[0], "Lit/h", desk.separators);
  LblMemoryDrop.text = MemoryText(screens.emitter_memory[1], "mm w.g.", desk.separators);
  LblFill.visible = screens.edit_mode;
  LblEmpty.visible = LstSoma.row_count() == 0;
}

void FrmSoma::ShowRecord(int emitter) {
  current_ = emitter;
  for (Field* field : fields_) {
    field->Show("");
  }
  if (emitter <= entry_->count()) {
    const EmitterValues values = entry_->At(emitter);
    if (values.section != 0) Text1.Show(std::to_string(values.section));
    Text3.ShowNumber(values.flow_lh, "", desk.separators);
    Text4.ShowNumber(values.drop, "", desk.separators);
  }
  ShowName();
  ShowList();
  Focus(Text1);
}

bool FrmSoma::HasLostSection() const {
  return current_ <= entry_->count() && entry_->At(current_).section == 0 &&
         Text1.Trimmed().empty();
}

// A section that is gone shows under the name it had.
void FrmSoma::ShowName() {
  const double number = Text1.Number(desk.separators);
  const bool lost = HasLostSection();
  if (lost) {
    Text2.Show(FromCodePage(ByNumber(entry_->emitters(), current_).Name.Trimmed()));
  } else {
    Text2.Show(number <= entry_->row_count() ? entry_->NameOf(static_cast<int>(number)) : "");
  }
  Text2.tone = lost ? Tone::kAlarm : Tone::kPlain;
}

void FrmSoma::ShowList() {
  LstSoma.Reset(EmitterColumns(), entry_->count());
  float total = 0;
  for (int emitter = 1; emitter <= entry_->count(); ++emitter) {
    ShowListRow(emitter);
    total += entry_->At(emitter).flow_lh;
  }
  LstSoma.SetCurrent({current_ - 1, 0});
  LblTotal.text = std::to_string(entry_->count());
  LblFlow.text = FormatPattern(total / 1000.0F, pattern::kTwoDecimals, desk.separators);
}

void FrmSoma::ShowListRow(int emitter) {
  const EmitterValues values = entry_->At(emitter);
  const std::string name = FromCodePage(ByNumber(entry_->emitters(), emitter).Name.Trimmed());
  const bool own = entry_->HasOwnSection(emitter);
  const Tone tone = own ? Tone::kPlain : Tone::kAlarm;
  const std::string number =
      values.section == 0 ? "διαγράφηκε" : std::to_string(values.section) + (own ? "" : ", διπλός");
  const auto value = [this](float shown) {
    return FormatPattern(shown, pattern::kOneDecimal, desk.separators);
  };
  const int row = emitter - 1;
  LstSoma.Set(row, 0, {"α/α : " + number, tone, static_cast<double>(values.section)});
  LstSoma.Set(row, 1, {"Ονομασία : " + name, tone});
  LstSoma.Set(row, 2, {"Παροχή : " + value(values.flow_lh), Tone::kPlain, values.flow_lh});
  LstSoma.Set(row, 3, {"Πτώση Πίεσης : " + value(values.drop), Tone::kPlain, values.drop});
}

bool FrmSoma::IsEmpty() const { return AreEmpty(fields_); }

EmitterValues FrmSoma::Values() const {
  const Separators separators = desk.separators;
  const double section = std::min(Text1.Number(separators), kAboveAllSections);
  return {static_cast<int>(section), ToSingle(Text3.Number(separators)),
          ToSingle(Text4.Number(separators))};
}

bool FrmSoma::SectionFits() {
  const double number = Text1.Number(desk.separators);
  if (number == 0) return false;
  if (number <= entry_->row_count()) return true;
  bench.Show(message::kNoSuchSection);
  Text1.Show("");
  Text1.refused = true;
  ShowName();
  return false;
}

bool FrmSoma::NumbersFit() {
  for (Field* field : values_) {
    if (field->TryLeave(desk.separators) != Field::Leave::kTooManySeparators) continue;
    bench.Show(message::kTooManySeparators);
    Focus(*field);
    return false;
  }
  return true;
}

bool FrmSoma::HasValues() {
  if (!NumbersFit()) return false;
  if (Field* zero = FirstZero(fields_, desk.separators)) {
    Focus(*zero);
    return false;
  }
  return true;
}

bool FrmSoma::Store() {
  if (!HasValues()) return false;
  const bool fits = SectionFits();
  const bool taken = fits && entry_->HasSection(Values().section, current_);
  if (taken) {
    bench.Show(message::kSectionTaken);
    Text1.refused = true;
  }
  if (!fits || taken) {
    Focus(Text1);
    return false;
  }
  return TellIfFaulted(bench, [this] { entry_->Store(current_, Values()); });
}

void FrmSoma::Next() {
  if (!HasValues()) return;
  desk.Click();
  if (Store()) ShowRecord(current_ + 1);
}

void FrmSoma::Correct(int emitter) {
  if (emitter == current_) {
    Focus(Text1);
  } else if (StoreIfAny()) {
    ShowRecord(emitter);
  }
}

void FrmSoma::Remove() {
  const bool listed = current_ <= entry_->count();
  if (!listed && IsEmpty()) return;
  const Answer answer = bench.Ask(
      {"...! Π Ρ Ο Σ Ο Χ Η !...",
       {"... Θέλετε να αφαιρεθεί το Σώμα < " + std::to_string(current_) + " > από τη λίστα ; ..."},
       box_style::kDefaultNo});
  if (answer != Answer::kYes) return;
  if (listed && !TellIfFaulted(bench, [this] { entry_->Remove(current_); })) return;
  ShowRecord(current_);
}

void FrmSoma::Paste() {
  if (!StoreIfAny()) return;
  const auto pasted = ReadPastedEmitters(bench, desk.clipboard.Text(), *entry_, desk.separators);
  if (!pasted) return;
  if (!pasted->emitters.empty() &&
      !TellIfFaulted(bench, [&] { entry_->Append(pasted->emitters); })) {
    return;
  }
  TellPasted(bench, *pasted);
  if (!pasted->emitters.empty()) ShowRecord(entry_->count() + 1);
}

void FrmSoma::Fill() {
  if (!desk.screens.edit_mode) return;
  if (!FillFromMemory(desk.screens.emitter_memory, values_, desk.separators)) return;
  if (MoveFocus(&Text4)) Focus(Text4);
}

bool FrmSoma::IsMissing() const {
  if (!IsEmpty() && FirstZero(fields_, desk.separators) != nullptr) return true;
  const int lost = entry_->FirstWithoutSection();
  return lost != 0 && (lost != current_ || IsEmpty());
}

void FrmSoma::GoToMissing() {
  Field* zero = IsEmpty() ? nullptr : FirstZero(fields_, desk.separators);
  if (zero != nullptr) {
    Focus(*zero);
  } else {
    ShowRecord(entry_->FirstWithoutSection());
  }
}

void FrmSoma::TellLostSection(int emitter) {
  const std::string name = FromCodePage(ByNumber(entry_->emitters(), emitter).Name.Trimmed());
  bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
             {"... Το Σώμα < " + std::to_string(emitter) + " > ( " + name +
                  " ) ΔΕΝ έχει δικό του Τμήμα ...",
              "... Δώστε άλλον α/α Τμήματος, ή αφαιρέστε το Σώμα ..."},
             box_style::kStop});
}

void FrmSoma::End() {
  const bool to_store = !HasLostSection() && !IsEmpty();
  if (to_store && !HasValues()) return;
  desk.Click();
  if (to_store && !Store()) return;
  if (const int lost = HasLostSection() ? current_ : entry_->FirstWithoutSection(); lost != 0) {
    TellLostSection(lost);
    if (lost != current_) ShowRecord(lost);
    Focus(Text1);
    return;
  }
  const bool ended = TellIfFaulted(bench, [this] {
    const WaitShown wait(desk.navigator, kEmitterWait);
    entry_->End();
  });
  if (!ended) {
    ShowList();
    return;
  }
  CheckCircuits();
  LeaveEntry(desk, screen::kEmitters);
}

void FrmSoma::CheckCircuits() {
  if (bench.study.SingleSection || entry_->count() == 0) return;
  bench.study.lost_walk = FindLostWalk(bench.study);
  if (bench.study.lost_walk) ShowLostWalk(bench);
}

void FrmSoma::EndOrAsk() {
  if (!NumbersFit()) return;
  if (!IsMissing()) {
    End();
  } else if (AskToLeaveAtOnce(bench, kValueMissing)) {
    LeaveAtOnce();
  } else {
    GoToMissing();
  }
}

// A complete record in hand is kept; what could not be stored is left out.
void FrmSoma::LeaveAtOnce() {
  const int section = Values().section;
  const bool complete = FirstZero(fields_, desk.separators) == nullptr &&
                        section <= entry_->row_count() && !entry_->HasSection(section, current_);
  if (complete && !TellIfFaulted(bench, [this] { entry_->Store(current_, Values()); })) return;
  entry_->LeaveUnchecked();
  bench.Show(message::kEmittersUnchecked);
  LeaveEntry(desk, screen::kEmitters);
}

bool FrmSoma::MayClose() {
  Run(CmdEscape);
  return false;
}

// A block that is copied is meant for the list, not for the field.
bool FrmSoma::FirstKey(const Key& key) {
  const bool block = key == Ctrl('V') && focus() == &Text1 &&
                     desk.clipboard.Text().find_first_of("\t\r\n") != std::string::npos;
  if (block) Run(CmdPaste);
  return block;
}

bool FrmSoma::OtherKey(const Key& key) {
  if (key == Ctrl('V') && focus() == &LstSoma) {
    Run(CmdPaste);
    return true;
  }
  if (key != Ctrl(KeyCode::kEnd)) return false;
  for (const Field* field : {&Text1, &Text2, &Text3, &Text4}) {
    if (field->Trimmed().empty()) return true;
  }
  Run(SSCmdNext);
  return true;
}

}  // namespace kalvo
