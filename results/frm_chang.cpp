#include "results/frm_chang.h"

#include <algorithm>
#include <cmath>

#include "engine/rerun.h"
#include "form/tell.h"
#include "form/wait.h"
#include "results/critical_sections.h"
#include "results/diameter_roads.h"
#include "results/diameter_view.h"
#include "results/library_pipes.h"
#include "results/results_session.h"
#include "study/by_number.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

enum ManyColumn { kNumberColumn, kNameColumn, kNominalColumn, kInnerColumn };

constexpr int kLeastSections = 21;
constexpr int kLeastPipes = 22;
constexpr std::size_t kNumberPlaces = 3;
constexpr std::size_t kVelocityBytes = 8;
constexpr int kOnBranch = 0;
constexpr int kAbove = 0;

constexpr const char* kCalculatedAtBack = "που γίνεται με την επιστροφή.";
constexpr const char* kCalculatedLater = "που θα ζητηθεί με την επόμενη εντολή των αποτελεσμάτων.";

std::vector<GridColumn> SectionColumns() {
  return {{.header = "α/α", .width = 5, .marks = true},
          {.header = "ΟΝΟΜΑΣΙΑ", .width = 9, .number = false, .names = true},
          {.header = "ΟΝΟΜΑΣΤΙΚΗ", .width = 13, .number = false, .chips = true, .centred = true},
          CentredColumn("ΕΣΩΤΕΡΙΚΗ\n[mm]", 10)};
}

// "  7."
std::string PaddedNumber(int number) {
  std::string text = std::to_string(number);
  if (text.size() < kNumberPlaces) text.insert(0, kNumberPlaces - text.size(), ' ');
  return text + ".";
}

// "5 τμήματα", "1 τμήμα"
std::string Counted(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " τμήμα" : " τμήματα");
}

// Keeps the entry that was selected where it is still there, else its place.
void Offer(Choice& choice, std::vector<std::string> entries) {
  const auto at = static_cast<std::size_t>(choice.selected);
  const std::string before = at < choice.entries.size() ? choice.entries[at] : "";
  choice.entries = std::move(entries);
  const auto found = std::ranges::find(choice.entries, before);
  const auto last = static_cast<int>(choice.entries.size()) - 1;
  choice.selected = found == choice.entries.end()
                        ? std::min(std::max(choice.selected, 0), last)
                        : static_cast<int>(found - choice.entries.begin());
}

// Numbers of the sections whose diameters differ.
std::vector<int> Differing(const std::vector<SectionRow>& before,
                           const std::vector<SectionRow>& after) {
  std::vector<int> sections;
  for (std::size_t i = 0; i < after.size() && i < before.size(); ++i) {
    if (after[i].NomiDiam != before[i].NomiDiam) sections.push_back(static_cast<int>(i) + 1);
  }
  return sections;
}

}  // namespace

FrmChang::FrmChang(Desk& shared_desk)
    : Form(shared_desk),
      CmdDiameter(*this, "CmdDiameter", "Πρόσθεση", [this] { Add(OfDiameter()); }),
      CmdBranch(*this, "CmdBranch", "Πρόσθεση", [this] { Add(OfBranch()); }),
      CmdWay(*this, "CmdWay", "Πρόσθεση", [this] { Add(OfWay()); }),
      CmdVelocity(*this, "CmdVelocity", "Πρόσθεση", [this] { Add(OfVelocity()); }),
      CmdNone(*this, "CmdNone", "Καμία επιλογή", [this] { fpSpread1.TakeSelection({}); }),
      CmdBack(*this, "CmdBack", "Επιστροφή στα Αποτελέσματα", [this] { Back(); },
              {Plain(KeyCode::kEscape)}),
      CmdUndo(*this, "CmdUndo", "Αναίρεση", [this] { Take(HistoryStep::kUndo); }, {Ctrl('Z')}),
      CmdRedo(*this, "CmdRedo", "Ξανά", [this] { Take(HistoryStep::kRedo); }, {Ctrl('Y')}),
      CmdChange(*this, "CmdChange", "Αντικατάσταση των Διαμέτρων", [this] { Change(); },
                {Ctrl(KeyCode::kEnter)}) {
  title = "Αλλαγή Διαμέτρων Σωλήνων";
  fpSpread1.row_noun = "Τμήμα";
  fpSpread1.mark_name = "δυσμενέστερος κλάδος";
  fpSpread1.selects_rows = true;
  fpSpread1.on_select = [this] { ForgetLast(); };
  fpSpread2.row_noun = "Διάμετρος";
  fpSpread2.sortable = false;
  fpSpread2.on_move = [this] { ForgetLast(); };
  fpSpread2.on_activate = [this] { Run(CmdChange); };
  CmdDiameter.spoken = "Πρόσθεση τμημάτων με την παρούσα διάμετρο";
  CmdBranch.spoken = "Πρόσθεση τμημάτων του κλάδου";
  CmdWay.spoken = "Πρόσθεση τμημάτων της διαδρομής";
  CmdVelocity.spoken = "Πρόσθεση τμημάτων με την ταχύτητα";
  CmdBack.leaves_freely = true;
  CboBranch.entries = {"στον δυσμενέστερο κλάδο", "εκτός δυσμενέστερου κλάδου"};
  CboVelocity.entries = {"πάνω από", "κάτω από"};
  CboBranch.selected = CboVelocity.selected = 0;
  for (Choice* choice : {&CboDiameter, &CboBranch, &CboWay, &CboVelocity}) {
    choice->on_select = [this] { CountPicks(); };
  }
  TxtVelocity.max_bytes = kVelocityBytes;
  TxtVelocity.on_change = [this] { CountPicks(); };
  TxtVelocity.on_enter = [this] { Run(CmdVelocity); };
  LblHint.tone = Tone::kAlarm;
  menus = {{"&Ενέργειες",
            {{"mnuActs_Change", CmdChange.caption, &CmdChange},
             {},
             {"mnuActs_Undo", CmdUndo.caption, &CmdUndo},
             {"mnuActs_Redo", CmdRedo.caption, &CmdRedo},
             {},
             {"mnuActs_Back", CmdBack.caption, &CmdBack}}}};
}

