#include "results/printing/frm_prnr1.h"

#include <algorithm>
#include <cmath>

#include "form/tell.h"
#include "results/designer/designer_name.h"
#include "results/printing/make_report.h"
#include "results/printing/print_database.h"
#include "results/printing/print_study.h"

namespace kalvo {
namespace {

constexpr const char* kUnreadable = "Δεν διαβάζεται";
constexpr const char* kNoDesigner = "Δεν έχει δοθεί όνομα";
constexpr std::size_t kCopiesDigits = 3;
constexpr int kMostCopies = 999;

std::string TitleOf(bool results, bool spreadsheet, bool open) {
  return std::string("ΠΡΟΓΡΑΜΜΑ < Kalvoflume > - ΕΚΤΥΠΩΣΗ ") +
         (results ? "ΑΠΟΤΕΛΕΣΜΑΤΩΝ" : "ΔΕΔΟΜΕΝΩΝ") + " (" +
         (spreadsheet ? "μέσω Microsoft Excel - " : "") + (open ? "Ανοικτό" : "Κλειστό") +
         " Σύστημα)";
}

}  // namespace

FrmPRNR1::FrmPRNR1(Desk& shared_desk)
    : Form(shared_desk),
      VScroll1Less(*this, "VScroll1Less", "−", [this] { AddCopies(-1); }),
      VScroll1More(*this, "VScroll1More", "+", [this] { AddCopies(1); }),
      CmdFile(*this, "CmdFile", "Επιλογή Αρχείου", [this] { ChooseFileName(); }),
      Cmd_Client(*this, "Cmd_Client", " Επιλογή Ονόματος Μελετητή ",
                 [this] { ChooseDesigner(desk, desk.screens.RouteProgram); }),
      CmdPreview(*this, "CmdPreview", "Προεπισκόπηση της Εκτύπωσης (Preview)",
                 [this] { Preview(); }, {CtrlShift('P')}),
      CmdPdf(*this, "CmdPdf", "Αποθήκευση ως PDF", [this] { SavePdf(); }, {CtrlShift('S')}),
      CmdCANCEL(*this, "CmdCANCEL", "Ακύρωση και Επιστροφή", [this] { Close(); },
                {Plain(KeyCode::kEscape)}),
      CmdOK(*this, "CmdOK", "Εκτύπωση και Επιστροφή", [this] { Print(); },
            {Ctrl(KeyCode::kEnter)}) {
  OptPRN.on_toggle = [this] { OptFile.on = !(OptPRN.on = true); };
  OptFile.on_toggle = [this] { OptPRN.on = !(OptFile.on = true); };
  TxtCopies.max_bytes = kCopiesDigits;
  VScroll1Less.spoken = "Λιγότερα αντίγραφα";
  VScroll1More.spoken = "Περισσότερα αντίγραφα";
  CmdCANCEL.leaves_freely = true;
  Cbo_FileKind.entries = PrintFileKinds();
  menus = {{"&Ενέργειες",
            {{"mnuActs_Print", CmdOK.caption, &CmdOK},
             {"mnuActs_Preview", CmdPreview.caption, &CmdPreview},
             {"mnuActs_Pdf", CmdPdf.caption, &CmdPdf},
             {},
             {"mnuActs_Cancel", CmdCANCEL.caption, &CmdCANCEL}}}};
}

void FrmPRNR1::Load() {
  const Study& study = bench.study;
  title = TitleOf(Kind() == ReportKind::kResults, ByExcel(), study.SystemOpen());
  TxtThema.text = Trim(study.study_title);
  LblKind.text = study.SystemOpen() ? "ΑΝΟΙΚΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ" : "ΚΛΕΙΣΤΟ ΣΥΣΤΗΜΑ ΣΩΛΗΝΩΝ";
  LblSections.text =
      std::to_string(study.SectionCount) + (study.SectionCount == 1 ? " τμήμα" : " τμήματα");
  LblRoute.text = ByExcel() ? "μέσω Microsoft Excel" : "μέσω του Προγράμματος";
  OptPRN.on = true;
  TxtCopies.Show("1");
  TxtFile.Show(ReportBaseName(study));
  Cbo_FileKind.selected = 0;
  printers.Fill(desk);
  Focus(ByExcel() ? static_cast<Control&>(printers.Cbo_Printers) : OptPRN);
}

ReportKind FrmPRNR1::Kind() const {
  return desk.screens.ReportKind == static_cast<int>(ReportKind::kData) ? ReportKind::kData
                                                                        : ReportKind::kResults;
}

PrintFileKind FrmPRNR1::FileKind() const {
  return static_cast<PrintFileKind>(std::max(Cbo_FileKind.selected, 0));
}

int FrmPRNR1::Copies() const {
  const double typed = TxtCopies.Number(desk.separators);
  return std::clamp(static_cast<int>(std::lround(typed)), 1, kMostCopies);
}

void FrmPRNR1::AddCopies(int more) {
  TxtCopies.Show(std::to_string(std::clamp(Copies() + more, 1, kMostCopies)));
}

void FrmPRNR1::Derive() {
  const bool excel = ByExcel();
  const bool names_file = excel ? Chk_XL.on : OptFile.on;
  OptPRN.visible = OptFile.visible = !excel;
  LblCard.text = excel ? "Εκτυπωτής" : "Προορισμός";
  Chk_XL.visible = CmdPdf.visible = excel;
  LblFileKind.visible = Cbo_FileKind.visible = !excel;
  for (Control* part : std::initializer_list<Control*>{&LblFile, &TxtFile, &CmdFile}) {
    part->visible = !excel || Chk_XL.on;
    part->enabled = names_file;
  }
  Cbo_FileKind.enabled = names_file;
  for (Control* part : std::initializer_list<Control*>{&printers.Cbo_Printers, &TxtCopies,
                                                       &VScroll1Less, &VScroll1More}) {
    part->enabled = ToPrinter();
  }
  LblPrinter.text = printers.Description(desk);
  LblPrinter.visible = !LblPrinter.text.empty();
  const auto designer = DesignerName(desk);
  LblDesigner.text = !designer ? kUnreadable : designer->empty() ? kNoDesigner : *designer;
  LblDesigner.tone = designer && !designer->empty() ? Tone::kPlain : Tone::kQuiet;
  ShowTarget();
}

ReportOrder FrmPRNR1::Order(ReportMode mode) const {
  return {.code = CodeOf(mode), .kind = Kind(), .name = TxtFile.visible ? TxtFile.text : ""};
}

Result<ReportTarget> FrmPRNR1::Target(std::string_view suffix) const {
  return FindReportTarget(bench.workspace.outer_disk(), desk.data_folder, TxtFile.text, suffix);
}

void FrmPRNR1::ShowTarget() {
  LblTarget.text.clear();
  if (!ToPrinter()) {
    const ReportChoice workbook =
        ChooseReport(CodeOf(ReportMode::kSave), Kind(), bench.study.system_kind);
    const auto target =
        Target(ByExcel() ? workbook.Suffix() : std::string(ExtensionOf(FileKind())));
    if (target && !target->file.empty()) {
      LblTarget.text = "Γράφεται το " + target->file.filename().string() + " στον φάκελο " +
                       target->file.parent_path().string();
      if (!ByExcel()) LblTarget.text += ", και η βάση " + std::string(kPrintDatabase);
    }
  } else if (!ByExcel()) {
    LblTarget.text = "Γράφεται η βάση " + std::string(kPrintDatabase) +
                     " για εκτύπωση από άλλο πρόγραμμα · εδώ δεν τυπώνονται σελίδες";
  }
  LblTarget.visible = !LblTarget.text.empty();
}

void FrmPRNR1::ChooseFileName() {
  const bool workbook = ByExcel() || FileKind() == PrintFileKind::kTable;
  const auto chosen = AskForReportName(
      desk, TxtFile.Trimmed(),
      workbook ? std::vector<std::string>{"Excel_Like Files (*.XLS)"}
               : std::vector<std::string>{"Text Files (*.TXT)", "Record Files (*.REC)",
                                          "All Files (*.*)"});
  if (chosen) TxtFile.Show(*chosen);
}

// The name has its field only while a workbook is to be made.
void FrmPRNR1::SavePdf() {
  const auto name = TxtFile.visible ? std::optional(TxtFile.text)
                                    : ReportNameOfStudy(desk, Order(ReportMode::kPdf));
  if (name) MakeReportFile(desk, Order(ReportMode::kPdf), *name);
}

bool FrmPRNR1::FirstKey(const Key& key) {
  const bool more = key == Plain(KeyCode::kUp);
  if (focus() != &TxtCopies || (!more && key != Plain(KeyCode::kDown))) return false;
  AddCopies(more ? 1 : -1);
  return true;
}

void FrmPRNR1::Print() {
  if (!ByExcel()) {
    Export();
  } else if (!Chk_XL.on) {
    PrintPages();
  } else if (MakeReportFile(desk, Order(ReportMode::kSave), TxtFile.text)) {
    Close();
  }
}

void FrmPRNR1::PrintPages() {
  if (printers.MakesPdfInstead(desk)) return SavePdf();
  const auto chosen = printers.Choose(desk, Copies());
  if (!chosen) return;
  ReportOrder order = Order(ReportMode::kPrint);
  order.print = *chosen;
  if (MakeReport(desk, std::move(order))) Close();
}

void FrmPRNR1::Export() {
  std::optional<PrintFile> file;
  if (OptFile.on) {
    const auto target = Target(ExtensionOf(FileKind()));
    if (!target) {
      TellError(bench, target.error());
      return;
    }
    file = PrintFile{FileKind(), *target};
  }
  if (ExportForPrint(desk, file)) Close();
}

void FrmPRNR1::Preview() {
  if (ByExcel()) {
    MakeReport(desk, Order(ReportMode::kPreview));
  } else {
    ExportForPrint(desk, std::nullopt);
  }
}

void FrmPRNR1::Close() {
  DeletePrintScratch(bench.workspace);
  desk.navigator.Close(screen::kPrint);
}

bool FrmPRNR1::MayClose() {
  Run(CmdCANCEL);
  return false;
}

}  // namespace kalvo
