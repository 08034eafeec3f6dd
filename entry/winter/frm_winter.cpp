#include "entry/winter/frm_winter.h"

#include <algorithm>
#include <utility>

#include "entry/ask_what_parts.h"
#include "entry/emitters/emitter_forms.h"
#include "entry/winter/winter_boxes.h"
#include "entry/winter/winter_grid.h"
#include "entry/winter/winter_paste.h"
#include "form/wait.h"
#include "study/message_codes.h"
#include "study/rounding.h"

namespace kalvo {
namespace {

constexpr std::string_view kGridTitle =
    "Καθορισμός Παροχών Νερού και Πτώσεων Πίεσης Σωμάτων, για τον Χειμώνα";

bool ChangesCells(const Key& key) {
  return key == Plain(KeyCode::kDelete) || key == Ctrl('V') || key == Shift(KeyCode::kInsert);
}

constexpr Key kAboveKeys[] = {Plain(KeyCode::kF5), Plain(KeyCode::kF6), Plain(KeyCode::kF7),
                              Plain(KeyCode::kF8), Plain(KeyCode::kF9), Plain(KeyCode::kF10)};

}  // namespace

FrmWinter::FrmWinter(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_Close(*this, "Cmd_Close", "Επιστροφή", [this] { Close(); }, {Plain(KeyCode::kEscape)}),
      Cmd_Res(*this, "Cmd_Res", "Αναλυτική Παρουσίαση", [this] { ShowResults(); }),
      Cmd_WCirc(*this, "Cmd_WCirc", "Υπολογισμός Αντλίας Χειμώνα", [this] { Calculate(); },
                {Ctrl(KeyCode::kEnter)}),
      CmdAbove(*this, "CmdAbove", "Αντιγραφή του κελλιού που είναι επάνω", [this] { CopyAbove(); },
               {std::begin(kAboveKeys), std::end(kAboveKeys)}),
      CmdCopyToClpbrd(*this, "CmdCopyToClpbrd", "Αντιγραφή", [this] { CopyCells(); }, {Ctrl('C')}),
      CmdPasteFromClpbrd(*this, "CmdPasteFromClpbrd", "Επικόλληση", [this] { PasteCells(); },
                         {Ctrl('V'), Shift(KeyCode::kInsert)}),
      Cmd_DelCell(*this, "Cmd_DelCell", "Διαγραφή Cell", [this] { DeleteCells(); },
                  {Plain(KeyCode::kDelete)}) {
  title = "Καθορισμός Παροχών Υγρού και Πτώσεων Πίεσης Σωμάτων, για τον Χειμώνα";
  TxtMeanT.enter_to = &fpSpread1;
  TxtMeanT.on_leave = [this] {
    TakeTemperature();
    return true;
  };
  fpSpread1.row_noun = "Σώμα στο Τμήμα";
  fpSpread1.enter_goes_down = fpSpread1.opens_selected = fpSpread1.opens_by_right_click = true;
  fpSpread1.text_of = [this](GridPlace at) {
    return WinterCellText(*sitting_, at, desk.separators);
  };
  fpSpread1.on_accept = [this](GridPlace at, const std::string& text) {
    return AcceptCell(at, text);
  };
}

template <typename Action>
bool FrmWinter::Try(Action&& action) {
  return TellIfFaulted(bench, std::forward<Action>(action));
}

void FrmWinter::Load() {
  LblThema.text = bench.study.study_title;
  if (!Begin()) return;
  const WinterValues& values = sitting_->values();
  LblCount.text =
      std::to_string(values.lines.size()) + (values.lines.size() == 1 ? " σώμα" : " σώματα");
  if (values.temperature != 0) TxtMeanT.ShowNumber(values.temperature, "", desk.separators);
  SetUpWinterGrid(fpSpread1, *sitting_, desk.separators);
  fpSpread1.GoTo({0, WinterColumnOf(WinterValue::kFlow)});
  Focus(fpSpread1);
  TellBeginning();
}

// A length that winter was given once stays although the section's has been changed since. Emitters
// that the earlier values say nothing of begin empty.
void FrmWinter::TellBeginning() {
  if (!sitting_->has_earlier_values()) return;
  std::string lengths;
  std::string empty;
  const auto list = [](std::string& sections, int section) {
    sections += (sections.empty() ? "" : ", ") + std::to_string(section);
  };
  for (std::size_t i = 0; i < sitting_->summer().size(); ++i) {
    const WinterLine& summer = sitting_->summer()[i];
    const WinterLine& line = sitting_->values().lines[i];
    if (line.length_m != summer.length_m) list(lengths, summer.section);
    if (line.flow_lh == 0 || line.drop == 0) list(empty, summer.section);
  }
  std::string told;
  if (!empty.empty()) told = "Χωρίς τιμές του Χειμώνα αρχίζουν τα τμήματα : " + empty;
  if (!lengths.empty()) {
    told +=
        (told.empty() ? "" : ". ") + ("Μήκος άλλο από του θέρους έχουν τα τμήματα : " + lengths);
  }
  if (!told.empty()) Tell(told);
}

bool FrmWinter::Begin() {
  return Try([this] { sitting_.emplace(bench); });
}

// One that could not begin shows nothing; winter's results have been looked at.
void FrmWinter::Activate() {
  if (!sitting_) {
    Leave();
  } else {
    SummerIsBack();
  }
}

bool FrmWinter::SummerIsBack() {
  if (!Try([this] { sitting_->duty().HideResults(); })) return false;
  desk.screens.WinterPump = false;
  return true;
}

void FrmWinter::ShowRow(int row) {
  ShowWinterRow(fpSpread1, *sitting_, row, desk.separators, refused_);
}

void FrmWinter::Tell(std::string what, Tone tone) {
  LblStatus.text = std::move(what);
  LblStatus.tone = tone;
  told_selection_ = fpSpread1.selection_revision();
}

void FrmWinter::TakeTemperature() {
  if (!sitting_) return;
  const float temperature = ToSingle(TxtMeanT.Number(desk.separators));
  Try([&] { sitting_->SetTemperature(temperature); });
}

void FrmWinter::Put(GridPlace place, float number) {
  const auto what = WinterValueOf(place.column);
  if (!what) return;
  if (refused_ == place) refused_.reset();
  Try([&] { sitting_->Set(static_cast<std::size_t>(place.row), *what, number); });
  ShowRow(place.row);
}

bool FrmWinter::AcceptCell(GridPlace place, const std::string& text) {
  Put(place, ToSingle(ParseNumber(text, desk.separators)));
  return true;
}

bool FrmWinter::FirstKey(const Key& key) {
  if (!sitting_) return false;
  const bool on_grid = focus() == &fpSpread1 || focus() == &fpSpread1.editor;
  const bool copies_above = std::ranges::count(kAboveKeys, key) != 0;
  // Cells change only where the keyboard is.
  if (!on_grid) return copies_above || (focus() != &TxtMeanT && ChangesCells(key));
  if (copies_above) {  // on an open cell, too
    Run(CmdAbove);
    return true;
  }
  const bool pastes = key == Ctrl('V') && fpSpread1.editing();
  if (pastes && desk.clipboard.Text().find_first_of("\t\r\n") != std::string::npos) {
    Run(CmdPasteFromClpbrd);
    return true;
  }
  return false;
}

void FrmWinter::CopyAbove() {
  const GridPlace at = fpSpread1.current();
  const auto what = WinterValueOf(at.column);
  if (!sitting_ || !fpSpread1.Accept()) return;
  if (!what || at.row == 0) {
    desk.sound.Beep();
    return;
  }
  Focus(fpSpread1);
  const auto above = static_cast<std::size_t>(at.row - 1);
  Put(at, ValueOf(sitting_->values().lines.at(above), *what));
}

void FrmWinter::CopyCells() {
  desk.clipboard.SetText(BlockText(fpSpread1.selection(), fpSpread1.text_of));
}

void FrmWinter::PasteCells() {
  if (!sitting_) return;
  Focus(fpSpread1);
  const CellBlock cells = CellsOf(desk.clipboard.Text());
  if (cells.empty()) {
    Tell("Το πρόχειρο είναι κενό");
    return;
  }
  const GridBlock target = fpSpread1.block();
  const int rows = fpSpread1.row_count();
  const auto thousands =
      AskWhatParts(bench, "Επικόλληση", PastedOnWinter(cells, target, rows), desk.separators);
  if (!thousands) return;
  const WinterPaste paste = PlanWinterPaste(cells, target, rows, desk.separators, *thousands);
  for (const auto& [place, number] : paste.cells) Put(place, number);
  if (!paste.refused.empty()) {
    bench.Ask(WinterPasteBox(paste.refused));
  } else if (paste.cells.empty()) {
    Tell("Οι τιμές μπαίνουν στα πράσινα κελλιά", Tone::kAlarm);
  }
}

void FrmWinter::DeleteCells() {
  for (int row = 0; row < fpSpread1.row_count(); ++row) {
    for (const WinterValue what : {WinterValue::kLength, WinterValue::kFlow, WinterValue::kDrop}) {
      const GridPlace place{row, WinterColumnOf(what)};
      if (fpSpread1.IsSelected(place)) Put(place, 0);
    }
  }
}

void FrmWinter::Calculate() {
  if (!sitting_ || !SummerIsBack()) return;
  refused_.reset();
  for (int row = 0; row < fpSpread1.row_count(); ++row) ShowRow(row);
  WinterOutcome outcome;
  const auto accept = [this](const WinterLine& line, float summer_flow_lh) {
    return bench.Ask(WinterFlowBox(line, summer_flow_lh)) == Answer::kYes;
  };
  const bool ran = Try([&] {
    const WaitShown wait(desk.navigator);
    outcome = sitting_->Run(accept);
  });
  if (ran) TellRun(outcome);
}

void FrmWinter::TellRun(const WinterOutcome& outcome) {
  switch (outcome.end) {
    case WinterEnd::kTemperature:
      TxtMeanT.refused = true;
      Focus(TxtMeanT);
      break;
    case WinterEnd::kBadValue:
      bench.Ask(WinterZeroBox(sitting_->values().lines.at(outcome.line).section, outcome.value));
      [[fallthrough]];
    case WinterEnd::kDeclined:
      Refuse({static_cast<int>(outcome.line), WinterColumnOf(outcome.value)});
      break;
    case WinterEnd::kCalculated:
      bench.Ask(WinterPumpBox(*sitting_->pump(), desk.separators));
      break;
    case WinterEnd::kRefused:
    case WinterEnd::kLost:
    case WinterEnd::kViscosity:
    case WinterEnd::kBrokenOff:
      break;
  }
}

void FrmWinter::Refuse(GridPlace place) {
  refused_ = place;
  ShowRow(place.row);
  fpSpread1.GoTo(place);
  Focus(fpSpread1);
}

void FrmWinter::ShowResults() {
  if (!sitting_ || !SummerIsBack()) return;
  if (!sitting_->pump()) {
    bench.Show(message::kNoResults);
    return;
  }
  if (!Try([this] { sitting_->duty().ShowResults(); })) return;
  ScreenState& screens = desk.screens;
  screens.WinterPump = true;
  screens.ResultsLeft = false;
  screens.results_begin = true;
  screens.results_view = ResultsView::kSheet;
  desk.navigator.Show(screen::kResultsSheet);
  if (desk.navigator.IsOpen(screen::kResultsSheet)) {
    desk.navigator.Hide(screen::kWinter);
  } else {
    SummerIsBack();
  }
}

void FrmWinter::Close() {
  if (!sitting_) {
    Leave();
    return;
  }
  if (!SummerIsBack()) return;
  WinterData data = WinterData::kKept;
  const bool ended = Try([&] {
    if (sitting_->HasChanged()) {
      const Answer answer = bench.Ask(KeepWinterBox(bench.study.unsaved_changes));
      if (answer != Answer::kYes && answer != Answer::kNo) return;
      if (answer == Answer::kNo) data = WinterData::kDropped;
    }
    sitting_->End(data);
    Leave();
  });
  static_cast<void>(ended);
}

void FrmWinter::Leave() {
  sitting_.reset();
  desk.navigator.Show(screen::kMain);
  desk.navigator.Close(screen::kWinter);
}

bool FrmWinter::MayClose() {
  Run(Cmd_Close);
  return false;
}

WinterValues FrmWinter::Typed() const {
  WinterValues values = sitting_->values();
  values.temperature = ToSingle(TxtMeanT.Number(desk.separators));
  const GridPlace at = fpSpread1.current();
  const auto what = WinterValueOf(at.column);
  if (fpSpread1.editing() && what) {
    ValueOf(values.lines.at(static_cast<std::size_t>(at.row)), *what) =
        ToSingle(ParseNumber(fpSpread1.editor.text, desk.separators));
  }
  return values;
}

bool FrmWinter::Keep(bool flush) {
  if (!sitting_ || sitting_->duty().shows_results()) return true;
  const Outcome kept = sitting_->Keep(Typed(), flush);
  if (!kept) Tell("Οι τιμές ΔΕΝ φυλάσσονται : " + kept.error().Line(), Tone::kAlarm);
  return kept.ok();
}

bool FrmWinter::Idle(double quiet_seconds) {
  if (!sitting_ || sitting_->duty().shows_results()) return false;
  const std::int64_t now = bench.workspace.Now();
  const auto flush =
      keeping_.Due(quiet_seconds, sitting_->WantsKeeping(Typed()), sitting_->WantsFlush(), now);
  if (!flush) return false;
  const KeepingTimes::News news = keeping_.Note(Keep(*flush), now);
  if (news == KeepingTimes::News::kKeptAgain) Tell("Οι τιμές φυλάσσονται και πάλι");
  return news != KeepingTimes::News::kNone;
}

void FrmWinter::Derive() {
  const GridPlace at = fpSpread1.current();
  LblGrid.text = std::string(kGridTitle) + " (" + std::to_string(at.row + 1) + " / " +
                 std::to_string(at.column + 1) + ")";
  if (told_selection_ != fpSpread1.selection_revision() && !keeping_.failed()) Tell("");
  if (!sitting_ || sitting_->duty().shows_results()) return;
  DerivePump();
  DeriveChart();
  DeriveSelection();
}

void FrmWinter::DerivePump() {
  const std::optional<SectionRow>& pump = sitting_->pump();
  const Separators separators = desk.separators;
  struct Pair {
    Label& summer;
    Label& winter;
    float of_summer;
    float of_winter;
    std::string_view pattern;
  };
  const Study& study = bench.study;
  const float head = pump ? ToSingle(pump->DP / 1000.0) : 0;
  const Pair pairs[] = {{LblFlowSummer, LblFlowWinter, study.TotalFlowM3h, pump ? pump->PAR : 0,
                         pattern::kTwoDecimals},
                        {LblHeadSummer, LblHeadWinter, study.PumpHead, head, pattern::kTwoDecimals},
                        {LblTempSummer, LblTempWinter, study.MeanTemp, pump ? pump->MeanTemp : 0,
                         pattern::kOneDecimal}};
  for (const Pair& pair : pairs) {
    pair.summer.text = FormatPattern(pair.of_summer, pair.pattern, separators) + (pump ? " →" : "");
    pair.winter.text = FormatPattern(pair.of_winter, pair.pattern, separators);
    pair.winter.visible = pump.has_value();
  }
  LblPump.visible = pump.has_value();
  LblVoid.visible = sitting_->is_void();
  if (!pump) return;
  LblPump.text = "Παροχή Κυκλοφορητή : " + LblFlowWinter.text +
                 " [m³/h] ...... Μανομετρικό Ύψος Κυκλοφορητή : " + LblHeadWinter.text +
                 " [m w.g.]";
}

void FrmWinter::DeriveChart() {
  Chart.columns.clear();
  double summer = 0;
  double winter = 0;
  double least = 0;
  double most = 0;
  for (std::size_t i = 0; i < sitting_->summer().size(); ++i) {
    const WinterColumn column{sitting_->summer()[i].flow_lh, sitting_->values().lines[i].flow_lh};
    Chart.columns.push_back(column);
    summer += column.summer;
    winter += column.winter;
    const double ratio = column.summer == 0 ? 0 : double{column.winter} / column.summer;
    least = i == 0 ? ratio : std::min(least, ratio);
    most = std::max(most, ratio);
  }
  const auto percent = [this](double ratio) {
    return FormatPattern(ratio * 100, "#,##0", desk.separators) + " %";
  };
  const std::string whole = percent(summer == 0 ? 0 : winter / summer) + " στο σύνολο";
  LblRatio.text = whole + " · περίγραμμα: θέρος";
  Chart.told = whole + ", χαμηλότερο " + percent(least) + ", υψηλότερο " + percent(most);
}

void FrmWinter::DeriveSelection() {
  const GridBlock& block = fpSpread1.block();
  LblLeft.text = "Ανω Στήλη  : " + std::to_string(block.left + 1);
  LblRight.text = "Κάτω Στήλη : " + std::to_string(block.right + 1);
  LblTop.text = "Άνω Σειρά  : " + std::to_string(block.top + 1);
  LblBottom.text = "Κάτω Σειρά : " + std::to_string(block.bottom + 1);
}

}  // namespace kalvo
