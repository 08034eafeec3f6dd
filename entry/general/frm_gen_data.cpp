#include "entry/general/frm_gen_data.h"

#include <limits>

#include "entry/general/general_data.h"
#include "form/tell.h"
#include "form/wait.h"
#include "study/fault.h"
#include "study/message_codes.h"
#include "study/pipe_choice.h"

namespace kalvo {
namespace {

constexpr std::string_view kToBeCalculated = "ΘΑ ΥΠΟΛ.";
constexpr std::string_view kCalculatedLater = "ΘΑ ΥΠΟΛΟΓΙΣΘΕΙ ΚΑΤΑ ΤΗ ΦΑΣΗ ΤΩΝ ΥΠΟΛΟΓΙΣΜΩΝ";

constexpr double kHighestTemperature = 100;
constexpr double kHighestVelocity = 5;  // the message names another; this is the one that acts

// The study's fluid; nothing when it has none. An empty file goes.
Result<std::optional<FluidRow>> StudyFluid(Workspace& workspace) {
  if (!workspace.HasBytes(work_file::kFluid)) {
    workspace.Delete(work_file::kFluid);
    return std::optional<FluidRow>();
  }
  const auto fluid = workspace.Rows<FluidRow>(work_file::kFluid).Read(1);
  if (!fluid) return fluid.error();
  return std::optional(*fluid);
}

// A number that a section can have; halves are rounded.
bool IsSectionNumber(double number) {
  constexpr double kHighest = std::numeric_limits<std::int16_t>::max();
  return number > 0.5 && number <= kHighest;
}

}  // namespace

FrmGenData::FrmGenData(Desk& shared_desk)
    : Form(shared_desk),
      Cmd_Cancel(*this, "Cmd_Cancel", "Επιστροφή",
                 [this] {
                   PutPipesBack();
                   Close();
                 },
                 {Plain(KeyCode::kEscape)}),
      Cmd_Back(*this, "Cmd_Back", "Αποδοχή Δεδομένων και Επιστροφή", [this] { Accept(); },
               {Ctrl(KeyCode::kEnter)}) {
  title = "ΕΙΣΑΓΩΓΙΚΑ ΔΕΔΟΜΕΝΑ ΔΙΚΤΥΟΥ ";
  Cmd_Cancel.leaves_freely = true;
  SetUpFields();
}

void FrmGenData::SetUpFields() {
  Text2.locked = true;
  Text10.locked = true;
  CboPipes.on_select = [this] { SelectPipes(); };
  Text4.enter_to = &Text6;
  Text4.on_leave = [this] { return TemperatureFits(); };
  Text6.on_enter = [this] { EnterInto(Text8.CanEdit() ? static_cast<Control&>(Text8) : Cmd_Back); };
  Text6.on_leave = [this] { return VelocityFits(); };
  Text8.enter_to = &Cmd_Back;
  ChkChiller.on_toggle = [this] {
    OpenPlant(ChkChiller.on);
    if (ChkChiller.on) EnterInto(Text8);
  };
}

void FrmGenData::EnterInto(Control& part) {
  if (MoveFocus(&part)) Focus(part);
}

void FrmGenData::Load() {
  edit_mode_ = bench.workspace.HasBytes(work_file::kRows);
  pipes_at_opening_ = bench.study.pipe_system_number;
  material_at_opening_ = bench.study.pipe_material;
  ShowFluid();
  CboPipes.entries.clear();
  for (const PipeListEntry& entry : bench.pipes) {
    CboPipes.entries.push_back(entry.Text());
  }
  TellIfFailed(bench, NoteGeneralData(bench));
  ShowFigures();
  ShowPlant();
  Focus(Text4);
}

void FrmGenData::Derive() {
  CboPipes.selected = bench.study.pipe_system_number - 1;
  LblMaterial.text = MaterialLine(bench.study.pipe_material);
  for (Field* figure : {&Text2, &Text10}) {
    figure->tone = figure->text == kToBeCalculated ? Tone::kQuiet : Tone::kPlain;
  }
}

void FrmGenData::ShowFluid() {
  const auto fluid = StudyFluid(bench.workspace);
  if (!fluid) TellError(bench, fluid.error());
  const bool known = fluid && fluid->has_value();
  const std::string name = known ? (*fluid)->name.Utf8() : bench.study.fluid_name;
  if (known && name != kWaterName) {
    const FluidRow& row = **fluid;
    ShowFluidLines(name, FormatNumber(row.mean_temperature, desk.separators),
                   FormatNumber(row.density, desk.separators),
                   FormatNumber(row.viscosity, desk.separators));
    return;
  }
  const std::string later(kCalculatedLater);
  const float temperature = bench.study.MeanTemp;
  ShowFluidLines(name,
                 temperature == 0
                     ? "ΘΑ ΚΑΤΑΧΩΡΗΘΕΙ ΚΑΤΩΤΕΡΩ"
                     : FormatPattern(temperature, pattern::kOneDecimal, desk.separators),
                 later, later);
}

void FrmGenData::ShowFluidLines(const std::string& name, const std::string& temperature,
                                const std::string& density, const std::string& viscosity) {
  Text11.text = "Ρέον Μέσον : " + name;
  Text12.text = "Μέση Θερμοκρασία (°C) : " + temperature;
  Text13.text = "Πυκνότης Μέσου (Kg/m³) : " + density;
  Text14.text = "Κινηματικό Ιξώδες (cSt) : " + viscosity;
  Text13.tone = Text14.tone = density == kCalculatedLater ? Tone::kQuiet : Tone::kPlain;
}

void FrmGenData::ShowFigures() {
  const Study& study = bench.study;
  if (study.MeanTemp != 0 || study.MeanVel != 0) {
    Text4.ShowNumber(study.MeanTemp, pattern::kOneDecimal, desk.separators);
    Text6.ShowNumber(study.MeanVel, pattern::kOneDecimal, desk.separators);
  }
  ShowTotalFlow();
  Text10.Show(study.SectionCount == 0 ? std::string(kToBeCalculated)
                                      : std::to_string(study.SectionCount));
}

void FrmGenData::ShowTotalFlow() {
  if (bench.workspace.Exists(work_file::kRows) && !bench.workspace.HasBytes(work_file::kRows)) {
    bench.workspace.Delete(work_file::kRows);
  }
  float flow = bench.study.TotalFlowM3h;
  if (flow == 0) {
    const auto of_emitters = EmittersFlow(bench.workspace);
    if (!of_emitters) TellError(bench, of_emitters.error());
    flow = of_emitters ? *of_emitters : 0;
  }
  if (flow == 0) {
    Text2.Show(kToBeCalculated);
  } else {
    Text2.ShowNumber(flow, pattern::kOneDecimal, desk.separators);
  }
}

void FrmGenData::ShowPlant() {
  const Study& study = bench.study;
  ChkChiller.visible = study.SystemClosed();
  Text8.visible = study.SystemClosed();
  ChkChiller.on = study.SystemClosed() && study.plant_section != 0;
  OpenPlant(ChkChiller.on);
  if (ChkChiller.on) Text8.ShowNumber(study.plant_section, "", desk.separators);
}

void FrmGenData::OpenPlant(bool open) {
  Text8.Show("");
  Text8.locked = !open;
  Text8.enabled = open;
}

void FrmGenData::SelectPipes() {
  Study& study = bench.study;
  const std::int16_t before = study.pipe_system_number;
  study.pipe_system_number = ToInt16(CboPipes.selected + 1);
  if (!TellIfFailed(bench, SetPipeMaterial(bench))) study.pipe_system_number = before;
}

bool FrmGenData::TemperatureFits() {
  if (Text4.Number(desk.separators) <= kHighestTemperature) return true;
  bench.Show(message::kTemperatureLimit);
  Text4.Show("");
  Text4.refused = true;
  return false;
}

bool FrmGenData::VelocityFits() {
  const double velocity = Text6.Number(desk.separators);
  if (velocity != 0 && velocity <= kHighestVelocity) return true;
  bench.Show(message::kVelocityLimit);
  Text6.refused = true;
  return false;
}

bool FrmGenData::Missing(int message, Field& field) {
  bench.Show(message);
  field.refused = true;
  Focus(field);
  return false;
}

// Without rows any number of a section may be given. Limits of temperature and velocity act where
// the fields are left. Messages 203 and 204 belong to ranges that no value can violate, below the
// one end and above the other at once.
bool FrmGenData::Complete() {
  if (Text4.Trimmed().empty()) return Missing(message::kNoTemperature, Text4);
  if (Text6.Number(desk.separators) == 0) return Missing(message::kNoVelocity, Text6);
  if (!ChkChiller.on) return true;
  if (!IsSectionNumber(Text8.Number(desk.separators))) return Missing(message::kNoPlant, Text8);
  // A number that was there before may wait for rows that are still to come.
  const bool is_new = edit_mode_ && Text8.edited();
  return !is_new || PlantSection() <= bench.study.SectionCount ||
         Missing(message::kNoSuchSection, Text8);
}

std::int16_t FrmGenData::PlantSection() const {
  return ChkChiller.on ? ToInt16(Text8.Number(desk.separators)) : std::int16_t{0};
}

void FrmGenData::Accept() {
  if (!Complete()) return;
  const GeneralData data = {ToSingle(Text4.Number(desk.separators)),
                            ToSingle(Text6.Number(desk.separators)), PlantSection()};
  const Outcome stored = [&] {
    const WaitShown wait(desk.navigator, " ... Παρακαλώ ...  ... Περιμένετε ... ");
    return StoreGeneralData(bench, data, edit_mode_);
  }();
  if (TellIfFailed(bench, stored)) Close();
}

void FrmGenData::PutPipesBack() {
  bench.study.pipe_system_number = pipes_at_opening_;
  bench.study.pipe_material = material_at_opening_;
}

bool FrmGenData::MayClose() {
  PutPipesBack();
  return true;
}

void FrmGenData::Close() { desk.navigator.Close(screen::kGeneralData); }

bool FrmGenData::OtherKey(const Key& key) {
  if (focus() != &ChkChiller) return false;
  if (key == Plain(KeyCode::kEnter)) {
    ChkChiller.Set(!ChkChiller.on);
    return true;
  }
  return key.IsText();
}

}  // namespace kalvo
