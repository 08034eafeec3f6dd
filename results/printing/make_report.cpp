#include "results/printing/make_report.h"

#include "form/ask_to_replace.h"
#include "form/file_dialog.h"
#include "form/tell.h"
#include "form/wait.h"
#include "results/designer/designer_name.h"
#include "results/printing/print_study.h"
#include "study/export_folder.h"
#include "study/path_text.h"

namespace kalvo {
namespace {

constexpr const char* kUnnamedStudy = "Μελέτη";
constexpr const char* kMakesWorkbook =
    "... Παρακαλώ, Περιμένετε ... Δημιουργείται Αρχείο < Microsoft Excel > ...";

void OfferToOpen(Desk& desk, const std::filesystem::path& file) {
  const Answer answer =
      desk.bench.Ask({"Εκτύπωση",
                      {"Δημιουργήθηκε το Αρχείο :", file.string(), "Θέλετε Άνοιγμα του Αρχείου ??"},
                      box_style::kDefaultNo});
  if (answer == Answer::kYes) TellIfFailed(desk.bench, desk.viewer.Open(file));
}

Box WorkbookBox() {
  return {"  ! !  ΠΡΟΣΟΧΗ  ! ! ",
          {"... Θα δημιουργηθεί Αρχείο του < Microsoft Excel > ..."},
          box_style::kYesNo,
          kAlarmBeeps};
}

std::string SectionsText(int count) {
  return std::to_string(count) + (count == 1 ? " τμήμα" : " τμήματα");
}

// What the preview says of the pages.
PreviewFacts FactsOf(const Desk& desk, const ReportOrder& order, const ReportChoice& choice) {
  const Study& study = desk.bench.study;
  const bool quantities = order.code <= kQuantitiesCode;
  const std::string name = Trim(order.name).empty() ? ReportBaseName(study) : order.name;
  PreviewFacts facts{
      .title = quantities                           ? "Προμέτρηση"
               : order.kind == ReportKind::kResults ? "Αποτελέσματα"
                                                    : "Δεδομένα",
      .client = order.designer,
      .name = PathFromText(ReportName(name, choice.table->suffix)).filename().string(),
      .note = quantities ? std::string() : SectionsText(study.SectionCount),
      .pdf = PathFromText(ReportName(name, PdfSuffix(choice.table->suffix))),
      .suffix = PdfSuffix(choice.table->suffix)};
  return facts;
}

}  // namespace

bool MakeReport(Desk& desk, ReportOrder order) {
  if (desk.spreadsheet == nullptr || !FillClient(desk)) return false;
  const ReportChoice choice = ChooseReport(order.code, order.kind, desk.bench.study.system_kind);
  auto designer = DesignerName(desk);
  if (!designer) {
    TellError(desk.bench, designer.error());
    return false;
  }
  order.designer = *std::move(designer);
  order.template_folder = desk.program_folder;
  if (choice.mode == ReportMode::kPreview) desk.questions.preview = FactsOf(desk, order, choice);
  const bool saves = choice.mode == ReportMode::kSave;
  const WaitShown wait(desk.navigator, saves ? kMakesWorkbook : kWaitText);
  const auto progress = [&](std::size_t line, std::size_t count) {
    desk.navigator.ShowProgress(ReportProgressText(*choice.table, line, count),
                                static_cast<int>(line), static_cast<int>(count));
  };
  return WriteReport(desk.bench, *desk.spreadsheet, order, progress) == ReportEnd::kMade;
}

bool MakeReportFile(Desk& desk, ReportOrder order, std::string_view name) {
  const ReportChoice choice = ChooseReport(order.code, order.kind, desk.bench.study.system_kind);
  const auto target =
      FindReportTarget(desk.bench.workspace.outer_disk(), desk.data_folder, name, choice.Suffix());
  if (!target) {
    TellError(desk.bench, target.error());
    return false;
  }
  order.target = *target;
  if (choice.mode == ReportMode::kSave && desk.bench.Ask(WorkbookBox()) != Answer::kYes)
    return false;
  if (!MayWriteReport(desk, *target) || !MakeReport(desk, std::move(order))) return false;
  OfferToOpen(desk, target->file);
  return true;
}

std::optional<std::string> ReportNameOfStudy(Desk& desk, const ReportOrder& order) {
  const std::string base = ReportBaseName(desk.bench.study);
  if (!base.empty()) return base;
  const std::string suffix =
      ChooseReport(order.code, order.kind, desk.bench.study.system_kind).Suffix();
  const bool pdf =
      order.code == CodeOf(ReportMode::kPdf) || order.code == QuantitiesCodeOf(ReportMode::kPdf);
  return AskForReportName(desk, ReportName(kUnnamedStudy, suffix),
                          {pdf ? "PDF (*.PDF)" : "Excel_Like Files (*.XLS)"});
}

std::optional<std::string> AskForReportName(Desk& desk, std::string_view proposed,
                                            std::vector<std::string> filters) {
  if (desk.file_dialog == nullptr) return std::nullopt;
  // A dialogue does not begin in a folder that is not there.
  const auto folder = EnsureExportFolder(desk.bench.workspace.outer_disk(), desk.data_folder);
  const std::filesystem::path chosen = desk.file_dialog->ChooseTarget(
      {folder ? *folder : desk.data_folder, std::string(proposed), std::move(filters)});
  return chosen == kNoFileAtAll ? std::nullopt : std::optional(chosen.string());
}

bool MayWriteReport(Desk& desk, const ReportTarget& target) {
  if (!target.file.empty()) return AskToReplace(desk.bench, target.file);
  desk.bench.Ask(NoReportNameBox());
  return false;
}

}  // namespace kalvo