void FrmChang::Load() {
  const Study& study = bench.study;
  LblThema.text = Trim(study.study_title);
  LblWayHead.text = study.SystemOpen() ? "Διαδρομή ενός υποδοχέα" : "Διαδρομή ενός σώματος";
  calculates_at_back_ = bench.workspace.HasBytes(work_file::kPreviousRows);
  TxtVelocity.ShowNumber(study.MeanVel, pattern::kTwoDecimals, desk.separators);
  auto pipes = ReadPipeSystem(bench.workspace, study.pipe_system_number);
  if (!pipes) TellError(bench, pipes.error());
  ShowLibrary(pipes ? *std::move(pipes) : std::vector<PipeRow>());
  ReadSections();
  opened_ = rows_;
  ShowSections();
  if (desk.screens.diameter_view != nullptr) {
    fpSpread1.SetCurrent({desk.screens.diameter_view->number() - 1, kNameColumn});
  }
  Focus(fpSpread1);
}

void FrmChang::ShowLibrary(std::vector<PipeRow> pipes) {
  pipes_ = std::move(pipes);
  const auto count = static_cast<int>(pipes_.size());
  const int rows = std::max(count, kLeastPipes);
  fpSpread2.Reset({CentredColumn("ΟΝΟΜΑΣΤΙΚΗ", 15), CentredColumn("ΕΣΩΤΕΡΙΚΗ\n[mm]", 11)}, rows,
                  rows - count);
  ShowPipes(fpSpread2, pipes_, desk.separators);
  fpSpread2.ClearCurrent();
}

bool FrmChang::ReadSections() {
  auto rows = TakeResultRows(bench);
  if (!rows) {
    TellError(bench, rows.error());
    return false;
  }
  rows_ = *std::move(rows);
  waiting_ = WaitingRows(bench.workspace, rows_);
  return true;
}

void FrmChang::ShowSections() {
  const auto count = static_cast<int>(rows_.size());
  const int rows = std::max(count, kLeastSections);
  const bool fits = fpSpread1.row_count() == rows &&
                    (count == 0 || !fpSpread1.IsBlank(count - 1)) &&
                    (count == rows || fpSpread1.IsBlank(count));
  if (!fits || fpSpread1.column_count() == 0) {
    fpSpread1.Reset(SectionColumns(), rows, rows - count);
  }
  for (int row = 0; row < count; ++row) {
    fpSpread1.Mark(row, false);
    ShowSection(row);
  }
  for (const int section : CriticalSections(bench.study.critical_branch, rows_.size())) {
    fpSpread1.Mark(section - 1, true);
  }
  picks_ = SectionPicks(bench.study.system_kind, rows_, bench.study.critical_branch);
  OfferPicks();
}

