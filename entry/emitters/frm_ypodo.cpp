#include "entry/emitters/frm_ypodo.h"

#include <algorithm>

#include "entry/emitters/emitter_forms.h"
#include "form/wait.h"
#include "study/message_codes.h"

namespace kalvo {
namespace {

constexpr const char* kAskOutletFlow =
    "... Δώσε την Παροχή του Υγρού στον συγκεκριμένο Υδραυλικό Υποδοχέα ή Ακροστόμιο ...";
constexpr const char* kAskPressure =
    "... Δώσε την απαραίτητη Πίεση Ροής για την λειτουργία του Υποδοχέα ή Ακροστομίου ...";
constexpr const char* kAskHeight =
    "... Δώσε την Υψομετρική Διαφορά, μεταξύ του Υποδοχέα (ή Ακροστομίου) και της Αντλίας ...";
constexpr const char* kNoValues = "χωρίς τιμές";
constexpr std::size_t kToldOutlets = 10;

std::vector<GridColumn> OutletColumns() {
  return {{"α/α", 10},
          {"ΟΝΟΜΑΣΙΑ ΤΜΗΜΑΤΟΣ", 18},
          {"ΠΑΡΟΧΗ [Lit/h]", 18},
          {"ΠΙΕΣΗ ΡΟΗΣ [m w.g.]", 22},
          {"ΥΨΟΣ ΑΠΟ ΑΝΤΛΙΑ [m]", 26}};
}

}  // namespace

FrmYpodo::FrmYpodo(Desk& shared_desk)
    : Form(shared_desk),
      CmdF12(*this, "CmdF12", "Τιμές μνήμης ...",
             [this] { desk.navigator.ShowModal(screen::kMemoryValues); }, {kAltCtrl}),
      CmdHelp(*this, "CmdHelp", "Βοήθεια πλήκτρων", [this] { ShowEmitterKeys(bench); },
              {Plain(KeyCode::kF1)}),
      SSCmdBack(*this, "SSCmdBack", "Επιστροφή", [this] { End(); }),
      SSCmdNext(*this, "SSCmdNext", "Επόμενο", [this] { Next(); }),
      CmdFill(*this, "CmdFill", "Αντιγραφή από την μνήμη", [this] { Fill(); },
              {Plain(KeyCode::kF12), Plain(KeyCode::kInsert)}),
      CmdEscape(*this, "CmdEscape", "Τέλος", [this] { EndOrAsk(); }, {Plain(KeyCode::kEscape)}),
      CmdLeave(*this, "CmdLeave", "Άμεση Έξοδος", [this] { LeaveAtOnce(); }, {kAltShift}) {
  title = "Στοιχεία Υποδοχέων Δικτύου (ΑΝΟΙΚΤΟ ΚΥΚΛΩΜΑ)";
  for (Command* freely : {&CmdF12, &CmdHelp, &SSCmdBack, &CmdFill, &CmdEscape, &CmdLeave}) {
    freely->leaves_freely = true;
  }
  SSCmdNext.sounds_itself = true;
  SSCmdNext.hint = "Ctrl+End";
  CmdF12.hint = "Alt+Ctrl";
  Text1.locked = Text2.locked = true;
  Text3.enter_to = &Text4;
  Text4.enter_to = &Text5;
  Text5.enter_to = &SSCmdNext;
  LstYpodo.row_noun = "Υποδοχέας";
}

void FrmYpodo::Load() {
  outlets_ = ListOutlets(bench);
  opened_ = outlets_;
  former_ = FormerOutlets(bench.workspace);
  ShowOutlet(1);
}

void FrmYpodo::Derive() {
  const auto& memory = desk.screens.outlet_memory;
  TxtHelp.text = focus() == &Text3   ? kAskOutletFlow
                 : focus() == &Text4 ? kAskPressure
                 : focus() == &Text5 ? kAskHeight
                                     : "";
  LblCurrent.text = "Υποδοχέας " + std::to_string(std::min(current_, std::max(count(), 1)));
  LblMemoryFlow.text = MemoryText(memory[0], "Lit/h", desk.separators);
  LblMemoryRest.text = MemoryText(memory[1], "m w.g. · ", desk.separators) +
                       MemoryText(memory[2], "m", desk.separators);
  LblFill.visible = desk.screens.edit_mode;
}

void FrmYpodo::ShowOutlet(int index) {
  current_ = index;
  for (Field* field : {&Text1, &Text2, &Text3, &Text4, &Text5}) {
    field->Show("");
  }
  ShowList();
  if (IsPastLast()) {
    Focus(SSCmdBack);
    return;
  }
  const SectionRow& outlet = ByNumber(outlets_, index);
  Text1.Show(std::to_string(outlet.RecordNumber));
  Text2.Show(FromCodePage(outlet.Name.Trimmed()));
  if (outlet.WaterFlow != 0 || outlet.HasEmitter()) {
    Text3.ShowNumber(outlet.WaterFlow, "", desk.separators);
    Text4.ShowNumber(outlet.SomaDrop, "", desk.separators);
    Text5.ShowNumber(outlet.HeightDiff, "", desk.separators);
  }
  Focus(Text3);
}

// The list goes as far as outlets have values or have been passed.
void FrmYpodo::ShowList() {
  int rows = std::min(current_ - 1, count());
  float total = 0;
  for (int index = 1; index <= count(); ++index) {
    const SectionRow& outlet = ByNumber(outlets_, index);
    if (HasOutletValues(outlet)) rows = std::max(rows, index);
    total += outlet.WaterFlow;
  }
  LstYpodo.Reset(OutletColumns(), rows);
  for (int row = 0; row < rows; ++row) {
    ShowListRow(row);
  }
  LstYpodo.SetCurrent({current_ - 1, 0});
  LblTotal.text = std::to_string(count());
  LblFlow.text = FormatPattern(total / 1000.0F, pattern::kTwoDecimals, desk.separators);
  ShowChart();
}

void FrmYpodo::ShowListRow(int row) {
  const SectionRow& outlet = ByNumber(outlets_, row + 1);
  const bool known = HasOutletValues(outlet);
  const Tone tone = known ? Tone::kPlain : Tone::kAlarm;
  const auto value = [this, known](float shown, std::string_view pattern) {
    return known ? FormatPattern(shown, pattern, desk.separators) : std::string(kNoValues);
  };
  LstYpodo.Set(row, 0,
               {"α/α : " + std::to_string(outlet.RecordNumber), Tone::kPlain,
                static_cast<double>(outlet.RecordNumber)});
  LstYpodo.Set(row, 1, {"Ονομασία : " + FromCodePage(outlet.Name.Trimmed())});
  LstYpodo.Set(
      row, 2,
      {"Παροχή : " + value(outlet.WaterFlow, pattern::kOneDecimal), tone, outlet.WaterFlow});
  LstYpodo.Set(row, 3,
               {"Πίεση Ροής : " + value(outlet.SomaDrop, pattern::kOneToThreeDecimals), tone,
                outlet.SomaDrop});
  LstYpodo.Set(row, 4,
               {"Υψος από Αντλία : " + value(outlet.HeightDiff, pattern::kOneDecimal), tone,
                outlet.HeightDiff});
}

void FrmYpodo::ShowChart() {
  Chart.decimal = desk.separators.decimal;
  Chart.columns.clear();
  Chart.current = -1;
  for (int index = 1; index <= count(); ++index) {
    const SectionRow& outlet = ByNumber(outlets_, index);
    if (!HasOutletValues(outlet)) continue;
    if (index == current_) Chart.current = static_cast<int>(Chart.columns.size());
    const float whole = outlet.HeightDiff + outlet.SomaDrop;
    Chart.columns.push_back({std::to_string(outlet.RecordNumber), outlet.HeightDiff,
                             outlet.SomaDrop,
                             FormatPattern(whole, pattern::kOneDecimal, desk.separators)});
  }
}

bool FrmYpodo::IsEmpty() const { return AreEmpty(fields_); }

bool FrmYpodo::NumbersFit() {
  for (Field* field : fields_) {
    if (field->TryLeave(desk.separators) != Field::Leave::kTooManySeparators) continue;
    bench.Show(message::kTooManySeparators);
    Focus(*field);
    return false;
  }
  return true;
}

bool FrmYpodo::HasValues() {
  if (!NumbersFit()) return false;
  if (Field* zero = FirstZero(needed_, desk.separators)) {
    Focus(*zero);
    return false;
  }
  return true;
}

bool FrmYpodo::Store() {
  if (!HasValues()) return false;
  const OutletValues values = {ToSingle(Text3.Number(desk.separators)),
                               ToSingle(Text4.Number(desk.separators)),
                               ToSingle(Text5.Number(desk.separators))};
  if (!TellIfFaulted(bench, [&] { StoreOutlet(bench, current_, values); })) return false;
  SectionRow& outlet = ByNumber(outlets_, current_);
  outlet.WaterFlow = values.flow_lh;
  outlet.SomaDrop = values.pressure_m;
  outlet.HeightDiff = values.height_m;
  return true;
}

void FrmYpodo::Next() {
  if (IsPastLast()) {
    Focus(SSCmdBack);
  } else if (HasValues()) {
    desk.Click();
    if (Store()) ShowOutlet(current_ + 1);
  }
}

void FrmYpodo::Fill() {
  if (!desk.screens.edit_mode || IsPastLast()) return;
  if (!FillFromMemory(desk.screens.outlet_memory, fields_, desk.separators)) return;
  if (MoveFocus(&Text5)) Focus(Text5);
}

void FrmYpodo::TellWithoutValues() {
  std::string sections;
  std::size_t without = 0;
  for (const SectionRow& outlet : outlets_) {
    if (HasOutletValues(outlet)) continue;
    if (++without > kToldOutlets) continue;
    sections += (sections.empty() ? "" : ", ") + std::to_string(outlet.RecordNumber);
  }
  if (without == 0) return;
  if (without > kToldOutlets) sections += " ...";
  bench.Ask({" !!... ΠΡΟΣΟΧΗ ...!! ",
             {"... Υποδοχείς χωρίς Παροχή ή Πίεση Ροής, στα Τμήματα < " + sections + " > ...",
              "... Πρέπει να συμπληρωθούν πριν από τους Υπολογισμούς ..."},
             box_style::kExclamation});
}

bool FrmYpodo::MayTakeFormer() {
  if (former_.empty()) return true;
  Box box{"...! Π Ρ Ο Σ Ο Χ Η !...",
          {"... Τμήματα που τροφοδοτούν πλέον άλλα, και ΔΕΝ είναι Υποδοχείς ..."},
          box_style::kDefaultNo};
  for (std::size_t i = 0; i < std::min(former_.size(), kToldOutlets); ++i) {
    const SectionRow& row = former_[i];
    box.lines.push_back("Τμήμα " + std::to_string(row.RecordNumber) + " ( " +
                        FromCodePage(row.Name.Trimmed()) + " ) : Παροχή " +
                        FormatNumber(row.WaterFlow, desk.separators) + " Lit/h, Πίεση Ροής " +
                        FormatNumber(row.SomaDrop, desk.separators) + " m w.g.");
  }
  if (former_.size() > kToldOutlets) {
    box.lines.push_back("... και άλλα " + std::to_string(former_.size() - kToldOutlets));
  }
  box.lines.emplace_back("... Οι τιμές τους θα διαγραφούν. Να τελειώσει η καταχώρηση ; ...");
  box.lines.emplace_back("(Όχι : μένουν στα Τμήματα, και η φόρμα κλείνει με Alt+Shift)");
  return bench.Ask(box) == Answer::kYes;
}

void FrmYpodo::End() {
  if (!StoreIfAny() || !MayTakeFormer()) return;
  const bool ended = TellIfFaulted(bench, [this] {
    const WaitShown wait(desk.navigator, kEmitterWait);
    EndOutlets(bench, opened_);
  });
  if (!ended) return;
  TellWithoutValues();
  LeaveEntry(desk, screen::kOutlets);
}

void FrmYpodo::EndOrAsk() {
  if (!NumbersFit()) return;
  Field* zero = IsPastLast() || IsEmpty() ? nullptr : FirstZero(needed_, desk.separators);
  if (zero == nullptr) {
    End();
  } else if (AskToLeaveAtOnce(bench, "... Λείπουν τιμές από τον Υποδοχέα ...")) {
    LeaveAtOnce();
  } else {
    Focus(*zero);
  }
}

// A complete outlet in hand is kept.
void FrmYpodo::LeaveAtOnce() {
  const bool complete = !IsPastLast() && FirstZero(needed_, desk.separators) == nullptr;
  if (complete && !Store()) return;
  if (!TellIfFaulted(bench, [this] { LeaveOutletsUnchecked(bench, opened_); })) return;
  bench.Show(message::kEmittersUnchecked);
  LeaveEntry(desk, screen::kOutlets);
}

bool FrmYpodo::MayClose() {
  Run(CmdEscape);
  return false;
}

bool FrmYpodo::OtherKey(const Key& key) {
  if (key != Ctrl(KeyCode::kEnd)) return false;
  for (const Field* field : {&Text1, &Text2, &Text3, &Text4, &Text5}) {
    if (field->Trimmed().empty()) return true;
  }
  Run(SSCmdNext);
  return true;
}

}  // namespace kalvo
