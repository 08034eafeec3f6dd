#include "entry/frm_liquid.h"

#include <algorithm>
#include <cmath>

#include "form/tell.h"
#include "study/fault.h"
#include "study/fluid_library.h"
#include "study/row_file.h"

namespace kalvo {
namespace {

constexpr std::string_view kNewFluid = "ΝΕΟ ΥΓΡΟ";
constexpr std::string_view kCancelNewFluid = "Α-Κ-Υ-Ρ-Ω-Σ-Η";

bool SameValues(const FluidRow& a, const FluidRow& b) {
  return a.mean_temperature == b.mean_temperature && a.density == b.density &&
         a.viscosity == b.viscosity;
}

}  // namespace

FrmLiquid::FrmLiquid(Desk& shared_desk)
    : Form(shared_desk),
      CmdNewLiquid(*this, "CmdNewLiquid", kNewFluid, [this] { ToggleNewMode(); }, {Ctrl('N')}),
      CmdSave(*this, "CmdSave", "Αποθήκευση Υγρού", [this] { Save(); }, {Ctrl('S')}),
      CmdDelete(*this, "CmdDelete", "Διαγραφή Υγρού", [this] { Delete(); },
                {Ctrl(KeyCode::kDelete)}),
      CmdCancel(*this, "CmdCancel", "Επιστροφή", [this] { desk.navigator.Close(screen::kLiquid); },
                {Plain(KeyCode::kEscape)}),
      CmdOK(*this, "CmdOK", "Αποδοχή Υγρού", [this] { Accept(); }, {Ctrl(KeyCode::kEnter)}) {
  title = "Επιλογή Ρέοντος Μέσου (Υγρού)";
  CmdCancel.leaves_freely = true;
  LstLiquid.on_select = [this] { ShowSelected(); };
  TxtNewLiquid.max_bytes = decltype(FluidRow::name)::kSize;
  TxtNewLiquid.on_enter = [this] {
    if (!TxtNewLiquid.Trimmed().empty()) Focus(TxtMeanT);
  };
  TxtMeanT.enter_to = &TxtDensity;
  TxtDensity.enter_to = &Txtnee;
  Txtnee.enter_to = &CmdOK;
}

void FrmLiquid::Load() {
  if (!TellIfFailed(bench, CreateFluidLibrary(bench.workspace))) return;
  Reload(bench.study.fluid_name);
}

void FrmLiquid::Reload(std::string_view select) {
  auto read = ReadFluids(bench.workspace);
  if (!read) {
    TellError(bench, read.error());
    return;
  }
  fluids_ = std::move(*read);
  std::vector<std::string> names;
  for (const FluidRow& fluid : fluids_) {
    names.push_back(fluid.name.Utf8());
  }
  const auto wanted = std::ranges::find(names, select);
  const int position = wanted == names.end() ? -1 : static_cast<int>(wanted - names.begin());
  LstLiquid.SetLines(std::move(names));
  LstLiquid.selected = position;
  LeaveNewMode();
  Focus(LstLiquid);
}

void FrmLiquid::LeaveNewMode() {
  new_mode_ = false;
  CmdNewLiquid.caption = kNewFluid;
  LstLiquid.visible = true;
  TxtNewLiquid.visible = false;
  TxtNewLiquid.Show("");
  ShowSelected();
}

void FrmLiquid::SetFields(bool open) {
  LblWater.visible = !open;
  for (Field* field : {&TxtMeanT, &TxtDensity, &Txtnee}) {
    field->Show("");
    field->locked = !open;
    field->enabled = open;
  }
}

void FrmLiquid::ShowSelected() {
  const bool other_than_water = LstLiquid.selected > 0;
  SetFields(other_than_water);
  if (!other_than_water) return;
  const FluidRow& fluid = fluids_[static_cast<std::size_t>(LstLiquid.selected)];
  TxtMeanT.ShowNumber(fluid.mean_temperature, "", desk.separators);
  TxtDensity.ShowNumber(fluid.density, "", desk.separators);
  Txtnee.ShowNumber(fluid.viscosity, "", desk.separators);
}

void FrmLiquid::ToggleNewMode() {
  if (new_mode_) {
    Reload(bench.study.fluid_name);
    return;
  }
  new_mode_ = true;
  CmdNewLiquid.caption = kCancelNewFluid;
  LstLiquid.visible = false;
  TxtNewLiquid.visible = true;
  TxtNewLiquid.Show("");
  SetFields(true);
  Focus(TxtNewLiquid);
}

bool FrmLiquid::Incomplete() {
  const bool missing = TxtMeanT.Trimmed().empty() || TxtDensity.Number(desk.separators) == 0 ||
                       Txtnee.Number(desk.separators) == 0 ||
                       (new_mode_ && TxtNewLiquid.Trimmed().empty());
  if (missing) {
    bench.Ask({"..! Π Ρ Ο Σ Ο Χ Η !...", {"... ΕΛΛΙΠΗ ΣΤΟΙΧΕΙΑ ΡΕΟΝΤΟΣ ΜΕΣΟΥ"}, 16});
  }
  return missing;
}

bool FrmLiquid::CanChangeSelected() const { return LstLiquid.selected > 0 && fluids_.size() > 1; }

bool FrmLiquid::Confirm(std::vector<std::string> lines) {
  const bool yes = bench.Ask({"  ! !   ΠΡΟΣΟΧΗ   ! ! ", std::move(lines), 292}) == Answer::kYes;
  bench.study.answer = Answer::kNone;
  return yes;
}

FluidRow FrmLiquid::FluidFromFields() const {
  const std::size_t row = new_mode_ ? fluids_.size() : static_cast<std::size_t>(LstLiquid.selected);
  FluidRow fluid = new_mode_ ? FluidRow{} : fluids_[row];
  fluid.row_number = static_cast<std::int16_t>(row + 1);
  if (new_mode_) {
    fluid.name = FixedText<50>::FromUtf8(TxtNewLiquid.Trimmed());
  }
  fluid.mean_temperature = ToSingle(TxtMeanT.Number(desk.separators));
  fluid.density = ToSingle(TxtDensity.Number(desk.separators));
  fluid.viscosity = ToSingle(Txtnee.Number(desk.separators));
  return fluid;
}

void FrmLiquid::Save() {
  if (Incomplete()) return;
  if (!new_mode_ && !CanChangeSelected()) {
    Focus(LstLiquid);
    return;
  }
  if (!Confirm({"...!! Η ΠΑΡΟΥΣΑ ΕΓΓΡΑΦΗ ΘΑ < ΣΩΘΕΙ > ΩΣ ΕΧΕΙ !!...",
                "... Επιθυμείτε σίγουρα κάτι τέτοιο ??..."})) {
    return;
  }
  const FluidRow fluid = FluidFromFields();
  if (TellIfFailed(bench, SaveFluid(bench.workspace, fluid))) {
    Reload(fluid.name.Utf8());
    LstLiquid.selected = fluid.row_number - 1;
    ShowSelected();
  }
}

void FrmLiquid::Delete() {
  if (!LstLiquid.visible || !CanChangeSelected() ||
      !Confirm({"...!! Η ΠΑΡΟΥΣΑ ΕΓΓΡΑΦΗ ΘΑ ΔΙΑΓΡΑΦΕΙ !!..."})) {
    return;
  }
  if (TellIfFailed(bench, DeleteFluid(bench.workspace, LstLiquid.selected + 1))) {
    Reload(kWaterName);
    LstLiquid.selected = 0;
    ShowSelected();
  }
}

const FluidRow* FrmLiquid::Named(std::string_view name) const {
  const auto found = std::ranges::find_if(
      fluids_, [name](const FluidRow& fluid) { return fluid.name.Utf8() == name; });
  return found == fluids_.end() ? nullptr : &*found;
}

std::optional<FluidRow> FrmLiquid::OldFluid() {
  if (bench.workspace.Exists(work_file::kFluid) && !bench.workspace.HasBytes(work_file::kFluid)) {
    bench.workspace.Delete(work_file::kFluid);
  }
  const auto rows = bench.workspace.Rows<FluidRow>(work_file::kFluid).ReadAll();
  return rows && !rows->empty() ? std::optional(rows->front()) : std::nullopt;
}

void FrmLiquid::Accept() {
  if (new_mode_ && Incomplete()) return;
  if (new_mode_ || !LstLiquid.HasSelection()) return;
  const FluidRow chosen = fluids_[static_cast<std::size_t>(LstLiquid.selected)];
  const std::optional<FluidRow> old = OldFluid();
  const std::string old_name = old ? old->name.Utf8() : bench.study.fluid_name;
  const bool other = chosen.name.Utf8() != old_name;
  const FluidRow* in_library = Named(old_name);
  const bool changed = !other && old && in_library != nullptr && !SameValues(*old, *in_library);
  if (other && !Confirm({"...!! ΠΡΟΚΕΙΤΑΙ ΝΑ ΑΛΛΑΞΕΤΕ ΤΟ ΕΙΔΟΣ ΤΟΥ ΡΕΟΝΤΟΣ ΜΕΣΟΥ !!...",
                         "... Επιθυμείτε σίγουρα κάτι τέτοιο ??..."})) {
    return;
  }
  if (changed) {
    bench.Ask({"...! Π Ρ Ο Σ Ο Χ Η !...",
               {"... Έχουν γίνει ΑΛΛΑΓΕΣ στα Δεδομένα του Υγρού", "από την τελευταία φορά ...",
                "... ΤΟ ΥΓΡΟ ΘΑ ΕΝΤΑΧΘΕΙ ΣΤΗΝ ΜΕΛΕΤΗ, ΜΕ ΤΑ ΝΕΑ ΔΕΔΟΜΕΝΑ !...",
                "... Τυχόν ΠΑΛΑΙΟΙ Υπολογισμοί, ΔΕΝ ΙΣΧΥΟΥΝ !..."},
               48});
  }
  if (!TellIfFailed(bench, WriteStudyFluid(bench, changed ? *in_library : chosen))) return;
  bench.study.fluid_name = chosen.name.Utf8();
  if (other || changed) {
    bench.study.results_valid = false;
    bench.study.unsaved_changes = true;
  }
  desk.navigator.Close(screen::kLiquid);
}

}  // namespace kalvo
