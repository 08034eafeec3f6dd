#include "results/frm_stat_s.h"

#include <algorithm>

#include "engine/trap.h"
#include "form/tell.h"
#include "results/quantities_table.h"
#include "study/numeric_text.h"
#include "study/pipe_list.h"

namespace kalvo {
namespace {

constexpr const char* kWarning = "...!! ΠΡΟΣΟΧΗ !!...";
constexpr const char* kUnknown = "—";

}  // namespace

FrmStatS::FrmStatS(Desk& shared_desk)
    : Form(shared_desk),
      CmdWater(*this, "CmdWater", " Ποσότητα Υγρού, στο ΣωληνοΔίκτυο ", [this] { ShowWater(); }),
      Cmd_Close(*this, "Cmd_Close", "Κλείσιμο Φόρμας",
                [this] { desk.navigator.Close(screen::kQuantities); }, {Plain(KeyCode::kEscape)}) {
  title = "Προμέτρηση Σωλήνων και Εξαρτημάτων";
  fpSpread1.row_noun = "Διάμετρος";
  fpSpread1.copies_heads = true;
  LblWater.visible = false;
  menus = {{"&Ενέργειες", {{"mnuActs_Close", Cmd_Close.caption, &Cmd_Close}}}};
}

void FrmStatS::Load() {
  LblThema.text = Trim(bench.study.study_title);
  LblMaterial.text = MaterialLine(bench.study.pipe_material);
  Show({});
  Focus(Cmd_Close);
  RunTrapped(bench, [this] {
    const auto quantities = Read();
    if (!quantities) {
      TellError(bench, quantities.error());
      return;
    }
    Show(*quantities);
    if (quantities->unread) TellError(bench, *quantities->unread);
  });
}

// While winter's results are looked at the network is that of summer, which the list belongs to.
Result<Quantities> FrmStatS::Read() const {
  const bool summer_aside =
      desk.screens.WinterPump && bench.workspace.HasBytes(work_file::kSummerRows);
  return ReadQuantities(bench.workspace, bench.study,
                        summer_aside ? work_file::kSummerRows : work_file::kRows);
}

void FrmStatS::Show(const Quantities& quantities) {
  lines_ = quantities.lines;
  if (!quantities.pipes.empty()) {
    const PipeRow& first = quantities.pipes.front();
    LblPipes.text = first.title.Utf8();
    LblMaterial.text = MaterialLine(first.material.Utf8());
  }
  LblRecount.text = quantities.RecountText();
  LblRecount.visible = !LblRecount.text.empty();
  LblEmpty.visible = lines_.empty();
  fpSpread1.visible = !lines_.empty();
  ShowQuantities(fpSpread1, quantities, desk.separators);
  ShowTotals();
}

void FrmStatS::ShowTotals() {
  double length = 0;
  double valves = 0;
  for (const StatRow& line : lines_) {
    length += line.Length;
    valves += line.GlobeV;
  }
  const bool known = !lines_.empty();
  LblUsed.text = known ? std::to_string(std::ranges::count_if(lines_, IsInUse)) : kUnknown;
  LblSizes.text = known ? "από " + std::to_string(lines_.size()) : "";
  LblLength.text = known ? FormatPattern(length, pattern::kOneDecimal, desk.separators) : kUnknown;
  LblValves.text = known ? FormatNumber(valves, desk.separators) : kUnknown;
}

void FrmStatS::ShowWater() {
  if (bench.study.SystemOpen()) {
    bench.Ask({kWarning,
               {"Αυτή η Επιλογή έχει νόημα μΟΝΟΝ για < Κλειστό > Σύστημα Σωλήνων"},
               box_style::kExclamation});
    return;
  }
  if (lines_.empty()) {
    bench.Ask({kWarning, {kNoQuantities}, box_style::kExclamation});
    return;
  }
  LblWater.text = WaterLine(WaterContent(lines_), desk.separators);
  LblWater.visible = true;
  bench.Ask(
      {" ... ΠΕΡΙΕΚΤΙΚΟΤΗΤΑ ΣΩΛΗΝΟΔΙΚΤΥΟΥ ΣΕ ΝΕΡΟ ...", {LblWater.text}, box_style::kInformation});
}

}  // namespace kalvo