void FrmChang::ShowSection(int row) {
  const int number = row + 1;
  const SectionRow& section = ByNumber(rows_, number);
  const double inner = std::fabs(section.InDiameter);
  const bool waits = waiting_[static_cast<std::size_t>(row)];
  fpSpread1.Set(row, kNumberColumn, {.text = PaddedNumber(number), .value = number});
  fpSpread1.Set(row, kNameColumn, {section.Name.Utf8()});
  fpSpread1.Set(row, kNominalColumn,
                {.text = section.NomiDiam.Utf8(),
                 .tone = waits ? Tone::kWaiting : Tone::kPlain,
                 .value = inner,
                 .tip = waits ? "αναμένει υπολογισμό" : ""});
  // One that was replaced here shows what is stored, with its sign.
  const bool replaced = replaced_.contains(number);
  std::string text = replaced ? BracketedDiameter(section.InDiameter, desk.separators).substr(1)
                              : BracketedDiameter(std::fabs(section.InDiameter), desk.separators);
  fpSpread1.Set(row, kInnerColumn, {.text = std::move(text), .value = inner, .left = replaced});
}

void FrmChang::OfferPicks() {
  Offer(CboDiameter, picks_.Diameters());
  emitters_ = picks_.Emitters();
  std::vector<std::string> ways;
  for (const int section : emitters_) {
    ways.push_back("τμήμα " + std::to_string(section) + " · " +
                   ByNumber(rows_, section).Name.Utf8());
  }
  Offer(CboWay, std::move(ways));
  CountPicks();
}

void FrmChang::CountPicks() {
  LblHint.text.clear();
  LblDiameter.text = Counted(OfDiameter().size());
  LblBranch.text = Counted(OfBranch().size());
  LblWay.text = Counted(OfWay().size());
  LblVelocity.text = Counted(OfVelocity().size());
}

FrmChang::Sections FrmChang::OfDiameter() const {
  const auto at = static_cast<std::size_t>(CboDiameter.selected);
  return at < CboDiameter.entries.size() ? picks_.WithDiameter(CboDiameter.entries[at])
                                         : Sections();
}

FrmChang::Sections FrmChang::OfBranch() const {
  return CboBranch.selected == kOnBranch ? picks_.OnCriticalBranch() : picks_.OffCriticalBranch();
}

FrmChang::Sections FrmChang::OfWay() const {
  const auto at = static_cast<std::size_t>(CboWay.selected);
  return at < emitters_.size() ? picks_.AlongWayOf(emitters_[at]) : Sections();
}

FrmChang::Sections FrmChang::OfVelocity() const {
  const bool one_number = CountDecimalSeparators(TxtVelocity.text, desk.separators) <= 1;
  if (TxtVelocity.Trimmed().empty() || !one_number) return {};
  // A value that is shown is a single one, as those of the rows are.
  const double velocity = ThroughText(static_cast<float>(TxtVelocity.Number(desk.separators)));
  return CboVelocity.selected == kAbove ? picks_.FasterThan(velocity) : picks_.SlowerThan(velocity);
}

void FrmChang::ForgetLast() {
  LblHint.text.clear();
  last_change_.clear();
}

void FrmChang::Add(const Sections& sections) {
  ForgetLast();
  for (const int section : sections) fpSpread1.Select(section - 1, true);
  if (!sections.empty()) fpSpread1.SetCurrent({sections.front() - 1, kNameColumn});
  if (sections.empty()) Refuse("Κανένα τμήμα δεν είναι έτσι, η επιλογή μένει όπως ήταν.");
}

FrmChang::Sections FrmChang::Selected() const {
  Sections sections = fpSpread1.SelectedRows();
  for (int& section : sections) ++section;
  return sections;
}

const PipeRow* FrmChang::Pipe() const {
  const auto at = static_cast<std::size_t>(fpSpread2.current().row);
  return at < pipes_.size() ? &pipes_[at] : nullptr;
}

void FrmChang::Derive() {
  const std::size_t selected = Selected().size();
  LblSelected.text = std::to_string(selected) +
                     (selected == 1 ? " επιλεγμένο από " : " επιλεγμένα από ") +
                     std::to_string(rows_.size());
  LblHint.visible = !LblHint.text.empty();
  ShowEffect();
  CmdChange.described = LblEffect.text + ". " + LblRest.text;
}

void FrmChang::ShowEffect() {
  const Sections selected = Selected();
  const PipeRow* pipe = Pipe();
  int having = 0;
  if (selected.empty()) {
    LblEffect.text = "Επιλέξτε τα τμήματα που αλλάζουν";
  } else if (pipe == nullptr) {
    LblEffect.text = "Επιλέξτε τη νέα διάμετρο";
  } else {
    const auto has = [&](int section) { return BearsDiameter(*pipe, ByNumber(rows_, section)); };
    having = static_cast<int>(std::ranges::count_if(selected, has));
    const std::size_t getting = selected.size() - static_cast<std::size_t>(having);
    LblEffect.text = getting == 0
                         ? (last_change_.empty() ? "Κανένα τμήμα δεν αλλάζει" : last_change_)
                         : Counted(getting) + (getting == 1 ? " θα γίνει " : " θα γίνουν ") +
                               pipe->nominal_diameter.Utf8();
  }
  LblRest.text = RestText(having);
}

