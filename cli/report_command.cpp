#include "cli/report_command.h"

#include <CLI/CLI.hpp>

#include "cli/findings.h"
#include "cli/written_file.h"
#include "platform/xls/xls_application.h"
#include "results/reports/report_writer.h"
#include "study/designer_names.h"
#include "study/message_codes.h"
#include "study/path_text.h"
#include "study/real_disk.h"

namespace kalvo {

namespace {

// There is no screen and no printer here.
class NoPages : public WorkbookPages {
 public:
  Result<bool> Print(const Workbook& /*workbook*/, const PrintOrder& /*order*/) override {
    return kRefusal;
  }
  Outcome Preview(const Workbook& /*workbook*/) override { return kRefusal; }
  Result<std::string> MakePdf(const Workbook& /*workbook*/) override { return kRefusal; }

 private:
  inline static const FileError kRefusal{{}, "Εδώ δεν σχεδιάζονται σελίδες"};
};

// Installed or built, the templates are next to the libraries.
std::filesystem::path DeliveredTemplates() {
  return DeliveredLibrary().parent_path() / "templates";
}

int CodeOf(ReportEnd end) {
  switch (end) {
    case ReportEnd::kMade:
      return exit_code::kDone;
    case ReportEnd::kCancelled:
    case ReportEnd::kRefused:
      return exit_code::kRefused;
    case ReportEnd::kUnreadable:
      return exit_code::kUnreadable;
    case ReportEnd::kUnwritable:
      return exit_code::kUnwritable;
  }
  return exit_code::kUnwritable;
}

}  // namespace

std::string ReportCommand::Foot() const {
  return "Το αρχείο γράφεται ολόκληρο ή καθόλου. Αποτελέσματα και προμέτρηση χρειάζονται μελέτη\n"
         "με αποτελέσματα: τα γράφει το kalvo calc --save.\n" +
         Subcommand::Foot();
}

void ReportCommand::AddArguments(CLI::App& app) {
  StudyCommand::AddArguments(app);
  app.add_option("--kind", kind_,
                 "Τι γράφεται: data δεδομένα, results αποτελέσματα,\n"
                 "quantities προμέτρηση")
      ->check(CLI::IsMember({"data", "results", "quantities"}).description(""))
      ->required()
      ->type_name("data|results|quantities");
  AddFileOption(app, out_, ".XLS", "Το βιβλίο που γράφεται");
  app.add_option("--designer", designer_, "Ο Μελετητής που γράφεται στις σελίδες")
      ->type_name("ΟΝΟΜΑ");
  app.add_option("--templates", templates_, "Φάκελος με τα πρότυπα KALV_*.xls")
      ->type_name("ΦΑΚΕΛΟΣ");
  app.add_flag("--overwrite", overwrite_, "Αντικαθιστά αρχείο που υπάρχει ήδη");
}

int ReportCommand::RunOn(const Console& console, Session& session) {
  Workbench bench = session.bench();
  if (!IsOfData() && !session.study().results_valid) {
    bench.Show(message::kNoResults);
    console.err << "Υπολογίστε τη μελέτη και σώστε τη : kalvo calc ΜΕΛΕΤΗ --save ΑΡΧΕΙΟ\n";
    return exit_code::kRefused;
  }
  const Outcome may = MayWriteFile(out_, overwrite_);
  const auto target = AbsolutePath(PathFromText(out_));
  if (!may || !target) {
    console.err << "Το βιβλίο ΔΕΝ γράφηκε. " << (may ? target.error() : may.error()).Line() << '\n';
    return exit_code::kUnwritable;
  }
  RealDisk disk;
  const std::vector<SectionRow> rows = session.Rows();
  const bool named = designer_.empty() && !rows.empty();
  NoPages pages;
  XlsApplication application(disk, pages);
  const ReportOrder order{
      .code =
          kind_ == "quantities" ? QuantitiesCodeOf(ReportMode::kSave) : CodeOf(ReportMode::kSave),
      .kind = IsOfData() ? ReportKind::kData : ReportKind::kResults,
      .designer = named ? rows.front().Client.Utf8() : ListedDesigner(designer_),
      .template_folder = templates_.empty() ? DeliveredTemplates() : PathFromText(templates_),
      .target = {*target, false}};
  if (const ReportEnd end = WriteReport(bench, application, order); end != ReportEnd::kMade) {
    return CodeOf(end);
  }
  TellWritten(console, out_);
  return IsOfData() ? exit_code::kDone : TellLostWalk(console, session);
}

}  // namespace kalvo
