#include "results/frm_compare.h"

#include <algorithm>

#include "results/compare_with_first.h"
#include "results/comparison_text.h"
#include "results/critical_sections.h"
#include "results/diameter_view.h"
#include "results/results_session.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

enum Column {
  kName,
  kDiameterBefore,
  kDiameterAfter,
  kVelocityBefore,
  kVelocityAfter,
  kDropBefore,
  kDropAfter,
  kDropChange,
  kPressureBefore,
  kPressureAfter,
  kPressureChange,
};

constexpr const char* kSameValue = "ίδια";
constexpr const char* kNotKnown = "—";
constexpr const char* kAllSame = "Κανένα τμήμα δεν διαφέρει από το άνοιγμα των αποτελεσμάτων.";
constexpr const char* kNoComparison = "Η σύγκριση ΔΕΝ μπορεί να γίνει.";

std::vector<GridColumn> ComparisonColumns() {
  const auto column = [](const char* header, int width, bool closes_family) {
    return GridColumn{.header = header, .width = width, .closes_family = closes_family};
  };
  std::vector<GridColumn> columns = {
      {.header = "ΟΝΟΜΑ-\nΣΙΑ", .width = 8, .number = false, .closes_family = true},
      column("ΔΙΑΜΕΤΡΟΣ\nπριν", 9, false),
      column("ΔΙΑΜΕΤΡΟΣ\nμετά", 10, true),
      column("ΤΑΧΥΤΗΤΑ\nπριν\n[m/sec]", 8, false),
      column("ΤΑΧΥΤΗΤΑ\nμετά\n[m/sec]", 8, true),
      column("ΠΤΩΣΗ\nπριν\n[mm w.g.]", 9, false),
      column("ΠΤΩΣΗ\nμετά\n[mm w.g.]", 9, false),
      column("ΔΙΑΦΟΡΑ\nπτώσης\n[mm w.g.]", 10, true),
      column("ΔΙΑΘΕΣΙΜΗ\nπριν\n[mm w.g.]", 10, false),
      column("ΔΙΑΘΕΣΙΜΗ\nμετά\n[mm w.g.]", 10, false),
      column("ΔΙΑΦΟΡΑ\nδιαθέσιμης\n[mm w.g.]", 11, false)};
  columns[kDiameterAfter].chips = true;
  return columns;
}

// Places in `sections` of those that are not in `others`.
std::vector<int> Unshared(const std::vector<int>& sections, const std::vector<int>& others) {
  std::vector<int> places;
  for (std::size_t i = 0; i < sections.size(); ++i) {
    if (std::ranges::count(others, sections[i]) == 0) places.push_back(static_cast<int>(i));
  }
  return places;
}

// The triangle says which way it goes.
std::string WithTriangle(const ComparedText& text) {
  if (text.difference.empty()) return {};
  return std::string(text.falls ? "▼" : "▲") + " : " + text.difference;
}

void SetPair(Grid& grid, int at, Column before, const ComparedText& text, BeforeAfter<float> pair) {
  const bool same = text.difference.empty();
  grid.Set(at, before, {same ? "" : text.before, Tone::kQuiet, pair.before});
  grid.Set(at, before + 1, {text.after, Tone::kPlain, pair.after});
}

void SetChange(Grid& grid, int at, Column column, const ComparedText& text, BeforeAfter<float> pair,
               bool less_is_better) {
  const Tone tone = less_is_better && text.falls ? Tone::kGood : Tone::kPlain;
  grid.Set(at, column, {WithTriangle(text), tone, pair.after - pair.before});
}

std::string CountText(int count, const char* one, const char* more) {
  return count == 1 ? one : std::to_string(count) + more;
}

}  // namespace

FrmCompare::FrmCompare(Desk& shared_desk)
    : Form(shared_desk),
      CmdClose(*this, "CmdClose", "Επιστροφή",
               [this] { desk.navigator.Close(screen::kComparison); }, {Plain(KeyCode::kEscape)}),
      CmdCopy(*this, "CmdCopy", "Αντιγραφή", [this] { Copy(); }, {Ctrl('C')}),
      CmdUndo(*this, "CmdUndo", "Αναίρεση", [this] { Take(HistoryStep::kUndo); }, {Ctrl('Z')}),
      CmdRedo(*this, "CmdRedo", "Ξανά", [this] { Take(HistoryStep::kRedo); }, {Ctrl('Y')}) {
  title = "Σύγκριση : πριν και μετά την αλλαγή διαμέτρων";
  ChkOnlyDiameters.on_toggle = [this] { ShowSections(); };
  fpSpread1.row_noun = "Τμήμα";
  fpSpread1.mark_name = "δυσμενέστερος κλάδος μετά";
  fpSpread1.on_activate = [this] { GoToSection(); };
}