std::string FrmChang::RestText(int having) const {
  std::string text;
  if (having > 0) {
    text = std::to_string(having) + (having == 1 ? " την έχει ήδη" : " την έχουν ήδη") + " · ";
  }
  const bool any_selected = !fpSpread1.SelectedRows().empty();
  int others = 0;
  for (std::size_t i = 0; i < waiting_.size(); ++i) {
    if (waiting_[i] && !fpSpread1.IsSelected(static_cast<int>(i))) ++others;
  }
  const std::string when = calculates_at_back_ ? kCalculatedAtBack : kCalculatedLater;
  if (others == 0) return text + "Ο υπολογισμός " + when.substr(std::string("που ").size());
  const char* noun =
      any_selected ? (others == 1 ? " άλλο" : " άλλα") : (others == 1 ? " τμήμα" : " τμήματα");
  return text + std::to_string(others) + noun + (others == 1 ? " αναμένει" : " αναμένουν") +
         " υπολογισμό, " + when;
}

void FrmChang::Refuse(std::string_view why) {
  LblHint.text = why;
  desk.sound.Beep();
}

void FrmChang::Change() {
  const Sections selected = Selected();
  if (selected.empty()) {
    Refuse("Επιλέξτε τα τμήματα που θα πάρουν τη διάμετρο.");
    return;
  }
  PipeChoice choice = ChoosePipe(bench, pipes_, fpSpread2.current().row);
  if (choice.changed_library) ShowLibrary(*std::move(choice.changed_library));
  if (!choice.refusal.empty()) Refuse(choice.refusal);
  if (choice.pipe) MakeChange(desk, [&] { Replace({selected, *choice.pipe}); });
}

void FrmChang::Take(HistoryStep step) {
  if (!HasStep(desk, step)) {
    Refuse(step == HistoryStep::kUndo ? kNothingToUndo : kNothingToRedo);
    return;
  }
  const std::vector<SectionRow> before = rows_;
  ForgetLast();
  if (!TakeStep(desk, step) || !ReadSections()) return;
  const Sections changed = Differing(before, rows_);
  replaced_.insert(changed.begin(), changed.end());
  const Sections still = Differing(opened_, rows_);
  std::erase_if(replaced_, [&](int section) {
    return std::ranges::count(changed, section) != 0 && std::ranges::count(still, section) == 0;
  });
  ShowSections();
}

void FrmChang::Replace(const DiameterChange& change) {
  const WaitShown wait(desk.navigator);
  LblHint.text.clear();
  const std::vector<SectionRow> before = rows_;
  const auto replaced = ReplaceDiameters(bench, change);
  if (!replaced) {
    TellError(bench, replaced.error());
    return;
  }
  if (!ReadSections()) return;
  const Sections changed = Differing(before, rows_);
  replaced_.insert(changed.begin(), changed.end());
  ShowSections();
  last_change_ = Counted(changed.size()) + (changed.size() == 1 ? " έγινε " : " έγιναν ") +
                 change.pipe.nominal_diameter.Utf8();
}

void FrmChang::Back() {
  const auto ran = [this] {
    const WaitShown wait(desk.navigator);
    return RerunIfChanged(bench);
  }();
  if (!ran) TellError(bench, ran.error());
  if (ran && *ran) CloseOtherView(desk);
  RefreshView();
  desk.navigator.Close(screen::kManyDiameters);
}

void FrmChang::RefreshView() {
  DiameterView* view = desk.screens.diameter_view;
  if (view == nullptr) return;
  view->ShowAgain();
  const auto rows = bench.workspace.Rows().ReadAll();
  const int number = view->number();
  if (!rows || number < 1 || number > static_cast<int>(rows->size())) return;
  if (WaitingRows(bench.workspace, *rows)[static_cast<std::size_t>(number) - 1]) {
    view->ShowReplaced(ByNumber(*rows, number), true);
  }
}

bool FrmChang::MayClose() {
  Run(CmdBack);
  return false;
}

bool FrmChang::FirstKey(const Key& key) {
  if (key != Plain(KeyCode::kF6)) return false;
  GoRound();
  return true;
}

// From card to card: sections, sizes, picks.
void FrmChang::GoRound() {
  Control* next = &fpSpread1;
  if (focus() == &fpSpread1) next = &fpSpread2;
  if (focus() == &fpSpread2) next = &CboDiameter;
  if (MoveFocus(next)) Focus(*next);
}

}  // namespace kalvo
