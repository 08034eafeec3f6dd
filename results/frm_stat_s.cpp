#include "results/frm_stat_s.h"

#include <algorithm>

#include "engine/trap.h"
#include "form/tell.h"
#include "results/designer/designer_lock.h"
#include "results/printing/make_report.h"
#include "results/printing/print_study.h"
#include "results/printing/program_route.h"
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
      CmdPdf(*this, "CmdPdf", "Αποθήκευση ως PDF", [this] { Save(ReportMode::kPdf); },
             {CtrlShift('S')}),
      CmdSave(*this, "CmdSave", "Δημιουργία Αρχείου", [this] { Save(ReportMode::kSave); }),
      Cmd_Close(*this, "Cmd_Close", "Κλείσιμο Φόρμας",
                [this] { desk.navigator.Close(screen::kQuantities); }, {Plain(KeyCode::kEscape)}),
      CmdPreview(*this, "CmdPreview", "Προεπισκόπηση της Εκτύπωσης (Preview)",
                 [this] { Preview(); }, {CtrlShift('P')}),
      CmdOK(*this, "CmdOK", "Εκτύπωση και Επιστροφή", [this] { Print(); }, {Ctrl('P')}) {
  title = "Προμέτρηση Σωλήνων και Εξαρτημάτων";
  fpSpread1.row_noun = "Διάμετρος";
  fpSpread1.copies_heads = true;
  LblWater.visible = false;
  Chk_XL.on = true;
  menus = {{"&Ενέργειες",
            {{"mnuActs_Print", CmdOK.caption, &CmdOK},
             {"mnuActs_Preview", CmdPreview.caption, &CmdPreview},
             {"mnuActs_Pdf", CmdPdf.caption, &CmdPdf},
             {"mnuActs_Save", CmdSave.caption, &CmdSave},
             {},
             {"mnuActs_Close", Cmd_Close.caption, &Cmd_Close}}}};
}

void FrmStatS::Load() {
  LblThema.text = Trim(bench.study.study_title);
  LblMaterial.text = MaterialLine(bench.study.pipe_material);
  Show({});
  printers.Fill(desk);
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

std::string_view FrmStatS::RowsOfList() const {
  const bool summer_aside =
      desk.screens.WinterPump && bench.workspace.HasBytes(work_file::kSummerRows);
  return summer_aside ? work_file::kSummerRows : work_file::kRows;
}

Result<Quantities> FrmStatS::Read() const {
  return ReadQuantities(bench.workspace, bench.study, RowsOfList());
}

void FrmStatS::Derive() { printers.Cbo_Printers.enabled = Chk_XL.on; }

ReportOrder FrmStatS::Order(ReportMode mode) const {
  return {.code = QuantitiesCodeOf(mode), .rows = RowsOfList()};
}

void FrmStatS::Print() {
  if (!Chk_XL.on) {
    if (MayPrintThroughProgram(desk) && ExportQuantitiesForPrint(desk, RowsOfList())) {
      DeletePrintScratch(bench.workspace);
      desk.navigator.Close(screen::kQuantities);
    }
    return;
  }
  if (printers.MakesPdfInstead(desk)) return Save(ReportMode::kPdf);
  const auto chosen = printers.Choose(desk, 1);
  if (!chosen) return;
  ReportOrder order = Order(ReportMode::kPrint);
  order.print = *chosen;
  MakeReport(desk, std::move(order));
}

void FrmStatS::Preview() {
  if (Chk_XL.on) {
    MakeReport(desk, Order(ReportMode::kPreview));
  } else if (MayPrintThroughProgram(desk)) {
    ExportQuantitiesForPrint(desk, RowsOfList());
  }
}

void FrmStatS::Save(ReportMode mode) {
  if (const auto name = ReportNameOfStudy(desk, Order(mode)))
    MakeReportFile(desk, Order(mode), *name);
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
