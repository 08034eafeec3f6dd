#include "entry/general/frm_liquid.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

#include "form/tell.h"
#include "study/fault.h"
#include "study/fluid_library.h"
#include "study/letter_case.h"
#include "study/row_file.h"

namespace kalvo {
namespace {

constexpr std::string_view kNewFluid = "ΝΕΟ ΥΓΡΟ";
constexpr std::string_view kCancelNewFluid = "Α-Κ-Υ-Ρ-Ω-Σ-Η";
constexpr std::string_view kOnlyInStudy = "  (μόνο στη μελέτη)";
constexpr std::string_view kWaterNote =
    "Του νερού η πυκνότητα και το ιξώδες υπολογίζονται από τη θερμοκρασία της μελέτης.";
constexpr std::string_view kOnlyInStudyNote =
    "Το υγρό ήρθε με τη μελέτη και λείπει από τη βιβλιοθήκη. Με < Αποθήκευση Υγρού > προστίθεται.";

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
      CmdCancel(*this, "CmdCancel", "Επιστροφή",
                [this] {
                  if (SettleEdits()) desk.navigator.Close(screen::kLiquid);
                },
                {Plain(KeyCode::kEscape)}),
      CmdOK(*this, "CmdOK", "Αποδοχή Υγρού", [this] { Accept(); }, {Ctrl(KeyCode::kEnter)}) {
  title = "Επιλογή Ρέοντος Μέσου (Υγρού)";
  CmdCancel.leaves_freely = true;
  LstLiquid.on_select = [this] { SelectOther(); };
  TxtNewLiquid.max_bytes = decltype(FluidRow::name)::kSize;
  TxtNewLiquid.on_enter = [this] {
    if (!TxtNewLiquid.Trimmed().empty()) Focus(TxtMeanT);
  };
  TxtMeanT.enter_to = &TxtDensity;
  TxtDensity.enter_to = &Txtnee;
  Txtnee.enter_to = &CmdOK;
}

void FrmLiquid::Load() {
  if (TellIfFailed(bench, CreateFluidLibrary(bench.workspace))) {
    Reload(bench.study.fluid_name);
  } else {
    ShowNothing();
  }
}

bool FrmLiquid::MayClose() { return SettleEdits(); }

void FrmLiquid::ShowNothing() {
  fluids_.clear();
  library_fluids_ = 0;
  LstLiquid.selected = -1;
  LstLiquid.SetLines({});
  LeaveNewMode();
  Focus(LstLiquid);
}

bool FrmLiquid::Reload(std::string_view select) {
  auto read = ReadFluids(bench.workspace);
  if (!read) {
    TellError(bench, read.error());
    ShowNothing();
    return false;
  }
  fluids_ = std::move(*read);
  library_fluids_ = static_cast<int>(fluids_.size());
  const std::optional<FluidRow> own = OldFluid();
  if (own && Named(own->name.Utf8()) == nullptr) fluids_.push_back(*own);
  LstLiquid.selected = -1;
  std::vector<std::string> lines;
  for (const FluidRow& fluid : fluids_) {
    const int position = static_cast<int>(lines.size());
    const std::string name = fluid.name.Utf8();
    if (LstLiquid.selected < 0 && name == select) LstLiquid.selected = position;
    lines.push_back(name + std::string(IsOnlyInStudy(position) ? kOnlyInStudy : ""));
  }
  LstLiquid.SetLines(std::move(lines));
  LeaveNewMode();
  Focus(LstLiquid);
  return true;
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
  LblNote.visible = false;
  for (Field* field : {&TxtMeanT, &TxtDensity, &Txtnee}) {
    field->Show("");
    field->locked = !open;
    field->enabled = open;
  }
}

void FrmLiquid::SelectOther() {
  const int wanted = std::exchange(LstLiquid.selected, shown_);
  if (!SettleEdits()) return;
  LstLiquid.selected = wanted;
  ShowSelected();
}

void FrmLiquid::ShowSelected() {
  shown_ = LstLiquid.selected;
  const bool other_than_water = shown_ > 0;
  SetFields(other_than_water);
  LblNote.visible = shown_ == 0 || IsOnlyInStudy(shown_);
  LblNote.text = other_than_water ? kOnlyInStudyNote : kWaterNote;
  if (!other_than_water) return;
  const FluidRow& fluid = fluids_[static_cast<std::size_t>(shown_)];
  TxtMeanT.ShowNumber(fluid.mean_temperature, "", desk.separators);
  TxtDensity.ShowNumber(fluid.density, "", desk.separators);
  Txtnee.ShowNumber(fluid.viscosity, "", desk.separators);
}

void FrmLiquid::ToggleNewMode() {
  const bool leaves = new_mode_;
  if (!SettleEdits()) return;
  if (leaves) {
    if (new_mode_) Reload(bench.study.fluid_name);  // otherwise it was saved
    return;
  }
  if (library_fluids_ == 0) {
    Tell({"... Η βιβλιοθήκη των υγρών είναι κενή ή δεν διαβάζεται ..."});
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
  if (missing) Tell({"... ΕΛΛΙΠΗ ΣΤΟΙΧΕΙΑ ΡΕΟΝΤΟΣ ΜΕΣΟΥ"});
  return missing;
}

bool FrmLiquid::NameInUse() {
  if (!new_mode_ && !IsOnlyInStudy(shown_)) return false;
  const std::string name = FluidFromFields().name.Utf8();
  const auto library = static_cast<std::size_t>(library_fluids_);
  const auto others = std::span(fluids_).first(new_mode_ ? fluids_.size() : library);
  const bool in_use = std::ranges::any_of(others, [&name](const FluidRow& fluid) {
    return EqualIgnoringCase(fluid.name.Utf8(), name);
  });
  if (in_use) Tell({"... Υπάρχει - ήδη - υγρό με το όνομα < " + name + " > ..."});
  if (in_use && new_mode_) {
    TxtNewLiquid.refused = true;
    Focus(TxtNewLiquid);
  }
  return in_use;
}

bool FrmLiquid::HasEdits() const {
  if (!new_mode_ && (shown_ < 0 || static_cast<std::size_t>(shown_) >= fluids_.size()))
    return false;
  const std::array fields = {&TxtNewLiquid, &TxtMeanT, &TxtDensity, &Txtnee};
  const auto typed = [this](const Field* field) {
    return new_mode_ ? !field->Trimmed().empty() : field->edited();
  };
  if (std::ranges::none_of(fields, typed)) return false;
  return new_mode_ || !SameValues(FluidFromFields(), fluids_[static_cast<std::size_t>(shown_)]);
}

bool FrmLiquid::SettleEdits() {
  if (!HasEdits()) return true;
  const Answer answer =
      bench.Ask({"  ! !   ΠΡΟΣΟΧΗ   ! ! ",
                 {"!! Τα στοιχεία του υγρού που γράψατε, ΔΕΝ έχουν αποθηκευθεί !!",
                  " Θέλετε να αποθηκευθούν στη βιβλιοθήκη ? "},
                 box_style::kDefaultCancel});
  if (answer == Answer::kYes) return !Incomplete() && !NameInUse() && Store();
  if (answer == Answer::kNo && !new_mode_) ShowSelected();
  return answer == Answer::kNo;
}

bool FrmLiquid::CanChangeSelected() const { return LstLiquid.selected > 0 && fluids_.size() > 1; }

void FrmLiquid::Tell(std::vector<std::string> lines) {
  bench.Ask({"..! Π Ρ Ο Σ Ο Χ Η !...", std::move(lines), box_style::kStop});
}

bool FrmLiquid::Confirm(std::vector<std::string> lines) {
  const bool yes = bench.Ask({"  ! !   ΠΡΟΣΟΧΗ   ! ! ", std::move(lines), box_style::kDefaultNo}) ==
                   Answer::kYes;
  return yes;
}

FluidRow FrmLiquid::FluidFromFields() const {
  const int row = new_mode_ ? library_fluids_ : shown_;
  FluidRow fluid = new_mode_ ? FluidRow{} : fluids_[static_cast<std::size_t>(row)];
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
  if (NameInUse()) return;
  if (Confirm({"...!! Η ΠΑΡΟΥΣΑ ΕΓΓΡΑΦΗ ΘΑ < ΣΩΘΕΙ > ΩΣ ΕΧΕΙ !!...",
               "... Επιθυμείτε σίγουρα κάτι τέτοιο ??..."})) {
    Store();
  }
}

bool FrmLiquid::Store() {
  const FluidRow fluid = FluidFromFields();
  if (!TellIfFailed(bench, SaveFluid(bench.workspace, fluid))) return false;
  if (!Reload(fluid.name.Utf8())) return false;
  LstLiquid.selected = fluid.row_number - 1;
  ShowSelected();
  return true;
}

void FrmLiquid::Delete() {
  if (LstLiquid.visible && LstLiquid.HasSelection() && IsOnlyInStudy(LstLiquid.selected)) {
    Tell({"... Το υγρό αυτό ΔΕΝ υπάρχει στη βιβλιοθήκη ..."});
    return;
  }
  if (!LstLiquid.visible || !CanChangeSelected() ||
      !Confirm({"...!! Η ΠΑΡΟΥΣΑ ΕΓΓΡΑΦΗ ΘΑ ΔΙΑΓΡΑΦΕΙ !!..."})) {
    return;
  }
  if (TellIfFailed(bench, DeleteFluid(bench.workspace, LstLiquid.selected + 1)) &&
      Reload(kWaterName)) {
    LstLiquid.selected = 0;
    ShowSelected();
  }
}

const FluidRow* FrmLiquid::Named(std::string_view name) const {
  const auto library = std::span(fluids_).first(static_cast<std::size_t>(library_fluids_));
  const auto found = std::ranges::find_if(
      library, [name](const FluidRow& fluid) { return fluid.name.Utf8() == name; });
  return found == library.end() ? nullptr : &*found;
}

std::optional<FluidRow> FrmLiquid::OldFluid() {
  if (bench.workspace.Exists(work_file::kFluid) && !bench.workspace.HasBytes(work_file::kFluid)) {
    bench.workspace.Delete(work_file::kFluid);
  }
  const auto rows = bench.workspace.Rows<FluidRow>(work_file::kFluid).ReadAll();
  return rows && !rows->empty() ? std::optional(rows->front()) : std::nullopt;
}

void FrmLiquid::Accept() {
  if (new_mode_) {
    if (!Incomplete()) {
      Tell({"... Το ΝΕΟ ΥΓΡΟ πρέπει - πρώτα - να αποθηκευθεί ...",
            "... Πατήστε το πλήκτρο < Αποθήκευση Υγρού > ..."});
    }
    return;
  }
  if (!LstLiquid.HasSelection()) {
    Tell({"... Πρέπει - πρώτα - να επιλέξετε ένα υγρό ..."});
    Focus(LstLiquid);
    return;
  }
  if (SettleEdits()) TakeIntoStudy(fluids_[static_cast<std::size_t>(LstLiquid.selected)]);
}

void FrmLiquid::TakeIntoStudy(const FluidRow& chosen) {
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
               box_style::kExclamation});
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