void FrmCompare::Load() {
  LblThema.text = Trim(bench.study.study_title);
  Show();
  Focus(fpSpread1);
}

void FrmCompare::Show() {
  comparison_.reset();
  if (!bench.study.recalculation_needed) comparison_ = CompareWithFirst(desk);
  const auto rows = bench.workspace.Rows().ReadAll();
  rows_ = rows ? *rows : std::vector<SectionRow>{};
  ShowPump();
  ShowBranch();
  ShowSections();
}

void FrmCompare::ShowPump() {
  for (Label* label : {&LblFluidName, &LblFluidBefore, &LblFluidArrow, &LblFluidAfter,
                       &LblFluidUnit, &LblFluidChange}) {
    label->visible = bench.study.SystemClosed();
  }
  if (!comparison_) {
    for (Label* label : {&LblHeadBefore, &LblHeadAfter, &LblFlowBefore, &LblFlowAfter,
                         &LblFluidBefore, &LblFluidAfter}) {
      label->text = kNotKnown;
    }
    for (Label* label : {&LblHeadChange, &LblFlowChange, &LblFluidChange}) label->text.clear();
    BarsHead.before = BarsHead.after = 0;
    BarsHead.told.clear();
    return;
  }
  const ResultComparison& comparison = *comparison_;
  const auto show = [this](const auto& pair, std::string_view pattern, Label& before,
                           Label& after) {
    ComparedText text = TextOf(pair, pattern, desk.separators);
    before.text = text.before;
    after.text = text.after;
    return text;
  };
  const auto head = RoundedHead(comparison);
  const auto head_text = show(head, pattern::kTwoDecimals, LblHeadBefore, LblHeadAfter);
  LblHeadChange.text = HeadDifference(head, desk.separators);
  LblHeadChange.tone = head.after < head.before ? Tone::kGood : Tone::kPlain;
  BarsHead.before = head.before;
  BarsHead.after = head.after;
  BarsHead.told = "Μανομετρικό πριν " + head_text.before + ", μετά " + head_text.after + " m w.g.";
  const auto flow = show(comparison.flow, pattern::kTwoDecimals, LblFlowBefore, LblFlowAfter);
  LblFlowChange.text = flow.difference.empty() ? kSameValue : flow.difference + " m³/h";
  const auto fluid = show(Litres(comparison), pattern::kOneDecimal, LblFluidBefore, LblFluidAfter);
  LblFluidChange.text = fluid.difference.empty() ? "ίδιο" : fluid.difference + " Lit";
}

void FrmCompare::ShowBranch() {
  const auto branch = comparison_ ? comparison_->critical_branch : BeforeAfter<std::string>{};
  const auto before = CriticalSections(branch.before, rows_.size());
  const auto after = CriticalSections(branch.after, rows_.size());
  const bool same = before == after;
  const auto kind = bench.study.system_kind;
  LblBranch.text = same ? BranchLine(NodesAlong(kind, rows_, after)) : "";
  LblBranchSame.text = same ? "ο ίδιος κλάδος" : "άλλος κλάδος";
  LblBranchDrop.text = "";
  if (comparison_) {
    const auto text = TextOf(BranchDrop(*comparison_), pattern::kOneDecimal, desk.separators);
    LblBranchDrop.text =
        (text.difference.empty() ? text.after : text.before + " → " + text.after) + " mm w.g.";
  }
  const auto draw = [&](Chain& chain, const char* caption, const std::vector<int>& sections,
                        const std::vector<int>& others) {
    chain.visible = !same;
    chain.caption = caption;
    chain.nodes = NodesAlong(kind, rows_, sections);
    chain.strong = Unshared(sections, others);
  };
  draw(ChainBefore, "πριν", before, after);
  draw(ChainAfter, "μετά", after, before);
}

