#include "results/change_strip.h"

#include <utility>

#include "engine/rerun.h"
#include "results/pump_frame.h"
#include "results/results_session.h"
#include "study/numeric_text.h"

namespace kalvo {
namespace {

using Rows = std::vector<SectionRow>;

int CountChanged(const Rows& rows, const Rows& first) {
  int changed = 0;
  for (std::size_t i = 0; i < rows.size() && i < first.size(); ++i) {
    if (rows[i].NomiDiam.Trimmed() != first[i].NomiDiam.Trimmed()) ++changed;
  }
  return changed;
}

std::string CountText(int changed) {
  if (changed == 0) return "Οι διάμετροι είναι όπως στο άνοιγμα";
  if (changed == 1) return "Μία διάμετρος άλλαξε από το άνοιγμα";
  return std::to_string(changed) + " διάμετροι άλλαξαν από το άνοιγμα";
}

}  // namespace

ChangeStrip::ChangeStrip(Form& form, Desk& desk, std::function<bool()> may_compare)
    : CmdUndo(form, "CmdUndo", "Αναίρεση", [this] { Make(HistoryStep::kUndo); }, {Ctrl('Z')}),
      CmdRedo(form, "CmdRedo", "Ξανά", [this] { Make(HistoryStep::kRedo); }, {Ctrl('Y')}),
      CmdCompare(form, "CmdCompare", "Σύγκριση", [this] { Compare(); }),
      LblChanges(form, "LblChanges"),
      CmdUndoHere(form, "CmdUndoHere", CmdUndo.caption, CmdUndo.action),
      CmdCompareHere(form, "CmdCompareHere", CmdCompare.caption, CmdCompare.action),
      desk_(desk),
      may_compare_(std::move(may_compare)) {
  CmdUndoHere.hint = CmdUndo.Hint();
  LblChanges.visible = CmdUndoHere.visible = CmdCompareHere.visible = false;
}

void ChangeStrip::Take(const Rows& rows, const std::optional<Rows>& first) {
  const bool begun = HasStep(desk_, HistoryStep::kUndo) || HasStep(desk_, HistoryStep::kRedo);
  const int changed = first ? CountChanged(rows, *first) : 0;
  if (rows.empty() || !first || first->empty() || (!begun && changed == 0)) {
    LblChanges.visible = CmdUndoHere.visible = CmdCompareHere.visible = false;
    return;
  }
  if (desk_.bench.study.recalculation_needed) {
    Show(kNoResults, Tone::kAlarm);
    return;
  }
  const auto waits = ChangeWaits(desk_.bench.workspace);
  if (waits && *waits) {
    Show(CountText(changed) + " : αναμένει υπολογισμό");
    return;
  }
  const auto head = [this](const Rows& of) {
    return FormatPattern(HeadOf(of.front().DP), pattern::kTwoDecimals, desk_.separators);
  };
  const std::string before = head(*first);
  const std::string now = head(rows);
  Show(CountText(changed) + " : μανομετρικό " + (before == now ? "" : before + " → ") + now +
       " m w.g.");
}

void ChangeStrip::Refresh() {
  const auto rows = desk_.bench.workspace.Rows().ReadAll();
  const auto first = desk_.bench.workspace.Rows(work_file::kFirstRows).ReadAll();
  Take(rows ? *rows : Rows{}, first ? std::optional(*first) : std::nullopt);
}

void ChangeStrip::Show(std::string text, Tone tone) {
  LblChanges.text = std::move(text);
  LblChanges.tone = tone;
  LblChanges.visible = CmdUndoHere.visible = CmdCompareHere.visible = true;
}

void ChangeStrip::Make(HistoryStep step) {
  if (!HasStep(desk_, step)) {
    Show(step == HistoryStep::kUndo ? kNothingToUndo : kNothingToRedo, Tone::kAlarm);
    desk_.sound.Beep();
    return;
  }
  StepInResults(desk_, step);
}

void ChangeStrip::Compare() {
  if (may_compare_()) desk_.navigator.ShowModal(screen::kComparison);
}

}  // namespace kalvo
