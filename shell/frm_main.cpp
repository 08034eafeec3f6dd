#include "shell/frm_main.h"

#include "form/open_kept_sheet.h"
#include "form/tell.h"
#include "shell/manual/manual_file.h"
#include "shell/study_dialogs.h"
#include "study/pipe_choice.h"
#include "study/recent_files.h"
#include "study/settled_disk.h"
#include "study/study_extensions.h"
#include "study/study_proof.h"
#include "study/study_reset.h"
#include "study/unsaved.h"

namespace kalvo {
namespace {

constexpr std::string_view kProgramTitle =
    "Πρόγραμμα Υπολογισμού Σωλήνων Ροής Υγρών  < Kalvoflume > / ";
constexpr std::string_view kUnknown = "—";
constexpr std::string_view kToBeCalculated = "ΘΑ ΥΠΟΛ.";
constexpr std::size_t kRecentInMenu = 5;
constexpr int kCommonestPosition = 10;  // entry 11 is the commonest steel tube
constexpr Key kSwitchFolderCommands = Shift(KeyCode::kEscape);

}  // namespace

FrmMain::FrmMain(Desk& shared_desk)
    : Form(shared_desk),
      CmdThemaOK(*this, "CmdThemaOK", "&Αποδοχή του Θέματος-Τίτλου της Μελέτης",
                 [this] { AcceptTitle(); }),
      Cmd_New(*this, "Cmd_New", "Νέα Μελέτη", [this] { NewStudy(); }, {Ctrl('N')}),
      Cmd_Open(*this, "Cmd_Open", "Ανάκληση Αρχείου", [this] { OpenStudy(); }, {Ctrl('O')}),
      Cmd_Save(*this, "Cmd_Save", "Δημιουργία Αρχείου", [this] { SaveToFile(); }, {CtrlShift('S')}),
      Cmd_Thema(*this, "Cmd_Thema", "ΘΕΜΑ-ΤΙΤΛΟΣ", [this] { OpenOrAcceptTitle(); },
                {Plain(KeyCode::kF2)}),
      Cmd_GenData(*this, "Cmd_GenData", "Γενικά Δεδομένα", [this] { OpenGeneralData(); },
                  {Ctrl('G')}),
      Cmd_Sect(*this, "Cmd_Sect", "Δεδομένα Τμημάτων", [this] { OpenSections(); }, {Ctrl('T')}),
      Cmd_Somata(*this, "Cmd_Somata", "", [this] { OpenEmitterData(); }, {Ctrl('E')}),
      Cmd_Calc(*this, "Cmd_Calc", "Υπολογισμοί", [this] { Calculate(false); },
               {Plain(KeyCode::kF9)}),
      Cmd_Res(*this, "Cmd_Res", "ΠΑΡΟΥΣΙΑΣΗ ΑΠΟΤΕΛΕΣΜΑΤΩΝ", [this] { ShowResults(); }, {Ctrl('R')}),
      Cmd_Next(*this, "Cmd_Next", "", [this] { CommandOf(next_).action(); }),
      CmdLiquid(*this, "CmdLiquid", " Επιλογή Ρέοντος Μέσου (Υγρού) ",
                [this] { desk.navigator.ShowModal(screen::kLiquid); }, {Ctrl('L')}),
      Cmd_Nodes(*this, "Cmd_Nodes", " Έλεγχος Κόμβων Τμημάτων ", [this] { ShowNodes(); },
                {Ctrl('K')}),
      Cmd_Winter(*this, "Cmd_Winter", "Υπολογισμός Αντλίας Χειμώνα", [this] { OpenWinter(); },
                 {Ctrl('W')}),
      Cmd_PrnData(*this, "Cmd_PrnData", "Εκτύπωση Δεδομένων", [this] { PrintData(); }, {Ctrl('P')}),
      Cmd_PrnRes(*this, "Cmd_PrnRes", "Εκτύπωση Αποτελεσμάτων", [this] { PrintResults(); },
                 {CtrlShift('P')}),
      Cmd_Recent(*this, "Cmd_Recent", "Πρόσφατα Αρχεία ...", [this] { OpenRecent(); },
                 {Shift(KeyCode::kF2), Alt(KeyCode::kF2)}),
      Cmd_CurFL(*this, "Cmd_CurFL", "Στοιχεία Αρχείου υπό Επεξεργασία",
                [this] { ShowCurrentStudy(); }, {Ctrl('I')}),
      CmdFF(*this, "CmdFF", " Αλλαγή του Folder Αποθήκευσης Αρχείων ",
            [this] { desk.navigator.ShowModal(screen::kDataFolder); }),
      CmdCopyFiles(*this, "CmdCopyFiles", " Αντιγραφή Αρχείων Μελετών ",
                   [this] { desk.navigator.ShowModal(screen::kCopy); }),
      CmdManual(*this, "CmdManual", " Εγχειρίδιο Προγράμματος ", [this] { OpenManualFile(desk); }),
      Cmd_Exit(*this, "Cmd_Exit", "Εξοδος από το Πρόγραμμα", [this] { Leave(); },
               {Alt(KeyCode::kF4)}),
      Cmd_Safety(*this, "Cmd_Safety", "Αντίγραφα Ασφαλείας ...", [this] { OpenSafetyCopy(); }),
      Mnu_SaveOwn(*this, "Mnu_SaveOwn", "Αποθήκευση", [this] { SaveOwn(); }, {Ctrl('S')}),
      Mnu_Results(*this, "Mnu_Results", "Παρουσίαση Αποτελεσμάτων",
                  [this] { ShowResultsFromMenu(); }),
      Mnu_Help(*this, "Mnu_Help", "Βοήθεια", [this] { desk.navigator.ShowManual(screen::kMain); },
               {Plain(KeyCode::kF1)}),
      Mnu_Method(*this, "Mnu_Method", " ΤΡΟΠΟΣ ΥΠΟΛΟΓΙΣΜΟΥ ΣΩΛΗΝΩΝ ", [this] { Calculate(true); }),
      CmdThemaCancel(*this, "CmdThemaCancel", "Άκυρο", [this] { EndTitleEntry(); },
                     {Plain(KeyCode::kEscape)}) {
  TxtThema.max_bytes = decltype(SectionRow::Thema)::kSize;
  TxtThema.on_enter = [this] { AcceptTitle(); };
  CmdThemaCancel.leaves_freely = true;
  Cbo_PipeKind.on_select = [this] {
    if (!filling_pipes_) {
      TellIfFailed(bench, SelectPipeSystem(bench, Cbo_PipeKind.selected));
    }
  };
  ChkSound.on_toggle = [this] { desk.options.SoundOn = ChkSound.on; };
  ChkDataKind.on_toggle = [this] { desk.options.ChkDataKind = ChkDataKind.on; };
  for (std::size_t i = 0; i < kRecentInMenu; ++i) {
    Mnu_Recent.emplace_back(*this, "Mnu_Recent" + std::to_string(i + 1), "", [this, i] {
      const std::filesystem::path file = recent_[i];  // the list may change
      OpenFile(file);
    });
  }
  MakeMenus();
}

void FrmMain::MakeMenus() {
  menus = {{"&Μελέτη",
            {{"Mnu_Thema", "Θέμα-Τίτλος της Μελέτης", &Cmd_Thema},
             {"Mnu_New", "Νέα Μελέτη", &Cmd_New},
             {"Mnu_Open", "Ανάκληση Αρχείου", &Cmd_Open},
             {"Mnu_RecentFiles", "Πρόσφατα Αρχεία ...", &Cmd_Recent},
             {"Mnu_SaveOwn", "Αποθήκευση", &Mnu_SaveOwn},
             {"Mnu_Save", "Δημιουργία Αρχείου", &Cmd_Save},
             {"Mnu_CurFL", "Στοιχεία Αρχείου υπό Επεξεργασία", &Cmd_CurFL},
             {},
             {"Mnu_Safety", "Αντίγραφα Ασφαλείας ...", &Cmd_Safety},
             {"Mnu_FF", "Αλλαγή του Folder Αποθήκευσης Αρχείων", &CmdFF},
             {},
             {"Mnu_Exit", "Εξοδος από το Πρόγραμμα", &Cmd_Exit}}},
           {"&Δεδομένα",
            {{"Mnu_DataG", "Γενικά Δεδομένα", &Cmd_GenData},
             {"Mnu_DataS", "Δεδομένα Τμημάτων", &Cmd_Sect},
             {"Mnu_Grilles", "", &Cmd_Somata},
             {"Mnu_Liquid", "Επιλογή Ρέοντος Μέσου (Υγρού)", &CmdLiquid}}},
           {"&Υπολογισμοί",
            {{"Mnu_Mean", "Υπολογισμοί", &Cmd_Calc},
             {"Mnu_Method", " ΤΡΟΠΟΣ ΥΠΟΛΟΓΙΣΜΟΥ ΣΩΛΗΝΩΝ ", &Mnu_Method},
             {"Mnu_Avail", "Υπολογισμός Αντλίας Χειμώνα", &Cmd_Winter},
             {"Mnu_Nodes", "Έλεγχος Κόμβων Τμημάτων", &Cmd_Nodes}}},
           {"Α&ποτελέσματα", {{"Mnu_Results", "Παρουσίαση Αποτελεσμάτων", &Mnu_Results}}},
           {"&Εκτυπώσεις",
            {{"Mnu_PrintD", "Εκτύπωση Δεδομένων", &Cmd_PrnData},
             {"Mnu_PrintR", "Εκτύπωση Αποτελεσμάτων", &Cmd_PrnRes}}},
           {"Ε&ργαλεία", {{"Mnu_CopyFiles", "Αντιγραφή Αρχείων Μελετών", &CmdCopyFiles}}},
           {"&Βοήθεια",
            {{"Mnu_Help", "Βοήθεια", &Mnu_Help},
             {"Mnu_Manual", "Εγχειρίδιο Προγράμματος", &CmdManual}}}};
  std::vector<MenuEntry>& study = menus.front().entries;
  for (Command& recent : Mnu_Recent) {
    study.insert(study.end() - 1, {std::string(recent.name()), "", &recent});
  }
  study.insert(study.end() - 1, MenuEntry{});
  popup = {"",
           {{"", "Γενικά Δεδομένα", &Cmd_GenData},
            {"Mnu_Sections", "Δεδομένα Τμημάτων", &Cmd_Sect},
            {"", "", &Cmd_Somata},
            {"", "Υπολογισμοί", &Cmd_Calc},
            {"", "Παρουσίαση Αποτελεσμάτων", &Mnu_Results},
            {},
            {"", "Ανάκληση Αρχείου", &Cmd_Open},
            {"", "Δημιουργία Αρχείου", &Cmd_Save}}};
}

void FrmMain::Load() {
  const bool recovered = std::exchange(bench.study.recovery, false);
  if (!recovered) {
    ResetStudy(bench);
    bench.study.unsaved_changes = false;
    bench.study.pipe_system_number = 0;
  }
  FillPipeList();
  EndTitleEntry();
  if (bench.study.fluid_name.empty()) bench.study.fluid_name = kWaterName;
  desk.navigator.Hide(screen::kKind);
}

// Once the menu shows, so that what is asked has its place.
void FrmMain::OpenGiven() {
  const std::filesystem::path given = std::exchange(desk.screens.study_argument, {});
  if (given.empty()) return;
  OpenFile(given);
}

void FrmMain::OpenFile(const std::filesystem::path& file) {
  if (!SettleTitle()) return;
  const SystemKind kind = KindOfName(file.filename().string());
  if (kind != SystemKind::kNone && (kind == SystemKind::kOpen) != bench.study.SystemOpen()) {
    TellError(bench, OtherKindError(file));  // before anything is asked for its sake
    return;
  }
  if (const auto found = SettleAndFindStudy(bench.workspace.outer_disk(), file); !found) {
    TellError(bench, found.error());
    return;
  }
  if (AskBeforeOpening(desk)) OpenChosen(desk, file, RecentList::kAdd);
}

// The list changes when a study is opened or saved, and in its own dialog.
void FrmMain::ListRecent() {
  if (recent_listed_with_ == bench.study.study_path) return;
  recent_listed_with_ = bench.study.study_path;
  recent_.clear();
  for (const RecentLine& line : RecentFilesOfKind(bench.workspace, bench.study.system_kind)) {
    if (line.IsFull() && recent_.size() < kRecentInMenu) recent_.emplace_back(line.path);
  }
  for (std::size_t i = 0; i < kRecentInMenu; ++i) {
    Mnu_Recent[i].visible = i < recent_.size();
    if (Mnu_Recent[i].visible) Mnu_Recent[i].caption = recent_[i].string();
  }
}

void FrmMain::FillPipeList() {
  filling_pipes_ = true;
  Cbo_PipeKind.entries.clear();
  for (const PipeListEntry& entry : bench.pipes) {
    Cbo_PipeKind.entries.push_back(entry.Text());
  }
  Study& study = bench.study;
  if (study.pipe_system_number == 0 && static_cast<int>(bench.pipes.size()) > kCommonestPosition) {
    study.pipe_system_number = kCommonestPosition + 1;
    TellIfFailed(bench, SetPipeMaterial(bench));
  }
  filling_pipes_ = false;
}

void FrmMain::Activate() {
  Study& study = bench.study;
  if (study.CalcStatus == calc_status::kRecalculate) {
    RerunAfterChange();
    return;
  }
  if (study.study_path == kEscapePath) study.study_path = study.last_study_path;
  desk.navigator.Hide(screen::kKind);
  if (std::exchange(study.entry_mode, kFormEntry) == kSheetEntry) {
    OpenKeptSheet(desk);
    return;
  }
  OpenGiven();
}

bool FrmMain::OtherKey(const Key& key) {
  if (key != kSwitchFolderCommands) return false;
  desk.options.folder_commands = !desk.options.folder_commands;
  return true;
}

void FrmMain::Derive() {
  const Study& study = bench.study;
  title = std::string(kProgramTitle) +
          (study.SystemOpen() ? "ΑΝΟΙΚΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ" : "ΚΛΕΙΣΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ");
  ListRecent();
  DeriveHead();
  DeriveFigures();
  DeriveNext();
  Cbo_PipeKind.selected = study.pipe_system_number - 1;
  LblMaterial.text = MaterialLine(study.pipe_material);
  Cmd_Nodes.visible = study.SystemClosed();
  Cmd_Winter.visible = study.SystemClosed();
  Mnu_Method.visible = study.SystemClosed();
  CmdFF.visible = CmdCopyFiles.visible = desk.options.folder_commands;
  ChkSound.on = desk.options.SoundOn;
  ChkDataKind.on = desk.options.ChkDataKind;
  LblFolder.text = "Folder: " + desk.data_folder.string();
}

void FrmMain::DeriveHead() {
  const Study& study = bench.study;
  LblThema.text = study.study_title.empty()
                      ? HasRows() ? "Μελέτη χωρίς θέμα" : "Δεν υπάρχει ακόμη μελέτη"
                      : study.study_title;
  LblThema.visible = !TxtThema.visible;
  LblSystem.text = study.SystemOpen() ? "Ανοικτό" : "Κλειστό";
  LblLiquid.text = "Υγρό : " + study.fluid_name;
  LblFluidAssumed.text =
      "Δίπλα στη μελέτη δεν υπάρχει αρχείο υγρού (.LQD) : θεωρείται " + study.fluid_name;
  LblFluidAssumed.visible = study.fluid_assumed && HasRows();
  LblFile.text = study.study_short_name;
  LblFile.visible = !study.study_short_name.empty();
  LblUnsaved.visible = HasUnsavedChanges(bench);
  if (LblUnsaved.visible || study.study_path != saved_path_) saved_path_.clear();
  LblSaved.visible = !saved_path_.empty();
}

void FrmMain::DeriveFigures() {
  const Study& study = bench.study;
  const Separators separators = desk.separators;
  const auto number = [&](float value, std::string_view pattern) {
    return value == 0 ? std::string(kUnknown) : FormatPattern(value, pattern, separators);
  };
  const bool rows = HasRows();
  LblFlow.text = number(study.TotalFlowM3h, pattern::kTwoDecimals);
  const bool has_head = rows && ResultsHold(study) && study.PumpHead != 0;
  LblHead.text = has_head ? number(study.PumpHead, pattern::kTwoDecimals)
                          : std::string(rows ? kToBeCalculated : kUnknown);
  LblMeanTemp.text = number(study.MeanTemp, pattern::kOneDecimal);
  LblMeanVel.text = number(study.MeanVel, pattern::kOneToThreeDecimals);
  LblSections.text = rows ? std::to_string(study.SectionCount) : std::string(kUnknown);
  LblEmittersHead.text = study.SystemOpen() ? "Υποδοχείς" : "Σώματα";
  LblEmitters.text =
      study.EmitterCount > 0 ? std::to_string(study.EmitterCount) : std::string(kUnknown);
  for (Label* figure :
       {&LblFlow, &LblHead, &LblMeanTemp, &LblMeanVel, &LblSections, &LblEmitters}) {
    const bool known = figure->text != kUnknown && figure->text != kToBeCalculated;
    figure->tone = known ? Tone::kPlain : Tone::kQuiet;
  }
}

Command& FrmMain::CommandOf(Step step) {
  switch (step) {
    case Step::kTitle:
      return Cmd_Thema;
    case Step::kGeneralData:
      return Cmd_GenData;
    case Step::kSections:
      return Cmd_Sect;
    case Step::kEmitters:
      return Cmd_Somata;
    case Step::kCalculation:
      return Cmd_Calc;
    case Step::kResults:
      break;
  }
  return Cmd_Res;
}

void FrmMain::DeriveNext() {
  StudyProgress progress =
      ProgressOf(bench.study, HasRows(), IsSheetKept(bench.workspace), desk.separators);
  constexpr auto kAt = [](Step step) { return static_cast<std::size_t>(step); };
  Cmd_Somata.caption = progress.stations[kAt(Step::kEmitters)].caption;
  for (const Step step : {Step::kTitle, Step::kGeneralData, Step::kSections, Step::kEmitters,
                          Step::kCalculation, Step::kResults}) {
    progress.stations[kAt(step)].command = &CommandOf(step);
  }
  StudyRoad.stations = std::move(progress.stations);
  LblNext.text = progress.sentence;
  next_ = progress.next;
  const Command& next = CommandOf(next_);
  Cmd_Next.caption = next.caption;
  Cmd_Next.hint = next.Hint();
  constexpr std::string_view kIcons[] = {"title",    "general", "sections",
                                         "emitters", "calc",    "results"};
  Cmd_Next.icon = kIcons[kAt(next_)];
}

}  // namespace kalvo