void FrmCompare::ShowSections() {
  shown_.clear();
  const int all = static_cast<int>(rows_.size());
  if (comparison_) {
    for (const ChangedSection& section : comparison_->sections) {
      if (!ChkOnlyDiameters.on || section.diameter.Differs()) shown_.push_back(&section);
    }
  }
  const int differing = comparison_ ? static_cast<int>(comparison_->sections.size()) : 0;
  const int diameters = comparison_ ? CountNewDiameters(*comparison_) : 0;
  LblSections.text = std::to_string(differing) + " από " + std::to_string(all);
  LblDiameters.text = CountText(diameters, "μία νέα διάμετρος", " νέες διάμετροι");
  LblSame.text = comparison_ ? kAllSame : kNoComparison;
  LblSame.visible = differing == 0;
  fpSpread1.visible = differing != 0;
  fpSpread1.Reset(ComparisonColumns(), static_cast<int>(shown_.size()));
  for (std::size_t i = 0; i < shown_.size(); ++i) FillRow(static_cast<int>(i), *shown_[i]);
  const auto branch = comparison_ ? comparison_->critical_branch.after : std::string();
  for (const int critical : CriticalSections(branch, rows_.size())) {
    const auto found = std::ranges::find(shown_, critical, &ChangedSection::number);
    if (found != shown_.end()) fpSpread1.Mark(static_cast<int>(found - shown_.begin()), true);
  }
}

void FrmCompare::FillRow(int at, const ChangedSection& section) {
  fpSpread1.SetNumber(at, section.number);
  fpSpread1.Set(at, kName, {section.name});
  const bool other = section.diameter.Differs();
  fpSpread1.Set(at, kDiameterBefore, {other ? section.diameter.before : "", Tone::kQuiet});
  fpSpread1.Set(at, kDiameterAfter,
                {section.diameter.after, other ? Tone::kImposed : Tone::kPlain});
  const Separators separators = desk.separators;
  const BeforeAfter<float> pressure = ShownPressure(section);
  const auto drop_text = TextOf(section.drop, pattern::kOneDecimal, separators);
  const auto pressure_text = TextOf(pressure, pattern::kOneDecimal, separators);
  SetPair(fpSpread1, at, kVelocityBefore,
          TextOf(section.velocity, pattern::kTwoDecimals, separators), section.velocity);
  SetPair(fpSpread1, at, kDropBefore, drop_text, section.drop);
  SetChange(fpSpread1, at, kDropChange, drop_text, section.drop, true);
  SetPair(fpSpread1, at, kPressureBefore, pressure_text, pressure);
  SetChange(fpSpread1, at, kPressureChange, pressure_text, pressure, false);
}

void FrmCompare::GoToSection() {
  const int row = fpSpread1.current().row;
  if (row < 0 || row >= std::ssize(shown_)) return;
  const int number = shown_[static_cast<std::size_t>(row)]->number;
  desk.navigator.Close(screen::kComparison);
  if (desk.screens.diameter_view == nullptr) return;
  desk.screens.diameter_view->GoTo(number);
  desk.screens.diameter_view->BringToFront();
}

void FrmCompare::Copy() {
  std::string text = "α/α";
  for (const GridColumn& column : fpSpread1.columns()) {
    std::string head = column.header;
    std::ranges::replace(head, '\n', ' ');
    text += '\t' + head;
  }
  for (const int row : fpSpread1.order()) {
    const ChangedSection& section = *shown_[static_cast<std::size_t>(row)];
    text += '\n' + std::to_string(section.number) + '\t' + section.name + '\t' +
            section.diameter.before + '\t' + section.diameter.after;
    const auto append = [&](const BeforeAfter<float>& pair, std::string_view pattern,
                            bool difference) {
      const auto pair_text = TextOf(pair, pattern, desk.separators);
      text += '\t' + pair_text.before + '\t' + pair_text.after;
      if (difference) text += '\t' + pair_text.difference;
    };
    append(section.velocity, pattern::kTwoDecimals, false);
    append(section.drop, pattern::kOneDecimal, true);
    append(ShownPressure(section), pattern::kOneDecimal, true);
  }
  desk.clipboard.SetText(text);
}

void FrmCompare::Take(HistoryStep step) {
  if (!HasStep(desk, step)) {
    desk.sound.Beep();
    return;
  }
  StepInResults(desk, step);
  const auto ran = RerunWaitingChange(desk);  // nothing that waits is compared
  if (ran && *ran && desk.screens.diameter_view != nullptr) {
    desk.screens.diameter_view->ShowAgain();
  }
  Show();
}

}  // namespace kalvo
