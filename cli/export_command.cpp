#include "cli/export_command.h"

#include <CLI/CLI.hpp>

#include "cli/findings.h"
#include "cli/study_run.h"
#include "cli/written_file.h"
#include "platform/jet/print_shell.h"
#include "results/quantities.h"
#include "study/path_text.h"
#include "study/real_disk.h"

namespace kalvo {

namespace {

constexpr const char* kResults = "results";
constexpr const char* kQuantities = "quantities";

// The designer whom the study names.
std::string DesignerOf(const std::vector<SectionRow>& rows) {
  return rows.empty() ? std::string() : rows.front().Client.Utf8();
}

int TellNotWritten(const Console& console, const FileError& error) {
  console.out.flush();
  console.err << "Η βάση δεδομένων ΔΕΝ γράφηκε. " << error.Line() << '\n';
  return exit_code::kUnwritable;
}

}  // namespace

std::string ExportCommand::Foot() const {
  return "Η βάση (Jet 4, .MDB) έχει έναν πίνακα, \"My_Table Data\": μία γραμμή για κάθε τμήμα ή\n"
         "για κάθε διάμετρο του Συστήματος Σωλήνων. Μελέτη χωρίς αποτελέσματα υπολογίζεται με\n"
         "τον τρόπο 1. Η μελέτη δεν αλλάζει.\n" +
         Subcommand::Foot();
}

void ExportCommand::AddArguments(CLI::App& app) {
  StudyCommand::AddArguments(app);
  app.add_option("--kind", kind_, "Αποτελέσματα των τμημάτων ή προμέτρηση")
      ->required()
      ->check(CLI::IsMember({kResults, kQuantities}).description(""))
      ->type_name("results|quantities");
  AddFileOption(app, out_, ".MDB", "Η βάση δεδομένων που γράφεται");
  app.add_flag("--ignore-capacity", ignore_capacity_,
               "Συνεχίζει και αν το Σύστημα Σωλήνων δεν επαρκεί για την ταχύτητα");
  app.add_flag("--overwrite", overwrite_, "Το --out μπορεί να αντικαταστήσει αρχείο που υπάρχει");
}

int ExportCommand::RunOn(const Console& console, Session& session) {
  if (const Outcome may = MayWriteFile(out_, overwrite_); !may)
    return TellNotWritten(console, may.error());
  session.prompter().ignore_capacity = ignore_capacity_;
  if (!session.study().results_valid) {
    const int code = CalculateStudy(console, session, Method::kFlowOnly);
    if (code != exit_code::kDone) return code;
  }
  const auto table = Gather(session);
  if (!table) {
    console.err << table.error().Line() << '\n';
    return exit_code::kRefused;
  }
  auto bytes = FillPrintShell(MakePrintShell(table->columns), *table);
  if (!bytes) return TellNotWritten(console, bytes.error());
  RealDisk disk;
  if (const Outcome written = ReplaceFile(disk, PathFromText(out_), std::move(*bytes)); !written) {
    return TellNotWritten(console, written.error());
  }
  TellWritten(console, out_);
  return TellLostWalk(console, session);
}

Result<PrintTable> ExportCommand::Gather(Session& session) const {
  const std::vector<SectionRow> rows = session.Rows();
  if (kind_ == kResults) return PrintedSections(rows, DesignerOf(rows));
  const auto quantities = ReadQuantities(session.workspace(), session.study());
  if (!quantities) return quantities.error();
  if (quantities->lines.empty()) return FileError{{}, kNoQuantities};
  return PrintedQuantities(quantities->lines, quantities->pipes, DesignerOf(rows));
}

}  // namespace kalvo
